// Which analyses an analysis reuses: rows, identifiers, and the flat list of everything below, in circles, ladders and
// chains of any depth.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeBareObject;
using calculationtest::MakeShellWithout;
using support::AppendLines;
using support::CircleBreaker;
using support::Line;
using support::MakeAnalysis;
using support::RandomText;
using support::TimeAnalysis_var;
using Services = VEXSTMTimeAnalysisDlgServices;

Line Reusing(const KORBaseUnknown_var& analysis) {
  return Line("T").Reuses(analysis);
}

// The three lists of PrepareListOfAllLevelReusedPLMIds.
struct ReuseLists {
  KORListValKORUnicodeString Identifiers;
  KORRawColldouble Values;
  KORListValKORBaseUnknown_var Analyses;

  void Prepare(const KORBaseUnknown_var& analysis) {
    Services::PrepareListOfAllLevelReusedPLMIds(analysis, Identifiers, Values, Analyses);
  }
  std::vector<std::string> Names() const { return support::Texts(Identifiers); }
  bool AreParallel() const {
    return Identifiers.Size() == Values.Size() && Identifiers.Size() == Analyses.Size() &&
           std::all_of(Values.begin(), Values.end(), [](double value) { return value == 0.0; });
  }
};

ReuseLists ListsOf(const KORBaseUnknown_var& analysis) {
  ReuseLists lists;
  lists.Prepare(analysis);
  EXPECT_TRUE(lists.AreParallel());
  return lists;
}

using Names = std::vector<std::string>;

// ---- The analysis of a row ----

TEST(ReusedAnalysisOfRowTest, IsWhatTheRowReuses) {
  const auto below = MakeAnalysis("B");
  const auto analysis = MakeAnalysis("A", {Line("M10B"), Reusing(below), Reusing(NULL_var), Line("*").Reuses(below)});
  EXPECT_TRUE(Services::GetReusedTAOfRow(1, analysis).IsNull());
  EXPECT_EQ(Services::GetReusedTAOfRow(2, analysis), below);
  EXPECT_TRUE(Services::GetReusedTAOfRow(3, analysis).IsNull());
  EXPECT_EQ(Services::GetReusedTAOfRow(4, analysis), below) << "whatever the code";
}

TEST(ReusedAnalysisOfRowTest, IsNullForAKeyOfAnotherType) {
  const auto analysis = MakeAnalysis("A", {Line("T").Set("TimeAnalysis", "B"), Line("T").Set("TimeAnalysis", 1)});
  EXPECT_TRUE(Services::GetReusedTAOfRow(1, analysis).IsNull());
  EXPECT_TRUE(Services::GetReusedTAOfRow(2, analysis).IsNull());
}

TEST(ReusedAnalysisOfRowTest, MayBeAnyObject) {
  const KORBaseUnknown_var object = MakeBareObject();
  const auto analysis = MakeAnalysis("A", {Reusing(object)});
  EXPECT_EQ(Services::GetReusedTAOfRow(1, analysis), object);
  EXPECT_EQ(Services().IsTAHasReusedLine(analysis), 1);
}

class StaleReuseRowTest : public testing::TestWithParam<int> {};
TEST_P(StaleReuseRowTest, ReusesNothing) {
  const auto analysis = MakeAnalysis("A", {Reusing(MakeAnalysis("B")), Reusing(MakeAnalysis("C"))});
  EXPECT_TRUE(Services::GetReusedTAOfRow(GetParam(), analysis).IsNull());
}
INSTANTIATE_TEST_SUITE_P(Rows, StaleReuseRowTest,
                         testing::Values(0, -1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()));

TEST(ReusedAnalysisOfRowTest, IsNullWithoutAnalysisOrLines) {
  const auto inside = MakeAnalysis("A", {Reusing(MakeAnalysis("B"))});
  EXPECT_TRUE(Services::GetReusedTAOfRow(1, NULL_var).IsNull());
  EXPECT_TRUE(Services::GetReusedTAOfRow(1, MakeBareObject()).IsNull());
  EXPECT_TRUE(Services::GetReusedTAOfRow(1, MakeShellWithout<VEXITimeAnalysisLines>(inside)).IsNull());
}

