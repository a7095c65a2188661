// A list of items fills an analysis: which items count, what a walk over them leaves behind, and its status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exchange/DefaultStream.h"
#include "exchange/ItemText.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"

namespace {

using exchangetest::AttributesOf;
using exchangetest::Cell;
using exchangetest::Header;
using exchangetest::LineCount;
using exchangetest::LinesOf;
using exchangetest::OldAnalysis;
using exchangetest::TextList;
using exchangetest::TraceLines;
using exchangetest::WriteIn;
using support::TimeAnalysis_var;
using support::Unicode;
using testing::ElementsAre;
using testing::IsEmpty;

// One walk

struct WalkRow {
  const char* name;
  TextList items;
  long status;
  TextList trace;
  TextList attributes;
  TextList lines;
};

class WalkTest : public testing::TestWithParam<WalkRow> {};

TEST_P(WalkTest, GivesStatusTraceAndContent) {
  const TimeAnalysis_var analysis = OldAnalysis();
  TraceLines trace;
  EXPECT_EQ(WriteIn(GetParam().items, analysis), GetParam().status);
  EXPECT_EQ(trace.Take(), GetParam().trace);
  EXPECT_EQ(AttributesOf(*analysis), GetParam().attributes);
  EXPECT_EQ(LinesOf(*analysis), GetParam().lines);
}

const TextList Old{"Note='old'"};
const TextList OldLine{"1 Code='OLD'"};

INSTANTIATE_TEST_SUITE_P(
    ItemsThatCount, WalkTest,
    testing::Values(
        WalkRow{"EmptyListFails", {}, E_FAIL, {}, Old, OldLine},
        WalkRow{"OtherItemsArePassedOver", {"Save", "New STM - STD", "STD", ""}, E_FAIL, {}, Old, OldLine},
        WalkRow{"KindsAreToldApartByWholeNames",
                {"linedata:t:0:0:8:code", "LineData :t:0:0:8:code", " LineData:t:0:0:8:code", "LineDataX:t:1:0:8:A",
                 "attributedata:name:8:A", "AttributeData :name:8:A", ":AttributeData:name:8:A"},
                E_FAIL,
                {},
                Old,
                OldLine},
        WalkRow{"OtherItemsAmongOthers",
                {"Save", "AttributeData:name:8:A", "STD"},
                S_OK,
                {},
                {"V_Name='A'", "Note='old'"},
                OldLine},
        WalkRow{"AttributesLeaveTheLines", {"AttributeData:state:3:2"}, S_OK, {}, {"State=2", "Note='old'"}, OldLine},
        WalkRow{"LinesLeaveTheAttributes",
                {Header("code"), Cell(1, 0, "NEW")},
                S_OK,
                {},
                Old,
                {"1 RowNum=1", "1 Code='NEW'"}},
        WalkRow{"LaterItemOfAKeyHolds",
                {"AttributeData:note:8:A", "AttributeData:note:8:B"},
                S_OK,
                {},
                {"Note='B'"},
                OldLine}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(
    LinesGo, WalkTest,
    testing::Values(WalkRow{"WithAHeaderAlone", {Header("code")}, E_FAIL, {}, Old, {}},
                    WalkRow{"WithAnItemThatIsTooShort", {"LineData"}, E_INVALIDARG, {}, Old, {}},
                    WalkRow{"WithACellThatIsPassedOver", {Cell(1, 0, "NEW")}, E_INVALIDARG, {}, Old, {}},
                    WalkRow{"WithACellAtTheEndOfTheList",
                            {"AttributeData:name:8:A", "Save", Header("code"), Cell(1, 0, "NEW")},
                            S_OK,
                            {},
                            {"V_Name='A'", "Note='old'"},
                            {"1 RowNum=1", "1 Code='NEW'"}},
                    WalkRow{"OnceNotWithEachCell",
                            {Header("code"), Cell(1, 0, "A"), Header("state"), Cell(2, 1, "3")},
                            S_OK,
                            {},
                            Old,
                            {"1 RowNum=1", "1 Code='A'", "2 RowNum=2", "2 State=3"}}),
    support::RowName());

INSTANTIATE_TEST_SUITE_P(LastStatusHolds, WalkTest,
                         testing::Values(WalkRow{"UnknownAttributeThenAKnownOne",
                                                 {"AttributeData:nome:8:A", "AttributeData:name:8:A"},
                                                 S_OK,
                                                 {"Failed to map attribute <nome>"},
                                                 {"V_Name='A'", "Note='old'"},
                                                 OldLine},
                                         WalkRow{"KnownAttributeThenAnUnknownOne",
                                                 {"AttributeData:name:8:A", "AttributeData:nome:8:A"},
                                                 E_INVALIDARG,
                                                 {"Failed to map attribute <nome>"},
                                                 {"V_Name='A'", "Note='old'"},
                                                 OldLine},
                                         WalkRow{"HeaderAtTheEndBehindASuccess",
                                                 {"AttributeData:name:8:A", Header("code")},
                                                 S_OK,
                                                 {},
                                                 {"V_Name='A'", "Note='old'"},
                                                 {}},
                                         WalkRow{"HeaderAtTheEndBehindAFailure",
                                                 {"AttributeData:nome:8:A", Header("code")},
                                                 E_INVALIDARG,
                                                 {"Failed to map attribute <nome>"},
                                                 Old,
                                                 {}},
                                         WalkRow{"OtherItemAtTheEnd",
                                                 {"AttributeData:nome:8:A", "Save"},
                                                 E_INVALIDARG,
                                                 {"Failed to map attribute <nome>"},
                                                 Old,
                                                 OldLine},
                                         WalkRow{"RefusedRowThenAStoredOne",
                                                 {Header("code"), Cell(3, 0, "C"), Cell(1, 0, "A")},
                                                 S_OK,
                                                 {},
                                                 Old,
                                                 {"1 RowNum=1", "1 Code='A'"}},
                                         WalkRow{"StoredRowThenARefusedOne",
                                                 {Header("code"), Cell(1, 0, "A"), Cell(3, 0, "C")},
                                                 E_INVALIDARG,
                                                 {},
                                                 Old,
                                                 {"1 RowNum=1", "1 Code='A'"}},
                                         WalkRow{"CellThenAnAttribute",
                                                 {Header("code"), Cell(3, 0, "C"), "AttributeData:name:8:A"},
                                                 S_OK,
                                                 {},
                                                 {"V_Name='A'", "Note='old'"},
                                                 {}}),
                         support::RowName());

INSTANTIATE_TEST_SUITE_P(
    KeysOfNoExchange, WalkTest,
    testing::Values(
        WalkRow{"AttributeByItsNameOnTheAnalysis",
                {"AttributeData:V_Name:8:A"},
                E_INVALIDARG,
                {"Failed to map attribute <V_Name>"},
                Old,
                OldLine},
        WalkRow{"AttributeInCapitals",
                {"AttributeData:NAME:8:A"},
                E_INVALIDARG,
                {"Failed to map attribute <NAME>"},
                Old,
                OldLine},
        WalkRow{"EmptyAttribute", {"AttributeData::8:A"}, E_INVALIDARG, {"Failed to map attribute <>"}, Old, OldLine},
        WalkRow{"AttributeBeyondAscii",
                {"AttributeData:Größe:8:A"},
                E_INVALIDARG,
                {"Failed to map attribute <Größe>"},
                Old,
                OldLine},
        WalkRow{"KeyOfALineOnTheAnalysis",
                {"AttributeData:rowno:3:1"},
                E_INVALIDARG,
                {"Failed to map attribute <rowno>"},
                Old,
                OldLine},
        WalkRow{"KeyOfTheAnalysisInALine",
                {Header("name"), Cell(1, 0, "A")},
                E_INVALIDARG,
                {"Failed to map line attribute <name>"},
                Old,
                {}},
        WalkRow{"LineKeyInCapitals",
                {Header("Code"), Cell(1, 0, "A")},
                E_INVALIDARG,
                {"Failed to map line attribute <Code>"},
                Old,
                {}},
        WalkRow{
            "EmptyLineKey", {Header(""), Cell(1, 0, "A")}, E_INVALIDARG, {"Failed to map line attribute <>"}, Old, {}},
        WalkRow{"HeaderThatNoCellUses",
                {Header("codex"), Header("code"), Cell(1, 1, "A")},
                S_OK,
                {},
                Old,
                {"1 RowNum=1", "1 Code='A'"}},
        WalkRow{"EachCellIsTold",
                {Header("codex"), Cell(1, 0, "A"), Cell(2, 0, "B")},
                E_INVALIDARG,
                {"Failed to map line attribute <codex>", "Failed to map line attribute <codex>"},
                Old,
                {}},
        WalkRow{"OtherCellsOfTheLineAreWritten",
                {Header("code"), Header("codex"), Cell(1, 0, "A"), Cell(1, 1, "B")},
                E_INVALIDARG,
                {"Failed to map line attribute <codex>"},
                Old,
                {"1 RowNum=1", "1 Code='A'"}}),
    support::RowName());

// An item with fewer fields than its form is passed over with E_INVALIDARG, without a word.
INSTANTIATE_TEST_SUITE_P(
    TooFewFields, WalkTest,
    testing::Values(
        WalkRow{"AttributeOfOneField", {"AttributeData"}, E_INVALIDARG, {}, Old, OldLine},
        WalkRow{"AttributeOfTwoFields", {"AttributeData:note"}, E_INVALIDARG, {}, Old, OldLine},
        WalkRow{"AttributeOfThreeFields", {"AttributeData:note:8"}, E_INVALIDARG, {}, Old, OldLine},
        WalkRow{"UnknownAttributeOfThreeFields", {"AttributeData:nome:8"}, E_INVALIDARG, {}, Old, OldLine},
        WalkRow{"AttributeWithAnEmptyValueIsWhole", {"AttributeData:note:8:"}, S_OK, {}, {"Note=''"}, OldLine},
        WalkRow{"CellOfOneField", {Header("code"), "LineData"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"CellOfTwoFields", {Header("code"), "LineData:et_linedata"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"CellOfThreeFields", {Header("code"), "LineData:et_linedata:1"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"CellOfFourFields", {Header("code"), "LineData:et_linedata:1:0"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"CellOfFiveFields", {Header("code"), "LineData:et_linedata:1:0:8"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"UnknownKeyOfFiveFields", {Header("codex"), "LineData:et_linedata:1:0:8"}, E_INVALIDARG, {}, Old, {}},
        WalkRow{"CellWithAnEmptyValueIsWhole",
                {Header("code"), "LineData:et_linedata:1:0:8:"},
                S_OK,
                {},
                Old,
                {"1 RowNum=1", "1 Code=''"}},
        WalkRow{"HeaderOfFiveFieldsNamesNoColumn",
                {"LineData:et_linedata:0:0:8", Header("code"), Cell(1, 0, "A")},
                S_OK,
                {},
                Old,
                {"1 RowNum=1", "1 Code='A'"}},
        WalkRow{"WalkGoesOn",
                {Header("code"), "LineData:et_linedata:1", Cell(1, 0, "A")},
                S_OK,
                {},
                Old,
                {"1 RowNum=1", "1 Code='A'"}}),
    support::RowName());

TEST(WriteInTest, NeverChangesTheList) {
  const TextList items{"Save", "AttributeData:name:8:A:B", Header("code"), Cell(1, 0, "C:D"), "LineData", ""};
  KORListValKORUnicodeString list = support::ListOf(items);
  (void)VEXTADataIO::SetAnalysisData("", list, OldAnalysis()->GetImpl(0));
  EXPECT_EQ(support::Texts(list), items);
}

// The default stream

class DefaultStreamWrittenInTest : public testing::Test {
 protected:
  DefaultStreamWrittenInTest() {
    KORListValKORUnicodeString items = exchange::Explode("|", exchange::DefaultStream());
    Status = VEXTADataIO::SetAnalysisData("", items, Analysis->GetImpl(0));
  }

  TextList LineOf(int row) const {
    VEXTimeAnalysisLineData line;
    (void)Analysis->GetLine(row, line);
    return exchangetest::Shown("", line.GetContent().Values);
  }

  TraceLines Trace;
  TimeAnalysis_var Analysis = OldAnalysis();
  long Status = E_FAIL;
};

TEST_F(DefaultStreamWrittenInTest, GivesTenLinesWithoutAWord) {
  EXPECT_EQ(Status, S_OK);
  EXPECT_EQ(LineCount(*Analysis), 10);
  EXPECT_THAT(Trace.Take(), IsEmpty());
}

TEST_F(DefaultStreamWrittenInTest, SetsEveryNameOfItsAttributes) {
  EXPECT_THAT(AttributesOf(*Analysis),
              testing::UnorderedElementsAre(
                  "V_Name='New STM - STD'", "V_description='New Operation 3'", "V_LongDescription='New Operation 3'",
                  "AnalysisDescription='New Operation 3'", "AnalysisDescription2=''", "Code='New STM - STD'",
                  "V_TimeType='TA'", "TimeType='TA'", "V_AnalysisType='P'", "AnalysisType='P'", "V_Subsystem='STD'",
                  "Subsystem='STD'", "TimeUnit='UA_TIME_TMU'", "BasicTimeUnit='UA_TIME_TMU'", "WDStart=''", "WDEnd=''",
                  "WDLimitation=''", "WDInclude=''", "WDText=''", "TTBCalculated=2.952", "TTUCalculated=1.800000036",
                  "TWCalculated=3.6", "TRGCalculated=11.99999988", "TotalCalculated=8.352000036", "TAQuantity=10.0",
                  "TAPartsSimultan=2.0", "Note='old'"));
}

TEST_F(DefaultStreamWrittenInTest, StoresCellsByTheTypeOfTheirKeyAndTimesAsTheyCame) {
  EXPECT_THAT(LineOf(1),
              ElementsAre("IsStandardTextFlag=true", "RowNum=1", "Description='Get'", "Code='ALE05'", "TimeType='TTB'",
                          "AnalysisType=' '", "Factor=1.0", "AddDescription=''", "TotalTime=0.288", "TotalCalc=-0.036",
                          "TTBTime=0.288", "TTUTime=-0.036", "TRGTime=-0.036", "TWTime=-0.036"));
  EXPECT_THAT(LineOf(9), ElementsAre("IsStandardTextFlag=true", "RowNum=9", "Description='Process Setup Time'",
                                     "Code='PTRHMIN2'", "TimeType='TRG'", "AnalysisType=' '", "Factor=10.0",
                                     "AddDescription=''", "TotalTime=1.199999988", "TotalCalc=0.0", "TTBTime=-0.036",
                                     "TTUTime=-0.036", "TRGTime=1.199999988", "TWTime=-0.036"));
}

// Many items

constexpr int Million = 1'000'000;

KORListValKORUnicodeString Repeated(const KORUnicodeString& item) {
  KORListValKORUnicodeString items;
  for (int count = 0; count < Million; ++count) items.Append(item);
  return items;
}

TEST(WriteInLengthTest, TakesAMillionCells) {
  const std::vector<const char*> keys{
      "code",  "analysisdescription", "timetype", "totaltime", "factor", "state", "ttbtime", "ttutime", "trgtime",
      "twtime"};
  KORListValKORUnicodeString items;
  for (const char* const key : keys) items.Append(Unicode(Header(key)));
  for (int row = 1; items.Size() < Million; ++row) {
    for (int column = 0; column < static_cast<int>(keys.size()); ++column)
      items.Append(Unicode(Cell(row, column, "7")));
  }
  const TimeAnalysis_var analysis = OldAnalysis();
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0)), S_OK);
  ASSERT_EQ(LineCount(*analysis), 99'999);
  EXPECT_EQ(support::TextOfLine(*analysis, 99'999, "Code"), "7");
  EXPECT_EQ(support::RealOfLine(*analysis, 99'999, "TWTime"), 7.0);
}

TEST(WriteInLengthTest, TakesAMillionCellsOfOneLine) {
  KORListValKORUnicodeString items = Repeated(Unicode(Cell(1, 0, "A")));
  items[1] = Unicode(Header("code"));
  const TimeAnalysis_var analysis = OldAnalysis();
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0)), S_OK);
  EXPECT_THAT(LinesOf(*analysis), ElementsAre("1 RowNum=1", "1 Code='A'"));
}

TEST(WriteInLengthTest, TakesAMillionHeaders) {
  KORListValKORUnicodeString items = Repeated(Unicode(Header("code")));
  items.Append(Unicode(Cell(1, Million - 1, "last")));
  items.Append(Unicode(Cell(1, Million, "beyond")));
  const TimeAnalysis_var analysis = OldAnalysis();
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0)), E_INVALIDARG);
  EXPECT_THAT(LinesOf(*analysis), ElementsAre("1 RowNum=1", "1 Code='last'"));
}

TEST(WriteInLengthTest, TakesAMillionAttributesAndAMillionOtherItems) {
  const TimeAnalysis_var analysis = OldAnalysis();
  KORListValKORUnicodeString attributes = Repeated("AttributeData:analysisdescription:8:X");
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", attributes, analysis->GetImpl(0)), S_OK);
  KORListValKORUnicodeString others = Repeated("Save");
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", others, analysis->GetImpl(0)), E_FAIL);
}

TEST(WriteInLengthTest, TakesAValueOfAMillionCharacters) {
  const std::string text(Million, 'x');
  const TimeAnalysis_var analysis = OldAnalysis();
  EXPECT_EQ(WriteIn({"AttributeData:note:8:" + text, Header("code"), Cell(1, 0, text)}, analysis), S_OK);
  EXPECT_EQ(support::Read<KORUnicodeString>(*analysis, "Note"), Unicode(text));
  EXPECT_EQ(support::TextOfLine(*analysis, 1, "Code"), text);
}

}  // namespace
