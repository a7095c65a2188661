// A list of items fills an analysis: how attributes, columns, rows and values are read.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "exchange/ExchangeTables.h"
#include "exchange/ItemText.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"
#include "tests/formula/ScopedLocale.h"

namespace {

using exchange::ValueType;
using exchangetest::AttributesOf;
using exchangetest::Cell;
using exchangetest::Header;
using exchangetest::Joined;
using exchangetest::LinesOf;
using exchangetest::NewAnalysis;
using exchangetest::TextList;
using exchangetest::TraceLines;
using exchangetest::WriteIn;
using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;

// Attributes

struct AttributeRow {
  const char* name;
  const char* item;
  TextList attributes;
};

class AttributeValueTest : public testing::TestWithParam<AttributeRow> {};

TEST_P(AttributeValueTest, IsSet) {
  const TimeAnalysis_var analysis = NewAnalysis();
  TraceLines trace;
  EXPECT_EQ(WriteIn({GetParam().item}, analysis), S_OK);
  EXPECT_EQ(AttributesOf(*analysis), GetParam().attributes);
  EXPECT_THAT(trace.Take(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AttributeValueTest,
    testing::Values(AttributeRow{"Text", "AttributeData:name:8:New STM - STD", {"V_Name='New STM - STD'"}},
                    AttributeRow{"EmptyText", "AttributeData:wdstart:8:", {"WDStart=''"}},
                    AttributeRow{"Blank", "AttributeData:code:8: ", {"Code=' '"}},
                    AttributeRow{"NumberStaysAText", "AttributeData:name:3:007", {"V_Name='007'"}},
                    AttributeRow{"EndsAtItsFirstColon", "AttributeData:name:8:A:B", {"V_Name='A'"}},
                    AttributeRow{"TimeOfDayLosesItsMinutes", "AttributeData:wdstart:8:12:30", {"WDStart='12'"}},
                    AttributeRow{"BeginsWithAColon", "AttributeData:name:8::B", {"V_Name=''"}},
                    AttributeRow{"BarOfAListStays", "AttributeData:name:8:A|B", {"V_Name='A|B'"}},
                    AttributeRow{"LineFeedStays", "AttributeData:note:8:A\nB\n", {"Note='A\nB\n'"}},
                    AttributeRow{"Umlauts", "AttributeData:name:8:Größe", {"V_Name='Größe'"}},
                    AttributeRow{
                        "UmlautsOfAnOldText", "AttributeData:name:8:Gr\xF6\xDF\x65 \x80", {"V_Name='Größe €'"}},
                    AttributeRow{"ThreeNames",
                                 "AttributeData:analysisdescription:8:X",
                                 {"V_description='X'", "AnalysisDescription='X'", "V_LongDescription='X'"}},
                    AttributeRow{"TwoNames", "AttributeData:timetype:8:TA", {"TimeType='TA'", "V_TimeType='TA'"}}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    Integers, AttributeValueTest,
    testing::Values(AttributeRow{"Integer", "AttributeData:state:3:12", {"State=12"}},
                    AttributeRow{"IntegerBelowZero", "AttributeData:state:3:-12", {"State=-12"}},
                    AttributeRow{"IntegerBehindBlanks", "AttributeData:state:3:  +7", {"State=7"}},
                    AttributeRow{"IntegerAheadOfOtherText", "AttributeData:state:3:12x", {"State=12"}},
                    AttributeRow{"WholePartOfAReal", "AttributeData:state:3:1.9", {"State=1"}},
                    AttributeRow{"NoInteger", "AttributeData:state:3:abc", {"State=0"}},
                    AttributeRow{"EmptyInteger", "AttributeData:state:3:", {"State=0"}},
                    AttributeRow{"HexadecimalIsNone", "AttributeData:state:3:0x10", {"State=0"}},
                    AttributeRow{"LeastInteger", "AttributeData:state:3:-2147483648", {"State=-2147483648"}},
                    AttributeRow{"BeyondTheGreatestInteger", "AttributeData:state:3:2147483648", {"State=-2147483648"}},
                    AttributeRow{"BeyondAllIntegers", "AttributeData:state:3:99999999999999999999", {"State=-1"}}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    Reals, AttributeValueTest,
    testing::Values(AttributeRow{"Real", "AttributeData:dbl_twpart:5:-0.036", {"TWPart=-0.036"}},
                    AttributeRow{"WholeReal", "AttributeData:dbl_twpart:5:10", {"TWPart=10.0"}},
                    AttributeRow{"RealWithExponent", "AttributeData:dbl_twpart:5:1e3", {"TWPart=1000.0"}},
                    AttributeRow{"RealWithAllItsDigits",
                                 "AttributeData:dbl_twpart:5:0.30000000000000004",
                                 {"TWPart=0.30000000000000004"}},
                    AttributeRow{"RealBehindABlank", "AttributeData:dbl_twpart:5: 2.5", {"TWPart=2.5"}},
                    AttributeRow{"RealAheadOfOtherText", "AttributeData:dbl_twpart:5:1.5 s", {"TWPart=1.5"}},
                    AttributeRow{"RealEndsAtAComma", "AttributeData:dbl_twpart:5:1,5", {"TWPart=1.0"}},
                    AttributeRow{"NoReal", "AttributeData:dbl_twpart:5:abc", {"TWPart=0.0"}},
                    AttributeRow{"EmptyReal", "AttributeData:dbl_twpart:5:", {"TWPart=0.0"}},
                    AttributeRow{"RealBelowZeroThatIsZero", "AttributeData:dbl_twpart:5:-0", {"TWPart=-0.0"}},
                    AttributeRow{"Hexadecimal", "AttributeData:dbl_twpart:5:0x1p3", {"TWPart=8.0"}},
                    AttributeRow{"RealBeyondAllReals", "AttributeData:dbl_twpart:5:1e999", {"TWPart=inf"}},
                    AttributeRow{"Infinity", "AttributeData:dbl_twpart:5:-inf", {"TWPart=-inf"}},
                    AttributeRow{"NotANumber", "AttributeData:dbl_twpart:5:nan", {"TWPart=nan"}},
                    AttributeRow{"KeyWithAPoint", "AttributeData:effectivity.begin:5:0.5", {"EffectivityBegin=0.5"}}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    Booleans, AttributeValueTest,
    testing::Values(AttributeRow{"Zero", "AttributeData:isdirty:11:0", {"IsDirty=false"}},
                    AttributeRow{"One", "AttributeData:isdirty:11:1", {"IsDirty=true"}},
                    AttributeRow{"AnyOtherInteger", "AttributeData:isdirty:11:2", {"IsDirty=true"}},
                    AttributeRow{"MinusOne", "AttributeData:isdirty:11:-1", {"IsDirty=true"}},
                    AttributeRow{"ManyTimes256", "AttributeData:isdirty:11:256", {"IsDirty=true"}},
                    AttributeRow{"EmptyBoolean", "AttributeData:isdirty:11:", {"IsDirty=false"}},
                    AttributeRow{"WordIsNoInteger", "AttributeData:isdirty:11:true", {"IsDirty=false"}},
                    AttributeRow{"FractionIsNoInteger", "AttributeData:isdirty:11:0.9", {"IsDirty=false"}}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    TypeOfTheItemIsNotLookedAt, AttributeValueTest,
    testing::Values(AttributeRow{"TextForAnInteger", "AttributeData:state:8:5", {"State=5"}},
                    AttributeRow{"IntegerForAReal", "AttributeData:dbl_twpart:3:1.5", {"TWPart=1.5"}},
                    AttributeRow{"RealForAText", "AttributeData:name:5:1.50", {"V_Name='1.50'"}},
                    AttributeRow{"IntegerForABoolean", "AttributeData:isdirty:3:7", {"IsDirty=true"}},
                    AttributeRow{"EmptyType", "AttributeData:state::5", {"State=5"}},
                    AttributeRow{"TypeThatIsNone", "AttributeData:state:x:5", {"State=5"}}),
    support::RowName());

TEST(AttributeValueTest, ReplacesAValueOfAnotherType) {
  const TimeAnalysis_var analysis = NewAnalysis();
  (void)analysis->SetValue("State", KORUnicodeString("text"));
  EXPECT_EQ(WriteIn({"AttributeData:state:3:5"}, analysis), S_OK);
  EXPECT_THAT(AttributesOf(*analysis), ElementsAre("State=5"));
}

// The value "1", as each type shows it.
std::string ShownOne(ValueType type) {
  switch (type) {
    case ValueType::Integer:
      return "1";
    case ValueType::Real:
      return "1.0";
    case ValueType::Boolean:
      return "true";
    default:
      return "'1'";
  }
}

TEST(AttributeValueTest, IsSetUnderEveryNameOfEveryKey) {
  for (const exchange::AttributeRow& row : exchange::AttributeTable) {
    const TimeAnalysis_var analysis = NewAnalysis();
    EXPECT_EQ(WriteIn({"AttributeData:" + std::string(row.Key) + "::1"}, analysis), S_OK);
    TextList expected;
    for (const KORUnicodeString& name : exchange::Explode("|", support::Unicode(row.Names))) {
      expected.push_back(support::Text(name) + "=" + ShownOne(row.Type));
    }
    EXPECT_THAT(AttributesOf(*analysis), testing::UnorderedElementsAreArray(expected)) << row.Key;
  }
}

// Lines

struct CellRow {
  const char* name;
  TextList items;
  long status;
  TextList lines;
};

class CellTest : public testing::TestWithParam<CellRow> {};

TEST_P(CellTest, IsWritten) {
  const TimeAnalysis_var analysis = NewAnalysis();
  TraceLines trace;
  EXPECT_EQ(WriteIn(GetParam().items, analysis), GetParam().status);
  EXPECT_EQ(LinesOf(*analysis), GetParam().lines);
  EXPECT_THAT(trace.Take(), IsEmpty());
}

const TextList Nothing;
const TextList RowWithA{"1 RowNum=1", "1 Code='A'"};

INSTANTIATE_TEST_SUITE_P(
    Columns, CellTest,
    testing::Values(
        CellRow{"ColumnOfAHeaderIsNotLookedAt", {"LineData:et_linedata:0:9:8:code", Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"ColumnOfAHeaderThatIsNoNumber", {"LineData:et_linedata:0:x:8:code", Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"HeadersCountByTheirArrival",
                {Cell(0, 1, "code"), Cell(0, 0, "state"), Cell(1, 0, "A"), Cell(1, 1, "3")},
                S_OK,
                {"1 RowNum=1", "1 Code='A'", "1 State=3"}},
        CellRow{"HeaderBehindCellsNamesTheNextColumn",
                {Header("code"), Cell(1, 0, "A"), Header("state"), Cell(1, 1, "3")},
                S_OK,
                {"1 RowNum=1", "1 Code='A'", "1 State=3"}},
        CellRow{"KeyInTwoColumns", {Header("code"), Header("code"), Cell(1, 0, "B"), Cell(1, 1, "A")}, S_OK, RowWithA},
        CellRow{"NameAndTypeAreNotLookedAt", {"LineData::0:0::code", "LineData:other table:1:0:x:A"}, S_OK, RowWithA},
        CellRow{"MoreFieldsAreNotLookedAt", {"LineData:t:0:0:8:code:state:x", "LineData:t:1:0:8:A:B"}, S_OK, RowWithA},
        CellRow{"CellAheadOfItsHeader", {Cell(1, 0, "A"), Header("code")}, E_INVALIDARG, Nothing},
        CellRow{"ColumnBehindTheHeader", {Header("code"), Cell(1, 1, "A")}, E_INVALIDARG, Nothing},
        CellRow{"ColumnFarBehindTheHeader", {Header("code"), Cell(1, 2'147'483'647, "A")}, E_INVALIDARG, Nothing},
        CellRow{"ColumnBelowZero", {Header("code"), Cell(1, -1, "A")}, E_INVALIDARG, Nothing},
        CellRow{"LeastColumn", {Header("code"), Cell("1", "-2147483648", "A")}, E_INVALIDARG, Nothing},
        CellRow{"ColumnThatIsNoNumberIs0", {Header("code"), Cell("1", "x", "A")}, S_OK, RowWithA},
        CellRow{"EmptyColumnIs0", {Header("code"), Cell("1", "", "A")}, S_OK, RowWithA},
        CellRow{
            "ColumnEndsBehindItsDigits", {Header("state"), Header("code"), Cell("1", " +1.9", "A")}, S_OK, RowWithA},
        CellRow{"ColumnBeyond32Bits", {Header("code"), Cell("1", "4294967296", "A")}, S_OK, RowWithA}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    Rows, CellTest,
    testing::Values(
        CellRow{"RowThatIsNoNumberIsTheHeader", {Cell("x", "0", "code"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"EmptyRowIsTheHeader", {Cell("", "0", "code"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"MinusZeroIsTheHeader", {Cell("-0", "0", "code"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"HexadecimalRowIsTheHeader", {Cell("0x1", "0", "code"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"RowOf33BitsIsTheHeader", {Cell("4294967296", "0", "code"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"RowEndsBehindItsDigits", {Header("code"), Cell(" +1.9", "0", "A")}, S_OK, RowWithA},
        CellRow{"RowBeyond32Bits", {Header("code"), Cell("4294967297", "0", "A")}, S_OK, RowWithA},
        CellRow{"RowBelowZero", {Header("code"), Cell(1, 0, "A"), Cell(-5, 0, "B")}, E_INVALIDARG, RowWithA},
        CellRow{"LeastRow", {Header("code"), Cell("-2147483648", "0", "B")}, E_INVALIDARG, Nothing},
        CellRow{"TwoBillion", {Header("code"), Cell(1, 0, "A"), Cell(2'000'000'000, 0, "B")}, E_INVALIDARG, RowWithA},
        CellRow{"GreatestRow", {Header("code"), Cell(2'147'483'647, 0, "B")}, E_INVALIDARG, Nothing},
        CellRow{"OnePastTheLastAppends",
                {Header("code"), Cell(1, 0, "A"), Cell(2, 0, "B")},
                S_OK,
                {"1 RowNum=1", "1 Code='A'", "2 RowNum=2", "2 Code='B'"}},
        CellRow{"TwoPastTheLast", {Header("code"), Cell(1, 0, "A"), Cell(3, 0, "B")}, E_INVALIDARG, RowWithA},
        CellRow{"SecondRowAheadOfTheFirst", {Header("code"), Cell(2, 0, "B"), Cell(1, 0, "A")}, S_OK, RowWithA},
        CellRow{"RowOfATableThatWent", {Header("code"), Cell(2, 0, "A")}, E_INVALIDARG, Nothing},
        CellRow{"CellsOfRowsInTurn",
                {Header("code"), Header("state"), Cell(1, 0, "A"), Cell(2, 0, "B"), Cell(1, 1, "3"), Cell(2, 1, "4")},
                S_OK,
                {"1 RowNum=1", "1 Code='A'", "1 State=3", "2 RowNum=2", "2 Code='B'", "2 State=4"}},
        CellRow{"LaterCellHolds", {Header("code"), Cell(1, 0, "B"), Cell(1, 0, "A")}, S_OK, RowWithA}),
    support::RowName());

const TextList FiveHeaders{Header("standardtextflag"), Header("state"), Header("factor"), Header("code"),
                           Header("rowno")};

CellRow ValueRow(const char* name, int column, const std::string& value, const TextList& lines) {
  return {name, Joined(FiveHeaders, {Cell(1, column, value)}), S_OK, lines};
}

INSTANTIATE_TEST_SUITE_P(
    Values, CellTest,
    testing::Values(ValueRow("FlagOfAnIntegerItem", 0, "1", {"1 IsStandardTextFlag=true", "1 RowNum=1"}),
                    ValueRow("Flag2", 0, "2", {"1 IsStandardTextFlag=true", "1 RowNum=1"}),
                    ValueRow("FlagThatIsNone", 0, "yes", {"1 IsStandardTextFlag=false", "1 RowNum=1"}),
                    ValueRow("Integer", 1, "-7", {"1 RowNum=1", "1 State=-7"}),
                    ValueRow("IntegerThatIsNone", 1, "x", {"1 RowNum=1", "1 State=0"}),
                    ValueRow("Real", 2, "1.5", {"1 RowNum=1", "1 Factor=1.5"}),
                    ValueRow("NoValueMarker", 2, "-0.036", {"1 RowNum=1", "1 Factor=-0.036"}),
                    ValueRow("RealThatIsNone", 2, "", {"1 RowNum=1", "1 Factor=0.0"}),
                    ValueRow("RealEndsAtAComma", 2, "1,5", {"1 RowNum=1", "1 Factor=1.0"}),
                    ValueRow("TextOfOneBlank", 3, " ", {"1 RowNum=1", "1 Code=' '"}),
                    ValueRow("TextEndsAtItsFirstColon", 3, "12:30", {"1 RowNum=1", "1 Code='12'"}),
                    ValueRow("UmlautsOfAnOldText", 3, "Ma\xDF", {"1 RowNum=1", "1 Code='Maß'"}),
                    ValueRow("RowNumberOfTheCell", 4, "9", {"1 RowNum=9"}),
                    ValueRow("RowNumberThatIsNone", 4, "x", {"1 RowNum=0"})),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(RowNumber, CellTest,
                         testing::Values(CellRow{"NextCellOfTheLineSetsItAgain",
                                                 {Header("rowno"), Header("code"), Cell(1, 0, "9"), Cell(1, 1, "A")},
                                                 S_OK,
                                                 RowWithA},
                                         CellRow{"CellOfAnotherLineDoesNot",
                                                 {Header("rowno"), Header("code"), Cell(1, 0, "9"), Cell(2, 1, "A")},
                                                 S_OK,
                                                 {"1 RowNum=9", "2 RowNum=2", "2 Code='A'"}}),
                         support::RowName());

TEST(CellTest, IsWrittenUnderEveryKeyOfALine) {
  for (const exchange::LineRow& row : exchange::LineTable) {
    if (row.Type == ValueType::Analysis) continue;
    const TimeAnalysis_var analysis = NewAnalysis();
    EXPECT_EQ(WriteIn({Header(std::string(row.Key)), Cell(1, 0, "1")}, analysis), S_OK);
    const std::string value = "1 " + std::string(row.LineKey) + "=" + ShownOne(row.Type);
    EXPECT_THAT(LinesOf(*analysis), row.Key == "rowno" ? testing::Matcher<TextList>(ElementsAre(value))
                                                       : testing::UnorderedElementsAre("1 RowNum=1", value))
        << row.Key;
  }
}

TEST(CellTest, NumbersHaveAPointInEveryLocale) {
  const TextList items{"AttributeData:dbl_twpart:5:1.5",
                       "AttributeData:dbl_trgpart:5:2,5",
                       Header("factor"),
                       Header("totaltime"),
                       Cell(1, 0, "1.5"),
                       Cell(1, 1, "2,5")};
  const auto expect_points = [&items] {
    const TimeAnalysis_var analysis = NewAnalysis();
    EXPECT_EQ(WriteIn(items, analysis), S_OK);
    EXPECT_THAT(AttributesOf(*analysis), ElementsAre("TRGPart=2.0", "TWPart=1.5"));
    EXPECT_THAT(LinesOf(*analysis), ElementsAre("1 RowNum=1", "1 Factor=1.5", "1 TotalTime=2.0"));
  };
  {
    const formulatest::ScopedLocale point("C");
    ASSERT_TRUE(point.IsInForce("."));
    expect_points();
  }
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce());
  expect_points();
}

// Reuse

class ReuseCellTest : public testing::Test {
 protected:
  TimeAnalysis_var Create(const char* identifier) { return KORModel::Current().CreateTimeAnalysis(identifier); }

  // Writes a line with these identifiers under "subanalysis", one after the other.
  long WriteReuse(const TextList& identifiers) {
    TextList items{Header("subanalysis"), Header("code")};
    for (const std::string& identifier : identifiers) items.push_back(Cell(1, 0, identifier));
    return WriteIn(items, Analysis);
  }

  KORBaseUnknown_var Reused() {
    return support::ReadLine<KORBaseUnknown_var>(*Analysis, 1, "TimeAnalysis").value_or(NULL_var);
  }

  KORFreshSession Session;
  TraceLines Trace;
  TimeAnalysis_var Analysis = NewAnalysis();
};

TEST_F(ReuseCellTest, HoldsTheAnalysisOfThatIdentifier) {
  const TimeAnalysis_var grasp = Create("Grasp");
  EXPECT_EQ(WriteReuse({"Grasp"}), S_OK);
  EXPECT_EQ(Reused(), grasp);
  EXPECT_THAT(LinesOf(*Analysis), ElementsAre("1 RowNum=1", "1 TimeAnalysis=<Grasp>"));
}

TEST_F(ReuseCellTest, TakesTheFirstOfSeveral) {
  const TimeAnalysis_var first = Create("Grasp");
  const TimeAnalysis_var second = Create("Grasp");
  EXPECT_EQ(WriteReuse({"Grasp"}), S_OK);
  EXPECT_EQ(Reused(), first);
}

TEST_F(ReuseCellTest, FindsAnIdentifierOfAnOldText) {
  const TimeAnalysis_var grasp = Create("Prüfen");
  EXPECT_EQ(WriteReuse({"Pr\xFC"
                        "fen"}),
            S_OK);
  EXPECT_EQ(Reused(), grasp);
}

TEST_F(ReuseCellTest, MayReuseItself) {
  Analysis = Create("Circle");
  EXPECT_EQ(WriteReuse({"Circle"}), S_OK);
  EXPECT_EQ(Reused(), Analysis);
}

TEST_F(ReuseCellTest, KeepsOneReferenceForTheLine) {
  const TimeAnalysis_var grasp = Create("Grasp");
  const unsigned long before = grasp->AddRef();
  EXPECT_EQ(WriteReuse({"Grasp", "Grasp", "Grasp"}), S_OK);
  (void)Analysis->RemoveAllLines();
  EXPECT_EQ(grasp->Release() + 1, before);
  EXPECT_EQ(WriteReuse({"Grasp"}), S_OK);
  EXPECT_EQ(grasp->AddRef(), before + 1);
  (void)grasp->Release();
}

TEST_F(ReuseCellTest, StaysAsItWasWithoutAWordIfThereIsNone) {
  EXPECT_EQ(WriteReuse({"Grasp"}), S_OK);
  EXPECT_THAT(LinesOf(*Analysis), ElementsAre("1 RowNum=1"));
  const TimeAnalysis_var grasp = Create("Grasp");
  EXPECT_EQ(WriteReuse({"Grasp", "Gras", "", "grasp", "Grasp "}), S_OK);
  EXPECT_EQ(Reused(), grasp);
  EXPECT_THAT(Trace.Take(), IsEmpty());
}

TEST_F(ReuseCellTest, StaysAsItWasIfTheSearchFails) {
  const TimeAnalysis_var grasp = Create("Grasp");
  Session.InjectFault("GetElementByIdentificationSet", E_FAIL);
  EXPECT_EQ(WriteReuse({"Grasp"}), S_OK);
  EXPECT_THAT(LinesOf(*Analysis), ElementsAre("1 RowNum=1"));
}

TEST_F(ReuseCellTest, StaysWhileOtherCellsOfTheLineAreWritten) {
  const TimeAnalysis_var grasp = Create("Grasp");
  EXPECT_EQ(WriteIn({Header("subanalysis"), Header("code"), Cell(1, 0, "Grasp"), Cell(1, 1, "G1A")}, Analysis), S_OK);
  EXPECT_THAT(LinesOf(*Analysis), ElementsAre("1 RowNum=1", "1 Code='G1A'", "1 TimeAnalysis=<Grasp>"));
}

TEST_F(ReuseCellTest, IsRefusedForARowThatTheTableDoesNotHave) {
  const TimeAnalysis_var grasp = Create("Grasp");
  EXPECT_EQ(WriteIn({Header("subanalysis"), Cell(2, 0, "Grasp")}, Analysis), E_INVALIDARG);
  EXPECT_THAT(LinesOf(*Analysis), IsEmpty());
}

}  // namespace
