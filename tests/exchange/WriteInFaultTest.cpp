// A list of items that meets failures: attributes and rows that refuse, and objects that are no time analysis.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <string>

#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeShellWithout;
using exchangetest::AttributesOf;
using exchangetest::Cell;
using exchangetest::Header;
using exchangetest::LinesOf;
using exchangetest::OldAnalysis;
using exchangetest::TextList;
using exchangetest::TraceLines;
using exchangetest::WriteIn;
using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;

const TextList Old{"Note='old'"};
const TextList OldLine{"1 Code='OLD'"};

// Attributes and tables that fail

/// An analysis whose answers can be spoiled.
class SpoiledAnalysis : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;

  long SetValue(const KORString& key, const KORUnicodeString& value) override {
    (void)AnalysisShell::SetValue(key, value);
    const auto status = AttributeStatus.find(std::string(key.Bytes()));
    return status == AttributeStatus.end() ? S_OK : status->second;
  }
  using AnalysisShell::SetValue;
  long GetLine(int row, VEXTimeAnalysisLineData& line) override {
    (void)AnalysisShell::GetLine(row, line);
    return GetStatus;
  }
  long SetLine(int row, VEXTimeAnalysisLineData& line) override {
    const auto status = RowStatus.find(row);
    const long refused = status == RowStatus.end() ? S_OK : status->second;
    return Failed(refused) ? refused : Failed(AnalysisShell::SetLine(row, line)) ? E_INVALIDARG : refused;
  }
  long RemoveAllLines() override {
    ++Removals;
    return Failed(RemoveStatus) ? RemoveStatus : AnalysisShell::RemoveAllLines();
  }

  std::map<std::string, long> AttributeStatus;
  std::map<int, long> RowStatus;
  long GetStatus = S_OK;
  long RemoveStatus = S_OK;
  int Removals = 0;
};
using SpoiledAnalysis_var = KORHandle<SpoiledAnalysis>;

SpoiledAnalysis_var MakeSpoiled() {
  return SpoiledAnalysis_var::Adopt(new SpoiledAnalysis(OldAnalysis()));
}

TEST(WriteInFaultTest, GivesTheStatusOfTheLastNameOfAnAttribute) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->AttributeStatus = {{"V_description", E_FAIL}, {"V_LongDescription", E_FAIL}, {"TimeType", S_FALSE}};
  EXPECT_EQ(WriteIn({"AttributeData:analysisdescription:8:X"}, analysis), S_OK);
  EXPECT_EQ(WriteIn({"AttributeData:timetype:8:X"}, analysis), S_FALSE);
  analysis->AttributeStatus["AnalysisDescription"] = E_FAIL;
  EXPECT_EQ(WriteIn({"AttributeData:analysisdescription:8:X"}, analysis), E_FAIL);
  EXPECT_EQ(WriteIn({"AttributeData:analysisdescription:8:X", "AttributeData:name:8:X"}, analysis), S_OK);
}

TEST(WriteInFaultTest, GivesTheStatusWithWhichTheRowIsStored) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  const TextList two_rows{Header("code"), Cell(1, 0, "A"), Cell(2, 0, "B")};
  analysis->RowStatus = {{1, E_FAIL}};
  EXPECT_EQ(WriteIn({Header("code"), Cell(1, 0, "A")}, analysis), E_FAIL);
  analysis->RowStatus = {{2, E_NOINTERFACE}};
  EXPECT_EQ(WriteIn(two_rows, analysis), E_NOINTERFACE);
  EXPECT_THAT(LinesOf(analysis->Inside()), ElementsAre("1 RowNum=1", "1 Code='A'"));
  analysis->RowStatus = {{2, S_FALSE}};
  EXPECT_EQ(WriteIn(two_rows, analysis), S_FALSE);
  EXPECT_THAT(LinesOf(analysis->Inside()), ElementsAre("1 RowNum=1", "1 Code='A'", "2 RowNum=2", "2 Code='B'"));
}

