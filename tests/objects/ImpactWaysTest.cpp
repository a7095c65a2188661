// The climb from a changed analysis over many levels, many ways and circles: it ends, in time, with the right totals.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "tests/objects/ImpactTest.h"
#include "tests/oracle/ImpactOracle.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::ClimbFrom;
using objectstest::ClimbResult;
using objectstest::ListOf;
using objectstest::NewAnalysis;
using objectstest::NewTemplate;
using objectstest::Propagate;
using objectstest::ReuseIndex;
using objectstest::ReusingLine;
using objectstest::SaveLog;
using support::Line;
using support::RealOf;
using support::RealOfLine;
using support::TimeAnalysis_var;
using support::TimeFormula;
using testing::Optional;
using Names = std::vector<std::string>;
using Saves = std::vector<Names>;

constexpr double SecondsPerTmu = 0.036;

class ImpactWaysTest : public objectstest::ObjectsTest {
 protected:
  SaveLog _Log;
};

// ---- Height ----

// Each level reuses the one below and adds a line of 1 TMU; the lowest one takes 10 TMU.
std::vector<TimeAnalysis_var> NewChain(int levels) {
  std::vector<TimeAnalysis_var> chain{NewTemplate("L0", 10.0)};
  for (int level = 1; level <= levels; ++level) {
    chain.push_back(NewAnalysis("L" + std::to_string(level),
                                {ReusingLine("below", chain.back()), Line("M1").Timed("TTB", SecondsPerTmu)}));
  }
  return chain;
}

void ExpectTotalsOfChain(const std::vector<TimeAnalysis_var>& chain) {
  for (std::size_t level = 1; level < chain.size(); ++level) {
    const double below = 9.0 + static_cast<double>(level);
    ASSERT_THAT(RealOfLine(*chain[level], 1, "TTBTime"), Optional(testing::DoubleNear(below * SecondsPerTmu, 1e-6)))
        << level;
    ASSERT_THAT(RealOf(*chain[level], "TotalCalculated"), Optional(testing::DoubleNear(below + 1.0, 1e-4))) << level;
  }
}

Names NamesOfChain(const std::vector<TimeAnalysis_var>& chain) {
  Names names;
  for (std::size_t level = 1; level < chain.size(); ++level) names.push_back("L" + std::to_string(level));
  return names;
}

constexpr int TallChain = 100'000;

TEST_F(ImpactWaysTest, AHundredThousandLevelsAreBroughtUpToDate) {
  const std::vector<TimeAnalysis_var> chain = NewChain(TallChain);
  EXPECT_EQ(Propagate(chain.front()), "S_OK");
  ASSERT_NO_FATAL_FAILURE(ExpectTotalsOfChain(chain));
  ASSERT_EQ(_Log.Saves().size(), 1U);
  EXPECT_TRUE(_Log.Saves().front() == NamesOfChain(chain));
}

TEST_F(ImpactWaysTest, AHundredThousandLevelsAreClimbed) {
  const std::vector<TimeAnalysis_var> chain = NewChain(TallChain);
  ReuseIndex index;
  for (std::size_t level = 1; level < chain.size(); ++level) index.Add(chain[level - 1], chain[level]);
  const ClimbResult result = ClimbFrom(chain[0], chain[1], index.Table());
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_TRUE(result.components == NamesOfChain(chain));
  ASSERT_NO_FATAL_FAILURE(ExpectTotalsOfChain(chain));
}

TEST_F(ImpactWaysTest, AHundredThousandLevelsInACircleAreClimbed) {
  const std::vector<TimeAnalysis_var> chain = NewChain(TallChain);
  support::AppendLines(*chain.front(), {ReusingLine("top", chain.back())});
  EXPECT_EQ(Propagate(chain.front()), "S_OK");
  ASSERT_NO_FATAL_FAILURE(ExpectTotalsOfChain(chain));
  ASSERT_EQ(_Log.Saves().size(), 1U);
  EXPECT_TRUE(_Log.Saves().front() == NamesOfChain(chain));
}

