// Memory that runs out while a file is parsed: a message or an empty object, never an exception and never a leak.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "platform/system/KORSession.h"
#include "tests/platform/JsonTest.h"
#include "tests/platform/XmlTest.h"

namespace {

// Counts down the allocations of this thread that still succeed; one fails at zero. Below zero none fails.
thread_local long allocations_left = -1;

bool IsTheOneThatFails() {
  if (allocations_left < 0) return false;
  return allocations_left-- == 0;
}

}  // namespace

// Not inlined, so that the compiler sees pairs of new and delete, not of new and free.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (IsTheOneThatFails()) throw std::bad_alloc();
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

namespace {

TEST(MemoryExhaustionTest, EndsInAMessageWhereverItHappens) {
  const support::TemporaryFolder folder;
  std::string text = "<LIST>";
  for (int number = 0; number < 40; ++number)
    text += "<n" + std::to_string(number) + "name-that-is-allocated>x</n" + std::to_string(number) +
            "name-that-is-allocated>";
  const KORUnicodeString path(folder.Write("test.xml", text + "</LIST>").c_str());
  const KORIXMLDOMDocumentBuilder_var builder = KORIXMLDOMDocumentBuilder_var::Adopt(new KORIXMLDOMDocumentBuilder);
  const KORISAXInputSource_var source = KORISAXInputSource_var::Adopt(new KORISAXInputSource(path, "test"));

  int failures = 0;
  for (long place = 0;; ++place) {
    KORIDOMDocument_var document;
    KORError::ClearLastError();
    allocations_left = place;
    const long status = builder->Parse(source, document, {}, {});
    const bool failed = allocations_left < 0;
    allocations_left = -1;
    if (!failed) {
      EXPECT_EQ(status, S_OK);
      break;
    }
    ++failures;
    EXPECT_EQ(status, E_FAIL) << "allocation " << place;
    EXPECT_TRUE(document.IsNull());
    const auto error = KORError::KORGetLastError(status, nullptr);
    ASSERT_TRUE(error.has_value()) << "allocation " << place;
    KORUnicodeString message = error->GetMessage();
    message.ToLower();
    EXPECT_GE(message.SearchSubString("memory"), 0) << message.ConvertToChar();
  }
  EXPECT_GT(failures, 80);
}

TEST(MemoryExhaustionTest, LeavesAJsonObjectWithoutKeysWhereverItHappens) {
  const support::TemporaryFolder folder;
  const std::string text = R"({"a key of many letters":["a text of many letters",{},{"a":1,"b":2,"a":[[]]}],"c":0.5})";
  const KOROmxFilePath path(KOROmxUTF8String(KORUnicodeString(folder.Write("test.json", text).c_str())));

  int failures = 0;
  for (long place = 0;; ++place) {
    allocations_left = place;
    const KOROmxJsonObject object(path);
    const bool failed = allocations_left < 0;
    allocations_left = -1;
    if (!failed) {
      EXPECT_EQ(object.GetJsonType("c"), KOROmxJsonType::Real);
      break;
    }
    ++failures;
    EXPECT_EQ(object.ToString(), "{}") << "allocation " << place;
  }
  EXPECT_GT(failures, 20);
}

}  // namespace
