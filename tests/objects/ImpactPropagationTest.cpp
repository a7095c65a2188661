// How the change of an analysis reaches those that reuse it: which lines get what, in which order, and what is saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ImpactTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::ClimbFrom;
using objectstest::ClimbResult;
using objectstest::ListOf;
using objectstest::NamesOf;
using objectstest::NewAnalysis;
using objectstest::NewTemplate;
using objectstest::OwnersOn;
using objectstest::Propagate;
using objectstest::ReuseIndex;
using objectstest::ReusingLine;
using objectstest::SaveLog;
using support::Line;
using support::ParameterList;
using support::RealOf;
using support::RealOfLine;
using support::TextOfLine;
using support::TimeAnalysis_var;
using support::TimeFormula;
using testing::DoubleEq;
using testing::Optional;
using Names = std::vector<std::string>;
using Saves = std::vector<Names>;
using Services = VEXSTTApplicativeContainerServices;

class ImpactPropagationTest : public objectstest::ObjectsTest {
 protected:
  SaveLog _Log;
};

// ---- The way from a changed analysis to those above it ----

TEST_F(ImpactPropagationTest, AnAnalysisThatNothingReusesSavesNothing) {
  const auto grip = NewTemplate("Grip", 10.0);
  NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), Saves{});
}

TEST_F(ImpactPropagationTest, AnEmptyListComesBackFilledInTheOrderOfMaking) {
  const auto grip = NewTemplate("Grip", 10.0);
  NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  NewAnalysis("Other");
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused, all_analyses;
  EXPECT_EQ(Services::UpdateModificationsTOAllImpactedTimeAnalysis(grip, bag, unused, all_analyses), S_OK);
  EXPECT_EQ(objectstest::NamesOf(all_analyses), "Grip Pick Other");
  EXPECT_EQ(unused.Size(), 0);
  EXPECT_EQ(bag.Size(), 3);
}

TEST_F(ImpactPropagationTest, AFilledListMeansThatNothingHappens) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  const std::string before = support::DescribeAnalysis(*pick);
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused;
  KORListValKORBaseUnknown_var all_analyses = ListOf({pick});
  EXPECT_EQ(Services::UpdateModificationsTOAllImpactedTimeAnalysis(grip, bag, unused, all_analyses), S_OK);
  EXPECT_EQ(objectstest::NamesOf(all_analyses), "Pick");
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
  EXPECT_EQ(_Log.Saves(), Saves{});
}

TEST_F(ImpactPropagationTest, TheUnusedListIsNotLookedAt) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused = ListOf({nullptr, grip});
  KORListValKORBaseUnknown_var all_analyses;
  EXPECT_EQ(Services::UpdateModificationsTOAllImpactedTimeAnalysis(grip, bag, unused, all_analyses), S_OK);
  EXPECT_EQ(unused.Size(), 2);
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick"}}));
}

TEST_F(ImpactPropagationTest, NoAnalysisHasNoImpact) {
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36)});
  const std::string before = support::DescribeAnalysis(*pick);
  EXPECT_EQ(Propagate(nullptr), "S_OK");
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
  EXPECT_EQ(_Log.Saves(), Saves{});
}

TEST_F(ImpactPropagationTest, EachLevelTakesTheTotalsOfTheLevelBelow) {
  const auto grip = NewTemplate("Grip", 10.0, 2.5);
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36, 2.0), ReusingLine("Grip", grip)});
  const auto place = NewAnalysis("Place", {ReusingLine("Pick", pick).Set("Factor", 3.0)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick", "Place"}}));
  // Setup counts on top: 12.5 TMU of 0.036 s. The line of its own adds 20 TMU.
  EXPECT_THAT(RealOfLine(*pick, 2, "TTBTime"), Optional(DoubleEq(0.45)));
  EXPECT_THAT(RealOfLine(*pick, 2, "TotalTime"), Optional(DoubleEq(0.45)));
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(32.5)));
  EXPECT_THAT(RealOf(*pick, "V_TotalTime"), Optional(DoubleEq(1.17)));
  EXPECT_THAT(RealOfLine(*place, 1, "TTBTime"), Optional(DoubleEq(1.17)));
  EXPECT_THAT(RealOfLine(*place, 1, "TotalTime"), Optional(DoubleEq(1.17)));
  EXPECT_THAT(RealOf(*place, "TTBCalculated"), Optional(DoubleEq(97.5)));
  EXPECT_THAT(RealOf(*place, "TotalCalculated"), Optional(DoubleEq(32.5)));
}

