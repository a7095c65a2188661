// Time and frequency of one line, the weighted time of the plain lines of an analysis, and the return of line lists.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/formula/FormulaTest.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeBareObject;
using calculationtest::MakeShellWithout;
using formulatest::SameNumber;
using support::DescribeAnalysis;
using support::Line;
using support::MakeAnalysis;
using support::ParameterList;
using support::TimeFormula;
using Services = VEXSTMTimeAnalysisDlgServices;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();

// A line with another time under each key, so that a mix-up shows.
Line LineOfType(const char* type) {
  return Line("M10B")
      .Set("TimeType", type)
      .Set("TTBTime", 1.0)
      .Set("TTUTime", 2.0)
      .Set("TWTime", 3.0)
      .Set("TRGTime", 4.0)
      .Set("TotalTime", 6.0)
      .Set("Factor", 10.0);
}

// ---- Time types ----

struct TypeRow {
  const char* name;
  const char* type;
  double time;   // of one occurrence
  double plain;  // what the line adds to the plain lines, with a frequency of 10
};
class TimeTypeTest : public testing::TestWithParam<TypeRow> {};

TEST_P(TimeTypeTest, NamesTheKeyOfTheTime) {
  const auto analysis = MakeAnalysis("A", {LineOfType(GetParam().type)});
  EXPECT_EQ(Services::GetTimeOfLine(1, analysis.Get()), GetParam().time);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), GetParam().plain);
}

TEST_P(TimeTypeTest, ALineWithoutTimesHasNone) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Set("TimeType", GetParam().type).Set("Factor", 2.0)});
  EXPECT_EQ(Services::GetTimeOfLine(1, analysis.Get()), 0.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

TEST_P(TimeTypeTest, TheTimeOfAFormulaLineIsReadButNotAdded) {
  const auto analysis = MakeAnalysis("A", {LineOfType(GetParam().type).Formula(TimeFormula("A", "1", "8"))});
  EXPECT_EQ(Services::GetTimeOfLine(1, analysis.Get()), GetParam().time);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

INSTANTIATE_TEST_SUITE_P(Types, TimeTypeTest,
                         testing::Values(TypeRow{"Ttb", "TTB", 1.0, 10.0}, TypeRow{"Ttu", "TTU", 2.0, 20.0},
                                         TypeRow{"Tw", "TW", 3.0, 30.0}, TypeRow{"Trg", "TRG", 4.0, 40.0},
                                         TypeRow{"StarsGiveTheTotalAndAddNothing", "T**", 6.0, 0.0},
                                         TypeRow{"Unknown", "TTX", 0.0, 0.0}, TypeRow{"Empty", "", 0.0, 0.0},
                                         TypeRow{"SmallLetters", "ttb", 0.0, 0.0},
                                         TypeRow{"BlankBehind", "TTB ", 0.0, 0.0}, TypeRow{"OneStar", "T*", 0.0, 0.0}),
                         support::RowName());

TEST(LineTimeTest, ALineWithoutTimeTypeHasNoTime) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Set("TTBTime", 1.0).Set("TotalTime", 6.0).Set("Factor", 1.0)});
  EXPECT_EQ(Services::GetTimeOfLine(1, analysis.Get()), 0.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

TEST(LineTimeTest, StarsTakeTheTotalAsItIs) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("T**", 2.0, 3.0)});
  EXPECT_EQ(Services::GetTimeOfLine(1, analysis.Get()), 6.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

// ---- Frequencies ----

struct FrequencyRow {
  const char* name;
  double time;
  double frequency;
  double plain;
};
class FrequencyTest : public testing::TestWithParam<FrequencyRow> {};

TEST_P(FrequencyTest, WeighsThePlainLine) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", GetParam().time, GetParam().frequency)});
  EXPECT_TRUE(SameNumber(GetParam().time, Services::GetTimeOfLine(1, analysis.Get())));
  EXPECT_TRUE(SameNumber(GetParam().frequency, Services::GetFrequencyOfLine(1, analysis.Get())));
  EXPECT_TRUE(SameNumber(GetParam().plain, Services::CalcTotalTimeOfNonFormulaCode(analysis.Get())));
}

