// The entry table of a system, the counts of a data card file, and what copies of a service object share.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Container;
using support::Element;
using support::Elements;
using support::ListOf;
using support::OptionElement;
using support::Text;
using support::Texts;
using support::Unicode;

// The fields of a record as plain texts.
struct Record {
  std::string code_id = {};
  std::string code = {};
  std::string text = {};
  std::string local_text = {};
  std::string value_added = {};
  std::string frequency = {};
  std::string time = {};
  std::string par1_start = {};
  std::string par1_end = {};
  std::string pattern = {};
  std::string time_type = {};
  std::string option_par_id = {};
  std::string option_time = {};
  std::string option_id = {};

  friend bool operator==(const Record&, const Record&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Record& record) {
    for (const std::string* field :
         {&record.code_id, &record.code, &record.text, &record.local_text, &record.value_added, &record.frequency,
          &record.time, &record.par1_start, &record.par1_end, &record.pattern, &record.time_type, &record.option_par_id,
          &record.option_time, &record.option_id}) {
      out << '[' << *field << ']';
    }
    return out;
  }
};

Record RecordOf(const VEXSTMDataCardEntriesScan& scan) {
  return {.code_id = Text(scan._CodeID),
          .code = Text(scan._Code),
          .text = Text(scan._Text),
          .local_text = Text(scan._LocalText),
          .value_added = Text(scan._ValueAdded),
          .frequency = Text(scan._Frequency),
          .time = Text(scan._Time),
          .par1_start = Text(scan._Par1Start),
          .par1_end = Text(scan._Par1End),
          .pattern = Text(scan._Pattern),
          .time_type = Text(scan._TimeType),
          .option_par_id = Text(scan._OptionParID),
          .option_time = Text(scan._OptionTime),
          .option_id = Text(scan._OptionID)};
}

class EntryReaderTest : public support::ServiceTest {
 protected:
  long Read(const std::string& path) { return _Services.ReadDCEntriesFromFile(Unicode(path)); }

  std::string WriteEntries(const std::string& name, int count) {
    std::string entries;
    for (int entry = 1; entry <= count; ++entry) {
      entries += support::EntryElement({{"CODE_ID", std::to_string(entry)}, {"CODE", "C" + std::to_string(entry)}});
    }
    return _Folder.Write(name, support::DataCardFile(entries));
  }

  VEXSTMTimeAnalysisDlgServices _Services;
};

// ------------------------------------------------------------------------------------------------------ One entry

struct EntryRow {
  const char* name;
  std::string elements;
  Record expected;
};

class EntryTest : public EntryReaderTest, public testing::WithParamInterface<EntryRow> {};

TEST_P(EntryTest, BecomesARecordAndLeavesItsNeighboursAlone) {
  const std::string neighbour = support::EntryElement({{"CODE_ID", "9"}, {"CODE", "N"}, {"TIME", "1"}});
  const std::string entry = Container("DATACARDENTRY", GetParam().elements);
  ASSERT_EQ(Read(_Folder.Write("table.xml", support::DataCardFile(neighbour + entry + neighbour))), S_OK);
  ASSERT_EQ(_Services.GetDCEntriesCount(), 3);
  const Record expected_neighbour = {.code_id = "9", .code = "N", .time = "1"};
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(0)), expected_neighbour);
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(1)), GetParam().expected);
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(2)), expected_neighbour);
}

std::string Head() {
  return Elements({{"CODE_ID", "1"}, {"CODE", "A"}});
}

