// An analysis becomes a list of items: its attributes, then its lines cell by cell.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "exchange/ExchangeTables.h"
#include "exchange/ItemText.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"
#include "tests/formula/ScopedLocale.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeShellWithout;
using exchangetest::Exchanged;
using exchangetest::NewAnalysis;
using exchangetest::ReadOut;
using exchangetest::TextList;
using exchangetest::TraceLines;
using support::Line;
using support::MakeAnalysis;
using support::TimeAnalysis_var;
using support::Unicode;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Umlauts = "Größe des Schraubenschlüssels";

// Attributes

using Value = std::variant<const char*, double, int, unsigned char>;

void SetAttribute(VEXTimeAnalysisRepReference& analysis, const std::string& name, const Value& value) {
  if (const auto* const text = std::get_if<const char*>(&value)) {
    (void)analysis.SetValue(KORString(name), KORUnicodeString(*text));
  } else if (const auto* const real = std::get_if<double>(&value)) {
    (void)analysis.SetValue(KORString(name), *real);
  } else if (const auto* const integer = std::get_if<int>(&value)) {
    (void)analysis.SetValue(KORString(name), *integer);
  } else {
    (void)analysis.SetValue(KORString(name), std::get<unsigned char>(value));
  }
}

struct AttributeRow {
  const char* name;
  const char* attribute;
  Value value;
  const char* item;
};

class AttributeItemTest : public testing::TestWithParam<AttributeRow> {};

TEST_P(AttributeItemTest, HasKeyTypeAndValue) {
  const TimeAnalysis_var analysis = NewAnalysis();
  SetAttribute(*analysis, GetParam().attribute, GetParam().value);
  TraceLines trace;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre(GetParam().item));
  EXPECT_THAT(trace.Take(), IsEmpty());
}

constexpr auto Truth = static_cast<unsigned char>(1);
constexpr auto Untruth = static_cast<unsigned char>(0);
INSTANTIATE_TEST_SUITE_P(
    Attributes, AttributeItemTest,
    testing::Values(
        AttributeRow{"Text", "V_Name", "Assembly", "AttributeData:name:8:Assembly"},
        AttributeRow{"EmptyText", "WDStart", "", "AttributeData:wdstart:8:"},
        AttributeRow{"Blank", "Code", " ", "AttributeData:code:8: "},
        AttributeRow{"LettersBeyondAscii", "Note", "Größe", "AttributeData:note:8:Größe"},
        AttributeRow{"Integer", "State", -7, "AttributeData:state:3:-7"},
        AttributeRow{"LeastInteger", "Bitmask", std::numeric_limits<int>::min(), "AttributeData:bitmask:3:-2147483648"},
        AttributeRow{"Real", "TTBCalculated", 2.952, "AttributeData:dbl_ttbcalculated:5:2.952"},
        AttributeRow{"RealWithAllItsDigits", "TTUPart", 0.1 + 0.2, "AttributeData:dbl_ttupart:5:0.30000000000000004"},
        AttributeRow{"WholeReal", "TAQuantity", 10.0, "AttributeData:dbl_taquantity:5:10"},
        AttributeRow{"True", "IsDirty", Truth, "AttributeData:isdirty:11:1"},
        AttributeRow{"False", "IsDirty", Untruth, "AttributeData:isdirty:11:0"},
        AttributeRow{"KeyWithAPoint", "EffectivityEnd", 0.5, "AttributeData:effectivity.end:5:0.5"},
        AttributeRow{"TypeIsThatOfTheKeyNotOfTheValue", "TotalEntered", "about 12",
                     "AttributeData:dbl_totalentered:5:about 12"},
        AttributeRow{"ColonsStayAsTheyAre", "V_Name", "12:30:", "AttributeData:name:8:12:30:"},
        AttributeRow{"BarsStayAsTheyAre", "Note", "a|b", "AttributeData:note:8:a|b"},
        AttributeRow{"OlderSystemName", "Subsystem", "STD", "AttributeData:subsystem:8:STD"}),
    support::RowName());

TEST(ReadOutTest, GivesEveryAttributeOfTheExchange) {
  for (const exchange::AttributeRow& row : exchange::AttributeTable) {
    for (const KORUnicodeString& name : exchange::Explode("|", Unicode(row.Names))) {
      const TimeAnalysis_var analysis = NewAnalysis();
      (void)analysis->SetValue(KORString(name), KORUnicodeString("value"));
      const std::string type = std::to_string(static_cast<int>(row.Type));
      EXPECT_THAT(ReadOut(analysis).items,
                  ElementsAre("AttributeData:" + std::string(row.Key) + ":" + type + ":value"));
    }
  }
}