// ---- Whether anything is reused ----

TEST(HasReusedLineTest, LooksAtEveryLine) {
  const auto below = MakeAnalysis("B");
  EXPECT_EQ(Services().IsTAHasReusedLine(below), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeAnalysis("A", {Line("M10B"), Line("G1A")})), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeAnalysis("A", {Reusing(below), Line("G1A")})), 1);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeAnalysis("A", {Line("M10B"), Reusing(below)})), 1);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeAnalysis("A", {Line("M10B"), Line("*").Reuses(below)})), 1);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeAnalysis("A", {Reusing(NULL_var), Line("T").Set("TimeAnalysis", "B")})),
            0);
}

// All lines are read into one record; a line without the key must not show that of the line before.
TEST(HasReusedLineTest, FormulasDoNotMatter) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Formula(support::TimeFormula("A", "1", "1")), Line("G1A")});
  EXPECT_EQ(Services().IsTAHasReusedLine(analysis), 0);
}

TEST(HasReusedLineTest, NeedsAttributesAndLines) {
  const auto inside = MakeAnalysis("A", {Reusing(MakeAnalysis("B"))});
  EXPECT_EQ(Services().IsTAHasReusedLine(NULL_var), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeBareObject()), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeShellWithout<VEXITimeAnalysisRepReference>(inside)), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeShellWithout<VEXITimeAnalysisLines>(inside)), 0);
  EXPECT_EQ(Services().IsTAHasReusedLine(MakeShellWithout<VEXITimeAnalysisProperties>(inside)), 1);
}

// ---- Identifiers ----

TEST(ExternalIdTest, IsTheAttributeOrEmpty) {
  const auto analysis = MakeAnalysis("A-1");
  EXPECT_EQ(Services::GetTAPLMExternalID(nullptr), "");
  EXPECT_EQ(Services::GetTAPLMExternalID(MakeBareObject().Get()), "");
  EXPECT_EQ(Services::GetTAPLMExternalID(MakeShellWithout<VEXITimeAnalysisProperties>(analysis).Get()), "");
  EXPECT_EQ(Services::GetTAPLMExternalID(analysis.Get()), "A-1");
  EXPECT_EQ(Services::GetTAPLMExternalID(VEXITimeAnalysisLines_var(analysis).Get()), "A-1") << "from any interface";
}

TEST(ExternalIdTest, IsEmptyWhereItIsNotSetAsAText) {
  const auto analysis = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference);
  EXPECT_EQ(Services::GetTAPLMExternalID(analysis.Get()), "");
  (void)analysis->SetValue("PLM_ExternalID", 7);
  EXPECT_EQ(Services::GetTAPLMExternalID(analysis.Get()), "");
}

// ---- The list of everything below ----

TEST(ReuseListsTest, AnAnalysisByItself) {
  const auto analysis = MakeAnalysis("A", {Line("M10B"), Reusing(NULL_var)});
  const ReuseLists lists = ListsOf(analysis);
  EXPECT_EQ(lists.Names(), (Names{"A"}));
  EXPECT_EQ(lists.Analyses[1], analysis);
}

TEST(ReuseListsTest, DepthFirstAnAnalysisAheadOfThoseThatItReuses) {
  const auto d = MakeAnalysis("D");
  const auto c = MakeAnalysis("C", {Reusing(d)});
  const auto e = MakeAnalysis("E");
  const auto b = MakeAnalysis("B", {Reusing(c), Line("M10B"), Reusing(e)});
  const auto f = MakeAnalysis("F");
  const auto a = MakeAnalysis("A", {Line("M10B"), Reusing(b), Reusing(f)});
  const ReuseLists lists = ListsOf(a);
  EXPECT_EQ(lists.Names(), (Names{"A", "B", "C", "D", "E", "F"}));
  EXPECT_EQ(lists.Analyses[4], d);
}