INSTANTIATE_TEST_SUITE_P(
    Texts, EntryTest,
    testing::Values(
        // A made-up code with a number and one option.
        EntryRow{"AllFieldsWithoutPattern",
                 Elements({{"CODE_ID", "4711"},
                           {"CODE", "GR"},
                           {"TEXT", "#Grasp small part"},
                           {"LOCALTEXT", "#Kleinteil greifen"},
                           {"VALUEADDED", "VA"},
                           {"FREQUENCY", "1"},
                           {"TIME", "2*$1$"},
                           {"PAR_1_START", "1"},
                           {"PAR_1_END", "80"},
                           {"TIMETYPE", "TTB"}}) +
                     OptionElement({{"PAR_ID", "2"}, {"TIME", "+3"}, {"OPTION_ID", "4"}}),
                 {.code_id = "4711",
                  .code = "GR",
                  .text = "Grasp small part",
                  .local_text = "Kleinteil greifen",
                  .value_added = "VA",
                  .frequency = "1",
                  .time = "2*$1$",
                  .par1_start = "1",
                  .par1_end = "80",
                  .time_type = "TTB",
                  .option_par_id = "2",
                  .option_time = "+3",
                  .option_id = "4"}},
        EntryRow{"HeadAlone", Head(), {.code_id = "1", .code = "A"}},
        EntryRow{
            "HashesAtTheHead", Head() + Element("TEXT", "###Grasp"), {.code_id = "1", .code = "A", .text = "Grasp"}},
        EntryRow{"HashInTheMiddle",
                 Head() + Element("TEXT", "Grasp #2#"),
                 {.code_id = "1", .code = "A", .text = "Grasp #2#"}},
        EntryRow{"HashesAlone", Head() + Element("TEXT", "##"), {.code_id = "1", .code = "A"}},
        EntryRow{
            "HashBehindABlank", Head() + Element("TEXT", " #Grasp"), {.code_id = "1", .code = "A", .text = " #Grasp"}},
        EntryRow{"BlanksStay",
                 Head() + Element("TEXT", "  two words "),
                 {.code_id = "1", .code = "A", .text = "  two words "}},
        EntryRow{"LineBreaksStay",
                 Head() + Element("TEXT", "one\ntwo\n"),
                 {.code_id = "1", .code = "A", .text = "one\ntwo\n"}},
        EntryRow{"HashesOfTheOtherTexts",
                 Head() + Elements({{"LOCALTEXT", "#L#"}, {"VALUEADDED", "##V"}}),
                 {.code_id = "1", .code = "A", .local_text = "L#", .value_added = "V"}},
        EntryRow{"HashesOfOtherFieldsStay",
                 Head() + Elements({{"FREQUENCY", "#1"}, {"TIME", "#2"}, {"TIMETYPE", "#3"}}),
                 {.code_id = "1", .code = "A", .frequency = "#1", .time = "#2", .time_type = "#3"}},
        EntryRow{"LaterElementOverwrites",
                 Head() + Elements({{"TIME", "1"}, {"TIME", "2"}, {"CODE", "B"}}),
                 {.code_id = "1", .code = "B", .time = "2"}},
        EntryRow{"LaterEmptyElementOverwrites",
                 Head() + Elements({{"TEXT", "t"},
                                    {"TEXT", ""},
                                    {"LOCALTEXT", "l"},
                                    {"LOCALTEXT", ""},
                                    {"VALUEADDED", "v"},
                                    {"VALUEADDED", ""},
                                    {"FREQUENCY", "1"},
                                    {"FREQUENCY", ""},
                                    {"TIME", "2"},
                                    {"TIME", ""},
                                    {"PAR_1_START", "3"},
                                    {"PAR_1_START", ""},
                                    {"PAR_1_END", "4"},
                                    {"PAR_1_END", ""}}),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"EmptyTimeTypeDoesNotOverwrite",
                 Head() + Elements({{"TIMETYPE", "TTB"}, {"TIMETYPE", ""}}),
                 {.code_id = "1", .code = "A", .time_type = "TTB"}},
        EntryRow{"UnknownElementsArePassedOver",
                 Head() + "<NOTE>x</NOTE>\n  text <TIME>1</TIME><!-- comment -->",
                 {.code_id = "1", .code = "A", .time = "1"}},
        EntryRow{"AttributesAreNotRead",
                 "<CODE_ID id=\"7\">1</CODE_ID><CODE TIME=\"3\">A</CODE>",
                 {.code_id = "1", .code = "A"}},
        EntryRow{"NamesAreComparedExactly",
                 Head() + Elements({{"Time", "1"}, {"TEXTS", "x"}}),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"DeeperNestingIsNotLookedAt", Head() + "<GROUP><TIME>1</TIME></GROUP>", {.code_id = "1", .code = "A"}},
        EntryRow{"NumbersStayTexts",
                 Head() + Elements({{"FREQUENCY", "1,50"}, {"PAR_1_START", "x"}}),
                 {.code_id = "1", .code = "A", .frequency = "1,50", .par1_start = "x"}},
        EntryRow{"EscapedCharacters",
                 Head() + Element("TEXT", "a<b & c>d"),
                 {.code_id = "1", .code = "A", .text = "a<b & c>d"}},
        EntryRow{"OtherLetters",
                 Head() + Element("LOCALTEXT",
                                  "Hebel dr\xC3\xBC"
                                  "cken"),
                 {.code_id = "1",
                  .code = "A",
                  .local_text = "Hebel dr\xC3\xBC"
                                "cken"}},
        EntryRow{"EntityOfTheFile", Head() + "<TEXT>a&#65;b</TEXT>", {.code_id = "1", .code = "A", .text = "aAb"}},
        EntryRow{
            "FirstChildOnly", Head() + "<TEXT>one<B>two</B>three</TEXT>", {.code_id = "1", .code = "A", .text = "one"}},
        EntryRow{"FirstChildIsAnElement", Head() + "<TEXT><B>two</B>three</TEXT>", {.code_id = "1", .code = "A"}},
        EntryRow{"SectionAsFirstChild",
                 Head() + "<TEXT><![CDATA[<raw>]]></TEXT>",
                 {.code_id = "1", .code = "A", .text = "<raw>"}},
        EntryRow{"BlankAheadOfASection",
                 Head() + "<TEXT> <![CDATA[<raw>]]></TEXT>",
                 {.code_id = "1", .code = "A", .text = " "}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Identifiers, EntryTest,
    testing::Values(
        EntryRow{"NothingAtAll", "", {}}, EntryRow{"NoKnownElement", "<LABEL>x</LABEL>", {}},
        EntryRow{"NoIdentifier", Elements({{"CODE", "A"}, {"TIME", "1"}}), {}},
        EntryRow{
            "EmptyCodeAheadOfTheIdentifierIsPassedOver", Elements({{"CODE", ""}, {"CODE_ID", "1"}}), {.code_id = "1"}},
        EntryRow{"EmptyIdentifier", Elements({{"CODE_ID", ""}, {"CODE", "A"}, {"TIME", "1"}}), {}},
        EntryRow{"EmptyCodeEndsTheEntry", Elements({{"CODE_ID", "1"}, {"CODE", ""}, {"TIME", "1"}}), {.code_id = "1"}},
        EntryRow{"SecondEmptyCodeEndsTheEntry",
                 Head() + Elements({{"CODE", ""}, {"TIME", "1"}}),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"ElementsAheadOfTheIdentifierArePassedOver",
                 Elements({{"TEXT", "x"}, {"TIME", "1"}}) + Head(),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"SecondIdentifierOpensAFreshRecord",
                 Elements({{"CODE_ID", "1"}, {"CODE", "A"}, {"TIME", "1"}, {"CODE_ID", "2"}, {"TEXT", "x"}}),
                 {.code_id = "2", .text = "x"}},
        EntryRow{"SecondEmptyIdentifierLosesTheFields",
                 Elements({{"CODE_ID", "1"}, {"CODE", "A"}, {"CODE_ID", ""}, {"CODE", "B"}}),
                 {}},
        EntryRow{"NoCode", Elements({{"CODE_ID", "1"}, {"TIME", "5"}}), {.code_id = "1", .time = "5"}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Patterns, EntryTest,
    testing::Values(
        EntryRow{"PairWithEmptySecondPiece",
                 Head() + Elements({{"PATTERN", "\"A\"%"}, {"PATTERN1", ""}}),
                 {.code_id = "1", .code = "A", .pattern = "\"A\"%"}},
        EntryRow{"PairIsJoined",
                 Head() + Elements({{"PATTERN", "\"A\""}, {"PATTERN1", "%"}}),
                 {.code_id = "1", .code = "A", .pattern = "\"A\"%"}},
        EntryRow{"LineFeedsAtTheJoint",
                 Head() + Elements({{"PATTERN", "\"A\"\n\n"}, {"PATTERN1", "\n%"}}),
                 {.code_id = "1", .code = "A", .pattern = "\"A\"%"}},
        EntryRow{"LineFeedsEverywhere",
                 Head() + Elements({{"PATTERN", "\n\"A\"\n%\n"}, {"PATTERN1", "\n%\n%\n"}}),
                 {.code_id = "1", .code = "A", .pattern = "\"A\"%%%"}},
        EntryRow{"LineFeedsStayWithAnEmptySecondPiece",
                 Head() + Elements({{"PATTERN", "\n\"A\"\n"}, {"PATTERN1", ""}}),
                 {.code_id = "1", .code = "A", .pattern = "\n\"A\"\n"}},
        EntryRow{"BlanksStay",
                 Head() + Elements({{"PATTERN", " \"A\" "}, {"PATTERN1", " % "}}),
                 {.code_id = "1", .code = "A", .pattern = " \"A\"  % "}},
        EntryRow{"EmptyFirstPiece",
                 Head() + Elements({{"PATTERN", ""}, {"PATTERN1", "%"}}),
                 {.code_id = "1", .code = "A", .pattern = "%"}},
        EntryRow{
            "BothPiecesEmpty", Head() + Elements({{"PATTERN", ""}, {"PATTERN1", ""}}), {.code_id = "1", .code = "A"}},
        EntryRow{"SecondPieceOfALineFeed",
                 Head() + Elements({{"PATTERN", "%\n"}, {"PATTERN1", "\n"}}),
                 {.code_id = "1", .code = "A", .pattern = "%"}},
        EntryRow{"NoSecondPieceLosesWhatFollows",
                 Head() + Elements({{"PATTERN", "%"}, {"TIME", "1"}, {"TEXT", "x"}}),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"WhatLiesBetweenIsLost",
                 Head() + Elements({{"PATTERN", "%"}, {"TIMETYPE", "TTB"}, {"PATTERN1", ""}, {"TIME", "1"}}),
                 {.code_id = "1", .code = "A", .time = "1", .pattern = "%"}},
        EntryRow{"SecondPieceAheadIsPassedOver",
                 Head() + Elements({{"PATTERN1", "x"}, {"TIME", "1"}}),
                 {.code_id = "1", .code = "A", .time = "1"}},
        EntryRow{"SecondPairOverwrites",
                 Head() + Elements({{"PATTERN", "%"}, {"PATTERN1", ""}, {"PATTERN", "$"}, {"PATTERN1", ""}}),
                 {.code_id = "1", .code = "A", .pattern = "$"}},
        EntryRow{"SecondPatternWithoutPairKeepsTheFirst",
                 Head() + Elements({{"PATTERN", "%"}, {"PATTERN1", ""}, {"PATTERN", "$"}, {"TIME", "1"}}),
                 {.code_id = "1", .code = "A", .pattern = "%"}},
        EntryRow{"PatternInsteadOfThePairIsSkipped",
                 Head() + Elements({{"PATTERN", "%"}, {"PATTERN", "$"}, {"PATTERN1", "%"}}),
                 {.code_id = "1", .code = "A", .pattern = "%%"}},
        EntryRow{"PairAheadOfTheIdentifierIsPassedOver",
                 Elements({{"PATTERN", "%"}, {"PATTERN1", ""}}) + Head(),
                 {.code_id = "1", .code = "A"}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Options, EntryTest,
    testing::Values(
        EntryRow{"LastValuesOfTwoOptions",
                 Head() + OptionElement({{"PAR_ID", "2"}, {"TIME", "+3"}, {"OPTION_ID", "4"}}) +
                     OptionElement({{"TIME", "+5"}}),
                 {.code_id = "1", .code = "A", .option_par_id = "2", .option_time = "+5", .option_id = "4"}},
        EntryRow{"EmptyElementsDoNotOverwrite",
                 Head() + OptionElement({{"PAR_ID", "2"}, {"TIME", "+3"}, {"OPTION_ID", "4"}}) +
                     OptionElement({{"PAR_ID", ""}, {"TIME", ""}, {"OPTION_ID", ""}}),
                 {.code_id = "1", .code = "A", .option_par_id = "2", .option_time = "+3", .option_id = "4"}},
        EntryRow{"TimeOfTheOptionIsNotThatOfTheCode",
                 Head() + Element("TIME", "1") + OptionElement({{"TIME", "+3"}}),
                 {.code_id = "1", .code = "A", .time = "1", .option_time = "+3"}},
        EntryRow{"OrderAndUnknownElementsDoNotCount",
                 Head() + OptionElement({{"OPTION_ID", "4"}, {"NAME", "x"}, {"PAR_ID", "2"}}),
                 {.code_id = "1", .code = "A", .option_par_id = "2", .option_id = "4"}},
        EntryRow{"EmptyOption", Head() + "<OPTION/>", {.code_id = "1", .code = "A"}},
        EntryRow{"OptionFieldsOutsideAnOption",
                 Head() + Elements({{"PAR_ID", "2"}, {"OPTION_ID", "4"}}),
                 {.code_id = "1", .code = "A"}},
        EntryRow{"OptionAheadOfTheIdentifierIsPassedOver",
                 OptionElement({{"PAR_ID", "2"}}) + Head(),
                 {.code_id = "1", .code = "A"}}),
    [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------------- The whole file

TEST_F(EntryReaderTest, NothingIsLoadedAtTheStart) {
  EXPECT_EQ(_Services.GetDCEntriesCount(), 0);
  EXPECT_EQ(_Services.GetDCEntry(0), nullptr);
  EXPECT_EQ(_Services.GetCodeIndex(), -1);
}

TEST_F(EntryReaderTest, FirstReadLoadsAndLaterReadsLookAtNoFile) {
  const std::string good = WriteEntries("good.xml", 3);
  const std::string other = WriteEntries("other.xml", 5);
  EXPECT_EQ(Read(good), S_OK);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 3);
  for (const std::string& path : {_Folder.Path("missing.xml"), other, good}) {
    EXPECT_EQ(Read(path), E_FAIL) << path;
    ASSERT_EQ(_Services.GetDCEntriesCount(), 3) << path;
    EXPECT_EQ(Text(_Services.GetDCEntry(2)->_Code), "C3") << path;
  }
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), E_FAIL);
}

TEST_F(EntryReaderTest, RecordsOutsideTheTableAreNull) {
  Read(WriteEntries("good.xml", 2));
  EXPECT_EQ(_Services.GetDCEntry(-1), nullptr);
  EXPECT_NE(_Services.GetDCEntry(1), nullptr);
  EXPECT_EQ(_Services.GetDCEntry(2), nullptr);
}

TEST_F(EntryReaderTest, FailedReadChangesNothingAndAGoodOneMayFollow) {
  EXPECT_EQ(Read(_Folder.Path("missing.xml")), E_FAIL);
  EXPECT_EQ(Read(_Folder.Write("broken.xml", "<R><DATACARDENTRY>")), E_FAIL);
  EXPECT_EQ(Read(_Folder.MakeFolder("folder.xml")), E_FAIL);
  EXPECT_EQ(Read(""), E_FAIL);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 0);
  EXPECT_EQ(Read(WriteEntries("good.xml", 1)), S_OK);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 1);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  EXPECT_EQ(messages.Size(), 3);
}

TEST_F(EntryReaderTest, FileWithoutEntriesIsLoadedEmpty) {
  EXPECT_EQ(Read(_Folder.Write("empty.xml", "<R/>")), S_OK);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 0);
  EXPECT_EQ(_Services.GetDCEntry(0), nullptr);
  EXPECT_EQ(Read(WriteEntries("good.xml", 1)), E_FAIL);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 0);
}

TEST_F(EntryReaderTest, EntriesAnywhereBelowTheRootCountInDocumentOrder) {
  const std::string text =
      "<R><G><DATACARDENTRY><CODE_ID>1</CODE_ID><CODE>A</CODE>"
      "<DATACARDENTRY><CODE_ID>2</CODE_ID><CODE>B</CODE></DATACARDENTRY><TIME>5</TIME></DATACARDENTRY></G>"
      "<DATACARDENTRY><CODE_ID>3</CODE_ID><CODE>C</CODE></DATACARDENTRY></R>";
  EXPECT_EQ(Read(_Folder.Write("nested.xml", text)), S_OK);
  ASSERT_EQ(_Services.GetDCEntriesCount(), 3);
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(0)), (Record{.code_id = "1", .code = "A", .time = "5"}));
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(1)), (Record{.code_id = "2", .code = "B"}));
  EXPECT_EQ(RecordOf(*_Services.GetDCEntry(2)), (Record{.code_id = "3", .code = "C"}));
}

