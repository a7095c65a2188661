// The repair of identifiers after analyses have got new ones: what the lines believe, what is so now, and who owns the
// parameters of formulas.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ImpactTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeBareObject;
using calculationtest::MakeShellWithout;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOperation;
using objectstest::OutcomeOf;
using objectstest::OwnersOn;
using support::Line;
using support::ParameterList;
using support::TextOfLine;
using support::TimeAnalysis_var;
using support::TimeFormula;
using Names = std::vector<std::string>;
using Services = VEXSTTApplicativeContainerServices;

/// Notes which rows are stored.
class WatchedAnalysis : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;

  long SetLine(int row, VEXTimeAnalysisLineData& line) override {
    _Stored.push_back(row);
    return AnalysisShell::SetLine(row, line);
  }
  const std::vector<int>& Stored() const { return _Stored; }

 private:
  std::vector<int> _Stored;
};
using WatchedAnalysis_var = KORHandle<WatchedAnalysis>;

WatchedAnalysis_var Watch(const TimeAnalysis_var& inside) {
  return WatchedAnalysis_var::Adopt(new WatchedAnalysis(inside));
}

KORListValKORUnicodeString ListOf(const Names& names) {
  KORListValKORUnicodeString list;
  for (const std::string& name : names) list.Append(KORUnicodeString(std::string_view(name)));
  return list;
}

Names NamesIn(const KORListValKORUnicodeString& list) {
  Names names;
  for (const KORUnicodeString& name : list) names.emplace_back(name.Bytes());
  return names;
}

Line Reusing(const char* code, const KORBaseUnknown_var& reused) {
  return Line(code).Reuses(reused);
}

class IdentifierRepairTest : public objectstest::ObjectsTest {};

// ---- What the lines believe, and what is so now ----

class IdentifierListTest : public IdentifierRepairTest {
 protected:
  std::string List(KORBaseUnknown_var analysis) {
    return OutcomeOf([&] { return Services::GetOldAndNewPLMIDs(analysis, _Old, _New); });
  }

  KORListValKORUnicodeString _Old;
  KORListValKORUnicodeString _New;
};

struct CodeRow {
  const char* name;
  const char* code;  // null: not set
  std::string old_identifier;
  std::string code_after;
  bool is_stored;
};
class CodeTest : public IdentifierListTest, public testing::WithParamInterface<CodeRow> {};

TEST_P(CodeTest, IsListedAndRepaired) {
  const auto grip = NewAnalysis("Grip");
  Line line = Line().Reuses(grip);
  if (GetParam().code != nullptr) line.Set("Code", GetParam().code);
  const auto pick = NewAnalysis("Pick", {Line("M10B"), line});
  const auto watched = Watch(pick);
  EXPECT_EQ(List(watched), "S_OK");
  EXPECT_EQ(NamesIn(_Old), Names{GetParam().old_identifier});
  EXPECT_EQ(NamesIn(_New), Names{"Grip"});
  EXPECT_EQ(TextOfLine(*pick, 2, "Code"), GetParam().code_after);
  EXPECT_EQ(watched->Stored(), GetParam().is_stored ? std::vector<int>{2} : std::vector<int>{});
}

INSTANTIATE_TEST_SUITE_P(Codes, CodeTest,
                         testing::Values(CodeRow{"OutOfDate", "Grasp", "Grasp", "Grip", true},
                                         CodeRow{"UpToDate", "Grip", "Grip", "Grip", false},
                                         CodeRow{"OutsideAllTotals", "*", "Grip", "*", true},
                                         CodeRow{"Empty", "", "", "Grip", true},
                                         CodeRow{"NotSet", nullptr, "", "Grip", true},
                                         CodeRow{"OtherCapitals", "GRIP", "GRIP", "Grip", true}),
                         support::RowName());

TEST_F(IdentifierListTest, AnAnalysisCalledStarIsUpToDate) {
  const auto star = NewAnalysis("*");
  const auto pick = Watch(NewAnalysis("Pick", {Reusing("*", star)}));
  EXPECT_EQ(List(pick), "S_OK");
  EXPECT_EQ(NamesIn(_Old), Names{"*"});
  EXPECT_EQ(NamesIn(_New), Names{"*"});
  EXPECT_EQ(pick->Stored(), std::vector<int>{});
}