INSTANTIATE_TEST_SUITE_P(Frequencies, FrequencyTest,
                         testing::Values(FrequencyRow{"Usual", 0.5, 3.0, 1.5}, FrequencyRow{"Marker", 0.5, -1.0, 0.5},
                                         FrequencyRow{"NearTheMarker", 0.5, std::nextafter(-1.0, 0.0), 0.0},
                                         FrequencyRow{"Zero", 0.5, 0.0, 0.0}, FrequencyRow{"Negative", 0.5, -2.0, 0.0},
                                         FrequencyRow{"Small", 0.5, 1e-9, 5e-10},
                                         FrequencyRow{"NegativeTime", -0.036, 2.0, -0.072},
                                         FrequencyRow{"NegativeTimeUnderTheMarker", -0.036, -1.0, -0.036},
                                         FrequencyRow{"NoNumber", 0.5, NotANumber, 0.0},
                                         FrequencyRow{"Endless", 0.5, Infinity, Infinity},
                                         FrequencyRow{"EndlessBelow", 0.5, -Infinity, 0.0},
                                         FrequencyRow{"EndlessOfNoTime", 0.0, Infinity, NotANumber},
                                         FrequencyRow{"TimeThatIsNoNumber", NotANumber, 2.0, NotANumber},
                                         FrequencyRow{"TimeThatIsNoNumberNever", NotANumber, 0.0, 0.0},
                                         FrequencyRow{"EndlessTime", -Infinity, 2.0, -Infinity},
                                         FrequencyRow{"TooLarge", Largest, 2.0, Infinity}),
                         support::RowName());

TEST(LineTimeTest, AMissingFrequencyIsOneForItselfAndAddsNothing) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Set("TimeType", "TTB").Set("TTBTime", 0.5)});
  EXPECT_EQ(Services::GetFrequencyOfLine(1, analysis.Get()), 1.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

TEST(LineTimeTest, KeysOfAnotherTypeCountAsMissing) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Set("TimeType", "TTB").Set("TTBTime", "5").Set("Factor", 3),
                                           Line("M10B").Set("TimeType", 1).Set("TTBTime", 5.0).Set("Factor", "3")});
  for (const int row : {1, 2}) {
    EXPECT_EQ(Services::GetTimeOfLine(row, analysis.Get()), 0.0) << row;
    EXPECT_EQ(Services::GetFrequencyOfLine(row, analysis.Get()), 1.0) << row;
  }
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 0.0);
}

// ---- Rows and analyses that are not there ----

class StaleRowTest : public testing::TestWithParam<int> {};

TEST_P(StaleRowTest, HasNoTimeAndTheFrequencyOne) {
  const auto analysis = MakeAnalysis("A", {LineOfType("TTB"), LineOfType("T**")});
  EXPECT_EQ(Services::GetTimeOfLine(GetParam(), analysis.Get()), 0.0);
  EXPECT_EQ(Services::GetFrequencyOfLine(GetParam(), analysis.Get()), 1.0);
}

INSTANTIATE_TEST_SUITE_P(Rows, StaleRowTest,
                         testing::Values(0, -1, 3, 4, std::numeric_limits<int>::max(),
                                         std::numeric_limits<int>::min()));

TEST(LineTimeTest, ANullAnalysis) {
  EXPECT_EQ(Services::GetTimeOfLine(1, nullptr), 0.0);
  EXPECT_EQ(Services::GetFrequencyOfLine(1, nullptr), 1.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(nullptr), 0.0);
}

TEST(LineTimeTest, AnObjectWithoutLines) {
  const auto inside = MakeAnalysis("A", {LineOfType("TTB")});
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(MakeShellWithout<VEXITimeAnalysisLines>(inside)), MakeBareObject()}) {
    EXPECT_EQ(Services::GetTimeOfLine(1, object.Get()), 0.0);
    EXPECT_EQ(Services::GetFrequencyOfLine(1, object.Get()), 1.0);
    EXPECT_THROW(Services::CalcTotalTimeOfNonFormulaCode(object.Get()), KORError);
  }
}

TEST(LineTimeTest, AnObjectThatOffersNothingButLines) {
  const auto shell = MakeShellWithout<VEXITimeAnalysisRepReference>(MakeAnalysis("A", {LineOfType("TTU")}));
  shell->Hide<VEXITimeAnalysisProperties>();
  EXPECT_EQ(Services::GetTimeOfLine(1, shell.Get()), 2.0);
  EXPECT_EQ(Services::GetFrequencyOfLine(1, shell.Get()), 10.0);
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(shell.Get()), 20.0);
}

// ---- The sum of the plain lines ----

TEST(LineTimeTest, AnAnalysisWithoutLinesHasNoPlainTime) {
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(MakeAnalysis("A").Get()), 0.0);
}

TEST(LineTimeTest, TheCodeDoesNotMatterForThePlainTime) {
  const auto analysis = MakeAnalysis("A", {Line("*").Timed("TTB", 1.0), Line("").Timed("TTB", 2.0),
                                           Line().Timed("TTB", 4.0), Line(" ").Timed("TW", 8.0)});
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 15.0);
}

TEST(LineTimeTest, AReusingLineWithoutFormulaIsPlain) {
  const auto analysis = MakeAnalysis("A", {Line("B").Timed("TTB", 1.5, 2.0).Reuses(MakeAnalysis("B"))});
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 3.0);
}