TEST(ReadOutTest, GivesOneItemForEachNameOfAKey) {
  const TimeAnalysis_var analysis = NewAnalysis();
  SetAttribute(*analysis, "AnalysisDescription", "older");
  SetAttribute(*analysis, "V_description", "newer");
  EXPECT_THAT(ReadOut(analysis).items,
              ElementsAre("AttributeData:analysisdescription:8:newer", "AttributeData:analysisdescription:8:older"));
}

TEST(ReadOutTest, TellsOfAttributesWithoutAPlaceInTheExchange) {
  const TimeAnalysis_var analysis = MakeAnalysis("TA-1");
  SetAttribute(*analysis, "V_Name", "Assembly");
  SetAttribute(*analysis, "V_HumanTime", 3.6);
  SetAttribute(*analysis, "Größe", "XL");
  SetAttribute(*analysis, "v_name", "");
  TraceLines trace;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("AttributeData:name:8:Assembly"));
  EXPECT_THAT(trace.Take(),
              ElementsAre("Failed to map attribute <PLM_ExternalID>", "Failed to map attribute <V_HumanTime>",
                          "Failed to map attribute <Größe>", "Failed to map attribute <v_name>"));
}

TEST(ReadOutTest, GivesAttributesAloneForAnAnalysisWithoutLines) {
  const TimeAnalysis_var analysis = NewAnalysis();
  SetAttribute(*analysis, "State", 2);
  const Exchanged read = ReadOut(analysis, {"from before"});
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("AttributeData:state:3:2"));
}

TEST(ReadOutTest, EmptiesTheListForAnAnalysisWithoutAnything) {
  const Exchanged read = ReadOut(NewAnalysis(), {"from before"});
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, IsEmpty());
}

// Lines

// A line with a value under every key that the exchange has.
Line FullLine(const KORBaseUnknown_var& reused) {
  Line line("M10B");
  line.Set("IsStandardTextFlag", Truth).Set("ActivitySectionName", "section").Set("RowNum", 1);
  line.Set("Description", "Move").Set("TimeType", "TTB").Set("AnalysisType", " ").Set("TotalTime", 0.72);
  line.Set("Bitmask", 5).Set("Factor", 2.0).Set("TotalCalc", -0.036).Set("State", 3).Set("LineType", "type");
  line.Set("RuleIn", "in").Set("RuleOut", "out").Set("TTBTime", 0.36).Set("TTUTime", -0.036);
  line.Set("TRGTime", 1e-320).Set("TWTime", 1e300).Set("FactorString", "2*1").Set("TTBCalc", 0.1).Set("TTUCalc", 0.2);
  line.Set("TRGCalc", 0.3).Set("TWCalc", 0.4).Set("AddDescription", "").Set("ValueAdded", "NVA");
  line.Set("TTBCalcAllowance", 1.1).Set("TTUCalcAllowance", 1.2).Set("TRGCalcAllowance", 1.3);
  line.Set("TWCalcAllowance", 1.4).Set("TotalCalcAllowance", 1.5).Set("ParamFactorString", "n");
  return line.Reuses(reused);
}

