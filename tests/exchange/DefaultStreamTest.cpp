// The default stream.
#include "exchange/DefaultStream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "exchange/ItemText.h"
#include "tests/support/ServiceTest.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::StartsWith;
using Fields = std::vector<std::string>;

constexpr int ColumnCount = 14;
constexpr std::size_t AttributesAt = 3;
constexpr std::size_t HeaderAt = 24;
constexpr std::size_t LinesAt = 38;

Fields Cut(const char* separator, const KORUnicodeString& text) {
  return support::Texts(exchange::Explode(separator, text));
}

class DefaultStreamTest : public testing::Test {
 protected:
  // Items from a position, counted from 0.
  Fields Part(std::size_t first, std::size_t count) const {
    const auto start = Items.begin() + static_cast<std::ptrdiff_t>(first);
    return {start, start + static_cast<std::ptrdiff_t>(count)};
  }

  // Field of a cell of the ten lines, both counted as in the stream; fields from 0.
  std::string CellField(int line, int column, std::size_t field) const {
    const std::size_t place = LinesAt + static_cast<std::size_t>((line - 1) * ColumnCount + column);
    return Cut(":", support::Unicode(Items.at(place))).at(field);
  }
  std::string Value(int line, int column) const { return CellField(line, column, 5); }
  double Number(int line, int column) const { return std::stod(Value(line, column)); }

  std::map<std::string, double> Totals() const {
    std::map<std::string, double> totals;
    for (const std::string& item : Part(AttributesAt, 21)) {
      const Fields fields = Cut(":", support::Unicode(item));
      if (fields[2] == "5") totals[fields[1]] = std::stod(fields[3]);
    }
    return totals;
  }

  const KORUnicodeString Stream = exchange::DefaultStream();
  const Fields Items = Cut("|", Stream);
};

// Shape

TEST_F(DefaultStreamTest, Has5859Characters) {
  EXPECT_EQ(Stream.GetLengthInChar(), 5859);
  EXPECT_EQ(Stream.Bytes().size(), 5859u);
}

TEST_F(DefaultStreamTest, Has178ItemsOf21AttributesAnd154Cells) {
  EXPECT_EQ(Items.size(), 178u);
  EXPECT_THAT(Part(0, 3), ElementsAre("Save", "New STM - STD", "STD"));
  EXPECT_THAT(Part(AttributesAt, 21), Each(StartsWith("AttributeData:")));
  EXPECT_THAT(Part(HeaderAt, 154), Each(StartsWith("LineData:et_linedata:")));
}

TEST_F(DefaultStreamTest, EndsInAnEmptyCell) {
  EXPECT_EQ(Items.back(), "LineData:et_linedata:10:13:8:");
  EXPECT_TRUE(Stream.Bytes().ends_with("|LineData:et_linedata:10:13:8:"));
  EXPECT_THAT(Cut(":", support::Unicode(Items.back())), ElementsAre("LineData", "et_linedata", "10", "13", "8", ""));
}

TEST_F(DefaultStreamTest, HasWholeItems) {
  for (const std::string& item : Part(AttributesAt, 21)) EXPECT_EQ(Cut(":", support::Unicode(item)).size(), 4u) << item;
  for (const std::string& item : Part(HeaderAt, 154)) EXPECT_EQ(Cut(":", support::Unicode(item)).size(), 6u) << item;
}

TEST_F(DefaultStreamTest, CountsRowsAndColumnsInOrder) {
  for (int row = 0; row <= 10; ++row) {
    for (int column = 0; column < ColumnCount; ++column) {
      const std::string& item = Items.at(HeaderAt + static_cast<std::size_t>(row * ColumnCount + column));
      EXPECT_THAT(item, StartsWith("LineData:et_linedata:" + std::to_string(row) + ":" + std::to_string(column) + ":"));
    }
  }
}

// Content

TEST_F(DefaultStreamTest, HasItsAttributes) {
  EXPECT_THAT(Part(AttributesAt, 21), ElementsAreArray({
                                          "AttributeData:analysisdescription:8:New Operation 3",
                                          "AttributeData:analysisdescription2:8:",
                                          "AttributeData:name:8:New STM - STD",
                                          "AttributeData:code:8:New STM - STD",
                                          "AttributeData:timetype:8:TA",
                                          "AttributeData:analysistype:8:P",
                                          "AttributeData:subsystem:8:STD",
                                          "AttributeData:timeunit:8:UA_TIME_TMU",
                                          "AttributeData:basictimeunit:8:UA_TIME_TMU",
                                          "AttributeData:wdstart:8:",
                                          "AttributeData:wdend:8:",
                                          "AttributeData:wdlimitation:8:",
                                          "AttributeData:wdinclude:8:",
                                          "AttributeData:wdtext:8:",
                                          "AttributeData:dbl_ttbcalculated:5:2.952",
                                          "AttributeData:dbl_ttucalculated:5:1.800000036",
                                          "AttributeData:dbl_twcalculated:5:3.6",
                                          "AttributeData:dbl_trgcalculated:5:11.99999988",
                                          "AttributeData:dbl_totalcalculated:5:8.352000036",
                                          "AttributeData:dbl_taquantity:5:10",
                                          "AttributeData:dbl_tapartssimultan:5:2",
                                      }));
}

