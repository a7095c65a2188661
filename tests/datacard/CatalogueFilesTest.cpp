// Where the entry file of a motion-time system lies.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/CatalogueFilesTest.h"

namespace {

using support::CatalogueFilesTest;
using support::Text;
using support::Texts;
using support::Unicode;

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
                    SystemRow{"Empty", "", "dce_std.xml"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, SystemNameThatIsNoUtf8IsReadAsWindows1252) {
  Settings();
  const std::string expected = WriteEntryFile("installed");
  KORUnicodeString path;
  _Services.GetDCEXMLFilePath("\xDC", path);
  EXPECT_EQ(Text(path), expected);
  EXPECT_EQ(Text(_Services.GetSubsystem()), "\xC3\x9C");
}

struct OperatingSystemRow {
  const char* name;
  int code;
  char list_separator;
  const char* relative_path;
};

class OperatingSystemTest : public CatalogueFilesTest, public testing::WithParamInterface<OperatingSystemRow> {};

TEST_P(OperatingSystemTest, FindsTheEntryFileInTheSecondStartupFolder) {
  Settings();
  _Session.SetOperatingSystem(GetParam().code);
  _Session.SetEnvironment("KORStartupPath",
                          Unicode(_Folder.Path("missing") + GetParam().list_separator + _Folder.Path("installed")));
  EXPECT_EQ(StandardPath(), "");
  WriteEntryFile("installed");
  const std::string path = StandardPath();
  EXPECT_TRUE(path.starts_with(_Folder.Path("installed"))) << path;
  EXPECT_TRUE(path.ends_with(GetParam().relative_path)) << path;
}

// Codes 0 to 3 and 7, in their low 16 bits, are systems with "/" between folders.
INSTANTIATE_TEST_SUITE_P(
    Codes, OperatingSystemTest,
    testing::Values(OperatingSystemRow{"Zero", 0, ':', "/DataCardEntry/dce_std.xml"},
                    OperatingSystemRow{"One", 1, ':', "/DataCardEntry/dce_std.xml"},
                    OperatingSystemRow{"Three", 3, ':', "/DataCardEntry/dce_std.xml"},
                    OperatingSystemRow{"Four", 4, ';', "DataCardEntry\\dce_std.xml"},
                    OperatingSystemRow{"Six", 6, ';', "DataCardEntry\\dce_std.xml"},
                    OperatingSystemRow{"Seven", 7, ':', "/DataCardEntry/dce_std.xml"},
                    OperatingSystemRow{"Eight", 8, ';', "DataCardEntry\\dce_std.xml"},
                    OperatingSystemRow{"SevenWithHighBits", 0x10007, ':', "/DataCardEntry/dce_std.xml"},
                    OperatingSystemRow{"FourWithHighBits", 0x30004, ';', "DataCardEntry\\dce_std.xml"}),
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