TEST_F(IdentifierListTest, AllLevelsAreListedDepthFirst) {
  const auto grip = NewAnalysis("Grip");
  const auto walk = NewAnalysis("Walk");
  const auto pick = NewAnalysis("Pick", {Reusing("old grip", grip), Line("M10B")});
  const auto place = NewAnalysis("Place", {Reusing("old pick", pick), Line("G1A"), Reusing("old walk", walk)});
  EXPECT_EQ(List(place), "S_OK");
  EXPECT_EQ(NamesIn(_Old), (Names{"old pick", "old grip", "old walk"}));
  EXPECT_EQ(NamesIn(_New), (Names{"Pick", "Grip", "Walk"}));
  EXPECT_EQ(TextOfLine(*pick, 1, "Code"), "Grip");
  EXPECT_EQ(TextOfLine(*place, 1, "Code"), "Pick");
  EXPECT_EQ(TextOfLine(*place, 3, "Code"), "Walk");
  EXPECT_EQ(TextOfLine(*place, 2, "Code"), "G1A");
}

TEST_F(IdentifierListTest, ATreeThatIsReusedTwiceIsListedTwiceAsItStandsByThen) {
  const auto grip = NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick", {Reusing("old grip", grip)});
  const auto place = NewAnalysis("Place", {Reusing("old pick", pick), Reusing("old pick", pick)});
  EXPECT_EQ(List(place), "S_OK");
  EXPECT_EQ(NamesIn(_Old), (Names{"old pick", "old grip", "old pick", "Grip"}));
  EXPECT_EQ(NamesIn(_New), (Names{"Pick", "Grip", "Pick", "Grip"}));
}

TEST_F(IdentifierListTest, ListsAreAppendedTo) {
  _Old = ListOf({"before"});
  _New = ListOf({"before", "and another"});
  const auto pick = NewAnalysis("Pick", {Reusing("Grip", NewAnalysis("Grip"))});
  EXPECT_EQ(List(pick), "S_OK");
  EXPECT_EQ(NamesIn(_Old), (Names{"before", "Grip"}));
  EXPECT_EQ(NamesIn(_New), (Names{"before", "and another", "Grip"}));
}

TEST_F(IdentifierListTest, WithoutLinesThatReuseThereIsNothingToList) {
  const auto pick = NewAnalysis("Pick", {Line("M10B"), Line("*")});
  EXPECT_EQ(List(pick), "S_OK");
  EXPECT_EQ(List(NewAnalysis("Empty")), "S_OK");
  EXPECT_EQ(List(MakeShellWithout<VEXITimeAnalysisLines>(pick)), "S_OK");
  EXPECT_EQ(_Old.Size() + _New.Size(), 0);
}

TEST_F(IdentifierListTest, WhatIsNoAnalysisIsRefused) {
  EXPECT_EQ(List(nullptr), "E_FAIL");
  EXPECT_EQ(List(MakeBareObject()), "E_FAIL");
  EXPECT_EQ(List(NewDrawing("Sketch")), "E_FAIL");
  EXPECT_EQ(List(NewOperation("Fasten")), "E_FAIL");
  const auto pick = NewAnalysis("Pick", {Reusing("old", NewAnalysis("Grip"))});
  EXPECT_EQ(List(MakeShellWithout<VEXITimeAnalysisRepReference>(pick)), "E_FAIL");
  EXPECT_EQ(_Old.Size() + _New.Size(), 0);
}

TEST_F(IdentifierListTest, AReusedObjectWithoutPropertiesIsPassedOver) {
  const auto pick = NewAnalysis("Pick", {Reusing("old grip", NewAnalysis("Grip"))});
  const auto hidden = MakeShellWithout<VEXITimeAnalysisProperties>(pick);
  const auto place = NewAnalysis("Place", {Reusing("old pick", hidden), Reusing("bare", MakeBareObject()),
                                           Reusing("old walk", NewAnalysis("Walk"))});
  EXPECT_EQ(List(place), "S_OK");
  EXPECT_EQ(NamesIn(_Old), Names{"old walk"});
  EXPECT_EQ(NamesIn(_New), Names{"Walk"});
  EXPECT_EQ(TextOfLine(*place, 1, "Code"), "old pick");
  EXPECT_EQ(TextOfLine(*pick, 1, "Code"), "old grip");
}