TEST(ReuseListsTest, AnAnalysisReusedOnTwoRowsIsListedOnce) {
  const auto below = MakeAnalysis("B");
  const auto shared = MakeAnalysis("T", {Reusing(below)});
  EXPECT_EQ(ListsOf(MakeAnalysis("A", {Reusing(shared), Reusing(shared)})).Names(), (Names{"A", "T", "B"}));
}

TEST(ReuseListsTest, TheFirstOfTwoWithOneIdentifierIsListedButBothAreEntered) {
  const auto first = MakeAnalysis("T", {Reusing(MakeAnalysis("X"))});
  const auto second = MakeAnalysis("T", {Reusing(MakeAnalysis("Y"))});
  const ReuseLists lists = ListsOf(MakeAnalysis("A", {Reusing(first), Reusing(second)}));
  EXPECT_EQ(lists.Names(), (Names{"A", "T", "X", "Y"}));
  EXPECT_EQ(lists.Analyses[2], first);
}

TEST(ReuseListsTest, AnEmptyIdentifierIsOneLikeAnyOther) {
  const auto nameless = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference);
  AppendLines(*nameless, {Reusing(MakeAnalysis("B")), Reusing(MakeAnalysis(""))});
  EXPECT_EQ(ListsOf(nameless).Names(), (Names{"", "B"}));
}

TEST(ReuseListsTest, KnownIdentifiersAreNotListedAgainButEntered) {
  ReuseLists lists;
  lists.Identifiers = support::ListOf({"T", "other"});
  lists.Values.Append(2.5);
  lists.Values.Append(-1.0);
  const KORBaseUnknown_var old = MakeBareObject();
  lists.Analyses.Append(old);
  lists.Analyses.Append(KORBaseUnknown_var());
  lists.Prepare(MakeAnalysis("A", {Reusing(MakeAnalysis("T", {Reusing(MakeAnalysis("B"))}))}));
  EXPECT_EQ(lists.Names(), (Names{"T", "other", "A", "B"}));
  EXPECT_EQ(std::vector<double>(lists.Values.begin(), lists.Values.end()), (std::vector<double>{2.5, -1.0, 0.0, 0.0}));
  EXPECT_EQ(lists.Analyses[1], old);
  EXPECT_EQ(lists.Analyses.Size(), 4);
}

TEST(ReuseListsTest, ASecondCallAddsNothing) {
  const auto analysis = MakeAnalysis("A", {Reusing(MakeAnalysis("B"))});
  ReuseLists lists = ListsOf(analysis);
  lists.Prepare(analysis);
  EXPECT_EQ(lists.Names(), (Names{"A", "B"}));
  EXPECT_TRUE(lists.AreParallel());
}

TEST(ReuseListsTest, TheListsKeepTheAnalysesAliveAndNothingElseDoes) {
  const auto analysis = MakeAnalysis("A");
  {
    const ReuseLists lists = ListsOf(analysis);
    analysis->AddRef();
    EXPECT_EQ(analysis->Release(), 2u);
  }
  analysis->AddRef();
  EXPECT_EQ(analysis->Release(), 1u);
}

// ---- Objects that lack an interface ----

TEST(ReuseListsTest, NothingForNullAndForWhatIsNoAnalysis) {
  const auto inside = MakeAnalysis("A", {Reusing(MakeAnalysis("B"))});
  EXPECT_EQ(ListsOf(NULL_var).Names(), Names{});
  EXPECT_EQ(ListsOf(MakeBareObject()).Names(), Names{});
  EXPECT_EQ(ListsOf(MakeShellWithout<VEXITimeAnalysisRepReference>(inside)).Names(), Names{});
}