// ---- Width ----

TEST_F(ImpactWaysTest, TenThousandUsersOfOneAnalysisAreDoneInTheOrderOfMaking) {
  const auto grip = NewTemplate("Grip", 10.0);
  Names expected;
  for (int number = 1; number <= 10'000; ++number) {
    expected.push_back("P" + std::to_string(number));
    NewAnalysis(expected.back(), {ReusingLine("Grip", grip)});
  }
  EXPECT_EQ(Propagate(grip), "S_OK");
  ASSERT_EQ(_Log.Saves().size(), 1U);
  EXPECT_TRUE(_Log.Saves().front() == expected);
}

// ---- Diamonds ----

// A template of 10 TMU, two analyses that reuse it, and on each further level two that reuse both of the level below.
class Ladder {
 public:
  explicit Ladder(int levels, const std::vector<Line>& lowest = {}) : _Lowest(NewTemplate("Grip", 10.0, 0.0, lowest)) {
    for (int level = 1; level <= levels; ++level) {
      _Levels.push_back({NewOn("L" + std::to_string(level)), NewOn("R" + std::to_string(level))});
    }
  }

  const TimeAnalysis_var& Lowest() const { return _Lowest; }
  const std::vector<std::array<TimeAnalysis_var, 2>>& Levels() const { return _Levels; }

  /// The template and all above it.
  KORListValKORBaseUnknown_var All() const {
    KORListValKORBaseUnknown_var all = ListOf({_Lowest});
    for (const auto& level : _Levels) all.Append(ListOf({level[0], level[1]}));
    return all;
  }

 private:
  TimeAnalysis_var NewOn(const std::string& name) const {
    // The side that is being made is not on its level yet.
    if (_Levels.empty()) return NewAnalysis(name, {ReusingLine("Grip", _Lowest)});
    const auto& below = _Levels.back();
    return NewAnalysis(name, {ReusingLine("left", below[0]), ReusingLine("right", below[1])});
  }

  TimeAnalysis_var _Lowest;
  std::vector<std::array<TimeAnalysis_var, 2>> _Levels;
};

// Each level takes twice the time of the level below, in both of its analyses.
void ExpectTotalsOfLadder(const Ladder& ladder) {
  double expected = 10.0;
  for (const auto& level : ladder.Levels()) {
    for (const TimeAnalysis_var& side : level) {
      EXPECT_THAT(RealOf(*side, "TotalCalculated"), Optional(testing::DoubleNear(expected, expected * 1e-9)));
      EXPECT_THAT(RealOf(*side, "TTBCalculated"), Optional(testing::DoubleNear(expected, expected * 1e-9)));
    }
    expected *= 2.0;
  }
}

TEST_F(ImpactWaysTest, ALadderOfThirtyLevelsIsBroughtUpToDateWithoutGoingEveryWay) {
  const Ladder ladder(30);
  EXPECT_EQ(Propagate(ladder.Lowest()), "S_OK");
  ExpectTotalsOfLadder(ladder);
  // 2^29 times 10 TMU of 0.036 s.
  EXPECT_THAT(RealOf(*ladder.Levels().back()[0], "V_TotalTime"), Optional(testing::DoubleNear(193273528.32, 1e-3)));
  ASSERT_EQ(_Log.Saves().size(), 1U);
  const Names& saved = _Log.Saves().front();
  EXPECT_EQ(std::set<std::string>(saved.begin(), saved.end()).size(), 60U);
  // One line on the first level, two on the others.
  EXPECT_EQ(saved.size(), 2U + 29U * 4U);
  for (int level = 2; level <= 30; ++level) {
    const auto first = std::find(saved.begin(), saved.end(), "L" + std::to_string(level));
    for (const char* side : {"L", "R"}) {
      EXPECT_EQ(std::find(first, saved.end(), side + std::to_string(level - 1)), saved.end()) << level;
    }
  }
}

