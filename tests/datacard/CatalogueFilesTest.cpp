// Where the catalogue of a motion-time system lies: the path of its entry file and the list of its group files.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/system/KORRecord.h"
#include "platform/system/KORSession.h"
#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::ListOf;
using support::Text;
using support::Texts;
using support::Unicode;

// Folders: "installed" is the one of the start-up path, "plant" the one of the setting, "runs/run1" the recorded run.
class CatalogueFilesTest : public support::ServiceTest {
 protected:
  CatalogueFilesTest() { _Session.SetEnvironment("KORStartupPath", Unicode(_Folder.MakeFolder("installed"))); }

  KORSettingRepository& Settings() { return _Session.AddRepository("VEXTimeAnalysisCommonOptions"); }

  void SetCardFolder(const std::string& folder) {
    Settings().WriteSetting("datacardpath", Unicode(_Folder.Path(folder)));
  }

  // Puts the recorded run within reach; its folder is runs/run1.
  void StartRecorder(KORRecord::Mode mode) {
    _Session.GetRecorder().SetMode(mode);
    _Session.SetEnvironment("QRN_TVS_IN", Unicode(_Folder.MakeFolder("runs")));
    _Session.SetEnvironment("RecDir", "run1");
    _Folder.MakeFolder("runs/run1");
  }

  std::string WriteEntryFile(const std::string& folder) {
    return _Folder.Write(folder + "/DataCardEntry/dce_std.xml", support::DataCardFile(""));
  }

  std::string WriteGroupFile(const std::string& name, const std::string& system, const std::string& display_name) {
    return _Folder.Write(name, support::GroupFile(system, display_name));
  }

  // Path of the entry file of "STD", from a path argument that held "before".
  std::string StandardPath() {
    KORUnicodeString path = "before";
    _Services.GetDCEXMLFilePath("STD", path);
    return Text(path);
  }

