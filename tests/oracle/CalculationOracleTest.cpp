// Tests of the yardstick for the calculation: units, single lines and reuse.
#include "CalculationOracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "OracleAnalysis.h"

namespace oracle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

// ---- Units ----

struct ConversionCase {
  const char* name;
  double tmu_per_minute;
  double seconds;
};
void PrintTo(const ConversionCase& row, std::ostream* out) {
  *out << row.tmu_per_minute;
}
class SecondsPerTmuTest : public testing::TestWithParam<ConversionCase> {};
TEST_P(SecondsPerTmuTest, DividesTheMinute) {
  EXPECT_EQ(SecondsPerTmu(GetParam().tmu_per_minute), GetParam().seconds);
}
INSTANTIATE_TEST_SUITE_P(
    Conversions, SecondsPerTmuTest,
    testing::Values(ConversionCase{"NotSet", 0.0, 0.036}, ConversionCase{"MinusZero", -0.0, 0.036},
                    ConversionCase{"Rounded", 1666.67, 0.036}, ConversionCase{"LowestThatSnaps", 1662.1, 0.036},
                    ConversionCase{"TooLowToSnap", 1662.0, 60.0 / 1662.0},
                    ConversionCase{"HighestThatSnaps", 1671.3, 0.036},
                    ConversionCase{"TooHighToSnap", 1671.4, 60.0 / 1671.4}, ConversionCase{"Other", 2000.0, 0.03},
                    ConversionCase{"Negative", -2000.0, -0.03}, ConversionCase{"Endless", Infinity, 0.0}),
    NameOf<testing::TestParamInfo<ConversionCase>>);

struct RoundingCase {
  const char* name;
  double value;
  double decimals;
  double rounded;
};
void PrintTo(const RoundingCase& row, std::ostream* out) {
  *out << row.value << " to " << row.decimals;
}
class RoundOffTest : public testing::TestWithParam<RoundingCase> {};
TEST_P(RoundOffTest, GoesToTheNearer) {
  EXPECT_DOUBLE_EQ(RoundOff(GetParam().value, GetParam().decimals), GetParam().rounded);
}
INSTANTIATE_TEST_SUITE_P(Values, RoundOffTest,
                         testing::Values(RoundingCase{"TieGoesUp", 2.5, 0.0, 3.0},
                                         RoundingCase{"NegativeTieGoesUp", -2.5, 0.0, -2.0},
                                         RoundingCase{"DecimalTie", 0.125, 2.0, 0.13},
                                         RoundingCase{"NegativeDecimalTie", -0.125, 2.0, -0.12},
                                         RoundingCase{"Down", 1.2344, 3.0, 1.234},
                                         RoundingCase{"Up", 1.2346, 3.0, 1.235}, RoundingCase{"Whole", 7.0, 6.0, 7.0},
                                         RoundingCase{"ModaptsUnits", 3.6 / 0.129, 2.0, 27.91},
                                         RoundingCase{"LargestWholePart", 2147483647.5, 0.0, 2147483648.0},
                                         RoundingCase{"LeastWholePart", -2147483648.5, 0.0, -2147483648.0},
                                         RoundingCase{"BeyondTheWholePart", 3e9, 6.0, 3e9},
                                         RoundingCase{"EndlessStays", Infinity, 6.0, Infinity}),
                         NameOf<testing::TestParamInfo<RoundingCase>>);

TEST(RoundOffTest, GivesNoNumberForNone) {
  EXPECT_TRUE(std::isnan(RoundOff(std::nan(""), 6.0)));
}

// ---- Lines ----

struct LineCase {
  const char* name;
  std::map<std::string, KeyValue> values;
  double time;
  double frequency;
  double plain_total;
};
void PrintTo(const LineCase& row, std::ostream* out) {
  *out << row.name;
}
class LineTest : public testing::TestWithParam<LineCase> {};

TEST_P(LineTest, HasTimeAndFrequency) {
  const Analysis analysis = AnalysisOf("A", {LineOf(GetParam().values)});
  EXPECT_EQ(TimeOfLine(1, &analysis), GetParam().time);
  EXPECT_EQ(FrequencyOfLine(1, &analysis), GetParam().frequency);
  EXPECT_EQ(TotalTimeOfNonFormulaCode(&analysis), GetParam().plain_total);
}