TEST_F(ImpactWaysTest, ALadderClimbedAloneGoesEveryWay) {
  constexpr int levels = 12;
  const Ladder ladder(levels), twin(levels);
  ReuseIndex index(ladder.All());
  const oracle::Reuses reuses = oracle::ReusesOf(twin.All());
  oracle::Climb climb;
  const ClimbResult result = ClimbFrom(ladder.Lowest(), ladder.Levels()[0][0], index.Table());
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_EQ(oracle::UpdateTemplateToImpacted(twin.Lowest(), twin.Levels()[0][0], &reuses, climb), S_OK);
  EXPECT_EQ(climb.visits, (std::size_t{1} << levels) - 1);
  Names expected;
  for (const KORIPLMComponent_var& component : climb.components) expected.push_back(objectstest::NameOf(component));
  EXPECT_EQ(result.components, expected);
}

TEST_F(ImpactWaysTest, ALadderIsLeftAsGoingEveryWayLeavesIt) {
  const std::vector<Line> formulas{Line("F").Formula(TimeFormula("Grip", "1", "0.072")),
                                   Line("G1A").Timed("TTB", 0.144)};
  for (const int levels : {1, 2, 3, 8, 11}) {
    const Ladder ladder(levels, formulas), twin(levels, formulas);
    EXPECT_EQ(Propagate(ladder.Lowest()), "S_OK");
    // The climb of the plain version: both users of the lowest analysis, and all above them.
    const oracle::Reuses reuses = oracle::ReusesOf(twin.All());
    oracle::Climb climb;
    climb.most_parameters = 1'000'000'000;
    for (const TimeAnalysis_var& side : twin.Levels().front()) {
      EXPECT_EQ(oracle::UpdateTemplateToImpacted(twin.Lowest(), side, &reuses, climb), S_OK);
    }
    ASSERT_FALSE(climb.given_up);
    const auto real = ladder.All(), expected = twin.All();
    for (int position = 1; position <= real.Size(); ++position) {
      SCOPED_TRACE(std::to_string(levels) + " levels, " + objectstest::NameOf(real[position]));
      auto& real_analysis = dynamic_cast<VEXTimeAnalysisRepReference&>(*real[position]);
      auto& expected_analysis = dynamic_cast<VEXTimeAnalysisRepReference&>(*expected[position]);
      ASSERT_TRUE(support::DescribeAnalysis(real_analysis) == support::DescribeAnalysis(expected_analysis));
    }
  }
}

// ---- Circles ----

// A reuses X, which reuses T on `rows` rows, and Y, which has lost the formula that A still holds for it: the climb
// comes from X first and calculates A with that formula.
std::vector<TimeAnalysis_var> WithALostFormula(int rows) {
  const TimeAnalysis_var changed = NewTemplate("T", 10.0);
  const TimeAnalysis_var x =
      NewAnalysis("X", std::vector<Line>(static_cast<std::size_t>(rows), ReusingLine("T", changed)));
  const TimeAnalysis_var y = NewAnalysis("Y", {ReusingLine("T", changed)});
  Line of_y = ReusingLine("Y", y).Set("TimeType", "TTU").Set("TTUTime", 5.0).Set("Factor", -1.0);
  of_y.Set("FrequencyString", "7").Formula(TimeFormula("Y", "1", "0.72"));
  return {changed, x, y, NewAnalysis("A", {ReusingLine("X", x), of_y})};
}

TEST_F(ImpactWaysTest, AFormulaThatIsLostLeavesTheSameOnEveryWay) {
  for (const int rows : {2, 600}) {
    SCOPED_TRACE(rows);
    const std::vector<TimeAnalysis_var> analyses = WithALostFormula(rows);
    EXPECT_EQ(Propagate(analyses.front()), "S_OK");
    const KORFreshSession plain;
    const std::vector<TimeAnalysis_var> expected = WithALostFormula(rows);
    KORListValKORBaseUnknown_var all;
    oracle::Climb climb;
    (void)oracle::UpdateAllImpacted(KORBaseUnknown_var(expected.front()), all, climb);
    EXPECT_EQ(support::DescribeAnalysis(*analyses.back()), support::DescribeAnalysis(*expected.back()));
    EXPECT_THAT(RealOf(*analyses.back(), "TTUCalculated"), Optional(20.0));
  }
}