  // Lists the group files of a system into fresh lists.
  long List(const std::string& system) {
    _Paths = KORListValKORUnicodeString();
    _Names = KORListValKORUnicodeString();
    return _Services.GetDCGsList(Unicode(system), _Paths, _Names);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  KORListValKORUnicodeString _Paths;
  KORListValKORUnicodeString _Names;
};

// ------------------------------------------------------------------------------------------------- Entry file names

struct SystemRow {
  const char* name;
  const char* system;
  const char* file;
};

class EntryFileOfSystemTest : public CatalogueFilesTest, public testing::WithParamInterface<SystemRow> {};

TEST_P(EntryFileOfSystemTest, IsFoundAndTheSystemIsKeptAsGiven) {
  Settings();
  const std::string expected = _Folder.Write(std::string("installed/DataCardEntry/") + GetParam().file, "<R/>");
  KORUnicodeString path;
  _Services.GetDCEXMLFilePath(GetParam().system, path);
  EXPECT_EQ(Text(path), expected);
  EXPECT_EQ(Text(_Services.GetSubsystem()), GetParam().system);
}

// One entry file for each motion-time system; names are compared exactly, and any other name has that of "STD".
INSTANTIATE_TEST_SUITE_P(
    Systems, EntryFileOfSystemTest,
    testing::Values(SystemRow{"Std", "STD", "dce_std.xml"}, SystemRow{"Uas", "UAS", "dce_uas.xml"},
                    SystemRow{"Mek", "MEK", "dce_mek.xml"}, SystemRow{"Azb", "AZB", "dce_azb.xml"},
                    SystemRow{"Mtm1", "MTM1", "dce_mtm1.xml"}, SystemRow{"Mtm2", "MTM2", "dce_mtm2.xml"},
                    SystemRow{"Rwf", "RWF", "dce_rwf.xml"}, SystemRow{"Sam", "SAM", "dce_sam.xml"},
                    SystemRow{"Most", "MOST", "dce_most.xml"}, SystemRow{"MiniMost", "MiniMOST", "dce_minimost.xml"},
                    SystemRow{"MaxiMost", "MaxiMOST", "dce_maximost.xml"},
                    SystemRow{"Modapts", "MODAPTS", "dce_modapts.xml"}, SystemRow{"LowerCase", "mtm1", "dce_std.xml"},
                    SystemRow{"MiniMostInCapitals", "MINIMOST", "dce_std.xml"},
                    SystemRow{"Unknown", "WORKFACTOR", "dce_std.xml"}, SystemRow{"BlankBehind", "MTM1 ", "dce_std.xml"},
                    SystemRow{"NoUtf8", "\xFF\xFE", "dce_std.xml"}, SystemRow{"Empty", "", "dce_std.xml"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, SystemNameThatIsNoUtf8IsReadAsWindows1252) {
  support::Select(_Services, "\xDC");
  EXPECT_EQ(Text(_Services.GetSubsystem()), "\xC3\x9C");
}

struct OperatingSystemRow {
  const char* name;
  int code;
  char list_separator;
};

class OperatingSystemTest : public CatalogueFilesTest, public testing::WithParamInterface<OperatingSystemRow> {};

TEST_P(OperatingSystemTest, FindsTheEntryFileInTheSecondStartupFolder) {
  Settings();
  _Session.SetOperatingSystem(GetParam().code);
  _Session.SetEnvironment("KORStartupPath", Unicode(_Folder.Path("missing") + GetParam().list_separator +
                                                    _Folder.Path("installed")));
  EXPECT_EQ(StandardPath(), "");
  WriteEntryFile("installed");
  const std::string path = StandardPath();
  EXPECT_TRUE(path.starts_with(_Folder.Path("installed"))) << path;
  EXPECT_TRUE(path.ends_with("dce_std.xml")) << path;
}

// Codes 0 to 3 and 7, in their low 16 bits, are systems with "/" between folders.
INSTANTIATE_TEST_SUITE_P(
    Codes, OperatingSystemTest,
    testing::Values(OperatingSystemRow{"Zero", 0, ':'}, OperatingSystemRow{"One", 1, ':'},
                    OperatingSystemRow{"Three", 3, ':'}, OperatingSystemRow{"Four", 4, ';'},
                    OperatingSystemRow{"Six", 6, ';'}, OperatingSystemRow{"Seven", 7, ':'},
                    OperatingSystemRow{"Eight", 8, ';'}, OperatingSystemRow{"SevenWithHighBits", 0x10007, ':'},
                    OperatingSystemRow{"FourWithHighBits", 0x30004, ';'}),
    [](const auto& row) { return std::string(row.param.name); });

// ----------------------------------------------------------------------------------------------- Entry file folders

TEST_F(CatalogueFilesTest, EntryFileWithoutRepositoryLeavesThePathAlone) {
  WriteEntryFile("installed");
  EXPECT_EQ(StandardPath(), "before");
  EXPECT_EQ(Text(_Services.GetSubsystem()), "STD");
}

TEST_F(CatalogueFilesTest, EntryFileLiesBesideTheFolderOfTheSetting) {
  SetCardFolder("plant/DataCard");
  WriteEntryFile("installed");
  const std::string expected = WriteEntryFile("plant");
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, SettingMayNameTheEntryFolderItself) {
  SetCardFolder("plant/DataCardEntry");
  const std::string expected = WriteEntryFile("plant");
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, SettingMayEndInASeparator) {
  SetCardFolder("plant/DataCard/");
  const std::string expected = WriteEntryFile("plant");
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, EntryFileInTheFolderOfTheSettingItselfIsNotLookedFor) {
  SetCardFolder("plant");
  WriteEntryFile("plant");
  EXPECT_EQ(StandardPath(), "");
}

TEST_F(CatalogueFilesTest, EntryFileFallsBackToTheStartupPath) {
  SetCardFolder("plant/DataCard");
  _Folder.MakeFolder("plant/DataCardEntry");
  const std::string expected = WriteEntryFile("installed");
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, EmptySettingUsesTheStartupPathForBoth) {
  Settings().WriteSetting("datacardpath", "");
  const std::string entry_file = WriteEntryFile("installed");
  const std::string group_file = WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Cards");
  EXPECT_EQ(StandardPath(), entry_file);
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Paths), std::vector<std::string>{group_file});
}

TEST_F(CatalogueFilesTest, MissingSettingUsesTheStartupPathForBoth) {
  Settings();
  const std::string entry_file = WriteEntryFile("installed");
  const std::string group_file = WriteGroupFile("installed/DataCard/dcg_std.xml", "STD", "Cards");
  EXPECT_EQ(StandardPath(), entry_file);
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Paths), std::vector<std::string>{group_file});
}

TEST_F(CatalogueFilesTest, EntryFileThatIsNowhereGivesAnEmptyPath) {
  SetCardFolder("plant/DataCard");
  EXPECT_EQ(StandardPath(), "");
}

