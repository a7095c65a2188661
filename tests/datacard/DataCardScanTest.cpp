// The codes of a data card file as one flat array, and the copying of scan records.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Element;
using support::Elements;
using support::ListOf;
using support::Text;
using support::Texts;
using support::Unicode;

// The fields of a record as plain values.
struct CardCode {
  std::string code = {};
  std::string label = {};
  std::string sub_label = {};
  std::string frame_title = {};
  std::string range = {};
  int tab = 0;
  int frame = 0;
  int row = 0;
  int column = 0;

  friend bool operator==(const CardCode&, const CardCode&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CardCode& shown) {
    return out << '[' << shown.code << "][" << shown.label << "][" << shown.sub_label << "][" << shown.frame_title
               << "][" << shown.range << "] tab " << shown.tab << " frame " << shown.frame << " row " << shown.row
               << " column " << shown.column;
  }
};

CardCode CodeOf(const VEXSTMDataCardScan& scan) {
  return {.code = Text(scan._Code),
          .label = Text(scan._Label),
          .sub_label = Text(scan._SubLabel),
          .frame_title = Text(scan._FrameTitle),
          .range = Text(scan._Range),
          .tab = scan._Tab,
          .frame = scan._Frame,
          .row = scan._Row,
          .column = scan._Column};
}

class DataCardScanTest : public support::ServiceTest {
 protected:
  // Reads a card file of that text and scans it.
  void Scan(const std::string& inner) {
    int card_count = 0;
    int entry_count = 0;
    ASSERT_EQ(_Services.ReadDCFromFile(Unicode(_Folder.Write("dc_cards.xml", support::DataCardFile(inner))), card_count,
                                       entry_count),
              S_OK);
    _EntryCounts.assign(static_cast<std::size_t>(card_count), -1);
    VEXSTMDataCardScan* scans = nullptr;
    ASSERT_EQ(_Services.ScanDCFromFile(scans, _Descriptions, _EntryCounts.data()), S_OK);
    _Scans.reset(scans);
    ASSERT_NE(_Scans, nullptr);
  }