struct CircleRow {
  const char* name;
  int analyses;
  Names saved_from_below;   // the change comes from a template below the first analysis
  Names saved_from_within;  // the first analysis itself has changed
};
class CircleTest : public ImpactWaysTest, public testing::WithParamInterface<CircleRow> {
 protected:
  // C1 is reused by C2, that by C3 and so on, the last one by C1.
  CircleTest() {
    for (int number = 1; number <= GetParam().analyses; ++number) {
      _Circle.push_back(NewTemplate("C" + std::to_string(number), 1.0));
    }
    for (std::size_t index = 0; index < _Circle.size(); ++index) {
      const TimeAnalysis_var& reused = _Circle[(index + _Circle.size() - 1) % _Circle.size()];
      support::AppendLines(*_Circle[index], {ReusingLine("below", reused)});
    }
  }

  std::vector<TimeAnalysis_var> _Circle;
};

TEST_P(CircleTest, EndsWhereItCloses) {
  const auto grip = NewTemplate("Grip", 10.0);
  support::AppendLines(*_Circle.front(), {ReusingLine("Grip", grip)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), Saves{GetParam().saved_from_below});
  _Log.Clear();
  EXPECT_EQ(Propagate(_Circle.front()), "S_OK");
  EXPECT_EQ(_Log.Saves(), Saves{GetParam().saved_from_within});
}

TEST_P(CircleTest, ListsEachIdentifierOnceAroundIt) {
  KORListValKORUnicodeString old_identifiers, new_identifiers;
  KORBaseUnknown_var first = _Circle.front();
  EXPECT_EQ(VEXSTTApplicativeContainerServices::GetOldAndNewPLMIDs(first, old_identifiers, new_identifiers), S_OK);
  EXPECT_EQ(old_identifiers.Size(), GetParam().analyses);
  EXPECT_EQ(new_identifiers.Size(), GetParam().analyses);
}

INSTANTIATE_TEST_SUITE_P(Circles, CircleTest,
                         testing::Values(CircleRow{"OfOne", 1, {"C1"}, {}}, CircleRow{"OfTwo", 2, {"C1", "C2"}, {"C2"}},
                                         CircleRow{"OfThree", 3, {"C1", "C2", "C3"}, {"C2", "C3"}}),
                         support::RowName());

TEST_F(ImpactWaysTest, TwoCirclesThroughOneAnalysisAreBothClimbed) {
  const auto hub = NewTemplate("Hub", 10.0);
  const auto left = NewAnalysis("Left", {ReusingLine("Hub", hub)});
  const auto right = NewAnalysis("Right", {ReusingLine("Hub", hub)});
  support::AppendLines(*hub, {ReusingLine("Left", left), ReusingLine("Right", right)});
  const auto grip = NewTemplate("Grip", 1.0);
  support::AppendLines(*hub, {ReusingLine("Grip", grip)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Hub", "Left", "Right"}}));
}

// Twelve analyses, each of which reuses all twelve: more ways than anyone can go.
TEST_F(ImpactWaysTest, ATangleEnds) {
  constexpr int count = 12;
  std::vector<TimeAnalysis_var> tangle;
  for (int number = 1; number <= count; ++number) tangle.push_back(NewTemplate("T" + std::to_string(number), 1.0));
  for (const TimeAnalysis_var& analysis : tangle) {
    for (const TimeAnalysis_var& reused : tangle) support::AppendLines(*analysis, {ReusingLine("all", reused)});
  }
  EXPECT_EQ(Propagate(tangle.front()), "S_OK");
  ASSERT_EQ(_Log.Saves().size(), 1U);
  const Names& saved = _Log.Saves().front();
  const std::set<std::string> distinct(saved.begin(), saved.end());
  EXPECT_EQ(distinct.size(), static_cast<std::size_t>(count - 1));
  EXPECT_EQ(distinct.count("T1"), 0U);
}

}  // namespace