TEST_F(ImpactPropagationTest, SetupTimeOfALevelCountsOnTheNext) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {Line("SET").Timed("TRG", 0.72), ReusingLine("Grip", grip)});
  const auto place = NewAnalysis("Place", {ReusingLine("Pick", pick)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(30.0)));
  EXPECT_THAT(RealOf(*pick, "TRGCalculated"), Optional(DoubleEq(20.0)));
  // 30 TMU and, a second time, the 20 of them that are setup.
  EXPECT_THAT(RealOfLine(*place, 1, "TotalTime"), Optional(DoubleEq(1.8)));
}

TEST_F(ImpactPropagationTest, AllAboveOneUserIsDoneBeforeTheNextUser) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  NewAnalysis("Carry", {ReusingLine("Grip", grip)});
  const auto place = NewAnalysis("Place", {ReusingLine("Pick", pick)});
  NewAnalysis("Store", {ReusingLine("Place", place)});
  NewAnalysis("Pack", {ReusingLine("Pick", pick)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick", "Place", "Store", "Pack", "Carry"}}));
}

TEST_F(ImpactPropagationTest, TwoLinesThatReuseItStandFourTimesInWhatIsSaved) {
  const auto grip = NewTemplate("Grip", 10.0, 0.0, {Line("F").Formula(TimeFormula("Grip", "1", "0.36"))});
  const std::vector<Line> lines{Line("M10B").Timed("TTB", 0.36), ReusingLine("Grip", grip),
                                Line("G1A").Timed("TTB", 0.072), Line("RL1").Timed("TTB", 0.072),
                                ReusingLine("Grip", grip)};
  const auto pick = NewAnalysis("Pick", lines);
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick", "Pick", "Pick", "Pick"}}));
  EXPECT_EQ(OwnersOn(*pick, 2), Names{"Grip/1"});
  EXPECT_EQ(OwnersOn(*pick, 5), Names{"Grip/1"});

  const auto once = NewAnalysis("Pick", lines);
  KORHashObject* nobody = nullptr;
  EXPECT_EQ(ClimbFrom(grip, once, nobody).components, (Names{"Pick", "Pick"}));
  EXPECT_EQ(support::DescribeAnalysis(*pick), support::DescribeAnalysis(*once));
}

TEST_F(ImpactPropagationTest, TwoLinesThatReuseItAreClimbedFromTwice) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip), ReusingLine("Grip", grip)});
  NewAnalysis("Place", {ReusingLine("Pick", pick)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick", "Pick", "Place", "Pick", "Pick", "Place"}}));
}

TEST_F(ImpactPropagationTest, ItsOwnTotalsAndLinesStay) {
  const auto grip = NewTemplate("Grip", 10.0, 2.5, {Line("M10B").Timed("TTB", 7.2)});
  NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  const std::string before = support::DescribeAnalysis(*grip);
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(support::DescribeAnalysis(*grip), before);
}

TEST_F(ImpactPropagationTest, AnalysesBesideTheWayStay) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto walk = NewTemplate("Walk", 20.0);
  NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  const auto carry = NewAnalysis("Carry", {ReusingLine("Walk", walk)});
  const std::string before = support::DescribeAnalysis(*carry);
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(support::DescribeAnalysis(*carry), before);
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick"}}));
}

TEST_F(ImpactPropagationTest, WhatIsSavedIsKnownToTheDatabase) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  for (const TimeAnalysis_var& analysis : {grip, pick}) analysis->GetContent().IsInDatabase = false;
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_FALSE(grip->GetContent().IsInDatabase);
  EXPECT_TRUE(pick->GetContent().IsInDatabase);
}

TEST_F(ImpactPropagationTest, TheConversionOfTheSiteHolds) {
  _Session.AddRepository("VEXTimeAnalysisCommonOptions").WriteSetting("mintotmuconversion", "2000");
  const auto grip = NewTemplate("Grip", 10.0, 2.5);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  // 60 s of 2000 TMU: 0.03 s per TMU.
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.375)));
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(12.5)));
}

TEST_F(ImpactPropagationTest, TwoAnalysesThatShareAnIdentifierAreTwo) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto other_grip = NewTemplate("Grip", 50.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip), ReusingLine("Grip", other_grip)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), (Saves{{"Pick"}}));
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.36)));
  EXPECT_THAT(RealOfLine(*pick, 2, "TTBTime"), Optional(DoubleEq(0.0)));
}

// ---- What a line that reuses the changed analysis gets ----

class ReusingLineTest : public ImpactPropagationTest {
 protected:
  // Brings an analysis up to date by itself.
  static ClimbResult Update(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted) {
    KORHashObject* nobody = nullptr;
    return ClimbFrom(changed, impacted, nobody);
  }
};