TEST_P(LineTest, AddsNothingWithAFormula) {
  Analysis analysis = AnalysisOf("A", {LineOf(GetParam().values)});
  analysis.lines[0].parameters.emplace_back(ParameterOf("A", "1", "Time", ""));
  EXPECT_EQ(TotalTimeOfNonFormulaCode(&analysis), 0.0);
  EXPECT_EQ(TimeOfLine(1, &analysis), GetParam().time);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineTest,
    testing::Values(
        LineCase{"Ttb", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}, {"Factor", 3.0}}, 0.5, 3.0, 1.5},
        LineCase{
            "Ttu", {{"TimeType", Text("TTU")}, {"TTUTime", 0.5}, {"TTBTime", 9.0}, {"Factor", 3.0}}, 0.5, 3.0, 1.5},
        LineCase{"Tw", {{"TimeType", Text("TW")}, {"TWTime", 0.5}, {"TTBTime", 9.0}, {"Factor", 3.0}}, 0.5, 3.0, 1.5},
        LineCase{
            "Trg", {{"TimeType", Text("TRG")}, {"TRGTime", 0.5}, {"TTBTime", 9.0}, {"Factor", 3.0}}, 0.5, 3.0, 1.5},
        LineCase{"StarsGiveTheTotal",
                 {{"TimeType", Text("T**")}, {"TTBTime", 2.0}, {"TotalTime", 6.0}, {"Factor", 3.0}},
                 6.0,
                 3.0,
                 0.0},
        LineCase{"UnknownType", {{"TimeType", Text("TX")}, {"TTBTime", 2.0}, {"Factor", 3.0}}, 0.0, 3.0, 0.0},
        LineCase{"NoType", {{"TTBTime", 2.0}, {"Factor", 3.0}}, 0.0, 3.0, 0.0},
        LineCase{"Marker", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}, {"Factor", -1.0}}, 0.5, -1.0, 0.5},
        LineCase{"ZeroFrequency", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}, {"Factor", 0.0}}, 0.5, 0.0, 0.0},
        LineCase{"ZeroFrequencyOfAnEndlessTime",
                 {{"TimeType", Text("TTB")}, {"TTBTime", Infinity}, {"Factor", 0.0}},
                 Infinity,
                 0.0,
                 0.0},
        LineCase{"NegativeFrequency", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}, {"Factor", -2.0}}, 0.5, -2.0, 0.0},
        LineCase{"NoFrequency", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}}, 0.5, 1.0, 0.0},
        LineCase{"FrequencyOfAnotherType", {{"TimeType", Text("TTB")}, {"TTBTime", 0.5}, {"Factor", 3}}, 0.5, 1.0, 0.0},
        LineCase{"TimeOfAnotherType", {{"TimeType", Text("TTB")}, {"TTBTime", 5}, {"Factor", 3.0}}, 0.0, 3.0, 0.0},
        LineCase{"NegativeTime", {{"TimeType", Text("TTB")}, {"TTBTime", -0.5}, {"Factor", 2.0}}, -0.5, 2.0, -1.0}),
    NameOf<testing::TestParamInfo<LineCase>>);

TEST(LineTest, AStaleRowIsEmpty) {
  const Analysis analysis = AnalysisOf("A", {LineOf({{"TimeType", Text("TTB")}, {"TTBTime", 2.0}, {"Factor", 3.0}})});
  for (const long row : {-1L, 0L, 2L, 4294967297L}) {
    EXPECT_EQ(TimeOfLine(row, &analysis), 0.0) << row;
    EXPECT_EQ(FrequencyOfLine(row, &analysis), 1.0) << row;
    EXPECT_EQ(ReusedAnalysisOfRow(row, &analysis), nullptr) << row;
  }
}

TEST(LineTest, ANullAnalysisHasNoLines) {
  EXPECT_EQ(TimeOfLine(1, nullptr), 0.0);
  EXPECT_EQ(FrequencyOfLine(1, nullptr), 1.0);
  EXPECT_EQ(TotalTimeOfNonFormulaCode(nullptr), 0.0);
}

TEST(LineTest, AnAnalysisWithoutLinesInterface) {
  Analysis analysis = AnalysisOf("A", {LineOf({{"TimeType", Text("TTB")}, {"TTBTime", 2.0}, {"Factor", 3.0}})});
  analysis.offers_lines = false;
  EXPECT_EQ(TimeOfLine(1, &analysis), 0.0);
  EXPECT_EQ(FrequencyOfLine(1, &analysis), 1.0);
  EXPECT_EQ(ReusedAnalysisOfRow(1, &analysis), nullptr);
  EXPECT_THROW(TotalTimeOfNonFormulaCode(&analysis), NullHandle);
}

// ---- Reuse ----