TEST_F(EntryReaderTest, RootThatIsAnEntryIsNotBelowItself) {
  EXPECT_EQ(Read(_Folder.Write("root.xml", "<DATACARDENTRY><CODE_ID>1</CODE_ID></DATACARDENTRY>")), S_OK);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 0);
}

TEST_F(EntryReaderTest, ReadingDoesNotSetTheSystem) {
  support::Select(_Services, "MOST");
  Read(WriteEntries("dce_mtm1.xml", 1));
  EXPECT_EQ(Text(_Services.GetSubsystem()), "MOST");
}

TEST_F(EntryReaderTest, LongTextsAreKeptWhole) {
  const std::string long_text(1000000, 'x');
  EXPECT_EQ(Read(_Folder.Write("long.xml",
                               support::DataCardFile(Container("DATACARDENTRY", Head() + Element("TEXT", long_text))))),
            S_OK);
  ASSERT_EQ(_Services.GetDCEntriesCount(), 1);
  EXPECT_EQ(Text(_Services.GetDCEntry(0)->_Text), long_text);
}

// ------------------------------------------------------------------------------------------------------------ Copies

TEST_F(EntryReaderTest, CopiesShareTheTableAndOutliveEachOther) {
  auto original = std::make_unique<VEXSTMTimeAnalysisDlgServices>();
  support::Select(*original, "STD");
  ASSERT_EQ(original->ReadDCEntriesFromFile(Unicode(WriteEntries("good.xml", 3))), S_OK);
  VEXSTMTimeAnalysisDlgServices copy(*original);
  VEXSTMTimeAnalysisDlgServices assigned;
  assigned = copy;
  {
    const VEXSTMTimeAnalysisDlgServices short_lived(copy);
    EXPECT_EQ(short_lived.GetDCEntry(0), original->GetDCEntry(0));
  }
  original.reset();
  for (VEXSTMTimeAnalysisDlgServices* services : {&copy, &assigned}) {
    ASSERT_EQ(services->GetDCEntriesCount(), 3);
    EXPECT_EQ(Text(services->GetDCEntry(2)->_Code), "C3");
    EXPECT_EQ(Text(services->GetSubsystem()), "STD");
    EXPECT_EQ(services->ReadDCEntriesFromFile(Unicode(_Folder.Path("missing.xml"))), E_FAIL);
    EXPECT_EQ(services->GetDCEntriesCount(), 3);
  }
}