TEST_F(CatalogueFilesTest, EntryFileWithoutStartupPathGivesAnEmptyPath) {
  Settings();
  _Session.UnsetEnvironment("KORStartupPath");
  WriteEntryFile("installed");
  EXPECT_EQ(StandardPath(), "");
}

TEST_F(CatalogueFilesTest, SettingThatCannotBeSplitFallsBackToTheStartupPath) {
  SetCardFolder("plant/DataCard");
  WriteEntryFile("plant");
  const std::string expected = WriteEntryFile("installed");
  _Session.InjectFault("KORSplitPath", E_FAIL);
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, SettingThatCannotBeReadFallsBackToTheStartupPath) {
  SetCardFolder("plant/DataCard");
  WriteEntryFile("plant");
  const std::string expected = WriteEntryFile("installed");
  _Session.InjectFault("ReadSetting", E_FAIL);
  EXPECT_EQ(StandardPath(), expected);
}

TEST_F(CatalogueFilesTest, FoldersAreSearchedAnewOnEachCall) {
  Settings();
  EXPECT_EQ(StandardPath(), "");
  const std::string installed = WriteEntryFile("installed");
  EXPECT_EQ(StandardPath(), installed);
  SetCardFolder("plant/DataCard");
  const std::string plant = WriteEntryFile("plant");
  EXPECT_EQ(StandardPath(), plant);
}

// ------------------------------------------------------------------------------------------------------- Recorder

struct RecorderRow {
  const char* name;
  KORRecord::Mode mode;
  bool variable_is_set;
  const char* variable_value;
  bool run_has_folder;
  const char* expected_folder;
};

class RecordedEntryFileTest : public CatalogueFilesTest, public testing::WithParamInterface<RecorderRow> {};

TEST_P(RecordedEntryFileTest, ComesFromTheRightFolder) {
  const RecorderRow& row = GetParam();
  SetCardFolder("plant/DataCard");
  WriteEntryFile("plant");
  WriteEntryFile("installed");
  StartRecorder(row.mode);
  if (row.variable_is_set) _Session.SetEnvironment("SHOW_LOCALTEXT", row.variable_value);
  if (row.run_has_folder) WriteEntryFile("runs/run1");
  EXPECT_EQ(StandardPath(), _Folder.Path(std::string(row.expected_folder) + "/DataCardEntry/dce_std.xml"));
}