TEST(ReuseTest, RowWithAndWithoutReusedAnalysis) {
  Analysis below = AnalysisOf("B", {});
  const Analysis top = AnalysisOf("A", {LineOf({}), Reusing(below)});
  EXPECT_EQ(ReusedAnalysisOfRow(1, &top), nullptr);
  EXPECT_EQ(ReusedAnalysisOfRow(2, &top), &below);
  EXPECT_EQ(ReusedAnalysisOfRow(1, nullptr), nullptr);
  EXPECT_TRUE(HasReusedLine(&top));
  EXPECT_FALSE(HasReusedLine(&below));
  EXPECT_FALSE(HasReusedLine(nullptr));
}

TEST(ReuseTest, WithoutInterfacesNothingIsReused) {
  Analysis below = AnalysisOf("B", {});
  Analysis top = AnalysisOf("A", {Reusing(below)});
  top.offers_rep_reference = false;
  EXPECT_FALSE(HasReusedLine(&top));
  top.offers_rep_reference = true;
  top.offers_lines = false;
  EXPECT_FALSE(HasReusedLine(&top));
}

TEST(ReuseTest, Identifier) {
  Analysis analysis = AnalysisOf("A", {});
  EXPECT_EQ(IdentifierOf(nullptr), "");
  EXPECT_EQ(IdentifierOf(&analysis), "A");
  analysis.offers_properties = false;
  EXPECT_EQ(IdentifierOf(&analysis), "");
}

TEST(ReuseTest, ParentsStandBeforeChildrenAndEachOnce) {
  Analysis d = AnalysisOf("D", {});
  Analysis c = AnalysisOf("C", {Reusing(d)});
  Analysis b = AnalysisOf("B", {Reusing(c), Reusing(d)});
  Analysis a = AnalysisOf("A", {Reusing(b), LineOf({}), Reusing(c), Reusing(b)});
  ReuseTables tables;
  AllLevelReusedIds(&a, tables);
  EXPECT_EQ(tables.ids, (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_EQ(tables.times, (std::vector<double>{0.0, 0.0, 0.0, 0.0}));
  EXPECT_EQ(tables.analyses, (std::vector<const Analysis*>{&a, &b, &c, &d}));
  EXPECT_EQ(tables.Locate("A"), 1U);
  EXPECT_EQ(tables.Locate("D"), 4U);
  EXPECT_EQ(tables.Locate("E"), 0U);
}

TEST(ReuseTest, AppendsToWhatTheTablesHold) {
  Analysis a = AnalysisOf("A", {});
  Analysis b = AnalysisOf("B", {Reusing(a)});
  ReuseTables tables;
  AllLevelReusedIds(&a, tables);
  tables.times[0] = 5.0;
  AllLevelReusedIds(&b, tables);
  EXPECT_EQ(tables.ids, (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(tables.times, (std::vector<double>{5.0, 0.0}));
}

TEST(ReuseTest, TheFirstOfTwoWithOneIdentifierIsListedButBothAreEntered) {
  Analysis below = AnalysisOf("C", {});
  Analysis twin = AnalysisOf("B", {Reusing(below)});
  Analysis first = AnalysisOf("B", {});
  Analysis top = AnalysisOf("A", {Reusing(first), Reusing(twin)});
  ReuseTables tables;
  AllLevelReusedIds(&top, tables);
  EXPECT_EQ(tables.ids, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(tables.analyses, (std::vector<const Analysis*>{&top, &first, &below}));
}

TEST(ReuseTest, ACycleEnds) {
  Analysis a = AnalysisOf("A", {});
  Analysis b = AnalysisOf("B", {Reusing(a)});
  a.lines = {Reusing(a), Reusing(b)};
  ReuseTables tables;
  AllLevelReusedIds(&a, tables);
  EXPECT_EQ(tables.ids, (std::vector<std::string>{"A", "B"}));
}

TEST(ReuseTest, MissingInterfacesEndOrRaise) {
  ReuseTables tables;
  AllLevelReusedIds(nullptr, tables);
  Analysis a = AnalysisOf("A", {});
  a.offers_rep_reference = false;
  AllLevelReusedIds(&a, tables);
  EXPECT_TRUE(tables.ids.empty());
  a.offers_rep_reference = true;
  a.offers_properties = false;
  EXPECT_THROW(AllLevelReusedIds(&a, tables), NullHandle);
  EXPECT_TRUE(tables.ids.empty());
  a.offers_properties = true;
  a.offers_lines = false;
  EXPECT_THROW(AllLevelReusedIds(&a, tables), NullHandle);
}

}  // namespace
}  // namespace oracle
