// The list of the group files of a motion-time system.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/CatalogueFilesTest.h"

namespace {

using support::CatalogueFilesTest;
using support::ListOf;
using support::Text;
using support::Texts;

TEST_F(CatalogueFilesTest, GroupFilesLieInTheFolderOfTheSettingItself) {
  SetCardFolder("plant/Karten");
  const std::string expected = WriteGroupFile("plant/Karten/dcg_std.xml", "STD", "Cards");
  WriteGroupFile("plant/DataCard/dcg_std.xml", "STD", "Sibling");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Paths), std::vector<std::string>{expected});
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{"Cards"});
  EXPECT_EQ(Text(_Services.GetSubsystem()), "STD");
}

TEST_F(CatalogueFilesTest, GroupFilesDoNotFallBackToTheStartupPath) {
  SetCardFolder("plant/DataCard");
  WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Cards");
  EXPECT_EQ(List("STD"), E_FAIL);
  EXPECT_EQ(_Paths.Size(), 0);
  EXPECT_EQ(_Names.Size(), 0);
}

TEST_F(CatalogueFilesTest, GroupFilesWithoutRepositoryComeFromTheStartupPath) {
  const std::string expected = WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Cards");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Paths), std::vector<std::string>{expected});
}

TEST_F(CatalogueFilesTest, FolderThatIsMissingGivesTheStatusOfTheListing) {
  EXPECT_EQ(List("STD"), E_FAIL);
  EXPECT_EQ(_Paths.Size(), 0);
}

TEST_F(CatalogueFilesTest, FolderThatIsAFileGivesTheStatusOfTheListing) {
  SetCardFolder("plant/DataCard");
  _Folder.Write("plant/DataCard", "no folder");
  EXPECT_EQ(List("STD"), E_FAIL);
}

TEST_F(CatalogueFilesTest, EmptyFolderListsNothingAndSucceeds) {
  _Folder.MakeFolder("installed/DataCard");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(_Paths.Size(), 0);
}

TEST_F(CatalogueFilesTest, ListingThatFailsHandsItsStatusUp) {
  WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Cards");
  _Session.InjectFault("KORListDirectory", E_INVALIDARG);
  _Paths.Append("old");
  KORListValKORUnicodeString names = ListOf({"old"});
  EXPECT_EQ(_Services.GetDCGsList("MTM2", _Paths, names), E_INVALIDARG);
  EXPECT_EQ(_Paths.Size(), 0);
  EXPECT_EQ(Texts(names), std::vector<std::string>{"old"});
  EXPECT_EQ(Text(_Services.GetSubsystem()), "MTM2");
}

TEST_F(CatalogueFilesTest, FilesOfOtherSystemsAreLeftOutWithoutReport) {
  WriteGroupFile("installed/DataCard/dcg_mtm1.xml", "MOST", "Cards");
  EXPECT_EQ(List("MTM1"), S_OK);
  EXPECT_EQ(_Paths.Size(), 0);
  EXPECT_EQ(_Names.Size(), 0);
  KORListValKORUnicodeString list;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), E_FAIL);
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(list), E_FAIL);
}

TEST_F(CatalogueFilesTest, SystemsAreComparedExactly) {
  WriteGroupFile("installed/DataCard/a.xml", "std", "Lower case");
  WriteGroupFile("installed/DataCard/b.xml", " STD", "Blank");
  WriteGroupFile("installed/DataCard/c.xml", "STD", "Exact");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{"Exact"});
}

TEST_F(CatalogueFilesTest, FilesOfOneSystemAreListedInTheOrderOfTheirNames) {
  const std::string third = WriteGroupFile("installed/DataCard/b.xml", "STD", "Third");
  const std::string first = WriteGroupFile("installed/DataCard/B.xml", "STD", "First");
  WriteGroupFile("installed/DataCard/a1.xml", "UAS", "Another");
  const std::string second = WriteGroupFile("installed/DataCard/a.xml", "STD", "Second");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Paths), (std::vector<std::string>{first, second, third}));
  EXPECT_EQ(Texts(_Names), (std::vector<std::string>{"First", "Second", "Third"}));
}

TEST_F(CatalogueFilesTest, PathsAreEmptiedAndNamesAreAppended) {
  const std::string path = WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Third");
  KORListValKORUnicodeString paths = ListOf({"old path"});
  KORListValKORUnicodeString names = ListOf({"First", "Second"});
  EXPECT_EQ(_Services.GetDCGsList("STD", paths, names), S_OK);
  EXPECT_EQ(Texts(paths), std::vector<std::string>{path});
  EXPECT_EQ(Texts(names), (std::vector<std::string>{"First", "Second", "Third"}));
}

struct FileNameRow {
  const char* name;
  const char* file;
  bool listed;
};

class GroupFileNameTest : public CatalogueFilesTest, public testing::WithParamInterface<FileNameRow> {};

TEST_P(GroupFileNameTest, DecidesWhetherTheFileIsRead) {
  WriteGroupFile(std::string("installed/DataCard/") + GetParam().file, "STD", "Cards");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(_Paths.Size(), GetParam().listed ? 1 : 0);
}

// A name counts that holds ".xml" anywhere, in lower case.
INSTANTIATE_TEST_SUITE_P(
    Names, GroupFileNameTest,
    testing::Values(FileNameRow{"Plain", "cards.xml", true}, FileNameRow{"OldCopy", "cards.xml.old", true},
                    FileNameRow{"EndingAlone", ".xml", true}, FileNameRow{"Capitals", "cards.XML", false},
                    FileNameRow{"NoDot", "cardsxml", false}, FileNameRow{"OtherEnding", "cards.txt", false},
                    FileNameRow{"BlankInTheName", "my cards.xml", true}),
    [](const auto& row) { return std::string(row.param.name); });

