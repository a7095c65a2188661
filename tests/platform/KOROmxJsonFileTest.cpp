// JSON files: what is read of them and how it is written again, and what is refused.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/formula/ScopedLocale.h"
#include "tests/platform/JsonTest.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/WholeLiteral.h"

namespace {

using platformtest::KeysOf;
using platformtest::NameOfRow;
using platformtest::NestedObjects;
using platformtest::ReadJson;
using platformtest::ReadJsonFile;
using platformtest::TextOf;
using support::Whole;

struct FileRow {
  const char* Name;
  std::string File;
  std::string Written;
};
class JsonFileTest : public testing::TestWithParam<FileRow> {};

TEST_P(JsonFileTest, IsReadAndWrittenAgain) {
  EXPECT_EQ(TextOf(ReadJson(GetParam().File)), GetParam().Written);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, JsonFileTest,
    testing::Values(FileRow{"NoKeys", "{}", "{}"},
                    FileRow{"BlanksBetweenTheParts", " { \"a\" :\t1\r\n,\n\"b\":2 } \n", R"({"a":1,"b":2})"},
                    FileRow{"OrderOfTheKeys", R"({"z":1,"a":2,"M":3,"":4})", R"({"z":1,"a":2,"M":3,"":4})"},
                    FileRow{"EveryKind", R"({"a":true,"b":false,"c":null,"d":[1,[],"x",{}],"e":{"f":{}}})",
                            R"({"a":true,"b":false,"c":null,"d":[1,[],"x",{}],"e":{"f":{}}})"}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Numbers, JsonFileTest,
    testing::Values(
        FileRow{"IntegersAndReals", R"({"a":0,"b":0.0,"c":2,"d":2.0})", R"({"a":0,"b":0.0,"c":2,"d":2.0})"},
        FileRow{"NegativeZeros", R"({"a":-0.0,"b":-0})", R"({"a":-0.0,"b":0})"},
        FileRow{"ExponentsMakeReals", R"({"a":1e2,"b":0E0,"c":25e-1})", R"({"a":100.0,"b":0.0,"c":2.5})"},
        FileRow{"SixtyFourBits", R"({"a":-9223372036854775808,"b":18446744073709551615})",
                R"({"a":-9223372036854775808,"b":18446744073709551615})"},
        FileRow{"BeyondSixtyFourBitsAReal", R"({"a":18446744073709551616})", R"({"a":1.8446744073709552e+19})"},
        FileRow{"EveryBitOfAReal", R"({"a":0.1,"b":0.30000000000000004,"c":1.7976931348623157e308,"d":5e-324})",
                R"({"a":0.1,"b":0.30000000000000004,"c":1.7976931348623157e+308,"d":5e-324})"},
        FileRow{"TooSmallForADouble", R"({"a":1e-999})", R"({"a":0.0})"}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Texts, JsonFileTest,
    testing::Values(FileRow{"EscapesOfAscii", R"({"a":"\"\\\/\b\f\n\r\t\u0041"})", R"({"a":"\"\\/\b\f\n\r\tA"})"},
                    FileRow{"ControlCharacters", R"({"a":"\u0000\u001f\u007f"})", "{\"a\":\"\\u0000\\u001f\x7F\"}"},
                    FileRow{"LettersOutsideAscii", R"({"L\u00e4nge":"H\u00f6he, 日本"})", R"({"Länge":"Höhe, 日本"})"},
                    FileRow{"PairOfSurrogates", R"({"a":"\ud83d\ude00"})", R"({"a":"😀"})"},
                    FileRow{"NulInAKey", R"({"a\u0000b":1})", R"({"a\u0000b":1})"},
                    FileRow{"ByteOrderMark", "\xEF\xBB\xBF{\"a\":1}", R"({"a":1})"},
                    FileRow{"Windows1252",
                            "{\"Gr\xF6\xDF"
                            "e\":\"5 \x80, \x84tief\x93\"}",
                            R"({"Größe":"5 €, „tief“"})"},
                    FileRow{"NoUtf8AsAWholeIsWindows1252Everywhere", "{\"\xC3\xA4\":\"\xE4\"}", R"({"Ã¤":"ä"})"}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    KeysMoreThanOnce, JsonFileTest,
    testing::Values(FileRow{"LastValueInTheFirstPlace", R"({"a":1,"b":2,"a":3})", R"({"a":3,"b":2})"},
                    FileRow{"ThreeTimes", R"({"a":1,"a":2,"b":0,"a":3})", R"({"a":3,"b":0})"},
                    FileRow{"Side_by_side", R"({"a":1,"a":2})", R"({"a":2})"},
                    FileRow{"OtherKinds", R"({"a":{"x":1},"b":[1],"a":[2],"b":null})", R"({"a":[2],"b":null})"},
                    FileRow{"Inside", R"({"a":[{"x":1,"y":2,"x":3}]})", R"({"a":[{"x":3,"y":2}]})"},
                    FileRow{"WrittenInTwoWays", R"({"\u00e4":1,"ä":2})", R"({"ä":2})"},
                    FileRow{"SeveralKeys", R"({"b":1,"a":1,"c":1,"a":2,"c":2,"b":2})", R"({"b":2,"a":2,"c":2})"}),
    NameOfRow());

struct RefusedRow {
  const char* Name;
  std::string File;
};
class RefusedJsonFileTest : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedJsonFileTest, LeavesTheObjectWithoutKeys) {
  const KOROmxJsonObject object = ReadJson(GetParam().File);
  EXPECT_EQ(TextOf(object), "{}");
  EXPECT_TRUE(KeysOf(object).empty());
  EXPECT_EQ(object.GetJsonType("a"), KOROmxJsonType::Missing);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedJsonFileTest,
    testing::Values(RefusedRow{"Empty", ""}, RefusedRow{"Blank", " \n"}, RefusedRow{"Null", "null"},
                    RefusedRow{"Number", "1"}, RefusedRow{"Text", R"("a")"},
                    RefusedRow{"ArrayAtTheTop", R"([{"a":1}])"}, RefusedRow{"NotClosed", R"({"a":1)"},
                    RefusedRow{"ClosedWrongly", R"({"a":1])"}, RefusedRow{"MoreBehind", R"({"a":1}{})"},
                    RefusedRow{"NulBehind", Whole("{\"a\":1}\0")}, RefusedRow{"NulBetween", Whole("{\"a\":\0001}")},
                    RefusedRow{"CommaAtTheEnd", R"({"a":1,})"}, RefusedRow{"NoComma", R"({"a":1 "b":2})"},
                    RefusedRow{"NoColon", R"({"a" 1})"}, RefusedRow{"NoKey", "{1:1}"},
                    RefusedRow{"SingleQuotes", "{'a':1}"}, RefusedRow{"Comment", "{\"a\":1/* */}"},
                    RefusedRow{"NotANumber", R"({"a":NaN})"}, RefusedRow{"Infinity", R"({"a":Infinity})"},
                    RefusedRow{"ZeroAhead", R"({"a":01})"}, RefusedRow{"PlusAhead", R"({"a":+1})"},
                    RefusedRow{"NoDigitAhead", R"({"a":.5})"}, RefusedRow{"NoDigitBehind", R"({"a":1.})"},
                    RefusedRow{"DecimalComma", R"({"a":1,5})"}, RefusedRow{"BeyondADouble", R"({"a":1e999})"},
                    RefusedRow{"HalfAPairOfSurrogates", R"({"a":"\ud83d"})"},
                    RefusedRow{"UnknownEscape", R"({"a":"\x"})"}, RefusedRow{"LineEndInAText", "{\"a\":\"x\ny\"}"},
                    RefusedRow{"Utf16", Whole("\xFF\xFE{\0}\0")}, RefusedRow{"Xml", "<a/>"},
                    RefusedRow{"AnErrorBehindThePartsThatAreRight", R"({"a":1,"b":tru})"}),
    NameOfRow());

TEST(JsonFilesThatAreNoneTest, LeaveTheObjectWithoutKeys) {
  const support::TemporaryFolder folder;
  for (const std::string& path :
       {folder.Path("missing.json"), folder.Path(), std::string(), folder.Write("a", R"({"a":1})") + Whole("\0")}) {
    EXPECT_EQ(TextOf(ReadJsonFile(path)), "{}") << path;
  }
}

TEST(JsonFileLengthTest, SixteenMebibytesAreReadAndNoMore) {
  const support::TemporaryFolder folder;
  std::string content = R"({"a":1})";
  content.resize(KOROmxLongestJsonFile, ' ');
  EXPECT_EQ(TextOf(ReadJsonFile(folder.Write("longest", content))), R"({"a":1})");
  EXPECT_EQ(TextOf(ReadJsonFile(folder.Write("longer", content + " "))), "{}");
}

TEST(JsonFileLengthTest, AFileOf200MillionBytesIsRefusedUnread) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("huge", R"({"a":1})");
  std::filesystem::resize_file(path, 200'000'000);
  EXPECT_EQ(TextOf(ReadJsonFile(path)), "{}");
}

TEST(JsonFileDepthTest, AThousandLevelsAreReadAndNoMore) {
  const auto nested_arrays = [](int depth) {
    const auto count = static_cast<std::size_t>(depth - 1);
    return R"({"a":)" + std::string(count, '[') + std::string(count, ']') + "}";
  };
  for (const std::string& deepest : {NestedObjects(KOROmxDeepestJsonFile), nested_arrays(KOROmxDeepestJsonFile)}) {
    EXPECT_EQ(TextOf(ReadJson(deepest)), deepest);
  }
  for (const int deeper : {KOROmxDeepestJsonFile + 1, 1'000'000}) {
    EXPECT_EQ(TextOf(ReadJson(NestedObjects(deeper))), "{}");
    EXPECT_EQ(TextOf(ReadJson(nested_arrays(deeper))), "{}");
  }
}

TEST(JsonFileDepthTest, WhatIsClosedDoesNotCount) {
  std::string values = "[[]]";
  for (int count = 0; count < 2 * KOROmxDeepestJsonFile; ++count) values += ",[[]]";
  const std::string content = R"({"a":[)" + values + "]}";
  EXPECT_EQ(TextOf(ReadJson(content)), content);
}

// The time grows with the number of keys, not with its square: that would take hours here.
TEST(JsonFileOfVeryManyKeysTest, IsReadAndChangedKeyByKey) {
  constexpr int count = 500'000;
  std::string content = "{";
  for (int number = 0; number < count; ++number) content += "\"key" + std::to_string(number) + "\":0,";
  KOROmxJsonObject object = ReadJson(content + "\"key0\":true}");
  EXPECT_EQ(object.GetJsonType("key0"), KOROmxJsonType::Boolean);
  KOROmxBaseIterVar walk = object.GetIterator();
  int met = 0;
  for (KOROmxKeyString key; walk.nextItem(key); ++met) (void)object.PutInteger(key, 1);
  EXPECT_EQ(met, count);
  EXPECT_EQ(TextOf(object).find(":0"), std::string::npos);
}

constexpr const char* ContentWithReals = R"({"a":1.5,"b":[-0.25,1e2],"c":1234567.125})";
constexpr const char* ContentWithRealsWritten = R"({"a":1.5,"b":[-0.25,100.0],"c":1234567.125})";

TEST(JsonFileLocaleTest, NumbersHaveAPointInEveryLocale) {
  {
    const formulatest::ScopedProcessLocale comma(COMMA_LOCALE);
    ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
    EXPECT_EQ(TextOf(ReadJson(ContentWithReals)), ContentWithRealsWritten);
  }
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
  EXPECT_EQ(TextOf(ReadJson(ContentWithReals)), ContentWithRealsWritten);
  EXPECT_TRUE(comma.IsInForce()) << "the locale of the thread is as it was";
}

TEST(JsonFileThreadTest, DistinctObjectsServeDistinctThreads) {
  ASSERT_NE(formulatest::LoadedLocales::Get(COMMA_LOCALE), nullptr);
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("test.json", ContentWithReals);
  std::array<int, 4> right{};
  std::vector<std::thread> threads;
  for (int& count : right) {
    threads.emplace_back([&count, &path, with_comma = threads.size() % 2 == 0] {
      const formulatest::ScopedLocale locale(with_comma ? COMMA_LOCALE : "C");
      for (int run = 0; run < 50; ++run) count += TextOf(ReadJsonFile(path)) == ContentWithRealsWritten ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, (std::array<int, 4>{50, 50, 50, 50}));
}

}  // namespace