// Which folder serves the entry file, by the recorder's state and by SHOW_LOCALTEXT.
INSTANTIATE_TEST_SUITE_P(
    SettingPlantStartupInstalled, RecordedEntryFileTest,
    testing::Values(
        RecorderRow{"AtRestTheVariableDoesNotCount", KORRecord::Mode::Rest, true, "1", true, "plant"},
        RecorderRow{"CaptureWithoutTheVariable", KORRecord::Mode::Capture, false, "", true, "plant"},
        RecorderRow{"ReplayWithoutTheVariable", KORRecord::Mode::Replay, false, "", true, "plant"},
        RecorderRow{"CaptureWithTheVariable", KORRecord::Mode::Capture, true, "1", true, "runs/run1"},
        RecorderRow{"ReplayWithTheVariable", KORRecord::Mode::Replay, true, "1", true, "runs/run1"},
        RecorderRow{"ReplayWithTheVariableSetToNothing", KORRecord::Mode::Replay, true, "", true, "runs/run1"},
        RecorderRow{"EmptyRunReplacesTheSettingToo", KORRecord::Mode::Replay, true, "1", false, "installed"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, RecordedRunThatIsMissingReplacesTheSettingToo) {
  SetCardFolder("plant/DataCard");
  WriteEntryFile("plant");
  const std::string expected = WriteEntryFile("installed");
  StartRecorder(KORRecord::Mode::Replay);
  _Session.SetEnvironment("SHOW_LOCALTEXT", "1");
  _Session.SetEnvironment("RecDir", "another run");
  EXPECT_EQ(StandardPath(), expected);
}

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
  EXPECT_EQ(Texts(_Paths), std::vector<std::string>{
                               _Folder.Path(std::string(row.expected_folder) + "/DataCard/dcg_std.xml")});
}

// Which folder serves the group files: the setting counts at rest only.
INSTANTIATE_TEST_SUITE_P(
    SettingPlantStartupInstalled, RecordedGroupFilesTest,
    testing::Values(
        RecorderRow{"AtRestTheVariableDoesNotCount", KORRecord::Mode::Rest, true, "1", true, "plant"},
        RecorderRow{"CaptureWithoutTheVariable", KORRecord::Mode::Capture, false, "", true, "installed"},
        RecorderRow{"ReplayWithoutTheVariable", KORRecord::Mode::Replay, false, "", true, "installed"},
        RecorderRow{"CaptureWithTheVariable", KORRecord::Mode::Capture, true, "1", true, "runs/run1"},
        RecorderRow{"ReplayWithTheVariableSetToNothing", KORRecord::Mode::Replay, true, "", true, "runs/run1"}),
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

// ------------------------------------------------------------------------------------------------------ Group files

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
INSTANTIATE_TEST_SUITE_P(Names, GroupFileNameTest,
                         testing::Values(FileNameRow{"Plain", "cards.xml", true},
                                         FileNameRow{"OldCopy", "cards.xml.old", true},
                                         FileNameRow{"EndingAlone", ".xml", true},
                                         FileNameRow{"Capitals", "cards.XML", false},
                                         FileNameRow{"NoDot", "cardsxml", false},
                                         FileNameRow{"OtherEnding", "cards.txt", false},
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
        GroupRow{"EmptyNameIsAName",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME/></DATACARDGROUP></R>",
                 {""}},
        GroupRow{"EmptySystemIsNoSystem",
                 "<R><DATACARDGROUP><SUBSYSTEM/><NAME>A</NAME></DATACARDGROUP></R>",
                 {}},
        GroupRow{"NameAheadOfSystem",
                 "<R><DATACARDGROUP><NAME>A</NAME><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP></R>",
                 {"A"}},
        GroupRow{"NameOutsideTheGroupDoesNotCount",
                 "<R><NAME>A</NAME><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP></R>",
                 {}},
        GroupRow{"AttributesAreNotRead",
                 "<R><DATACARDGROUP SUBSYSTEM=\"STD\"><NAME>A</NAME></DATACARDGROUP></R>",
                 {}},
        GroupRow{"RootThatIsTheGroupIsNotBelowItself",
                 "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME></DATACARDGROUP>",
                 {}},
        GroupRow{"FirstChildOnly",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD<X/>no</SUBSYSTEM><NAME>A<X/>B</NAME></DATACARDGROUP></R>",
                 {"A"}},
        GroupRow{"OtherLetters",
                 "<R><DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>\xC3\x9C" "bung</NAME></DATACARDGROUP></R>",
                 {"\xC3\x9C" "bung"}}),
    [](const auto& row) { return std::string(row.param.name); });

// ------------------------------------------------------------------------------------------------------- Reports

struct MissingFieldRow {
  const char* name;
  const char* system;
  const char* file;
  const char* group;
  bool reported;
};

class MissingFieldTest : public CatalogueFilesTest, public testing::WithParamInterface<MissingFieldRow> {};

TEST_P(MissingFieldTest, IsReportedForFilesThatClaimTheSystem) {
  _Folder.Write(std::string("installed/DataCard/") + GetParam().file, support::DataCardFile(GetParam().group));
  EXPECT_EQ(List(GetParam().system), S_OK);
  KORListValKORUnicodeString list = ListOf({"before"});
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), GetParam().reported ? S_OK : E_FAIL);
  EXPECT_EQ(Texts(list), std::vector<std::string>{GetParam().reported ? GetParam().file : "before"});
}

constexpr const char* NoName = "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP>";