TEST(WriteInFaultTest, IgnoresTheStatusWithWhichARowIsRead) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->GetStatus = E_FAIL;
  EXPECT_EQ(WriteIn({Header("code"), Header("state"), Cell(1, 0, "A"), Cell(1, 1, "3")}, analysis), S_OK);
  EXPECT_THAT(LinesOf(analysis->Inside()), ElementsAre("1 RowNum=1", "1 Code='A'", "1 State=3"));
}

TEST(WriteInFaultTest, GoesOnWhereTheLinesCannotBeRemoved) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->RemoveStatus = E_FAIL;
  EXPECT_EQ(WriteIn({Header("state"), Cell(1, 0, "3")}, analysis), S_OK);
  EXPECT_EQ(analysis->Removals, 1);
  EXPECT_THAT(LinesOf(analysis->Inside()), ElementsAre("1 RowNum=1", "1 Code='OLD'", "1 State=3"));
}

TEST(WriteInFaultTest, RemovesTheLinesOnceAndNotWithoutAnItemOfTheTable) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  (void)WriteIn({"AttributeData:name:8:A", "Save"}, analysis);
  EXPECT_EQ(analysis->Removals, 0);
  (void)WriteIn({Header("code"), Cell(1, 0, "A"), Header("state"), Cell(2, 0, "B")}, analysis);
  EXPECT_EQ(analysis->Removals, 1);
}

// Objects that lack an interface

struct NoTableRow {
  const char* name;
  TextList items;
  long status;
  TextList attributes;
};

class NoLineTableTest : public testing::TestWithParam<NoTableRow> {};

TEST_P(NoLineTableTest, EndsAtTheFirstCell) {
  const TimeAnalysis_var analysis = OldAnalysis();
  TraceLines trace;
  EXPECT_EQ(WriteIn(GetParam().items, MakeShellWithout<VEXITimeAnalysisLines>(analysis)), GetParam().status);
  EXPECT_THAT(trace.Take(), IsEmpty());
  EXPECT_EQ(AttributesOf(*analysis), GetParam().attributes);
  EXPECT_EQ(LinesOf(*analysis), OldLine);
}

INSTANTIATE_TEST_SUITE_P(
    Items, NoLineTableTest,
    testing::Values(NoTableRow{"AttributesAreSet", {"AttributeData:note:8:new"}, S_OK, {"Note='new'"}},
                    NoTableRow{"HeadersAreTaken", {"AttributeData:note:8:new", Header("code")}, S_OK, {"Note='new'"}},
                    NoTableRow{"WhatCameBeforeStays",
                               {"AttributeData:note:8:new", Header("code"), Cell(1, 0, "A")},
                               E_NOINTERFACE,
                               {"Note='new'"}},
                    NoTableRow{"NothingIsSetBehind",
                               {Header("code"), Cell(1, 0, "A"), "AttributeData:note:8:new"},
                               E_NOINTERFACE,
                               Old},
                    NoTableRow{"CellOfAnUnknownKey", {Header("codex"), Cell(1, 0, "A")}, E_NOINTERFACE, Old},
                    NoTableRow{"CellWithoutHeader", {Cell(1, 0, "A")}, E_NOINTERFACE, Old},
                    NoTableRow{"CellOfARowBelow1", {Header("code"), Cell(-5, 0, "A")}, E_NOINTERFACE, Old},
                    NoTableRow{"ShortCellIsPassedOver", {"LineData:et_linedata:1"}, E_INVALIDARG, Old}),
    support::RowName());

TEST(WriteInDeathTest, EndsTheProcessForAnObjectWithoutAttributes) {
  const std::string text =
      "^AssertionFailed:NULL_var != spTARepRef "
      "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices\\.m/src/VEXTADataIO [0-9]+\n";
  const auto object = MakeShellWithout<VEXITimeAnalysisRepReference>(OldAnalysis());
  const TextList items{Header("code")};
  EXPECT_EXIT((void)WriteIn(items, object), testing::KilledBySignal(SIGABRT), text);
  EXPECT_EXIT((void)WriteIn(TextList{}, object), testing::KilledBySignal(SIGABRT), text);
  EXPECT_EXIT((void)WriteIn(items, calculationtest::MakeBareObject()), testing::KilledBySignal(SIGABRT), text);
}

}  // namespace
