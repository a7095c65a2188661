// Services that are fetched on first use and kept.
#include "objects/KeptService.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <thread>
#include <vector>

#include "platform/base/KORError.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using objects::KeptService;

class ExampleService : public KORInterface<ExampleService> {
 public:
  static constexpr const char* InterfaceName = "ExampleService";
};
using ExampleService_var = KORHandle<ExampleService>;

class Example final : public KORImplements<ExampleService> {};

// Says that it does not offer its interface.
class Refusing final : public KORImplements<ExampleService> {
 protected:
  void* FindInterface(const KORUuid& /*interface_id*/) override { return nullptr; }
};

std::atomic<int> fetched{0};

template <class Service, long Status>
HandedOut<ExampleService> FetchOf() {
  ++fetched;
  return HandedOut<ExampleService>([](ExampleService*& service) {
    service = new Service;
    return Status;
  });
}

HandedOut<ExampleService> FetchNone() {
  ++fetched;
  return HandedOut<ExampleService>([](ExampleService*& /*service*/) { return S_OK; });
}

class KeptServiceTest : public testing::Test {
 protected:
  KeptServiceTest() { fetched = 0; }
};

long Ask(KeptService<ExampleService>& kept, ExampleService_var& service) {
  ExampleService* given = service.Get();
  const long status = kept.Get(given);
  service = ExampleService_var::Adopt(given);
  return status;
}

TEST_F(KeptServiceTest, IsFetchedOnFirstUseAndThenKept) {
  KeptService<ExampleService> kept(FetchOf<Example, S_OK>);
  EXPECT_EQ(fetched, 0);
  ExampleService_var first, second;
  EXPECT_EQ(Ask(kept, first), S_OK);
  EXPECT_EQ(Ask(kept, second), S_OK);
  EXPECT_EQ(first, second);
  EXPECT_EQ(fetched, 1);
}

TEST_F(KeptServiceTest, IsFetchedAnewOnceItWasLetGo) {
  KeptService<ExampleService> kept(FetchOf<Example, S_OK>);
  kept.LetGo();
  ExampleService_var first, second;
  EXPECT_EQ(Ask(kept, first), S_OK);
  kept.LetGo();
  EXPECT_EQ(objectstest::ReferencesOf(*first), 1u) << "who asked for it keeps it";
  EXPECT_EQ(Ask(kept, second), S_OK);
  EXPECT_FALSE(first == second);
  EXPECT_EQ(fetched, 2);
}

TEST_F(KeptServiceTest, WhatComesWithAFailingStatusIsNotKept) {
  KeptService<ExampleService> kept(FetchOf<Example, E_NOINTERFACE>);
  for (int attempt = 1; attempt <= 2; ++attempt) {
    ExampleService_var service;
    EXPECT_EQ(Ask(kept, service), E_FAIL);
    EXPECT_TRUE(service.IsNull());
    EXPECT_EQ(fetched, attempt);
  }
}

TEST_F(KeptServiceTest, NoServiceIsAFailureWhateverTheStatus) {
  KeptService<ExampleService> kept(FetchNone);
  ExampleService_var service;
  EXPECT_EQ(Ask(kept, service), E_FAIL);
  EXPECT_TRUE(service.IsNull());
}

TEST_F(KeptServiceTest, AServiceThatRefusesItsInterfaceIsAFailure) {
  KeptService<ExampleService> kept(FetchOf<Refusing, S_OK>);
  ExampleService_var service;
  EXPECT_EQ(Ask(kept, service), E_FAIL);
  EXPECT_TRUE(service.IsNull());
}

TEST_F(KeptServiceTest, ASuccessOfTheFetchThatIsNotSOkIsASuccess) {
  KeptService<ExampleService> kept(FetchOf<Example, S_FALSE>);
  ExampleService_var service;
  EXPECT_EQ(Ask(kept, service), S_OK);
  EXPECT_FALSE(service.IsNull());
}

HandedOut<ExampleService> RaiseAtFirst() {
  if (++fetched == 1) KORError(E_FAIL, "broken").Throw();
  return FetchOf<Example, S_OK>();
}

TEST_F(KeptServiceTest, AnErrorRaisedByTheFetchIsTheCallersAndIsForgotten) {
  KeptService<ExampleService> kept(RaiseAtFirst);
  ExampleService_var service;
  EXPECT_THROW(Ask(kept, service), KORError);
  EXPECT_EQ(Ask(kept, service), S_OK);
}

TEST_F(KeptServiceTest, ThreadsThatAskAtOnceGetTheSameOne) {
  constexpr std::size_t ThreadCount = 8;
  KeptService<ExampleService> kept(FetchOf<Example, S_OK>);
  std::vector<ExampleService_var> services(ThreadCount);
  std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
  std::vector<std::thread> threads;
  for (ExampleService_var& service : services) {
    threads.emplace_back([&kept, &service, &start] {
      start.arrive_and_wait();
      EXPECT_EQ(Ask(kept, service), S_OK);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const ExampleService_var& service : services) EXPECT_EQ(service, services.front());
  EXPECT_EQ(fetched, 1);
}

}  // namespace