  // The first `count` records of the array.
  std::vector<CardCode> Codes(int count) const {
    std::vector<CardCode> codes;
    for (int index = 0; index < count; ++index) codes.push_back(CodeOf(_Scans[static_cast<std::size_t>(index)]));
    return codes;
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  std::unique_ptr<VEXSTMDataCardScan[]> _Scans;
  KORListValKORUnicodeString _Descriptions = ListOf({"old"});
  std::vector<int> _EntryCounts;
};

struct CardCodeRow {
  const char* name;
  std::string elements;
  CardCode expected;
};

class CardCodeTest : public DataCardScanTest, public testing::WithParamInterface<CardCodeRow> {};

TEST_P(CardCodeTest, IsReadFromItsElements) {
  Scan("<DATACARD><DATACARDENTRY>" + GetParam().elements + "</DATACARDENTRY></DATACARD>");
  EXPECT_EQ(_EntryCounts, std::vector<int>{1});
  EXPECT_EQ(Codes(1), std::vector<CardCode>{GetParam().expected});
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CardCodeTest,
    testing::Values(
        CardCodeRow{"AllFields",
                    Elements({{"CODE", "GR"},
                              {"LABEL", "Grasp"},
                              {"SUBLABEL", "small"},
                              {"FRAMETITLE", "Hand"},
                              {"RANGE", "1-80"},
                              {"TAB", "1"},
                              {"FRAME", "2"},
                              {"ROW", "3"},
                              {"COLUMN", "4"}}),
                    {"GR", "Grasp", "small", "Hand", "1-80", 1, 2, 3, 4}},
        CardCodeRow{"NoKnownElement", Elements({{"TIME", "1"}, {"TEXT", "x"}}), {}},
        CardCodeRow{"NothingAtAll", "", {}},
        CardCodeRow{"FirstTextStays", Elements({{"LABEL", "A"}, {"LABEL", "B"}}), {.label = "A"}},
        CardCodeRow{"EmptyTextLeavesRoom", Elements({{"LABEL", ""}, {"LABEL", "B"}, {"LABEL", "C"}}), {.label = "B"}},
        CardCodeRow{"EmptyCodeIsPassedOver",
                    Elements({{"CODE", ""}, {"LABEL", "A"}, {"CODE", "X"}, {"CODE", "Y"}}),
                    {.code = "X", .label = "A"}},
        CardCodeRow{"EachTextKeepsItsFirst",
                    Elements({{"SUBLABEL", "a"},
                              {"FRAMETITLE", "b"},
                              {"RANGE", "c"},
                              {"SUBLABEL", "x"},
                              {"FRAMETITLE", "y"},
                              {"RANGE", "z"}}),
                    {.sub_label = "a", .frame_title = "b", .range = "c"}},
        CardCodeRow{"TextsAreNotTrimmed", Elements({{"LABEL", " #A "}}), {.label = " #A "}},
        CardCodeRow{"FirstChildOnly", "<LABEL>A<X/>B</LABEL>", {.label = "A"}},
        CardCodeRow{"DeeperNestingIsNotLookedAt", "<X><LABEL>A</LABEL></X>", {}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Numbers, CardCodeTest,
    testing::Values(CardCodeRow{"ZeroLeavesRoom", Elements({{"TAB", "0"}, {"TAB", "2"}}), {.tab = 2}},
                    CardCodeRow{"FirstNumberStays", Elements({{"TAB", "2"}, {"TAB", "3"}}), {.tab = 2}},
                    CardCodeRow{"NoNumber", Elements({{"TAB", "x"}}), {}},
                    CardCodeRow{"NoNumberLeavesRoom", Elements({{"ROW", "x"}, {"ROW", "5"}}), {.row = 5}},
                    CardCodeRow{"EmptyLeavesRoom", Elements({{"COLUMN", ""}, {"COLUMN", "5"}}), {.column = 5}},
                    CardCodeRow{"NumberAheadOfText", Elements({{"FRAME", "12abc"}}), {.frame = 12}},
                    CardCodeRow{"BlanksAhead", Elements({{"FRAME", " \n 7"}}), {.frame = 7}},
                    CardCodeRow{"Negative", Elements({{"ROW", "-3"}, {"ROW", "4"}}), {.row = -3}},
                    CardCodeRow{"FractionIsCut", Elements({{"ROW", "2.9"}}), {.row = 2}},
                    CardCodeRow{"FractionBelowOneLeavesRoom", Elements({{"ROW", "0.9"}, {"ROW", "3"}}), {.row = 3}},
                    CardCodeRow{"Hexadecimal", Elements({{"TAB", "0x10"}}), {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DataCardScanTest, WithoutAFileEverythingStaysUntouched) {
  VEXSTMDataCardScan marker;
  VEXSTMDataCardScan* scans = &marker;
  int counts[1] = {-5};
  EXPECT_EQ(_Services.ScanDCFromFile(scans, _Descriptions, counts), E_FAIL);
  EXPECT_EQ(scans, &marker);
  EXPECT_EQ(Texts(_Descriptions), std::vector<std::string>{"old"});
  EXPECT_EQ(counts[0], -5);
}

TEST_F(DataCardScanTest, AfterAFailedReadEverythingStaysUntouched) {
  int card_count = 0;
  int entry_count = 0;
  EXPECT_EQ(_Services.ReadDCFromFile(Unicode(_Folder.Write("dc_broken.xml", "<R>")), card_count, entry_count), E_FAIL);
  VEXSTMDataCardScan* scans = nullptr;
  EXPECT_EQ(_Services.ScanDCFromFile(scans, _Descriptions, nullptr), E_FAIL);
  EXPECT_EQ(scans, nullptr);
  EXPECT_EQ(Texts(_Descriptions), std::vector<std::string>{"old"});
}

std::string CardEntry(const std::string& code) {
  return "<DATACARDENTRY>" + Element("CODE", code) + "</DATACARDENTRY>";
}

TEST_F(DataCardScanTest, CardsStandOneBehindTheOther) {
  Scan("<DATACARD><DESCRIPTION>First</DESCRIPTION>" + CardEntry("A") + CardEntry("B") + "</DATACARD><G><DATACARD>" +
       CardEntry("C") + "<DESCRIPTION>Second</DESCRIPTION>" + CardEntry("D") + CardEntry("E") + "</DATACARD></G>");
  EXPECT_EQ(_EntryCounts, (std::vector<int>{2, 3}));
  EXPECT_EQ(Texts(_Descriptions), (std::vector<std::string>{"First", "Second"}));
  EXPECT_EQ(Codes(5),
            (std::vector<CardCode>{{.code = "A"}, {.code = "B"}, {.code = "C"}, {.code = "D"}, {.code = "E"}}));
}

TEST_F(DataCardScanTest, CardWithoutDescriptionLetsTheLaterOnesMoveUp) {
  Scan(
      "<DATACARD><DESCRIPTION>First</DESCRIPTION></DATACARD><DATACARD/>"
      "<DATACARD><DESCRIPTION>Third</DESCRIPTION></DATACARD>");
  EXPECT_EQ(_EntryCounts, (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(Texts(_Descriptions), (std::vector<std::string>{"First", "Third"}));
}

TEST_F(DataCardScanTest, EachDescriptionWithATextCounts) {
  Scan(
      "<DATACARD><DESCRIPTION/><DESCRIPTION>A</DESCRIPTION><DESCRIPTION>B</DESCRIPTION>"
      "<X><DESCRIPTION>nested</DESCRIPTION></X></DATACARD>");
  EXPECT_EQ(Texts(_Descriptions), (std::vector<std::string>{"A", "B"}));
}

TEST_F(DataCardScanTest, NestedEntriesCountAndAreNotScanned) {
  Scan("<DATACARD><X>" + CardEntry("nested") + "</X>" + CardEntry("A") + "</DATACARD><DATACARD>" + CardEntry("B") +
       "</DATACARD>");
  EXPECT_EQ(_EntryCounts, (std::vector<int>{2, 1}));
  EXPECT_EQ(Codes(2), (std::vector<CardCode>{{.code = "A"}, {.code = "B"}}));
}

TEST_F(DataCardScanTest, CardInsideACardIsACardOfItsOwn) {
  Scan("<DATACARD>" + CardEntry("A") + "<DATACARD>" + CardEntry("B") + "</DATACARD></DATACARD>");
  EXPECT_EQ(_EntryCounts, (std::vector<int>{2, 1}));
  EXPECT_EQ(Codes(2), (std::vector<CardCode>{{.code = "A"}, {.code = "B"}}));
}

TEST_F(DataCardScanTest, EntriesOutsideTheCardsAreNotScanned) {
  Scan(CardEntry("outside") + "<DATACARD>" + CardEntry("A") + "</DATACARD>");
  EXPECT_EQ(_EntryCounts, std::vector<int>{1});
  EXPECT_EQ(Codes(1), (std::vector<CardCode>{{.code = "A"}}));
}

TEST_F(DataCardScanTest, FileWithoutCardsGivesAnArrayOfNothing) {
  Scan("");
  EXPECT_EQ(_Descriptions.Size(), 0);
}

TEST_F(DataCardScanTest, SecondScanGivesTheSameInANewArray) {
  Scan("<DATACARD><DESCRIPTION>First</DESCRIPTION>" + CardEntry("A") + CardEntry("B") + "</DATACARD>");
  VEXSTMDataCardScan* scans = nullptr;
  KORListValKORUnicodeString descriptions;
  int counts[1] = {-1};
  ASSERT_EQ(_Services.ScanDCFromFile(scans, descriptions, counts), S_OK);
  const std::unique_ptr<VEXSTMDataCardScan[]> second(scans);
  EXPECT_NE(second.get(), _Scans.get());
  EXPECT_EQ(CodeOf(second[0]), CodeOf(_Scans[0]));
  EXPECT_EQ(CodeOf(second[1]), CodeOf(_Scans[1]));
  EXPECT_EQ(Texts(descriptions), Texts(_Descriptions));
  EXPECT_EQ(counts[0], 2);
}

TEST_F(DataCardScanTest, CountsMayBeLeftOut) {
  Scan("<DATACARD>" + CardEntry("A") + "</DATACARD>");
  VEXSTMDataCardScan* scans = nullptr;
  EXPECT_EQ(_Services.ScanDCFromFile(scans, _Descriptions, nullptr), S_OK);
  const std::unique_ptr<VEXSTMDataCardScan[]> owned(scans);
  EXPECT_EQ(Text(owned[0]._Code), "A");
}

TEST_F(DataCardScanTest, CopyScansTheFileOfItsOriginal) {
  auto original = std::make_unique<VEXSTMTimeAnalysisDlgServices>();
  int card_count = 0;
  int entry_count = 0;
  const std::string path = _Folder.Write("dc_a.xml", "<R><DATACARD>" + CardEntry("A") + "</DATACARD></R>");
  ASSERT_EQ(original->ReadDCFromFile(Unicode(path), card_count, entry_count), S_OK);
  VEXSTMTimeAnalysisDlgServices copy(*original);
  original.reset();
  VEXSTMDataCardScan* scans = nullptr;
  ASSERT_EQ(copy.ScanDCFromFile(scans, _Descriptions, nullptr), S_OK);
  const std::unique_ptr<VEXSTMDataCardScan[]> owned(scans);
  EXPECT_EQ(Text(owned[0]._Code), "A");
}

// --------------------------------------------------------------------------------------------------- Copies of records

TEST(DataCardRecordsTest, AreConstructedEmpty) {
  EXPECT_EQ(CodeOf(VEXSTMDataCardScan()), CardCode());
  const VEXSTMDataCardCodeScan token;
  EXPECT_EQ(token._Type, 0);
  EXPECT_EQ(Text(token._Text), "");
  EXPECT_EQ(token._IntValue, 0);
  EXPECT_EQ(token._RealValue, 0.0);
  EXPECT_EQ(token._Min, 0);
  EXPECT_EQ(token._Max, 0);
  EXPECT_EQ(token._Matched, 0);
}

TEST(CopyDataCardScansTest, NullAndMissingSourcesLeaveTheirElements) {
  VEXSTMDataCardScan first, third;
  first._Code = "A";
  first._Label = "L";
  first._SubLabel = "S";
  first._FrameTitle = "F";
  first._Range = "R";
  first._Tab = 1;
  first._Frame = 2;
  first._Row = 3;
  first._Column = 4;
  third._Code = "C";
  KORRawCollPV sources;
  sources.Append(&first);
  sources.Append(nullptr);
  sources.Append(&third);
  VEXSTMDataCardScan target[4];
  target[1]._Code = "stays";
  target[3]._Code = "stays too";
  const VEXSTMTimeAnalysisDlgServices services;
  services.CopyDataCardScans(target, sources, 4);
  EXPECT_EQ(CodeOf(target[0]), CodeOf(first));
  EXPECT_EQ(Text(target[1]._Code), "stays");
  EXPECT_EQ(Text(target[2]._Code), "C");
  EXPECT_EQ(Text(target[3]._Code), "stays too");
  first._Code = "changed";
  EXPECT_EQ(Text(target[0]._Code), "A");
}

TEST(CopyDataCardScansTest, CountEndsTheWalk) {
  VEXSTMDataCardScan source;
  source._Code = "A";
  KORRawCollPV sources;
  sources.Append(&source);
  sources.Append(&source);
  VEXSTMDataCardScan target[2];
  VEXSTMTimeAnalysisDlgServices().CopyDataCardScans(target, sources, 1);
  EXPECT_EQ(Text(target[0]._Code), "A");
  EXPECT_EQ(Text(target[1]._Code), "");
}

TEST(CopyDataCardCodeScansTest, AllFieldsAreCopied) {
  VEXSTMDataCardCodeScan source;
  source._Type = 4;
  source._Text = "12";
  source._IntValue = 12;
  source._RealValue = 1.5;
  source._Min = -3;
  source._Max = 30;
  source._Matched = 1;
  KORRawCollPV sources;
  sources.Append(nullptr);
  sources.Append(&source);
  VEXSTMDataCardCodeScan target[2];
  target[0]._Type = 8;
  VEXSTMTimeAnalysisDlgServices().CopyDataCardCodeScans(target, sources, 2);
  EXPECT_EQ(target[0]._Type, 8);
  EXPECT_EQ(target[1]._Type, 4);
  EXPECT_EQ(Text(target[1]._Text), "12");
  EXPECT_EQ(target[1]._IntValue, 12);
  EXPECT_EQ(target[1]._RealValue, 1.5);
  EXPECT_EQ(target[1]._Min, -3);
  EXPECT_EQ(target[1]._Max, 30);
  EXPECT_EQ(target[1]._Matched, 1);
}

class CopyDataCardEntriesTest : public support::ServiceTest {};

TEST_F(CopyDataCardEntriesTest, CountIsThatOfTheEntryTable) {
  VEXSTMDataCardEntriesScan source;
  for (KORUnicodeString VEXSTMDataCardEntriesScan::*field :
       {&VEXSTMDataCardEntriesScan::_CodeID, &VEXSTMDataCardEntriesScan::_Code, &VEXSTMDataCardEntriesScan::_Text,
        &VEXSTMDataCardEntriesScan::_Frequency, &VEXSTMDataCardEntriesScan::_Time,
        &VEXSTMDataCardEntriesScan::_Par1Start, &VEXSTMDataCardEntriesScan::_Par1End,
        &VEXSTMDataCardEntriesScan::_Pattern, &VEXSTMDataCardEntriesScan::_TimeType,
        &VEXSTMDataCardEntriesScan::_OptionParID, &VEXSTMDataCardEntriesScan::_OptionTime,
        &VEXSTMDataCardEntriesScan::_OptionID, &VEXSTMDataCardEntriesScan::_LocalText,
        &VEXSTMDataCardEntriesScan::_ValueAdded}) {
    source.*field = "given";
    VEXSTMTimeAnalysisDlgServices services;
    Load(services, "STD", support::DataCardFile("<DATACARDENTRY/><DATACARDENTRY/>"));
    KORRawCollPV sources;
    sources.Append(nullptr);
    sources.Append(&source);
    sources.Append(&source);
    VEXSTMDataCardEntriesScan target[3];
    services.CopyDataCardEntriesScans(target, sources);
    EXPECT_EQ(Text(target[0].*field), "");
    EXPECT_EQ(Text(target[1].*field), "given");
    EXPECT_EQ(Text(target[2].*field), "");
  }
}

TEST_F(CopyDataCardEntriesTest, WithoutATableNothingIsCopied) {
  VEXSTMDataCardEntriesScan source;
  source._Code = "A";
  KORRawCollPV sources;
  sources.Append(&source);
  VEXSTMDataCardEntriesScan target[1];
  VEXSTMTimeAnalysisDlgServices().CopyDataCardEntriesScans(target, sources);
  EXPECT_EQ(Text(target[0]._Code), "");
}

}  // namespace