TEST_F(ReusingLineTest, ParametersOfAllLinesOfTheChangedOneComeFirst) {
  const ParameterList with_null = TimeFormula("Grip", "3", "0.1").AddNull().Append(TimeFormula("Deep", "1", "0.1"));
  const auto grip = NewTemplate("Grip", 10.0, 0.0,
                                {Line("F").Formula(TimeFormula("Grip", "1", "0.36")), Line("M10B"),
                                 Line("F").Formula(with_null), Line("*").Formula(TimeFormula("Grip", "4", "0.1"))});
  const ParameterList before = TimeFormula("Grip", "9", "0.1")
                                   .Append(TimeFormula("Pick", "1", "0.1"))
                                   .AddNull()
                                   .Append(TimeFormula("Other", "1", "0.1"))
                                   .Append(TimeFormula("Pick", "7", "0.1"));
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip).Formula(before)});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), (Names{"Grip/1", "Grip/3", "null", "Deep/1", "Grip/4", "Pick/1", "Pick/7"}));
  // Those of the changed analysis are copies: its own stay where they are.
  EXPECT_EQ(OwnersOn(*grip, 3), (Names{"Grip/3", "null", "Deep/1"}));
}

TEST_F(ReusingLineTest, AnalysisThatOwnsNoParameterKeepsNone) {
  const auto grip = NewTemplate("Grip", 10.0, 0.0, {Line("F").Formula(TimeFormula("Grip", "1", "0.36"))});
  const auto pick = NewAnalysis(
      "Pick",
      {ReusingLine("Grip", grip).Formula(TimeFormula("Pick2", "1", "1").Append(TimeFormula("pick", "1", "1")))});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Grip/1"});
}

TEST_F(ReusingLineTest, WithoutLinesBelowTheLineKeepsItsOwnParametersAndTakesTheTotals) {
  const auto grip = NewTemplate("Grip", 10.0, 2.5);
  const auto pick = NewAnalysis(
      "Pick", {ReusingLine("", grip).Formula(TimeFormula("Grip", "1", "9").Append(TimeFormula("Pick", "1", "9")))});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Pick/1"});
  // A line without a code is left alone by the calculation, so that what was written stands.
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.45)));
  EXPECT_THAT(RealOfLine(*pick, 1, "TotalTime"), Optional(DoubleEq(0.45)));
}

TEST_F(ReusingLineTest, WithoutAnyParameterTheListIsSetAndEmpty) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  VEXTimeAnalysisLineData line;
  (void)pick->GetLine(1, line);
  KORRawCollPV parameters;
  EXPECT_EQ(line.GetValue("FormulaParameter", parameters), S_OK);
  EXPECT_EQ(parameters.Size(), 0);
}

struct TotalsRow {
  const char* name;
  std::map<std::string, double> totals;  // in TMU
  double seconds;
};
class ReusingLineTotalsTest : public ReusingLineTest, public testing::WithParamInterface<TotalsRow> {};

TEST_P(ReusingLineTotalsTest, GiveTheTimeOfTheLine) {
  const auto grip = NewAnalysis("Grip");
  for (const auto& [key, tmu] : GetParam().totals) (void)grip->SetValue(KORString(key), tmu);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip).Timed("TTB", 99.0)});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(GetParam().seconds)));
  EXPECT_THAT(RealOfLine(*pick, 1, "TotalTime"), Optional(DoubleEq(GetParam().seconds)));
}

// At 0.036 s per TMU.
INSTANTIATE_TEST_SUITE_P(
    Totals, ReusingLineTotalsTest,
    testing::Values(
        TotalsRow{"TotalAndSetup", {{"TotalCalculated", 20.0}, {"TRGCalculated", 5.0}}, 0.9},
        TotalsRow{"TotalAlone", {{"TotalCalculated", 20.0}}, 0.72},
        TotalsRow{"SetupAlone", {{"TRGCalculated", 5.0}}, 0.18}, TotalsRow{"NeverCalculated", {}, 0.0},
        TotalsRow{"OtherTotalsDoNotCount", {{"TTBCalculated", 1.0}, {"TWCalculated", 1.0}, {"V_TotalTime", 1.0}}, 0.0},
        TotalsRow{"RoundedToSixDecimals", {{"TotalCalculated", 100.0 / 7.0}}, 0.514286},
        TotalsRow{"Negative", {{"TotalCalculated", -20.0}}, -0.72}),
    support::RowName());

