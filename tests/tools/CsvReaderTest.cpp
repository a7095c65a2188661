// Records of comma-separated text: quotes, separators, line ends, comments, and texts that cannot be read to their end.
#include "tools/analysis/CsvReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Records = std::vector<std::vector<std::string>>;

struct CsvRow {
  const char* name;
  std::string text;
  Records records;  // a comment is the text behind "#", with a "#" ahead
};

Records Read(std::string_view text) {
  tool::CsvReader reader(text);
  Records records;
  for (tool::CsvRecord record; reader.Next(record);) {
    if (record.IsComment) record.Fields.front().insert(0, "#");
    records.push_back(record.Fields);
  }
  EXPECT_EQ(reader.GetFault(), tool::CsvFault::None);
  return records;
}

class CsvReaderTest : public testing::TestWithParam<CsvRow> {};

TEST_P(CsvReaderTest, Reads) {
  EXPECT_EQ(Read(GetParam().text), GetParam().records);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CsvReaderTest,
    testing::Values(
        CsvRow{"Empty", "", {}}, CsvRow{"OneField", "a", {{"a"}}},
        CsvRow{"TwoRecords", "a,b\nc,d\n", {{"a", "b"}, {"c", "d"}}},
        CsvRow{"LastLineWithoutEnd", "a\nb", {{"a"}, {"b"}}}, CsvRow{"CarriageReturns", "a\r\nb\r\n", {{"a"}, {"b"}}},
        CsvRow{"CarriageReturnsAlone", "a\rb", {{"a"}, {"b"}}}, CsvRow{"EmptyRecord", "a\n\nb", {{"a"}, {""}, {"b"}}},
        CsvRow{"EmptyFields", ",,\n,", {{"", "", ""}, {"", ""}}}, CsvRow{"ByteOrderMark", "\xEF\xBB\xBFz", {{"z"}}},
        CsvRow{"ByteOrderMarkAheadOfAQuote", "\xEF\xBB\xBF\"a,b\"", {{"a,b"}}},
        CsvRow{"QuotedSeparator", "\"a,b\",c", {{"a,b", "c"}}}, CsvRow{"QuotedQuote", "\"a\"\"b\"", {{"a\"b"}}},
        CsvRow{"NothingButAQuotedQuote", "\"\"\"\"", {{"\""}}}, CsvRow{"QuotedNothing", "\"\",a", {{"", "a"}}},
        CsvRow{"QuotedLineEnds", "\"a\nb\r\nc\",d\ne,f", {{"a\nb\r\nc", "d"}, {"e", "f"}}},
        CsvRow{"QuoteInsideAPlainField", "5\" bolt,b", {{"5\" bolt", "b"}}},
        CsvRow{"BlanksStay", " a , b ", {{" a ", " b "}}},
        CsvRow{"Comment", "# a, \"b\na,b", {{"# a, \"b"}, {"a", "b"}}},
        CsvRow{"CommentAtTheEnd", "a\n#b", {{"a"}, {"#b"}}}, CsvRow{"NoCommentInQuotes", "\"#a\",b", {{"#a", "b"}}},
        CsvRow{"NoCommentInsideARecord", "a,#b", {{"a", "#b"}}},
        CsvRow{"Semicolons", "a;b\nc;1,5", {{"a", "b"}, {"c", "1,5"}}},
        CsvRow{"Tabs", "a\tb\nc;d\te", {{"a", "b"}, {"c;d", "e"}}},
        CsvRow{"TheFirstSeparatorCounts", "a;b,c\nd;e", {{"a", "b,c"}, {"d", "e"}}},
        CsvRow{"ASeparatorInQuotesDoesNot", "\"a;b\",c\nd;e,f", {{"a;b", "c"}, {"d;e", "f"}}},
        CsvRow{"ASeparatorOfACommentDoesNot", "#a;b\nc,d;e", {{"#a;b"}, {"c", "d;e"}}},
        CsvRow{"ACommaIfTheFirstRecordHasNone", "a\nb;c,d", {{"a"}, {"b;c", "d"}}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CsvLines, CountLineEndsInQuotes) {
  tool::CsvReader reader("a\n\"b\nc\r\nd\re\"\n#f\ng");
  std::vector<std::size_t> lines;
  for (tool::CsvRecord record; reader.Next(record);) lines.push_back(record.Line);
  EXPECT_EQ(lines, (std::vector<std::size_t>{1, 2, 6, 7}));
}

TEST(CsvQuotes, WithTextBehindThemAreKeptAndNoted) {
  tool::CsvReader reader("\"a\"b,c\n\"a\",c");
  tool::CsvRecord record;
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.Fields, (std::vector<std::string>{"ab", "c"}));
  EXPECT_TRUE(record.HasTextBehindQuote);
  ASSERT_TRUE(reader.Next(record));
  EXPECT_FALSE(record.HasTextBehindQuote);
}

struct FaultRow {
  const char* name;
  std::string text;
  tool::CsvFault fault;
  std::size_t line;
  std::size_t records;  // read ahead of it
};

class CsvFaultTest : public testing::TestWithParam<FaultRow> {};

TEST_P(CsvFaultTest, EndsTheReading) {
  tool::CsvReader reader(GetParam().text);
  std::size_t records = 0;
  for (tool::CsvRecord record; reader.Next(record);) ++records;
  EXPECT_EQ(reader.GetFault(), GetParam().fault);
  EXPECT_EQ(reader.GetFaultLine(), GetParam().line);
  EXPECT_EQ(records, GetParam().records);
}

constexpr std::size_t LongestRecord = tool::CsvReader::LongestRecord;

INSTANTIATE_TEST_SUITE_P(
    Rows, CsvFaultTest,
    testing::Values(FaultRow{"OpenQuote", "a\nb,\"c\nd", tool::CsvFault::OpenQuote, 2, 1},
                    FaultRow{"NothingButAQuote", "\"", tool::CsvFault::OpenQuote, 1, 0},
                    FaultRow{"NulByte", std::string("a\nb\0c\nd", 7), tool::CsvFault::NulByte, 2, 1},
                    FaultRow{"NulByteInAComment", std::string("a\n#\0", 4), tool::CsvFault::NulByte, 2, 1},
                    FaultRow{"LongestRecord", std::string(LongestRecord, 'a') + "\nb", tool::CsvFault::None, 0, 2},
                    FaultRow{"LongerRecord", "b\n" + std::string(LongestRecord + 1, 'a'), tool::CsvFault::TooLong, 2,
                             1},
                    FaultRow{"LongerQuotedRecord", "\"" + std::string(LongestRecord, '\n') + "\"\nb",
                             tool::CsvFault::TooLong, 1, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CsvFields, MayBeVeryMany) {
  const std::string text(1'000'000, ',');
  tool::CsvReader reader(text);
  tool::CsvRecord record;
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.Fields.size(), 1'000'001u);
}

}  // namespace