TEST(LineTimeTest, AnyEntryOfTheParameterListMakesAFormulaLine) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", 1.0).Formula(ParameterList().AddNull()),
                                           Line("M10B").Timed("TTB", 2.0).Formula(ParameterList()),
                                           Line("M10B").Timed("TTB", 4.0).Formula(TimeFormula("A", "3", "1"))});
  EXPECT_EQ(Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()), 2.0) << "an empty list is none";
}

TEST(LineTimeTest, ThePlainLinesAddUpFromTheFirstToTheLast) {
  const std::vector<double> times{1e16, 1.0, -1e16, 0.1, 0.2, 0.3, 1e-9};
  std::vector<Line> lines;
  double expected = 0.0;
  for (const double time : times) {
    lines.push_back(Line("M10B").Timed("TTB", time, 3.0));
    expected += 3.0 * time;
  }
  EXPECT_TRUE(SameNumber(expected, Services::CalcTotalTimeOfNonFormulaCode(MakeAnalysis("A", lines).Get())));
}

// Counts the lines that are stored.
class StoreCounter : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;
  long SetLine(int row, VEXTimeAnalysisLineData& line) override {
    ++Stored;
    return AnalysisShell::SetLine(row, line);
  }
  int Stored = 0;
};

TEST(LineTimeTest, ReadingChangesAndStoresNothing) {
  const auto inside = MakeAnalysis(
      "A", {LineOfType("TTB").Formula(TimeFormula("A", "1", "8")), LineOfType("T**").Reuses(MakeAnalysis("B"))});
  const std::string before = DescribeAnalysis(*inside);
  const auto counter = KORHandle<StoreCounter>::Adopt(new StoreCounter(inside));
  for (int row = 0; row <= 3; ++row) {
    (void)Services::GetTimeOfLine(row, counter.Get());
    (void)Services::GetFrequencyOfLine(row, counter.Get());
  }
  (void)Services::CalcTotalTimeOfNonFormulaCode(counter.Get());
  EXPECT_EQ(counter->Stored, 0);
  EXPECT_EQ(DescribeAnalysis(*inside), before);
}

// ---- Lists of lines given back ----

class ReleasedLinesTest : public testing::Test {
 protected:
  const support::TimeAnalysis_var _Analysis =
      MakeAnalysis("A", {Line("M10B").Formula(TimeFormula("A", "1", "8").AddNull().Append(TimeFormula("A", "2", "3"))),
                         Line("G1A"), Line("B").Reuses(MakeAnalysis("B"))});
};

TEST_F(ReleasedLinesTest, AnEmptyListStaysEmpty) {
  KORRawCollPV lines;
  Services::ReleaseTimeAnalysisLines(lines);
  EXPECT_EQ(lines.Size(), 0);
}

TEST_F(ReleasedLinesTest, TheListIsEmptiedAndTheRecordsAreGone) {
  const long alive = KORBaseUnknown::CountLiveObjects();
  KORRawCollPV lines;
  ASSERT_EQ(_Analysis->GetLines(1, 3, lines), S_OK);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), alive + 3);
  Services::ReleaseTimeAnalysisLines(lines);
  EXPECT_EQ(lines.Size(), 0);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), alive);
}

TEST_F(ReleasedLinesTest, NullEntriesArePassedOver) {
  const long alive = KORBaseUnknown::CountLiveObjects();
  KORRawCollPV lines;
  lines.Append(nullptr);
  ASSERT_EQ(_Analysis->GetLines(1, 2, lines), S_OK);
  lines.Append(nullptr);
  ASSERT_EQ(_Analysis->GetLines(3, 1, lines), S_OK);
  Services::ReleaseTimeAnalysisLines(lines);
  EXPECT_EQ(lines.Size(), 0);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), alive);
}

TEST_F(ReleasedLinesTest, ARecordThatIsHeldFurtherLosesItsParametersAndOneReference) {
  KORRawCollPV lines;
  ASSERT_EQ(_Analysis->GetLines(1, 1, lines), S_OK);
  auto* const record = static_cast<VEXTimeAnalysisLineData*>(lines[1]);
  record->AddRef();
  Services::ReleaseTimeAnalysisLines(lines);
  EXPECT_EQ(support::Read<KORUnicodeString>(*record, "Code"), KORUnicodeString("M10B"));
  KORRawCollPV parameters;
  (void)record->GetValue("FormulaParameter", parameters);
  EXPECT_EQ(parameters.Size(), 0);
  EXPECT_EQ(record->Release(), 0u);
}

TEST_F(ReleasedLinesTest, TheAnalysisKeepsItsLines) {
  const std::string before = DescribeAnalysis(*_Analysis);
  KORRawCollPV lines;
  ASSERT_EQ(_Analysis->GetLines(1, 3, lines), S_OK);
  Services::ReleaseTimeAnalysisLines(lines);
  EXPECT_EQ(DescribeAnalysis(*_Analysis), before);
}

}  // namespace