// A file is reported if its name holds "dcg" and the name of the system, as given or in lower case.
INSTANTIATE_TEST_SUITE_P(
    Files, MissingFieldTest,
    testing::Values(
        MissingFieldRow{"NoName", "STD", "dcg_std.xml", NoName, true},
        MissingFieldRow{"SystemAsGiven", "STD", "dcg_STD.xml", NoName, true},
        MissingFieldRow{"SystemInMixedCase", "STD", "dcg_Std.xml", NoName, false},
        MissingFieldRow{"GroupMarkInCapitals", "STD", "DCG_std.xml", NoName, false},
        MissingFieldRow{"NoGroupMark", "STD", "std.xml", NoName, false},
        MissingFieldRow{"OtherSystemInTheName", "STD", "dcg_uas.xml", NoName, false},
        MissingFieldRow{"MarkAndSystemAnywhere", "STD", "my-std-dcg.xml", NoName, true},
        MissingFieldRow{"NameHoldsTheSystem", "MOST", "dcg_minimost.xml",
                        "<DATACARDGROUP><SUBSYSTEM>MOST</SUBSYSTEM></DATACARDGROUP>", true},
        MissingFieldRow{"NoSystem", "STD", "dcg_std.xml", "<DATACARDGROUP><NAME>A</NAME></DATACARDGROUP>", true},
        MissingFieldRow{"NoSystemAndNoNameIsReportedOnce", "STD", "dcg_std.xml", "<DATACARDGROUP/>", true},
        MissingFieldRow{"NoGroup", "STD", "dcg_std.xml", "<SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME>", true},
        MissingFieldRow{"NothingAtAll", "STD", "dcg_std.xml", "", true},
        MissingFieldRow{"NoGroupInAnotherFile", "STD", "other.xml", "", false},
        MissingFieldRow{"EmptySystemIsThere", "STD", "dcg_std.xml",
                        "<DATACARDGROUP><SUBSYSTEM/></DATACARDGROUP>", false},
        MissingFieldRow{"OtherSystemIsNoMissingField", "STD", "dcg_std.xml",
                        "<DATACARDGROUP><SUBSYSTEM>UAS</SUBSYSTEM></DATACARDGROUP>", false},
        MissingFieldRow{"EmptyNameIsThere", "STD", "dcg_std.xml",
                        "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME/></DATACARDGROUP>", false},
        MissingFieldRow{"Complete", "STD", "dcg_std.xml",
                        "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME></DATACARDGROUP>", false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, MissingFieldsAreHandedOverOnce) {
  _Folder.Write("installed/DataCard/dcg_std_a.xml", support::DataCardFile(""));
  _Folder.Write("installed/DataCard/dcg_std_b.xml", support::DataCardFile(NoName));
  List("STD");
  KORListValKORUnicodeString list;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), S_OK);
  EXPECT_EQ(Texts(list), (std::vector<std::string>{"dcg_std_a.xml", "dcg_std_b.xml"}));
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), E_FAIL);
  EXPECT_EQ(list.Size(), 2);
}

TEST_F(CatalogueFilesTest, EachListingForgetsTheReportsBeforeIt) {
  _Folder.Write("installed/DataCard/dcg_std.xml", support::DataCardFile(NoName));
  _Folder.Write("installed/DataCard/dcg_std_broken.xml", "<R>");
  List("STD");
  List("STD");
  KORListValKORUnicodeString missing;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(missing), S_OK);
  EXPECT_EQ(missing.Size(), 1);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  EXPECT_EQ(messages.Size(), 1);

  List("STD");
  List("UAS");
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(missing), E_FAIL);
}

TEST_F(CatalogueFilesTest, ListingForgetsTheMessagesOfOtherParses) {
  _Services.GetDOMDocument(Unicode(_Folder.Write("broken.xml", "<R>")));
  _Folder.MakeFolder("installed/DataCard");
  List("STD");
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), E_FAIL);
}

TEST_F(CatalogueFilesTest, FilesThatCannotBeParsedAreReportedAndTheOthersListed) {
  _Folder.Write("installed/DataCard/a.xml", "<R><DATACARDGROUP>");
  _Folder.MakeFolder("installed/DataCard/b.xml");
  _Folder.Write("installed/DataCard/c.xml", "");
  WriteGroupFile("installed/DataCard/d.xml", "STD", "Cards");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{"Cards"});
  KORListValKORUnicodeString messages;
  ASSERT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  ASSERT_EQ(messages.Size(), 3);
  EXPECT_NE(Text(messages[1]).find("a.xml"), std::string::npos) << Text(messages[1]);
  EXPECT_NE(Text(messages[2]).find("b.xml"), std::string::npos) << Text(messages[2]);
  EXPECT_NE(Text(messages[3]).find("c.xml"), std::string::npos) << Text(messages[3]);
}

TEST_F(CatalogueFilesTest, SystemStaysUntilTheNextCallOfEitherOperation) {
  support::Select(_Services, "SAM");
  List("MOST");
  EXPECT_EQ(Text(_Services.GetSubsystem()), "MOST");
  support::Select(_Services, "RWF");
  EXPECT_EQ(Text(_Services.GetSubsystem()), "RWF");
}

TEST(CatalogueFilesStartTest, AFreshObjectHasNoSystem) {
  EXPECT_EQ(Text(VEXSTMTimeAnalysisDlgServices().GetSubsystem()), "");
}

}  // namespace