TEST_F(IdentifierListTest, AReusedObjectWithoutAttributesIsListedAndNotEntered) {
  const auto pick = NewAnalysis("Pick", {Reusing("old grip", NewAnalysis("Grip"))});
  const auto hidden = MakeShellWithout<VEXITimeAnalysisRepReference>(pick);
  const auto place = NewAnalysis("Place", {Reusing("old pick", hidden)});
  EXPECT_EQ(List(place), "S_OK");
  EXPECT_EQ(NamesIn(_Old), Names{"old pick"});
  EXPECT_EQ(TextOfLine(*place, 1, "Code"), "Pick");
  EXPECT_EQ(TextOfLine(*pick, 1, "Code"), "old grip");
}

TEST_F(IdentifierListTest, AnalysesThatShareAnIdentifierAreBothListed) {
  const auto place =
      NewAnalysis("Place", {Reusing("left", NewAnalysis("Grip")), Reusing("right", NewAnalysis("Grip"))});
  EXPECT_EQ(List(place), "S_OK");
  EXPECT_EQ(NamesIn(_Old), (Names{"left", "right"}));
  EXPECT_EQ(NamesIn(_New), (Names{"Grip", "Grip"}));
}

TEST_F(IdentifierListTest, OtherValuesOfTheLineStay) {
  const ParameterList parameters = TimeFormula("Grasp", "1", "0.36").AddNull();
  const auto pick = NewAnalysis("Pick", {Reusing("Grasp", NewAnalysis("Grip")).Timed("TTB", 0.5).Formula(parameters)});
  std::string expected = support::DescribeLine(*pick, 1);
  expected.replace(expected.find("Code: Grasp"), 11, "Code: Grip");
  EXPECT_EQ(List(pick), "S_OK");
  EXPECT_EQ(support::DescribeLine(*pick, 1), expected);
}

TEST_F(IdentifierListTest, ACircleIsListedOnceAround) {
  const auto pick = NewAnalysis("Pick");
  const auto place = NewAnalysis("Place", {Reusing("old pick", pick)});
  support::AppendLines(*pick, {Reusing("old place", place), Reusing("old self", pick)});
  EXPECT_EQ(List(pick), "S_OK");
  EXPECT_EQ(NamesIn(_Old), (Names{"old place", "old pick", "old self"}));
  EXPECT_EQ(NamesIn(_New), (Names{"Place", "Pick", "Pick"}));
}

TEST_F(IdentifierListTest, AHundredThousandLevelsAreListed) {
  constexpr int levels = 100'000;
  TimeAnalysis_var top = NewAnalysis("0");
  for (int level = 1; level <= levels; ++level) {
    top = NewAnalysis(std::to_string(level), {Reusing("old", top)});
  }
  EXPECT_EQ(List(top), "S_OK");
  EXPECT_EQ(_Old.Size(), levels);
  ASSERT_EQ(_New.Size(), levels);
  EXPECT_EQ(NamesIn(_New).front(), std::to_string(levels - 1));
  EXPECT_EQ(NamesIn(_New).back(), "0");
}

// ---- Who owns the parameters ----

class OwnerRepairTest : public IdentifierRepairTest {
 protected:
  static std::string Repair(KORBaseUnknown_var analysis, const Names& old_names, const Names& new_names) {
    KORListValKORUnicodeString old_identifiers = ListOf(old_names);
    KORListValKORUnicodeString new_identifiers = ListOf(new_names);
    std::string outcome = OutcomeOf(
        [&] { return Services::UpdatePLMIDsOfTimeAnalysisRepRef(analysis, old_identifiers, new_identifiers); });
    EXPECT_EQ(NamesIn(old_identifiers), old_names);
    EXPECT_EQ(NamesIn(new_identifiers), new_names);
    return outcome;
  }
};

struct OwnerRow {
  const char* name;
  Names old_names;
  Names new_names;
  std::string owner;
  std::string owner_after;
};
class OwnerTest : public OwnerRepairTest, public testing::WithParamInterface<OwnerRow> {};

