// Sessions side by side: each thread makes, finds, opens and keeps the analyses of its own session.
#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "VEXSTTProvider.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using objectstest::ListOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::Operation_var;

using Manager_var = VEXITimeAnalysisSessionServicesMgr_var;

constexpr int ThreadCount = 8;
constexpr int Rounds = 50;

Manager_var Manager() {
  VEXITimeAnalysisSessionServicesMgr* manager = nullptr;
  EXPECT_EQ(VEXSTTProvider::GetSessionServicesMgr(manager), S_OK);
  return Manager_var::Adopt(manager);
}

// Puts a new analysis in place of the one under an operation.
KORBaseUnknown_var Replace(const Operation_var& operation) {
  KORBaseUnknown_var made;
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(made, {}, {}, NULL_var), S_OK);
  EXPECT_EQ(VEXSTTProvider::RemoveRepRef(operation), S_OK);
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(operation, made), S_OK);
  return made;
}

void ExpectFoundEverywhere(const Operation_var& operation, const KORBaseUnknown_var& analysis) {
  const auto occurrence = NewOccurrence(operation);
  EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisFromOperation(occurrence), analysis);
  KORListValKORBaseUnknown_var instances;
  ASSERT_EQ(VEXSTTProvider::GetAllTARepInstancesFromOpeOcc(ListOf({NULL_var, occurrence}), instances), S_OK);
  KORBaseUnknown* borrowed = nullptr;
  EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instances[1], borrowed), 1);
  EXPECT_EQ(borrowed, analysis.Get());
  VEXITimeAnalysisRepReference_var opened;
  EXPECT_EQ(VEXSTTProvider::GetTARepRefFromPLMComponent(KORIPLMComponent_var(analysis).Get(), opened), S_OK);
  EXPECT_EQ(opened, analysis);
}

// Asks for the factory while others let it go.
void UseTheFactory() {
  PLMIRepresentationReferenceFactory* factory = nullptr;
  EXPECT_EQ(VEXSTTProvider::GetRepRefFactory(factory), S_OK);
  const auto held = PLMIRepresentationReferenceFactory_var::Adopt(factory);
  EXPECT_FALSE(held.IsNull());
  const VEXSTTProvider lets_go;
}

void KeepAndForget(const std::string& key, const KORBaseUnknown_var& analysis) {
  const Manager_var manager = Manager();
  EXPECT_EQ(manager->KeepComponent(key.c_str(), analysis.Get()), S_OK);
  KORBaseUnknown* kept = nullptr;
  EXPECT_EQ(manager->GetKeptComponent(key.c_str(), kept), S_OK);
  EXPECT_EQ(KORBaseUnknown_var::Adopt(kept), analysis);
  EXPECT_EQ(manager->ForgetComponent(key.c_str()), S_OK);
}

void WorkInASession(int number) {
  const KORFreshSession session;
  const auto operation = NewOperation("op", {NewDrawing("D"), NewAnalysis("A")});
  for (int round = 0; round < Rounds; ++round) {
    const KORBaseUnknown_var analysis = Replace(operation);
    ExpectFoundEverywhere(operation, analysis);
    UseTheFactory();
    KeepAndForget(std::to_string(number), analysis);
  }
  EXPECT_EQ(KORModel::Current().GetTimeAnalyses().size(), static_cast<std::size_t>(Rounds) + 1);
}

class ProviderThreadsTest : public testing::Test {
 protected:
  // The process keeps the manager to its end, and so it is made before a test counts objects.
  static void SetUpTestSuite() { (void)Manager(); }
};

TEST_F(ProviderThreadsTest, SessionsSideBySide) {
  std::barrier start(ThreadCount);
  std::vector<std::thread> threads;
  for (int number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([number, &start] {
      start.arrive_and_wait();
      WorkInASession(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// Keeps an analysis whose session ends while another thread asks for all that is kept.
void EndSessionsWithKeptAnalyses(int number) {
  const std::string key = "ending " + std::to_string(number);
  for (int round = 0; round < Rounds; ++round) {
    const KORFreshSession session;
    EXPECT_EQ(Manager()->KeepComponent(key.c_str(), NewAnalysis("A")->GetImpl(0)), S_OK);
    const bool is_forgotten_in_time = round % 2 == 0;
    EXPECT_EQ(Manager()->ForgetComponent((is_forgotten_in_time ? key : "unknown").c_str()), S_OK);
  }
  EXPECT_EQ(Manager()->ForgetComponent(key.c_str()), S_OK);
}

TEST_F(ProviderThreadsTest, KeptComponentsOfEndingSessions) {
  std::vector<std::thread> threads;
  for (int number = 0; number < ThreadCount / 2; ++number) {
    threads.emplace_back([number] { EndSessionsWithKeptAnalyses(number); });
    threads.emplace_back([] {
      for (int round = 0; round < Rounds; ++round) {
        KORListValKORBaseUnknown_var all;
        (void)Manager()->GetAllKeptComponents(all);
        EXPECT_LE(all.Size(), ThreadCount / 2);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_F(ProviderThreadsTest, AManagerIsCastToItsInterface) {
  const KORFreshSession session;
  const KORBaseUnknown_var object = Manager();
  EXPECT_EQ(Manager_var(object), Manager());
  EXPECT_TRUE(Manager_var(KORBaseUnknown_var(NewAnalysis("A"))).IsNull());
}

}  // namespace