TEST(ReadOutTest, GivesEveryKeyOfALineItsColumn) {
  const TimeAnalysis_var analysis = NewAnalysis({FullLine(MakeAnalysis("Grasp"))});
  TraceLines trace;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, testing::UnorderedElementsAreArray({
                              "LineData:1:0:standardtextflag:11:1",
                              "LineData:1:1:ablaufabschnname:8:section",
                              "LineData:1:2:rowno:3:1",
                              "LineData:1:3:analysisdescription:8:Move",
                              "LineData:1:4:code:8:M10B",
                              "LineData:1:5:timetype:8:TTB",
                              "LineData:1:6:analysistype:8: ",
                              "LineData:1:7:totaltime:5:0.72",
                              "LineData:1:8:bitmask:3:5",
                              "LineData:1:9:factor:5:2",
                              "LineData:1:10:totalcalc:5:-0.036",
                              "LineData:1:11:state:3:3",
                              "LineData:1:12:linetype:8:type",
                              "LineData:1:13:rulein:8:in",
                              "LineData:1:14:ruleout:8:out",
                              "LineData:1:15:ttbtime:5:0.36",
                              "LineData:1:16:ttutime:5:-0.036",
                              "LineData:1:17:trgtime:5:1e-320",
                              "LineData:1:18:twtime:5:1e+300",
                              "LineData:1:19:factorstring:8:2*1",
                              "LineData:1:20:ttbcalc:5:0.1",
                              "LineData:1:21:ttucalc:5:0.2",
                              "LineData:1:22:trgcalc:5:0.3",
                              "LineData:1:23:twcalc:5:0.4",
                              "LineData:1:24:adddescription:8:",
                              "LineData:1:25:subanalysis:13:Grasp",
                              "LineData:1:28:valueadded:8:NVA",
                              "LineData:1:29:ttbcalcallowance:5:1.1",
                              "LineData:1:30:ttucalcallowance:5:1.2",
                              "LineData:1:31:trgcalcallowance:5:1.3",
                              "LineData:1:32:twcalcallowance:5:1.4",
                              "LineData:1:33:totalcalcallowance:5:1.5",
                              "LineData:1:34:text1:8:n",
                          }));
  EXPECT_THAT(trace.Take(), IsEmpty());
}

TEST(ReadOutTest, ListsCellsInTheOrderOfTheLineNotOfTheColumns) {
  const TimeAnalysis_var analysis = NewAnalysis({Line("M10B").Set("ParamFactorString", "n").Set("Factor", 2.0)});
  EXPECT_THAT(ReadOut(analysis).items,
              ElementsAre("LineData:1:4:code:8:M10B", "LineData:1:9:factor:5:2", "LineData:1:34:text1:8:n"));
}

TEST(ReadOutTest, ListsAttributesAheadOfLinesAndLinesByRow) {
  const TimeAnalysis_var analysis = NewAnalysis({Line("R40A"), Line().Set("State", 1), Line(), Line("G1A")});
  SetAttribute(*analysis, "V_Name", "Pick");
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("AttributeData:name:8:Pick", "LineData:1:4:code:8:R40A",
                                                   "LineData:2:11:state:3:1", "LineData:4:4:code:8:G1A"));
}

TEST(ReadOutTest, CountsTheRowItselfWhateverTheLineSays) {
  const TimeAnalysis_var analysis = NewAnalysis({Line().Set("RowNum", 9)});
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("LineData:1:2:rowno:3:9"));
}

TEST(ReadOutTest, WritesSeparatorsInALineAsTheyAre) {
  const TimeAnalysis_var analysis = NewAnalysis({Line("12:30|:")});
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("LineData:1:4:code:8:12:30|:"));
}

TEST(ReadOutTest, TellsOfKeysOfLinesWithoutAPlaceInTheExchange) {
  const TimeAnalysis_var analysis =
      NewAnalysis({Line("R40A").Set("FrequencyString", "2"), Line("G1A").Set("FormulaPicture", "").Set("code", "x")});
  TraceLines trace;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("LineData:1:4:code:8:R40A", "LineData:2:4:code:8:G1A"));
  EXPECT_THAT(trace.Take(),
              ElementsAre("Failed to map line attribute <FrequencyString>",
                          "Failed to map line attribute <FormulaPicture>", "Failed to map line attribute <code>"));
}

TEST(ReadOutTest, KeepsLettersOfOldTextsWhole) {
  const TimeAnalysis_var analysis = NewAnalysis({Line("Ma\xDF\xFC")});
  SetAttribute(*analysis, "V_Name",
               "Gr\xF6\xDF"
               "e");
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("AttributeData:name:8:Größe", "LineData:1:4:code:8:Maßü"));
}

TEST(ReadOutTest, WritesNumbersWithAPointInEveryLocale) {
  const TimeAnalysis_var analysis = NewAnalysis({Line().Set("Factor", 1.5).Set("TTBTime", -0.036)});
  SetAttribute(*analysis, "TTBCalculated", 2.952);
  const auto has_points = ElementsAre("AttributeData:dbl_ttbcalculated:5:2.952", "LineData:1:9:factor:5:1.5",
                                      "LineData:1:15:ttbtime:5:-0.036");
  {
    const formulatest::ScopedLocale point("C");
    ASSERT_TRUE(point.IsInForce("."));
    EXPECT_THAT(ReadOut(analysis).items, has_points);
  }
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce());
  EXPECT_THAT(ReadOut(analysis).items, has_points);
}