TEST_F(ReusingLineTest, OtherKeysStay) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Old code", grip)
                                             .Set("TimeType", "TTU")
                                             .Set("Factor", 2.5)
                                             .Set("TTUTime", 7.0)
                                             .Set("TRGTime", -0.036)
                                             .Set("Description", "grip it")
                                             .Set("RowNum", 4)
                                             .Set("A key of nobody", "x")});
  EXPECT_EQ(Update(grip, pick).outcome, "S_OK");
  EXPECT_EQ(support::DescribeLine(*pick, 1),
            support::DescribeLine(*NewAnalysis("Expected", {ReusingLine("Old code", grip)
                                                                .Set("TotalTime", 0.36)
                                                                .Set("TTBTime", 0.36)
                                                                .Set("TimeType", "TTU")
                                                                .Set("Factor", 2.5)
                                                                .Set("TTUTime", 7.0)
                                                                .Set("TRGTime", -0.036)
                                                                .Set("Description", "grip it")
                                                                .Set("RowNum", 4)
                                                                .Set("A key of nobody", "x")}),
                                  1));
}

TEST_F(ReusingLineTest, ALineOutsideAllTotalsIsWrittenAndDoesNotCount) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("*", grip), Line("M10B").Timed("TTB", 0.72)});
  EXPECT_EQ(Update(grip, pick).components, Names{"Pick"});
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.36)));
  EXPECT_EQ(TextOfLine(*pick, 1, "Code"), "*");
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(20.0)));
}

TEST_F(ReusingLineTest, LinesThatReuseAnotherAnalysisStay) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto walk = NewTemplate("Walk", 20.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Walk", walk).Formula(TimeFormula("Walk", "1", "1")),
                                         ReusingLine("", grip), Line("*").Formula(TimeFormula("Grip", "1", "1"))});
  const std::string third_before = support::DescribeLine(*pick, 3);
  EXPECT_EQ(Update(grip, pick).components, Names{"Pick"});
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Walk/1"});
  EXPECT_EQ(support::DescribeLine(*pick, 3), third_before);
}

TEST_F(ReusingLineTest, AnAnalysisWithoutSuchALineIsNotCalculated) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36)});
  const std::string before = support::DescribeAnalysis(*pick);
  const ClimbResult result = Update(grip, pick);
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_EQ(result.components, Names{});
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
}

TEST_F(ReusingLineTest, AnAnalysisThatReusesItselfTakesItsOwnTotals) {
  const auto pick = NewTemplate("Pick", 10.0, 2.5);
  support::AppendLines(*pick, {ReusingLine("Pick", pick)});
  EXPECT_EQ(Update(pick, pick).components, Names{"Pick"});
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.45)));
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(12.5)));
}

// ---- On from there ----

TEST_F(ReusingLineTest, TheClimbGoesOnFromAnAnalysisWithoutSuchALine) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewTemplate("Pick", 20.0, 0.0, {Line("M10B").Timed("TTB", 0.36)});
  const auto place = NewAnalysis("Place", {ReusingLine("Pick", pick)});
  ReuseIndex index;
  index.Add(pick, place);
  EXPECT_EQ(ClimbFrom(grip, pick, index.Table()).components, Names{"Place"});
  EXPECT_THAT(RealOfLine(*place, 1, "TTBTime"), Optional(DoubleEq(0.72)));
}

TEST_F(ReusingLineTest, WithoutATableOfReusesNobodyIsClimbedTo) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  const auto place = NewAnalysis("Place", {ReusingLine("Pick", pick)});
  const std::string before = support::DescribeAnalysis(*place);
  KORHashObject* nobody = nullptr;
  EXPECT_EQ(ClimbFrom(grip, pick, nobody).components, Names{"Pick"});
  EXPECT_EQ(support::DescribeAnalysis(*place), before);
  EXPECT_EQ(nobody, nullptr);
}

TEST_F(ReusingLineTest, ComponentsAreAppendedEachWithAReferenceOfTheCaller) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip), ReusingLine("Grip", grip)});
  ReuseIndex index(ListOf({grip, pick}));
  KORListPtrKORIPLMComponent components;
  components.Append(grip.Get());
  const unsigned long before = pick->AddRef();
  EXPECT_EQ(Services::UpdateTemplateToImapctedTA(grip, pick, index.Table(), components), S_OK);
  EXPECT_EQ(NamesOf(components), (Names{"Grip", "Pick", "Pick"}));
  EXPECT_EQ(pick->AddRef(), before + 3);
  for (int reference = 0; reference < 4; ++reference) (void)pick->Release();
}

TEST_F(ReusingLineTest, NoAnalysisOnEitherSideDoesNothing) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36), ReusingLine("Grip", grip)});
  const std::string before = support::DescribeAnalysis(*pick);
  for (const ClimbResult& result : {Update(nullptr, pick), Update(grip, nullptr), Update(nullptr, nullptr)}) {
    EXPECT_EQ(result.outcome, "S_OK");
    EXPECT_EQ(result.components, Names{});
  }
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
}

}  // namespace