TEST(ReuseListsTest, WhatIsNoAnalysisIsPassedOverFurtherDown) {
  const auto hidden = MakeShellWithout<VEXITimeAnalysisRepReference>(MakeAnalysis("H", {Reusing(MakeAnalysis("X"))}));
  const auto analysis = MakeAnalysis("A", {Reusing(MakeBareObject()), Reusing(hidden), Reusing(MakeAnalysis("B"))});
  EXPECT_EQ(ListsOf(analysis).Names(), (Names{"A", "B"}));
}

TEST(ReuseListsTest, AnAnalysisWithoutPropertiesRaises) {
  const auto below = MakeShellWithout<VEXITimeAnalysisProperties>(MakeAnalysis("B"));
  ReuseLists lists;
  EXPECT_THROW(lists.Prepare(below), KORError);
  EXPECT_EQ(lists.Names(), Names{});
  EXPECT_THROW(lists.Prepare(MakeAnalysis("A", {Reusing(MakeAnalysis("C")), Reusing(below)})), KORError);
  EXPECT_EQ(lists.Names(), (Names{"A", "C"})) << "what was found before";
}

TEST(ReuseListsTest, AnAnalysisWithoutLinesRaisesOnceItIsListed) {
  const auto below = MakeShellWithout<VEXITimeAnalysisLines>(MakeAnalysis("B"));
  ReuseLists lists;
  EXPECT_THROW(lists.Prepare(MakeAnalysis("A", {Reusing(below), Reusing(MakeAnalysis("C"))})), KORError);
  EXPECT_EQ(lists.Names(), (Names{"A", "B"}));
  EXPECT_TRUE(lists.AreParallel());
}

// Puts null entries around the records that it hands out.
class NullEntries : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;
  long GetLines(int first, int count, KORRawCollPV& lines) override {
    lines.Append(nullptr);
    const long status = AnalysisShell::GetLines(first, count, lines);
    lines.Append(nullptr);
    return status;
  }
};

TEST(ReuseListsTest, NullRecordsArePassedOver) {
  const auto analysis =
      KORHandle<NullEntries>::Adopt(new NullEntries(MakeAnalysis("A", {Line("M10B"), Reusing(MakeAnalysis("B"))})));
  EXPECT_EQ(ListsOf(analysis).Names(), (Names{"A", "B"}));
}

// ---- Circles, ladders, chains ----

TEST(ReuseListsTest, AnAnalysisThatReusesItselfEnds) {
  const auto a = MakeAnalysis("A");
  const CircleBreaker breaker({a});
  AppendLines(*a, {Reusing(a), Reusing(MakeAnalysis("B")), Reusing(a)});
  EXPECT_EQ(ListsOf(a).Names(), (Names{"A", "B"}));
}

TEST(ReuseListsTest, TwoThatReuseEachOtherEnd) {
  const auto a = MakeAnalysis("A");
  const auto b = MakeAnalysis("B");
  const CircleBreaker breaker({a, b});
  AppendLines(*a, {Reusing(b)});
  AppendLines(*b, {Reusing(a), Reusing(MakeAnalysis("C"))});
  EXPECT_EQ(ListsOf(a).Names(), (Names{"A", "B", "C"}));
  EXPECT_EQ(ListsOf(b).Names(), (Names{"B", "A", "C"}));
}

TEST(ReuseListsTest, ALargeCircleWithShortCutsEnds) {
  constexpr int Size = 1000;
  std::vector<TimeAnalysis_var> circle;
  Names expected;
  for (int index = 0; index < Size; ++index) {
    expected.push_back(std::to_string(index));
    circle.push_back(MakeAnalysis(expected.back()));
  }
  const CircleBreaker breaker(circle);
  for (int index = 0; index < Size; ++index) {
    const auto at = [&](int number) { return circle[static_cast<std::size_t>(number % Size)]; };
    AppendLines(*at(index), {Reusing(at(index + 1)), Reusing(at(index * 7)), Reusing(at(index + Size - 1))});
  }
  EXPECT_EQ(ListsOf(circle[0]).Names(), expected);
}