TEST(ReadOutTest, LeavesTheAnalysisAsItIs) {
  const TimeAnalysis_var analysis = MakeAnalysis("TA-1", {FullLine(MakeAnalysis("Grasp"))});
  const std::string before = support::DescribeAnalysis(*analysis);
  TraceLines trace;
  (void)ReadOut(analysis);
  EXPECT_EQ(support::DescribeAnalysis(*analysis), before);
}

TEST(ReadOutTest, GivesAMillionItems) {
  constexpr int Rows = 100'000;
  Line line("M10B");
  line.Set("Description", "Move").Set("TimeType", "TTB").Set("AnalysisType", " ").Set("TotalTime", 0.72);
  line.Set("Factor", 2.0).Set("TTBTime", 0.36).Set("TTUTime", -0.036).Set("TRGTime", -0.036).Set("TWTime", -0.036);
  const TimeAnalysis_var analysis = NewAnalysis();
  for (int row = 1; row <= Rows; ++row) ASSERT_EQ(analysis->SetLine(row, line.Record()), S_OK);
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  ASSERT_EQ(read.items.size(), 1'000'000u);
  EXPECT_EQ(read.items.back(), "LineData:100000:18:twtime:5:-0.036");
}

// Reuse

TEST(ReadOutTest, GivesTheIdentifierOfTheReusedAnalysis) {
  const TimeAnalysis_var analysis = NewAnalysis({Line().Reuses(MakeAnalysis(Umlauts)), Line().Reuses(NULL_var)});
  EXPECT_THAT(ReadOut(analysis).items,
              ElementsAre("LineData:1:25:subanalysis:13:" + Umlauts, "LineData:2:25:subanalysis:13:"));
}

TEST(ReadOutTest, GivesTheIdentifierBesideAFormula) {
  Line line;
  line.Reuses(MakeAnalysis("Grasp")).Formula(support::TimeFormula("Grasp", "1", "0.5"));
  EXPECT_THAT(ReadOut(NewAnalysis({line})).items, ElementsAre("LineData:1:25:subanalysis:13:Grasp"));
}

TEST(ReadOutTest, KeepsTheTextOfALineWhoseReusedObjectIsNoAnalysis) {
  // The line tells the identifier of any object that has one.
  const auto object = MakeShellWithout<VEXITimeAnalysisRepReference>(MakeAnalysis("Grasp"));
  EXPECT_THAT(ReadOut(NewAnalysis({Line().Reuses(object)})).items, ElementsAre("LineData:1:25:subanalysis:13:Grasp"));
}

TEST(ReadOutTest, GivesAnEmptyValueForAReusedAnalysisWithoutIdentifier) {
  EXPECT_THAT(ReadOut(NewAnalysis({Line().Reuses(NewAnalysis())})).items, ElementsAre("LineData:1:25:subanalysis:13:"));
}

TEST(ReadOutTest, KeepsWhatStandsAsATextWhereAReuseBelongs) {
  EXPECT_THAT(ReadOut(NewAnalysis({Line().Set("TimeAnalysis", "a text")})).items,
              ElementsAre("LineData:1:25:subanalysis:13:a text"));
}

// Tables that fail

/// An analysis whose answers can be spoiled.
class SpoiledAnalysis : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;

  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    return Failed(AttributeStatus) ? AttributeStatus : AnalysisShell::GetAllValues(names, values);
  }
  long GetLineCount(int& count) override {
    (void)AnalysisShell::GetLineCount(count);
    if (Count) count = *Count;
    return CountStatus;
  }
  long GetLine(int row, VEXTimeAnalysisLineData& line) override {
    const long status = AnalysisShell::GetLine(row, line);
    return Failed(LineStatus) ? LineStatus : status;
  }
  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    const long status = AnalysisShell::GetLineAttributes(row, names, values);
    for (const KORUnicodeString& name : MoreNames) names.Append(name);
    for (int position = 1; Texts && position <= values.Size(); ++position) values[position] = *Texts;
    return status;
  }

  long AttributeStatus = S_OK;
  long CountStatus = S_OK;
  long LineStatus = S_OK;
  std::optional<int> Count;
  std::optional<KORUnicodeString> Texts;
  KORListValKORUnicodeString MoreNames;
};
using SpoiledAnalysis_var = KORHandle<SpoiledAnalysis>;

