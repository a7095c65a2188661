// Counted objects, their classes and their handles.
#include "platform/base/KORHandle.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/base/KORStatus.h"

namespace {

class Counted : public KORBaseUnknown {
 public:
  explicit Counted(int& living) : _Living(living) { ++_Living; }
  ~Counted() override { --_Living; }

  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }
  const char* IsA() const override { return "Counted"; }
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"Counted", {{1}}, KORBaseUnknown::MetaObject()};
    return &description;
  }

  int Value = 3;

 private:
  int& _Living;
};
using Counted_var = KORHandle<Counted>;

TEST(KORBaseUnknownTest, CountsReferences) {
  int living = 0;
  auto* object = new Counted(living);
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(living, 1);
  EXPECT_EQ(object->Release(), 0u);
  EXPECT_EQ(living, 0);
}

TEST(KORBaseUnknownTest, KnowsItsClass) {
  int living = 0;
  const Counted_var object = Counted_var::Adopt(new Counted(living));
  EXPECT_STREQ(object->IsA(), "Counted");
  EXPECT_EQ(object->IsAKindOf("Counted"), 1);
  EXPECT_EQ(object->IsAKindOf("KORBaseUnknown"), 1);
  EXPECT_EQ(object->IsAKindOf("KORError"), 0);
  EXPECT_EQ(object->IsAKindOf(nullptr), 0);
  EXPECT_STREQ(KORBaseUnknown::ClassName(), "KORBaseUnknown");
  EXPECT_EQ(KORBaseUnknown::ClassId(), KORUuid{});
}

TEST(KORHandleTest, KeepsItsObjectAlive) {
  int living = 0;
  {
    Counted_var first = Counted_var::Adopt(new Counted(living));
    Counted_var second = first;
    first = nullptr;
    EXPECT_TRUE(first.IsNull());
    EXPECT_EQ(living, 1);
    EXPECT_EQ(second->Value, 3);
    const Counted_var third = std::move(second);
    EXPECT_EQ(third->Value, 3);
    EXPECT_FALSE(third == first);
  }
  EXPECT_EQ(living, 0);
}

TEST(KORHandleTest, TakesAReferenceOfItsOwn) {
  int living = 0;
  auto* object = new Counted(living);
  {
    Counted_var handle(object);
    Counted_var& same = handle;
    handle = same;
    EXPECT_EQ(handle.Get(), object);
  }
  EXPECT_EQ(living, 1);
  object->Release();
  EXPECT_EQ(living, 0);
}

TEST(KORHandleTest, CallThroughNullRaises) {
  const Counted_var nothing;
  try {
    static_cast<void>(nothing->Value);
    FAIL() << "no error was raised";
  } catch (const KORError& error) {
    EXPECT_EQ(error.GetStatus(), E_FAIL);
    EXPECT_FALSE(error.GetMessage().IsEmpty());
  }
}

TEST(KORHandleTest, CountsAcrossThreads) {
  int living = 0;
  {
    const Counted_var object = Counted_var::Adopt(new Counted(living));
    std::vector<std::thread> threads;
    for (int index = 0; index < 4; ++index) {
      threads.emplace_back([object] {
        for (int round = 0; round < 10000; ++round) {
          const Counted_var copy = object;
          EXPECT_EQ(copy->Value, 3);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(object->AddRef(), 2u);
    object->Release();
  }
  EXPECT_EQ(living, 0);
}

}  // namespace
