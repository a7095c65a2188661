// Streams with faults: what is told of each item, and what is read all the same.
#include "tools/exchange/StreamReader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "VEXTADataIO.h"
#include "platform/model/KORModel.h"
#include "tests/tools/ToolRun.h"
#include "tools/exchange/StreamText.h"

namespace {

const std::string path = "f.stream";

// Texts of all problems, a line each.
std::string ProblemsOf(const tool::StreamContent& content) {
  std::string problems;
  for (const tool::Failure& problem : content.Problems) problems += std::string(problem.what()) + "\n";
  return problems;
}

struct FaultyItems {
  const char* name;
  std::string items;  // behind a head, so that the first one is item 4
  const char* words;  // of the message; the first one if there are several
  std::string list;   // what an analysis of it comes to, as items of the list form
};

class FaultyItemsTest : public testing::TestWithParam<FaultyItems> {};

TEST_P(FaultyItemsTest, AreToldWithTheirPlace) {
  const ToolInput input{"Save|n|STD|" + GetParam().items, {}, ""};
  const ToolOutcome lossy = RunInProcess({"import", "-", "--format", "list", "--lossy"}, input);
  EXPECT_EQ(lossy.ExitStatus, 0) << lossy.Errors;
  EXPECT_EQ(lossy.Output, GetParam().list);
  const ToolOutcome strict = RunInProcess({"import", "-", "--format", "list"}, input);
  EXPECT_EQ(strict.ExitStatus, 1) << strict.Errors;
  EXPECT_EQ(strict.Output, "") << "nothing is written";
  EXPECT_NE(strict.Errors.find("timeanalysis: standard input, item " + std::string(GetParam().words)),
            std::string::npos)
      << strict.Errors;
  EXPECT_NE(strict.Errors.find("nothing was written"), std::string::npos) << strict.Errors;
  EXPECT_EQ(strict.Errors.find(lossy.Errors), 0u) << "the same is told either way";
}

const std::string code_column = "LineData:t:0:0:8:code|";
const std::string line_a = "LineData:1:2:rowno:3:1\nLineData:1:4:code:8:A\n";
const std::string good = code_column + "LineData:t:1:0:8:A|";

INSTANTIATE_TEST_SUITE_P(
    Attributes, FaultyItemsTest,
    testing::Values(FaultyItems{"TooFewFields", "AttributeData:name:8|AttributeData:note:8:b",
                                "4: 3 fields for an item \"AttributeData\", which has 4", "AttributeData:note:8:b\n"},
                    FaultyItems{"KindAlone", "AttributeData|AttributeData:note:8:b", "4: 1 fields",
                                "AttributeData:note:8:b\n"},
                    FaultyItems{"UnknownKey", "AttributeData:nome:8:a|AttributeData:note:8:b",
                                "4: the exchange knows no attribute \"nome\"", "AttributeData:note:8:b\n"},
                    FaultyItems{"KeyInCapitals", "AttributeData:NOTE:8:a|AttributeData:note:8:b",
                                "4: the exchange knows no attribute \"NOTE\"", "AttributeData:note:8:b\n"},
                    FaultyItems{"ValueWithAColon", "AttributeData:note:8:12:30",
                                "4: the value \"12:30\" of \"note\" ends at its "
                                "\":\" and arrives as \"12\"",
                                "AttributeData:note:8:12\n"},
                    FaultyItems{"Twice", "AttributeData:note:8:a|AttributeData:note:8:b",
                                "5: the attribute \"note\" stands twice", "AttributeData:note:8:b\n"},
                    FaultyItems{"NoNumber", "AttributeData:state:3:x",
                                "4: the value \"x\" of \"state\" is no whole number in 32 "
                                "bits and is read as 0",
                                "AttributeData:state:3:0\n"},
                    FaultyItems{"NumberWithMoreBehind", "AttributeData:state:3:12a", "4: the value \"12a\"",
                                "AttributeData:state:3:12\n"},
                    FaultyItems{"EmptyNumber", "AttributeData:dbl_taquantity:5:",
                                "4: the value \"\" of \"dbl_taquantity\" is no "
                                "number with a point and is read as 0",
                                "AttributeData:dbl_taquantity:5:0\n"},
                    FaultyItems{"DecimalComma", "AttributeData:dbl_taquantity:5:2,5",
                                "4: the value \"2,5\" of \"dbl_taquantity\" "
                                "is no number with a point and is read as 2;",
                                "AttributeData:dbl_taquantity:5:2\n"},
                    FaultyItems{"Beyond32Bits", "AttributeData:state:3:4294967297", "4: the value \"4294967297\"",
                                "AttributeData:state:3:1\n"},
                    FaultyItems{"NoBoolean", "AttributeData:isdirty:11:true", "4: the value \"true\"",
                                "AttributeData:isdirty:11:0\n"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Cells, FaultyItemsTest,
    testing::Values(
        FaultyItems{"TooFewFields", good + "LineData:t:1:0:8", "6: 5 fields for an item \"LineData\", which has 6",
                    line_a},
        FaultyItems{"HeadingWithTooFewFields", "LineData:t:0:0:8|" + good, "4: 5 fields", line_a},
        FaultyItems{"AheadOfTheHeader", "LineData:t:1:0:8:X|" + good,
                    "4: no item of row 0 ahead of this one names the column 0 (0 are named", line_a},
        FaultyItems{"BeyondTheHeader", good + "LineData:t:1:1:8:X",
                    "6: no item of row 0 ahead of this one names the "
                    "column 1 (1 is named",
                    line_a},
        FaultyItems{"NegativeColumn", good + "LineData:t:1:-1:8:X", "6: no item of row 0", line_a},
        FaultyItems{"ColumnNoNumber", good + "LineData:t:1:first:8:X", "6: the column \"first\" is no number", line_a},
        FaultyItems{"UnknownColumn",
                    "LineData:t:0:0:8:nope|LineData:t:0:1:8:code|LineData:t:1:0:8:x|LineData:t:1:1:8:A",
                    "4: the exchange knows no column \"nope\"", line_a},
        FaultyItems{"ColumnTwice", good + "LineData:t:0:1:8:code|LineData:t:1:1:8:A",
                    "6: the column \"code\" stands twice", line_a},
        FaultyItems{"RowNoNumber", good + "LineData:t:second:0:8:X", "6: the row \"second\" is no number", line_a},
        FaultyItems{"RowEmpty", good + "LineData:t::0:8:X", "6: the row \"\" is no number", line_a},
        FaultyItems{"RowNegative", good + "LineData:t:-5:0:8:X", "6: the row -5 is none", line_a},
        FaultyItems{"RowBehindAGap", good + "LineData:t:3:0:8:X", "6: row 3 where row 2 is the next one", line_a},
        FaultyItems{"RowFarBehind", good + "LineData:t:2000000000:0:8:X", "6: row 2000000000 where", line_a},
        FaultyItems{"RowBeyond32Bits", good + "LineData:t:4294967297:0:8:X", "6: the row \"4294967297\" is no number",
                    line_a},
        FaultyItems{"FirstRowMissing", code_column + "LineData:t:2:0:8:X|AttributeData:note:8:b",
                    "5: row 2 where row 1 is the next one", "AttributeData:note:8:b\n"},
        FaultyItems{"ValueWithAColon", code_column + "LineData:t:1:0:8:A:B", "5: the value \"A:B\" of \"code\"",
                    line_a},
        FaultyItems{"ItemOfAList", good + "LineData:7:4:timetype:8:TTB",
                    "6: the column \"timetype\" is no number; the "
                    "cell is passed over. (A list of export --format list has another form",
                    line_a},
        FaultyItems{"NeitherKind", good + "LineDate:t:1:0:8:X", "6: \"LineDate:t:1:0:8:X\" is neither", line_a},
        FaultyItems{"ValueWithABar", code_column + "LineData:t:1:0:8:A|B", "6: \"B\" is neither", line_a}),
    [](const auto& row) { return std::string(row.param.name); });

struct GoodItems {
  const char* name;
  std::string items;
  std::string list;
};

class GoodItemsTest : public testing::TestWithParam<GoodItems> {};

TEST_P(GoodItemsTest, AreRead) {
  const ToolOutcome outcome = RunInProcess({"import", "-", "--format", "list"}, {GetParam().items, {}, ""});
  EXPECT_EQ(outcome.ExitStatus, 0);
  EXPECT_EQ(outcome.Errors, "");
  EXPECT_EQ(outcome.Output, GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GoodItemsTest,
    testing::Values(
        GoodItems{"WithoutAHead", "AttributeData:note:8:b", "AttributeData:note:8:b\n"},
        GoodItems{"EmptyItems", "Save|n|STD||||AttributeData:note:8:b||", "AttributeData:note:8:b\n"},
        GoodItems{"LineFeedsAndBarsAtTheEnd", "AttributeData:note:8:b||\n\n", "AttributeData:note:8:b\n"},
        GoodItems{"CarriageReturnsAtTheEnd", "AttributeData:note:8:b|\r\n\r\n", "AttributeData:note:8:b\n"},
        GoodItems{"LineFeedAheadOfTheBar", "AttributeData:note:8:b\n|\n", "AttributeData:note:8:b\n\n"},
        GoodItems{"LineFeedInside", "AttributeData:note:8:a\nb|AttributeData:code:8:c",
                  "AttributeData:code:8:c\nAttributeData:note:8:a\nb\n"},
        GoodItems{"ByteOrderMark",
                  "\xEF\xBB\xBF"
                  "AttributeData:note:8:b",
                  "AttributeData:note:8:b\n"},
        GoodItems{"Windows1252",
                  "AttributeData:note:8:Gr\xF6\xDF"
                  "e 5 \x80",
                  "AttributeData:note:8:Größe 5 €\n"},
        GoodItems{"Utf8", "AttributeData:note:8:Größe 5 €", "AttributeData:note:8:Größe 5 €\n"},
        GoodItems{"TypeOfTheItemIsNotLookedAt", "AttributeData:state:8:7|AttributeData:note:5:x",
                  "AttributeData:state:3:7\nAttributeData:note:8:x\n"},
        GoodItems{"NumberWithASignAndBlanks", "AttributeData:state:3: +7 |AttributeData:dbl_taquantity:5: -1e3",
                  "AttributeData:state:3:7\nAttributeData:dbl_taquantity:5:-1000\n"},
        GoodItems{"ColumnNumberOfAHeadingIsNotLookedAt", "LineData:t:0:9:8:code|LineData:t:1:0:8:A", line_a},
        GoodItems{"RowWrittenAgain", good + "LineData:t:2:0:8:B|LineData:t:1:0:8:A",
                  line_a + "LineData:2:2:rowno:3:2\nLineData:2:4:code:8:B\n"},
        GoodItems{"SingleBlank", "AttributeData:note:8: ", "AttributeData:note:8: \n"},
        GoodItems{"EmptyValue", "AttributeData:note:8:", "AttributeData:note:8:\n"}),
    [](const auto& row) { return std::string(row.param.name); });

struct NoStream {
  const char* name;
  std::string bytes;
  const char* words;
};

class NoStreamTest : public testing::TestWithParam<NoStream> {};

TEST_P(NoStreamTest, IsRefused) {
  const ToolOutcome outcome = RunInProcess({"import", "-"}, {GetParam().bytes, {}, ""});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find(std::string("standard input: ") + GetParam().words), std::string::npos)
      << outcome.Errors;
}

std::string UnknownKeys() {
  std::string stream;
  for (int key = 0; key < 1100; ++key) stream += "|AttributeData:k" + std::to_string(key) + ":8:";
  return stream;
}

INSTANTIATE_TEST_SUITE_P(Rows, NoStreamTest,
                         testing::Values(NoStream{"Empty", "", "empty"}, NoStream{"LineFeeds", "\n\n", "empty"},
                                         NoStream{"Bars", "|||", "empty"},
                                         NoStream{"ByteOrderMarkAlone", "\xEF\xBB\xBF", "empty"},
                                         NoStream{"PlainText", "hello", "no item of it is an attribute"},
                                         NoStream{"HeadAlone", "Save|n|STD", "no item of it is an attribute"},
                                         NoStream{"Nul", std::string("AttributeData:note:8:\0", 22), "holds a NUL"},
                                         NoStream{"Utf16", std::string("S\0a\0v\0e\0", 8), "holds a NUL"},
                                         NoStream{"UnknownKeys", UnknownKeys(), "more than 1000 keys"},
                                         NoStream{"TooManyItems",
                                                  std::string(tool::StreamReader::MostItems + 1, '|') + "x",
                                                  "5000002 items, and 5000000 are read at most"}),
                         [](const auto& row) { return std::string(row.param.name); });

// The first problems are listed, and the others counted.
TEST(StreamReader, BoundsWhatItTells) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  std::string stream = "AttributeData:note:8:x";
  for (int count = 0; count < 3000; ++count) stream += "|AttributeData:note:8:x";
  const tool::StreamContent content = tool::StreamReader(path, vocabulary).Read(stream);
  EXPECT_EQ(content.Problems.size(), tool::StreamReader::MostProblems);
  EXPECT_EQ(content.FurtherProblems, 3000 - tool::StreamReader::MostProblems);
  EXPECT_EQ(content.Items.Size(), 3001);
}

// What is passed on to the exchange is read by it without a word: nothing of it fails there.
TEST(StreamReader, PassesOnWhatTheExchangeReads) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  const std::string faulty =
      "Save|n|STD|AttributeData:nope:8:x|AttributeData:note|LineData:t:1:0:8:early|LineData:t:0:0:8:code|"
      "LineData:t:0:1:8:nope|LineData:t:1:0:8:A|LineData:t:1:1:8:B|LineData:t:1:2:8:C|LineData:t:-1:0:8:D|"
      "LineData:t:9:0:8:E|LineData:t:x:0:8:F|LineData:t:2:0:8:G";
  testing::internal::CaptureStderr();
  tool::StreamContent content = tool::StreamReader(path, vocabulary).Read(faulty);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Failed to map attribute <nope>\nFailed to map line attribute <nope>\n")
      << "which the vocabulary asks for";
  testing::internal::CaptureStderr();
  const auto analysis = KORModel::Current().CreateTimeAnalysis("A");
  for (const KORUnicodeString& item : content.Items) {
    KORListValKORUnicodeString list;
    list.Append(KORUnicodeString("LineData:t:0:0:8:code"));
    if (!item.Bytes().starts_with("LineData:t:0:")) list.Append(item);
    const long status = VEXTADataIO::SetAnalysisData("", list, analysis.Get());
    const bool is_later_row = item.Bytes().starts_with("LineData:t:2:");
    EXPECT_TRUE(status == S_OK || list.Size() == 1 || is_later_row) << item.Bytes();
  }
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", content.Items, analysis.Get()), S_OK);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(ProblemsOf(content).empty(), false);
  int count = 0;
  analysis->GetLineCount(count);
  EXPECT_EQ(count, 2);
}

// A bound on the time, far above what it takes, that quadratic work would break.
TEST(StreamReader, ReadsAMillionItems) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  std::string stream = "Save|n|STD|LineData:t:0:0:8:code|LineData:t:0:1:8:ttbtime";
  constexpr int rows = 500'000;
  for (int row = 1; row <= rows; ++row) {
    const std::string ahead = "|LineData:t:" + std::to_string(row);
    stream += ahead + ":0:8:A" + ahead + ":1:5:0.5";
  }
  const auto start = std::chrono::steady_clock::now();
  tool::StreamContent content = tool::StreamReader(path, vocabulary).Read(stream);
  VEXSTMTimeAnalysisDlgServices services;
  const auto analysis = KORModel::Current().CreateTimeAnalysis("A");
  tool::FillAnalysis(*analysis, content.Items, services);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
  int count = 0;
  analysis->GetLineCount(count);
  EXPECT_EQ(count, rows);
  EXPECT_EQ(ProblemsOf(content), "");
}

}  // namespace
