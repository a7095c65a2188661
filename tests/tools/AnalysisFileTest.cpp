// The text form of an analysis: properties, columns, rows.
#include "tools/analysis/AnalysisFile.h"

#include <gtest/gtest.h>

#include <string>

#include "tools/analysis/AnalysisNumber.h"

namespace {

using tool::AnalysisFile;
using tool::Column;

TEST(AnalysisProperties, StandAheadOfTheHeader) {
  const AnalysisFile file("a.csv",
                          "# System : MTM2\n#name: Get, and put\n\n# A comment: of its own\n#\n# description:d\n"
                          "# identifier: T 1\ncode\n# name: too late\nGA5\n");
  EXPECT_EQ(file.GetSystem(), "MTM2");
  EXPECT_EQ(file.GetName(), "Get, and put");
  EXPECT_EQ(file.GetDescription(), "d");
  EXPECT_EQ(file.GetIdentifier(), "T 1");
  EXPECT_EQ(file.GetIdentifierLine(), 7u);
  EXPECT_EQ(file.GetRows().size(), 1u);
  EXPECT_TRUE(file.GetProblems().empty());
  EXPECT_TRUE(file.IsWhole());
}

TEST(AnalysisProperties, MayBeMissing) {
  const AnalysisFile file("a.csv", "code\nGA5");
  EXPECT_EQ(file.GetSystem() + file.GetName() + file.GetDescription() + file.GetIdentifier(), "");
  EXPECT_EQ(file.GetIdentifierLine(), 0u);
}

TEST(AnalysisColumns, StandInAnyOrder) {
  const AnalysisFile file("a.csv", " Time Type ;FREQUENCY;Code\nTTU; 2 ;GA5\n");
  const tool::AnalysisRow& row = file.GetRows().front();
  EXPECT_EQ(file.Cell(row, Column::Code), "GA5");
  EXPECT_EQ(file.Cell(row, Column::Frequency), "2");
  EXPECT_EQ(file.Cell(row, Column::TimeType), "TTU");
  EXPECT_EQ(file.Cell(row, Column::Description), "");
  EXPECT_TRUE(file.GetProblems().empty());
}

TEST(AnalysisColumns, AreAllKnownByTheirNames) {
  std::string header;
  std::string cells;
  for (std::size_t place = 0; place < tool::ColumnNames.size(); ++place) {
    header += (place == 0 ? "" : ",") + std::string(tool::ColumnNames[place]);
    cells += (place == 0 ? "" : ",") + std::to_string(place);
  }
  const AnalysisFile file("a.csv", header + "\n" + cells + "\n");
  EXPECT_TRUE(file.GetProblems().empty());
  for (std::size_t place = 0; place < tool::ColumnNames.size(); ++place) {
    EXPECT_EQ(file.Cell(file.GetRows().front(), static_cast<Column>(place)), std::to_string(place));
  }
}

TEST(AnalysisRows, AreThoseWithSomethingInThem) {
  const AnalysisFile file("a.csv", "code,frequency\n\nGA5\n,\n  , \t\n#GA15\nGA30,2,\n");
  ASSERT_EQ(file.GetRows().size(), 2u);
  EXPECT_EQ(file.GetRows()[0].Line, 3u);
  EXPECT_EQ(file.Cell(file.GetRows()[0], Column::Frequency), "") << "cells missing at the end are empty";
  EXPECT_EQ(file.GetRows()[1].Line, 7u);
  EXPECT_TRUE(file.GetProblems().empty()) << "a separator at the end opens no column";
}

TEST(AnalysisRows, WithSurplusCellsAreMarked) {
  const AnalysisFile file("a.csv", "code,frequency\nGA5,1,5\nGA5,1\n");
  ASSERT_EQ(file.GetRows().size(), 2u);
  EXPECT_TRUE(file.GetRows()[0].HasSurplus);
  EXPECT_FALSE(file.GetRows()[1].HasSurplus);
}

TEST(AnalysisRows, OfASpreadsheetHaveEmptyCellsForEveryColumn) {
  const AnalysisFile file("a.csv", "# system: MTM1;;\n\"# name: Screws, long\";;\ncode;description;\nR30B;;\n");
  EXPECT_EQ(file.GetSystem(), "MTM1");
  EXPECT_EQ(file.GetName(), "Screws, long");
  ASSERT_EQ(file.GetRows().size(), 1u);
  EXPECT_FALSE(file.GetRows()[0].HasSurplus);
  EXPECT_TRUE(file.GetProblems().empty());
}

struct ProblemRow {
  const char* name;
  std::string text;
  std::size_t line;
  const char* words;  // of the only problem
  tool::ExitStatus status;
  bool is_whole;
};

class AnalysisProblemTest : public testing::TestWithParam<ProblemRow> {};

TEST_P(AnalysisProblemTest, IsToldWithItsPlace) {
  const AnalysisFile file("folder/a.csv", GetParam().text);
  ASSERT_EQ(file.GetProblems().size(), 1u);
  const tool::PlacedFailure& problem = file.GetProblems().front();
  const std::string text = problem.what();
  EXPECT_EQ(problem.GetLine(), GetParam().line);
  EXPECT_EQ(problem.GetStatus(), GetParam().status);
  EXPECT_NE(text.find(GetParam().words), std::string::npos) << text;
  const std::string place = GetParam().line == 0 ? ": " : ", line " + std::to_string(GetParam().line) + ": ";
  EXPECT_EQ(text.rfind("folder/a.csv" + place, 0), 0u) << text;
  EXPECT_EQ(file.IsWhole(), GetParam().is_whole);
}

constexpr auto Finding = tool::ExitStatus::Finding;
constexpr auto Unusable = tool::ExitStatus::Unusable;

INSTANTIATE_TEST_SUITE_P(
    Rows, AnalysisProblemTest,
    testing::Values(
        ProblemRow{"EmptyFile", "", 0, "no header row", Unusable, false},
        ProblemRow{"NothingButComments", "# system: STD\n# a\n", 0, "no header row", Unusable, false},
        ProblemRow{"NothingButBlanks", "\n , ,\n\t\n", 0, "no header row", Unusable, false},
        ProblemRow{"UnknownColumn", "code,colour\n", 1, "unknown column \"colour\"", Finding, true},
        ProblemRow{"CellWithoutHeading", "code,,\nA,,\nB,x,\n", 3, "whose heading is empty", Finding, true},
        ProblemRow{"UnknownColumns", "code,a,b\n", 1, "unknown columns \"a\", \"b\"", Finding, true},
        ProblemRow{"ColumnTwice", "code,frequency,Code\n", 1, "the column \"code\" stands twice", Finding, true},
        ProblemRow{"NoColumnForATime", "frequency,description\n", 1, "no column tells the time", Unusable, false},
        ProblemRow{"SignatureWithoutBody", "signature,values\n", 1, "the column \"body\" is missing", Finding, true},
        ProblemRow{"BodyWithoutSignature", "code,body\n", 1, "the column \"signature\" is missing", Finding, true},
        ProblemRow{"UnknownSystem", "# system: MTM3\ncode\n", 1, "\"MTM3\" is no motion-time system", Finding, true},
        ProblemRow{"SystemInSmallLetters", "# system: mtm1\ncode\n", 1, "written exactly so", Finding, true},
        ProblemRow{"EmptyProperty", "\n# name:\ncode\n", 2, "the property \"name\" is empty", Finding, true},
        ProblemRow{"PropertyTwice", "# name: a\n# name: b\ncode\n", 2, "\"name\" stands twice", Finding, true},
        ProblemRow{"SurplusCell", "code,frequency\nA,1,5\n", 2, "3 cells for 2 columns", Finding, true},
        ProblemRow{"TextBehindAQuote", "code\n\"A\"B\n", 2, "behind the closing quote", Finding, true},
        ProblemRow{"OpenQuote", "code\nA\n\"B\nC\n", 3, "a quote that is not closed", Unusable, false},
        ProblemRow{"NulByte", std::string("code\nA\0\n", 8), 2, "NUL byte", Unusable, false},
        ProblemRow{"Utf16",
                   std::string("\xFF\xFE"
                               "c\0o\0",
                               6),
                   1, "UTF-16", Unusable, false},
        ProblemRow{"LongLine", "code\n" + std::string((std::size_t{16} << 20) + 1, 'A'), 2, "16777216 bytes", Unusable,
                   false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AnalysisProblems, NameAFewOfVeryManyColumns) {
  std::string header = "code";
  for (int column = 0; column < 1'000'000; ++column) header += ",x" + std::to_string(column);
  const AnalysisFile file("a.csv", header + "\n");
  ASSERT_EQ(file.GetProblems().size(), 1u);
  const std::string text = file.GetProblems().front().what();
  EXPECT_LT(text.size(), 500u);
  EXPECT_NE(text.find("\"x3\", ... (999992 more), \"x999996\""), std::string::npos) << text;
}

struct NumberRow {
  const char* name;
  const char* text;
  std::optional<double> number;
};

class AnalysisNumberTest : public testing::TestWithParam<NumberRow> {};

TEST_P(AnalysisNumberTest, Reads) {
  EXPECT_EQ(tool::ReadFiniteNumber(GetParam().text), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AnalysisNumberTest,
    testing::Values(NumberRow{"Whole", "3", 3.0}, NumberRow{"Fraction", "0.5", 0.5},
                    NumberRow{"NoDigitAhead", ".5", 0.5}, NumberRow{"Signs", "+2", 2.0},
                    NumberRow{"Negative", "-2", -2.0}, NumberRow{"Exponent", "1e2", 100.0},
                    NumberRow{"TwoSigns", "+-2", std::nullopt}, NumberRow{"Nothing", "", std::nullopt},
                    NumberRow{"Sign", "+", std::nullopt}, NumberRow{"DecimalComma", "1,5", std::nullopt},
                    NumberRow{"Text", "two", std::nullopt}, NumberRow{"TextBehind", "2x", std::nullopt},
                    NumberRow{"Blank", " 2", std::nullopt}, NumberRow{"Hexadecimal", "0x10", std::nullopt},
                    NumberRow{"NotANumber", "nan", std::nullopt}, NumberRow{"Infinity", "inf", std::nullopt},
                    NumberRow{"BeyondADouble", "1e999", std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