TEST_P(OwnerTest, IsRepaired) {
  const OwnerRow& row = GetParam();
  const auto pick = NewAnalysis("Pick", {Line("M10B"), Line("F").Formula(TimeFormula(row.owner, "3", "0.36"))});
  const auto watched = Watch(pick);
  EXPECT_EQ(Repair(watched, row.old_names, row.new_names), "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 2), Names{row.owner_after + "/3"});
  EXPECT_EQ(watched->Stored(), row.owner == row.owner_after ? std::vector<int>{} : std::vector<int>{2});
}

INSTANTIATE_TEST_SUITE_P(
    Owners, OwnerTest,
    testing::Values(OwnerRow{"Renamed", {"Walk", "Grasp"}, {"Walk", "Grip"}, "Grasp", "Grip"},
                    OwnerRow{"NotRenamed", {"Walk", "Grip"}, {"Walk", "Grip"}, "Grip", "Grip"},
                    OwnerRow{"Unknown", {"Walk"}, {"Walk"}, "Grasp", "Pick"},
                    OwnerRow{"UnknownAndTheAnalysisItself", {"Walk"}, {"Walk"}, "Pick", "Pick"},
                    OwnerRow{"TheAnalysisItselfRenamed", {"Pick"}, {"Take"}, "Pick", "Take"},
                    OwnerRow{"RenamedToTheAnalysisItself", {"Grasp"}, {"Pick"}, "Grasp", "Pick"},
                    OwnerRow{"OnlyStandingInTheNewList", {"Grasp"}, {"Grip"}, "Grip", "Pick"},
                    OwnerRow{"FirstPositionCounts", {"Grasp", "Grasp"}, {"Grip", "Walk"}, "Grasp", "Grip"},
                    OwnerRow{"FirstPositionCountsAlsoUnchanged", {"Grip", "Grip"}, {"Grip", "Walk"}, "Grip", "Grip"},
                    OwnerRow{"NotRenamedTwice", {"Grasp", "Grip"}, {"Grip", "Walk"}, "Grasp", "Grip"},
                    OwnerRow{"NothingListed", {}, {}, "Grasp", "Pick"},
                    OwnerRow{"EmptyOwner", {"Grasp"}, {"Grip"}, "", "Pick"},
                    OwnerRow{"EmptyOwnerListed", {""}, {"Grip"}, "", "Grip"},
                    OwnerRow{"RenamedToNothing", {"Grasp"}, {""}, "Grasp", ""},
                    OwnerRow{"NewListEndsBefore", {"Walk", "Grasp"}, {"Walk"}, "Grasp", "Grasp"},
                    OwnerRow{"NewListEmpty", {"Grasp"}, {}, "Grasp", "Grasp"},
                    OwnerRow{"OldListEndsBefore", {"Walk"}, {"Walk", "Grip"}, "Grasp", "Pick"},
                    OwnerRow{"OtherCapitals", {"GRASP"}, {"Grip"}, "Grasp", "Pick"}),
    support::RowName());

TEST_F(OwnerRepairTest, AllParametersOfALineAreRepairedAndNullsStay) {
  const ParameterList parameters = TimeFormula("Grasp", "1", "0.1")
                                       .AddNull()
                                       .Append(TimeFormula("Walk", "2", "0.1"))
                                       .Append(TimeFormula("nobody", "3", "0.1"));
  const auto pick = NewAnalysis("Pick", {Line("F").Formula(parameters)});
  EXPECT_EQ(Repair(pick, {"Grasp", "Walk"}, {"Grip", "Walk"}), "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), (Names{"Grip/1", "null", "Walk/2", "Pick/3"}));
}

TEST_F(OwnerRepairTest, OnlyLinesThatChangeAreStored) {
  const auto pick = NewAnalysis(
      "Pick", {Line("F").Formula(TimeFormula("Pick", "1", "0.1")), Line("F").Formula(TimeFormula("Grasp", "2", "0.1")),
               Line("M10B"), Line("F").Formula(ParameterList().AddNull()),
               Line("*").Formula(TimeFormula("nobody", "5", "0.1"))});
  const auto watched = Watch(pick);
  EXPECT_EQ(Repair(watched, {"Grasp"}, {"Grip"}), "S_OK");
  EXPECT_EQ(watched->Stored(), (std::vector<int>{2, 5}));
  EXPECT_EQ(OwnersOn(*pick, 4), Names{"null"});
}

TEST_F(OwnerRepairTest, OtherFieldsAndKeysStay) {
  const auto pick = NewAnalysis("Pick", {Line("F").Timed("TRG", 0.5, 2.0).Formula(TimeFormula("Grasp", "4", "7", 7))});
  std::string expected = support::DescribeLine(*pick, 1);
  expected.replace(expected.find("[Grasp]"), 7, "[Grip]");
  EXPECT_EQ(Repair(pick, {"Grasp"}, {"Grip"}), "S_OK");
  EXPECT_EQ(support::DescribeLine(*pick, 1), expected);
}

TEST_F(OwnerRepairTest, ParametersOfAReusedAnalysisThatIsNotListedAreTakenOver) {
  const auto grip = NewAnalysis("Grip", {Line("F").Formula(TimeFormula("Grip", "1", "0.1"))});
  const auto pick = NewAnalysis("Pick", {Reusing("Grip", grip).Formula(TimeFormula("Grip", "1", "0.1"))});
  EXPECT_EQ(Repair(pick, {}, {}), "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Pick/1"});
}

TEST_F(OwnerRepairTest, AnalysesBelowAreLeftAlone) {
  const auto grip = NewAnalysis("Grip", {Line("F").Formula(TimeFormula("Grasp", "1", "0.1"))});
  const auto pick = NewAnalysis("Pick", {Reusing("Grip", grip)});
  EXPECT_EQ(Repair(pick, {"Grasp"}, {"Grip"}), "S_OK");
  EXPECT_EQ(OwnersOn(*grip, 1), Names{"Grasp/1"});
}

TEST_F(OwnerRepairTest, ListsOfOneCallServeTheOther) {
  const auto grip = NewAnalysis("Grip", {Line("F").Formula(TimeFormula("Grasp", "1", "0.1"))});
  const ParameterList parameters = TimeFormula("Grasp", "1", "0.1").Append(TimeFormula("Pick", "1", "0.1"));
  KORBaseUnknown_var pick = NewAnalysis("Pick", {Reusing("Grasp", grip).Formula(parameters)});
  KORListValKORUnicodeString old_identifiers, new_identifiers;
  EXPECT_EQ(Services::GetOldAndNewPLMIDs(pick, old_identifiers, new_identifiers), S_OK);
  EXPECT_EQ(Services::UpdatePLMIDsOfTimeAnalysisRepRef(pick, old_identifiers, new_identifiers), S_OK);
  EXPECT_EQ(OwnersOn(*VEXITimeAnalysisLines_var(pick), 1), (Names{"Grip/1", "Pick/1"}));
}

TEST_F(OwnerRepairTest, AnAnalysisWithoutLinesHasNothingToRepair) {
  EXPECT_EQ(Repair(NewAnalysis("Pick"), {"Grasp"}, {"Grip"}), "S_OK");
  const auto pick = NewAnalysis("Pick", {Line("F").Formula(TimeFormula("Grasp", "1", "0.1"))});
  EXPECT_EQ(Repair(MakeShellWithout<VEXITimeAnalysisLines>(pick), {"Grasp"}, {"Grip"}), "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Grasp/1"});
}

TEST_F(OwnerRepairTest, AnAnalysisWithoutPropertiesIsRepaired) {
  const auto pick = NewAnalysis("Pick", {Line("F").Formula(TimeFormula("Grasp", "1", "0.1"))});
  EXPECT_EQ(Repair(MakeShellWithout<VEXITimeAnalysisProperties>(pick), {}, {}), "S_OK");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Pick/1"});
}

TEST_F(OwnerRepairTest, WhatIsNoAnalysisIsRefused) {
  EXPECT_EQ(Repair(nullptr, {}, {}), "E_FAIL");
  EXPECT_EQ(Repair(MakeBareObject(), {}, {}), "E_FAIL");
  EXPECT_EQ(Repair(NewDrawing("Sketch"), {}, {}), "E_FAIL");
  const auto pick = NewAnalysis("Pick", {Line("F").Formula(TimeFormula("Grasp", "1", "0.1"))});
  EXPECT_EQ(Repair(MakeShellWithout<VEXITimeAnalysisRepReference>(pick), {"Grasp"}, {"Grip"}), "E_FAIL");
  EXPECT_EQ(OwnersOn(*pick, 1), Names{"Grasp/1"});
}

}  // namespace