TEST_F(EntryReaderTest, CopyMadeBeforeTheReadGetsATableOfItsOwn) {
  VEXSTMTimeAnalysisDlgServices copy(_Services);
  EXPECT_EQ(Read(WriteEntries("three.xml", 3)), S_OK);
  EXPECT_EQ(copy.GetDCEntriesCount(), 0);
  EXPECT_EQ(copy.ReadDCEntriesFromFile(Unicode(WriteEntries("five.xml", 5))), S_OK);
  EXPECT_EQ(copy.GetDCEntriesCount(), 5);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 3);
}

TEST_F(EntryReaderTest, AssignmentReplacesTheTable) {
  Read(WriteEntries("three.xml", 3));
  VEXSTMTimeAnalysisDlgServices other;
  other.ReadDCEntriesFromFile(Unicode(WriteEntries("five.xml", 5)));
  other = _Services;
  EXPECT_EQ(other.GetDCEntriesCount(), 3);
  VEXSTMTimeAnalysisDlgServices& same = other;
  other = same;
  EXPECT_EQ(other.GetDCEntriesCount(), 3);
  other = VEXSTMTimeAnalysisDlgServices();
  EXPECT_EQ(other.GetDCEntriesCount(), 0);
  EXPECT_EQ(_Services.GetDCEntriesCount(), 3);
}

TEST_F(EntryReaderTest, NoMissingFieldsAtTheStart) {
  KORListValKORUnicodeString names = ListOf({"before"});
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(names), E_FAIL);
  EXPECT_EQ(Texts(names), std::vector<std::string>{"before"});
}

}  // namespace