// Two analyses per level, each of which reuses both of the next level: 2^40 ways down.
TEST(ReuseListsTest, ALadderOfDiamondsTakesOneVisitToEach) {
  TimeAnalysis_var left = MakeAnalysis("left 40");
  TimeAnalysis_var right = MakeAnalysis("right 40");
  for (int level = 39; level > 0; --level) {
    const std::vector<Line> lines{Reusing(left), Reusing(right)};
    left = MakeAnalysis("left " + std::to_string(level), lines);
    right = MakeAnalysis("right " + std::to_string(level), lines);
  }
  Names expected{"top"};
  for (int level = 1; level <= 40; ++level) expected.push_back("left " + std::to_string(level));
  for (int level = 40; level > 0; --level) expected.push_back("right " + std::to_string(level));
  EXPECT_EQ(ListsOf(MakeAnalysis("top", {Reusing(left), Reusing(right)})).Names(), expected);
}

TEST(ReuseListsTest, AChainOfAHundredThousand) {
  constexpr int Depth = 100'000;
  TimeAnalysis_var top = MakeAnalysis(std::to_string(Depth));
  for (int level = Depth - 1; level > 0; --level) top = MakeAnalysis(std::to_string(level), {Reusing(top)});
  const ReuseLists lists = ListsOf(top);
  ASSERT_EQ(lists.Identifiers.Size(), Depth);
  for (int level = 1; level <= Depth; ++level) ASSERT_EQ(lists.Identifiers[level], std::to_string(level).c_str());
}

// ---- Random graphs ----

// The plain walk: down every way each time, cut where an analysis is on the way already.
void WalkPlainly(VEXTimeAnalysisRepReference& analysis, std::vector<const void*>& way, Names& names,
                 std::vector<const void*>& listed) {
  if (std::find(way.begin(), way.end(), &analysis) != way.end()) return;
  const std::string name = support::Text(Services::GetTAPLMExternalID(&analysis));
  if (std::find(names.begin(), names.end(), name) == names.end()) {
    names.push_back(name);
    listed.push_back(&analysis);
  }
  way.push_back(&analysis);
  int count = 0;
  (void)analysis.GetLineCount(count);
  for (int row = 1; row <= count; ++row) {
    const auto below = support::ReadLine<KORBaseUnknown_var>(analysis, row, "TimeAnalysis");
    if (!below) continue;
    WalkPlainly(*dynamic_cast<VEXTimeAnalysisRepReference*>(below->Get()), way, names, listed);
  }
  way.pop_back();
}

TEST(ReuseListsTest, RandomGraphsGiveTheListsOfThePlainWalk) {
  RandomText random(20);
  for (int round = 0; round < 2000; ++round) {
    std::vector<TimeAnalysis_var> analyses;
    const int size = random.Below(7) + 1;
    for (int index = 0; index < size; ++index) {
      analyses.push_back(MakeAnalysis("A" + std::to_string(random.OneIn(5) ? 0 : index)));
    }
    const CircleBreaker breaker(analyses);
    for (const TimeAnalysis_var& analysis : analyses) {
      for (int left = random.Below(4); left > 0; --left) {
        AppendLines(*analysis, {random.OneIn(4) ? Line("M10B") : Reusing(random.AnyOf(analyses))});
      }
    }
    Names names;
    if (random.OneIn(3)) names = {"A1", "A0", "elsewhere"};
    ReuseLists lists;
    lists.Identifiers = support::ListOf(names);
    std::vector<const void*> way;
    std::vector<const void*> listed;
    WalkPlainly(*analyses[0], way, names, listed);
    lists.Prepare(analyses[0]);
    ASSERT_EQ(lists.Names(), names) << "round " << round;
    ASSERT_EQ(lists.Values.Size(), static_cast<int>(listed.size()));
    std::vector<const void*> found;
    for (const KORBaseUnknown_var& analysis : lists.Analyses) {
      found.push_back(dynamic_cast<VEXTimeAnalysisRepReference*>(analysis.Get()));
    }
    ASSERT_EQ(found, listed) << "round " << round;
  }
}

}  // namespace