TEST_F(DefaultStreamTest, HasItsHeaderRow) {
  EXPECT_THAT(Part(HeaderAt, ColumnCount), ElementsAreArray({
                                               "LineData:et_linedata:0:0:8:standardtextflag",
                                               "LineData:et_linedata:0:1:8:rowno",
                                               "LineData:et_linedata:0:2:8:analysisdescription",
                                               "LineData:et_linedata:0:3:8:code",
                                               "LineData:et_linedata:0:4:8:timetype",
                                               "LineData:et_linedata:0:5:8:analysistype",
                                               "LineData:et_linedata:0:6:8:totaltime",
                                               "LineData:et_linedata:0:7:8:factor",
                                               "LineData:et_linedata:0:8:8:totalcalc",
                                               "LineData:et_linedata:0:9:8:ttbtime",
                                               "LineData:et_linedata:0:10:8:ttutime",
                                               "LineData:et_linedata:0:11:8:trgtime",
                                               "LineData:et_linedata:0:12:8:twtime",
                                               "LineData:et_linedata:0:13:8:adddescription",
                                           }));
}

TEST_F(DefaultStreamTest, GivesTheTypesOfItsCells) {
  for (int line = 1; line <= 10; ++line) {
    for (const int column : {0, 1}) EXPECT_EQ(CellField(line, column, 4), "3") << line << ", " << column;
    for (const int column : {2, 3, 4, 5, 13}) EXPECT_EQ(CellField(line, column, 4), "8") << line << ", " << column;
    for (int column = 6; column <= 12; ++column) EXPECT_EQ(CellField(line, column, 4), "5") << line << ", " << column;
  }
}

TEST_F(DefaultStreamTest, HasTheSameFlagRowAndBlanksInEveryLine) {
  for (int line = 1; line <= 10; ++line) {
    EXPECT_EQ(Value(line, 0), "1") << line;
    EXPECT_EQ(Value(line, 1), std::to_string(line)) << line;
    EXPECT_EQ(Value(line, 5), " ") << line;
    EXPECT_EQ(Value(line, 13), "") << line;
  }
}

struct LineCase {
  const char* name;
  int line;
  std::vector<std::string> cells;  // columns 2 to 4 and 6 to 12
};

class DefaultStreamLineTest : public DefaultStreamTest, public testing::WithParamInterface<LineCase> {};

TEST_P(DefaultStreamLineTest, HasItsCells) {
  std::vector<std::string> cells;
  for (const int column : {2, 3, 4, 6, 7, 8, 9, 10, 11, 12}) cells.push_back(Value(GetParam().line, column));
  EXPECT_EQ(cells, GetParam().cells);
}

// Description, code, time type; total time, frequency, calculated total; the times under TTB, TTU, TRG and TW.
// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Lines, DefaultStreamLineTest,
    testing::Values(
        LineCase{"First", 1,          {"Get", "ALE05", "TTB", "0.288", "1", "-0.036", "0.288", "-0.036", "-0.036", "-0.036"}},
        LineCase{"Second", 2,         {"Get", "ALZ45", "TTB", "0.756", "1", "-0.036", "0.756", "-0.036", "-0.036", "-0.036"}},
        LineCase{"FirstCalculated", 3, {"Get", "AMZ60", "TTB", "1.08", "1", "1.08", "1.08", "-0.036", "-0.036", "-0.036"}},
        LineCase{"Regrasp", 6,        {"Regrasp pass", "GNU", "TTB", "0.216", "1", "0.216", "0.216", "-0.036", "-0.036", "-0.036"}},
        LineCase{"CommaInAText", 7,   {"Application of force, large", "GKG", "TTB", "0.576", "1", "0.576", "0.576", "-0.036", "-0.036", "-0.036"}},
        LineCase{"MachineTime", 8,    {"Restricted Process Time", "PTUHMIN1", "TTU", "0.600000012", "3", "1.800000036", "-0.036", "0.600000012", "-0.036", "-0.036"}},
        LineCase{"SetupTime", 9,      {"Process Setup Time", "PTRHMIN2", "TRG", "1.199999988", "10", "0", "-0.036", "-0.036", "1.199999988", "-0.036"}},
        LineCase{"WaitingTime", 10,   {"Process Waiting Time", "PTWHMIN3", "TW", "1.8", "2", "3.6", "-0.036", "-0.036", "-0.036", "1.8"}}),
    support::RowName());
// clang-format on

// The stream agrees with itself: calculated totals of the analysis against those of the lines.

TEST_F(DefaultStreamTest, SumsTheCalculatedTimesOfItsLines) {
  constexpr double Tolerance = 1e-12;
  double ttb = 0.0;
  for (int line = 1; line <= 10; ++line) {
    if (Value(line, 4) == "TTB" && Number(line, 8) >= 0) ttb += Number(line, 8);
  }
  auto totals = Totals();
  EXPECT_NEAR(totals.at("dbl_ttbcalculated"), ttb, Tolerance);
  EXPECT_NEAR(totals.at("dbl_ttucalculated"), Number(8, 8), Tolerance);
  EXPECT_NEAR(totals.at("dbl_twcalculated"), Number(10, 8), Tolerance);
  EXPECT_NEAR(totals.at("dbl_trgcalculated"), Number(9, 6) * Number(9, 7), Tolerance);
  EXPECT_NEAR(totals.at("dbl_totalcalculated"), ttb + Number(8, 8) + Number(10, 8), Tolerance);
}

TEST_F(DefaultStreamTest, HasTheTimeOfEachLineUnderItsTimeType) {
  const std::map<std::string, int> columns{{"TTB", 9}, {"TTU", 10}, {"TRG", 11}, {"TW", 12}};
  for (int line = 1; line <= 10; ++line) {
    for (const auto& [time_type, column] : columns) {
      EXPECT_EQ(Value(line, column), Value(line, 4) == time_type ? Value(line, 6) : "-0.036") << line << time_type;
    }
  }
}

}  // namespace