SpoiledAnalysis_var MakeSpoiled() {
  const TimeAnalysis_var inside = NewAnalysis({Line("R40A")});
  SetAttribute(*inside, "State", 2);
  return SpoiledAnalysis_var::Adopt(new SpoiledAnalysis(inside));
}

TEST(ReadOutFaultTest, AppendsTheLinesWhereAttributesCannotBeHad) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->AttributeStatus = E_FAIL;
  TraceLines trace;
  const Exchanged read = ReadOut(analysis, {"from before", "and more"});
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("from before", "and more", "LineData:1:4:code:8:R40A"));
  EXPECT_THAT(trace.Take(), IsEmpty());
}

TEST(ReadOutFaultTest, TakesAttributesThatComeWithAnotherStatusThanAFailure) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->AttributeStatus = S_FALSE;
  EXPECT_THAT(ReadOut(analysis, {"from before"}).items,
              ElementsAre("AttributeData:state:3:2", "LineData:1:4:code:8:R40A"));
}

struct CountRow {
  const char* name;
  long status;
  int count;
};

class LineCountFaultTest : public testing::TestWithParam<CountRow> {};

TEST_P(LineCountFaultTest, GivesTheAttributesAlone) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->CountStatus = GetParam().status;
  analysis->Count = GetParam().count;
  TraceLines trace;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("AttributeData:state:3:2"));
  EXPECT_THAT(trace.Take(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Counts, LineCountFaultTest,
                         testing::Values(CountRow{"CannotBeHad", E_FAIL, 1}, CountRow{"Zero", S_OK, 0},
                                         CountRow{"BelowZero", S_OK, -1}),
                         support::RowName());

TEST(ReadOutFaultTest, LeavesRowsOutThatTheTableDoesNotHave) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->Count = 3;
  const Exchanged read = ReadOut(analysis);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_THAT(read.items, ElementsAre("AttributeData:state:3:2", "LineData:1:4:code:8:R40A"));
}

TEST(ReadOutFaultTest, WalksNoFurtherThanTheValuesOfALine) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  analysis->MoreNames.Append("Factor");
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("AttributeData:state:3:2", "LineData:1:4:code:8:R40A"));
}

TEST(ReadOutFaultTest, KeepsTheTextOfAReuseWhoseLineCannotBeRead) {
  const SpoiledAnalysis_var analysis = MakeSpoiled();
  (void)analysis->Inside().RemoveAllLines();
  support::AppendLines(analysis->Inside(), {Line().Reuses(MakeAnalysis("Grasp"))});
  analysis->Texts = "text of the line";
  EXPECT_THAT(ReadOut(analysis).items, ElementsAre("AttributeData:state:3:2", "LineData:1:25:subanalysis:13:Grasp"));
  analysis->LineStatus = E_FAIL;
  EXPECT_THAT(ReadOut(analysis).items,
              ElementsAre("AttributeData:state:3:2", "LineData:1:25:subanalysis:13:text of the line"));
}

// Objects that are no time analysis

constexpr const char* Source = " VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices\\.m/src/VEXTADataIO [0-9]+\n";

TEST(ReadOutDeathTest, EndsTheProcessForAnObjectWithoutAttributes) {
  const auto object = MakeShellWithout<VEXITimeAnalysisRepReference>(NewAnalysis());
  EXPECT_EXIT((void)ReadOut(object), testing::KilledBySignal(SIGABRT),
              "^AssertionFailed:NULL_var != spTARepRef" + std::string(Source));
  EXPECT_EXIT((void)ReadOut(calculationtest::MakeBareObject()), testing::KilledBySignal(SIGABRT),
              "^AssertionFailed:NULL_var != spTARepRef" + std::string(Source));
}

TEST(ReadOutDeathTest, EndsTheProcessForAnObjectWithoutLines) {
  const auto object = MakeShellWithout<VEXITimeAnalysisLines>(NewAnalysis());
  EXPECT_EXIT((void)ReadOut(object), testing::KilledBySignal(SIGABRT),
              "^AssertionFailed:NULL_var != spTALines" + std::string(Source));
}

TEST(ReadOutDeathTest, ReadsTheAttributesAheadOfMissingLines) {
  const auto object = MakeShellWithout<VEXITimeAnalysisLines>(MakeAnalysis("TA-1"));
  EXPECT_EXIT((void)ReadOut(object), testing::KilledBySignal(SIGABRT),
              "^Failed to map attribute <PLM_ExternalID>\nAssertionFailed:NULL_var != spTALines ");
}

}  // namespace