struct GroupRow {
  const char* name;
  const char* content;
  std::vector<std::string> names;
};

class GroupContentTest : public CatalogueFilesTest, public testing::WithParamInterface<GroupRow> {};

TEST_P(GroupContentTest, GivesTheDisplayName) {
  _Folder.Write("installed/DataCard/cards.xml", GetParam().content);
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), GetParam().names);
  EXPECT_EQ(_Paths.Size(), static_cast<int>(GetParam().names.size()));
}

// The first group of the file, the first SUBSYSTEM and the first NAME anywhere below it count.
INSTANTIATE_TEST_SUITE_P(
    Contents, GroupContentTest,
    testing::Values(
        GroupRow{"NestedDeeper",
                 "<R><A><DATACARDGROUP><B><SUBSYSTEM>STD</SUBSYSTEM></B><C><NAME>N</NAME></C></DATACARDGROUP></A></R>",
                 {"N"}},
        GroupRow{"FirstNameCounts",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME><NAME>B</NAME></DATACARDGROUP></R>",
                 {"A"}},
        GroupRow{"FirstSystemCounts",
                 "<R><DATACARDGROUP><SUBSYSTEM>UAS</SUBSYSTEM><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME>"
                 "</DATACARDGROUP></R>",
                 {}},
        GroupRow{"FirstGroupCounts",
                 "<R><DATACARDGROUP><SUBSYSTEM>UAS</SUBSYSTEM><NAME>A</NAME></DATACARDGROUP>"
                 "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>B</NAME></DATACARDGROUP></R>",
                 {}},
        GroupRow{"EmptyNameIsAName", "<R><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME/></DATACARDGROUP></R>", {""}},
        GroupRow{"EmptySystemIsNoSystem", "<R><DATACARDGROUP><SUBSYSTEM/><NAME>A</NAME></DATACARDGROUP></R>", {}},
        GroupRow{"NameAheadOfSystem",
                 "<R><DATACARDGROUP><NAME>A</NAME><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP></R>",
                 {"A"}},
        GroupRow{"NameOutsideTheGroupDoesNotCount",
                 "<R><NAME>A</NAME><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP></R>",
                 {}},
        GroupRow{"AttributesAreNotRead", "<R><DATACARDGROUP SUBSYSTEM=\"STD\"><NAME>A</NAME></DATACARDGROUP></R>", {}},
        GroupRow{"RootThatIsTheGroupIsNotBelowItself",
                 "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME></DATACARDGROUP>",
                 {}},
        GroupRow{"FirstChildOnly",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD<X/>no</SUBSYSTEM><NAME>A<X/>B</NAME></DATACARDGROUP></R>",
                 {"A"}},
        GroupRow{"OtherLetters",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>\xC3\x9C"
                 "bung</NAME></DATACARDGROUP></R>",
                 {"\xC3\x9C"
                  "bung"}}),
    [](const auto& row) { return std::string(row.param.name); });

struct RecorderRow {
  const char* name;
  KORRecord::Mode mode;
  bool variable_is_set;
  const char* variable_value;
  bool run_has_folder;
  const char* expected_folder;
};

class RecordedGroupFilesTest : public CatalogueFilesTest, public testing::WithParamInterface<RecorderRow> {};

TEST_P(RecordedGroupFilesTest, ComeFromTheRightFolder) {
  const RecorderRow& row = GetParam();
  SetCardFolder("plant/DataCard");
  WriteGroupFile("plant/DataCard/dcg_std.xml", "STD", "plant");
  WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "installed");
  StartRecorder(row.mode);
  if (row.variable_is_set) _Session.SetEnvironment("VEX_TVS_TEST_TABLE_DC", row.variable_value);
  if (row.run_has_folder) WriteGroupFile("runs/run1/DataCard/dcg_std.xml", "STD", "runs/run1");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{row.expected_folder});
  EXPECT_EQ(Texts(_Paths),
            std::vector<std::string>{_Folder.Path(std::string(row.expected_folder) + "/DataCard/dcg_std.xml")});
}

// Which folder serves the group files: the setting counts at rest only.
INSTANTIATE_TEST_SUITE_P(
    SettingPlantStartupInstalled, RecordedGroupFilesTest,
    testing::Values(RecorderRow{"AtRestTheVariableDoesNotCount", KORRecord::Mode::Rest, true, "1", true, "plant"},
                    RecorderRow{"CaptureWithoutTheVariable", KORRecord::Mode::Capture, false, "", true, "installed"},
                    RecorderRow{"ReplayWithoutTheVariable", KORRecord::Mode::Replay, false, "", true, "installed"},
                    RecorderRow{"CaptureWithTheVariable", KORRecord::Mode::Capture, true, "1", true, "runs/run1"},
                    RecorderRow{"ReplayWithTheVariableSetToNothing", KORRecord::Mode::Replay, true, "", true,
                                "runs/run1"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, MissingRecordedRunKeepsTheStartupFolderForGroupFiles) {
  WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "installed");
  StartRecorder(KORRecord::Mode::Replay);
  _Session.SetEnvironment("VEX_TVS_TEST_TABLE_DC", "1");
  _Session.SetEnvironment("RecDir", "another run");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{"installed"});
}

TEST_F(CatalogueFilesTest, RecordedRunWithoutCardFolderListsNothing) {
  WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "installed");
  StartRecorder(KORRecord::Mode::Replay);
  _Session.SetEnvironment("VEX_TVS_TEST_TABLE_DC", "1");
  EXPECT_EQ(List("STD"), E_FAIL);
  EXPECT_EQ(_Paths.Size(), 0);
}

}  // namespace
