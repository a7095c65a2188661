// The JSON export where something is wrong: templates, identifiers, the folder for files, a full disk, faults of the
// platform.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "platform/base/KORStatus.h"
#include "tests/exchange/JsonExportTest.h"
#include "tests/exchange/PictureTest.h"
#include "tests/support/FullDisk.h"
#include "tests/support/WholeLiteral.h"

namespace {

using exchangetest::CompleteTemplateFile;
using exchangetest::ContentOf;
using exchangetest::JsonExportRowTest;
using exchangetest::JsonExportTest;
using exchangetest::LineTemplateFile;
using support::FullDisk;
using support::Line;
using support::MakeAnalysis;
using support::RowName;
using support::Unicode;
using support::Whole;

// ---- Templates ----

constexpr const char* GoodComplete = R"({"TAATTRIBUTES":{"PLM_ExternalID":""},"TALINESDETAILS":[{"x":1}]})";
constexpr const char* GoodLine = R"({"Code":""})";

// Templates, and what comes out for an analysis "A" with one line "L1". No template: there is no such file.
struct TemplateRow {
  std::string name;
  std::optional<std::string> complete;
  std::optional<std::string> line;
  std::string exported;
};
class OddTemplateTest : public JsonExportRowTest<TemplateRow> {};

TEST_P(OddTemplateTest, IsNoFailure) {
  if (GetParam().complete) _Folder.Write(CompleteTemplateFile, *GetParam().complete);
  if (GetParam().line) _Folder.Write(LineTemplateFile, *GetParam().line);
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})), GetParam().exported);
}

constexpr const char* NoAttributesAndTheLine = R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{"Code":"L1"}]})";
constexpr const char* AttributesAndNoKeysOfTheLine = R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{}]})";

INSTANTIATE_TEST_SUITE_P(
    Complete, OddTemplateTest,
    testing::Values(
        TemplateRow{"Missing", {}, GoodLine, NoAttributesAndTheLine},
        TemplateRow{"Empty", "", GoodLine, NoAttributesAndTheLine},
        TemplateRow{"Blank", " \n", GoodLine, NoAttributesAndTheLine},
        TemplateRow{"NoJson", "<TAATTRIBUTES/>", GoodLine, NoAttributesAndTheLine},
        TemplateRow{"CutShort", std::string(GoodComplete, 40), GoodLine, NoAttributesAndTheLine},
        TemplateRow{"ArrayAtTheTop", std::string("[") + GoodComplete + "]", GoodLine, NoAttributesAndTheLine},
        TemplateRow{"NoSections", "{}", GoodLine, NoAttributesAndTheLine},
        TemplateRow{"OtherKeysAlone", R"({"a":1,"taattributes":{"V_Name":""}})", GoodLine,
                    R"({"a":1,"taattributes":{"V_Name":""},"TAATTRIBUTES":{},"TALINESDETAILS":[{"Code":"L1"}]})"},
        TemplateRow{"AttributesAsANumber", R"({"TAATTRIBUTES":5,"TALINESDETAILS":[]})", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"AttributesAsAnArray", R"({"TAATTRIBUTES":["V_Name"],"TALINESDETAILS":[]})", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"AttributesAsNull", R"({"TAATTRIBUTES":null,"TALINESDETAILS":[]})", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"LinesAsAnObject", R"({"TAATTRIBUTES":{},"TALINESDETAILS":{"Code":""}})", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"LinesAsAText", R"({"TAATTRIBUTES":{},"TALINESDETAILS":"lines"})", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"TooDeep", R"({"deep":)" + std::string(1000, '[') + std::string(1000, ']') + "}", GoodLine,
                    NoAttributesAndTheLine},
        TemplateRow{"Windows1252", "{\"Ma\xDF\":\"\xFC\",\"TAATTRIBUTES\":{},\"TALINESDETAILS\":[]}", GoodLine,
                    R"({"Maß":"ü","TAATTRIBUTES":{},"TALINESDETAILS":[{"Code":"L1"}]})"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(OfALine, OddTemplateTest,
                         testing::Values(TemplateRow{"Missing", GoodComplete, {}, AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"Empty", GoodComplete, "", AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"NoJson", GoodComplete, "Code", AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"ArrayAtTheTop", GoodComplete, R"([{"Code":""}])",
                                                     AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"AText", GoodComplete, R"("Code")", AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"NoKeys", GoodComplete, "{}", AttributesAndNoKeysOfTheLine},
                                         TemplateRow{"Both", {}, {}, R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{}]})"}),
                         RowName());

TEST_F(JsonExportTest, TemplatesAsDeepAsTheyMayBeGoOneInTheOther) {
  const std::string deep = std::string(999, '[') + std::string(999, ']');
  WriteTemplates(R"({"TALINESDETAILS":[],"deep":)" + deep + "}", R"({"deep":)" + deep + "}");
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})),
            R"({"TALINESDETAILS":[{"deep":)" + deep + R"(}],"deep":)" + deep + R"(,"TAATTRIBUTES":{}})");
}

TEST_F(JsonExportTest, TemplatesOf200MillionBytesCountAsMissing) {
  WriteTemplates(GoodComplete, GoodLine);
  const auto grow = [this](const char* file) { std::filesystem::resize_file(_Folder.Path(file), 200'000'000); };
  grow(LineTemplateFile);
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})), AttributesAndNoKeysOfTheLine);
  grow(CompleteTemplateFile);
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{}]})");
}

TEST_F(JsonExportTest, AFolderInPlaceOfATemplateCountsAsMissing) {
  _Folder.MakeFolder(CompleteTemplateFile);
  _Folder.MakeFolder(LineTemplateFile);
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{}]})");
}

// ---- Identifiers ----

struct IdentifierRow {
  const char* name;
  std::string identifier;
};
class OutsideIdentifierTest : public JsonExportRowTest<IdentifierRow> {};

TEST_P(OutsideIdentifierTest, IsRefusedAndNothingIsWritten) {
  WriteTemplates(GoodComplete, GoodLine);
  _Folder.MakeFolder("temp/parts");
  const auto all_files = [this] {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(_Folder.Path()))
      paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
  };
  const auto before = all_files();
  const auto analysis = MakeAnalysis(GetParam().identifier);
  EXPECT_EQ(Export({analysis}), E_INVALIDARG);
  EXPECT_TRUE(analysis->GetContent().Streams.IsEmpty());
  EXPECT_EQ(all_files(), before);
}

INSTANTIATE_TEST_SUITE_P(Identifiers, OutsideIdentifierTest,
                         testing::Values(IdentifierRow{"OneFolderUp", "../x"}, IdentifierRow{"Absolute", "/etc/x"},
                                         IdentifierRow{"UpFromAFolderWithin", "parts/../../x"},
                                         IdentifierRow{"UpAndDown", "parts/../x"},
                                         IdentifierRow{"UpWithBackslash", "..\\x"}, IdentifierRow{"Nul", Whole("x\0y")},
                                         IdentifierRow{"NulAtTheEnd", Whole("x\0")}, IdentifierRow{"LineEnd", "x\ny"},
                                         IdentifierRow{"Escape", "x\x1By"}, IdentifierRow{"Delete", "x\x7F"},
                                         IdentifierRow{"HighControlCharacter", "x\xC2\x85"},
                                         IdentifierRow{"TenThousandCharacters", std::string(10'000, 'x')},
                                         IdentifierRow{"OneByteTooLong", std::string(251, 'x')},
                                         IdentifierRow{"TenThousandInAFolder", std::string(10'000, 'x') + "/x"}),
                         RowName());

TEST_F(JsonExportTest, IdentifiersUpToTheLongestNameOfAFileAreTaken) {
  WriteTemplates(GoodComplete, GoodLine);
  for (const std::string& identifier :
       std::initializer_list<std::string>{std::string(250, 'x'), "...", "a..b", "x:y|z*?", "日本", " "}) {
    const auto analysis = MakeAnalysis(identifier);
    EXPECT_EQ(Export({analysis}), S_OK) << identifier;
    EXPECT_TRUE(StreamOf(analysis).has_value()) << identifier;
    EXPECT_TRUE(std::filesystem::exists(_Folder.Path("temp/" + identifier + ".JSON"))) << identifier;
  }
}

// ---- The folder and the file ----

struct FolderRow {
  const char* name;
  std::optional<std::string> folder;  // nothing: not set
  long status;
};
class FileFolderTest : public JsonExportRowTest<FolderRow> {};

TEST_P(FileFolderTest, HasToBeThere) {
  WriteTemplates(GoodComplete, GoodLine);
  _Folder.Write("file", "");
  _Session.UnsetEnvironment("KORTemp");
  if (GetParam().folder) {
    KORUnicodeString folder = Unicode(*GetParam().folder);
    folder.ReplaceAll("%", Unicode(_Folder.Path()));
    _Session.SetEnvironment("KORTemp", folder);
  }
  const auto analysis = MakeAnalysis("A");
  EXPECT_EQ(Export({analysis}), GetParam().status);
  EXPECT_TRUE(analysis->GetContent().Streams.IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Folders, FileFolderTest,
                         testing::Values(FolderRow{"NotSet", {}, E_INVALIDARG}, FolderRow{"Empty", "", E_INVALIDARG},
                                         FolderRow{"Missing", "%/missing", E_FAIL},
                                         FolderRow{"AFile", "%/file", E_FAIL},
                                         FolderRow{"Nul", Whole("%/temp\0"), E_INVALIDARG}),
                         RowName());

TEST_F(JsonExportTest, AnIdentifierWithAFolderThatIsNotThereCannotBeWritten) {
  WriteTemplates(GoodComplete, GoodLine);
  const auto analysis = MakeAnalysis("parts/A");
  EXPECT_EQ(Export({analysis}), E_FAIL);
  _Folder.MakeFolder("temp/parts");
  EXPECT_EQ(Export({analysis}), S_OK);
  EXPECT_EQ(Files(), (std::vector<std::string>{"parts", "parts/A.JSON"}));
}

TEST_F(JsonExportTest, AFolderInPlaceOfTheFileIsLeftAlone) {
  WriteTemplates(GoodComplete, GoodLine);
  _Folder.Write("temp/A.JSON/inside", "x");
  const auto analysis = MakeAnalysis("A");
  EXPECT_EQ(Export({analysis}), E_FAIL);
  EXPECT_TRUE(analysis->GetContent().Streams.IsEmpty());
  EXPECT_EQ(ContentOf(_Folder.Path("temp/A.JSON/inside")), "x");
}

TEST_F(JsonExportTest, ALinkInPlaceOfTheFileIsReplacedAndNotFollowed) {
  WriteTemplates(GoodComplete, GoodLine);
  const std::string target = _Folder.Write("target", "precious");
  std::filesystem::create_symlink(target, _Folder.Path("temp/A.JSON"));
  EXPECT_EQ(Export({MakeAnalysis("A")}), S_OK);
  EXPECT_EQ(ContentOf(target), "precious");
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(_Folder.Path("temp/A.JSON"))));
}

TEST_F(JsonExportTest, OnAFullDiskNoHalfFileIsLeftOrAdded) {
  WriteTemplates(GoodComplete, R"({"Description":""})");
  std::vector<Line> lines(100, Line().Set("Description", Unicode(std::string(200, 'x'))));
  const auto analysis = MakeAnalysis("A", lines);
  _Folder.Write("temp/A.JSON", "of an earlier run");
  long status = S_OK;
  for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{21'000}}) {
    {
      const FullDisk full_disk(room);
      status = Export({analysis});
    }
    EXPECT_EQ(status, E_FAIL) << room;
    EXPECT_TRUE(analysis->GetContent().Streams.IsEmpty()) << room;
    EXPECT_TRUE(Files().empty()) << room;
  }
  EXPECT_EQ(Export({analysis}), S_OK);
  EXPECT_EQ(ContentOf(_Folder.Path("temp/A.JSON")), StreamOf(analysis));
}

TEST_F(JsonExportTest, AFullDiskForOneAnalysisDoesNotEndTheWalk) {
  WriteTemplates(GoodComplete, R"({"Description":""})");
  const auto large =
      MakeAnalysis("large", std::vector<Line>(100, Line().Set("Description", Unicode(std::string(200, 'x')))));
  const auto small = MakeAnalysis("small");
  long status = E_FAIL;
  {
    const FullDisk full_disk(4096);
    status = Export({large, small});
  }
  EXPECT_EQ(status, S_OK);
  EXPECT_EQ(StreamOf(large), std::nullopt);
  EXPECT_TRUE(StreamOf(small).has_value());
  EXPECT_EQ(Files(), (std::vector<std::string>{"small.JSON"}));
}

// ---- Faults of the platform ----

constexpr long Fault = -77;  // a status that nothing but an injected fault gives

struct FaultRow {
  std::string name;  // of the operation
  long status;
  bool leaves_file;
};
class PlatformFaultTest : public JsonExportRowTest<FaultRow> {};

TEST_P(PlatformFaultTest, LeavesTheAnalysisWithoutAStream) {
  WriteTemplates(GoodComplete, GoodLine);
  const auto analysis = MakeAnalysis("A", {Line("L1")});
  _Session.InjectFault(GetParam().name, Fault);
  EXPECT_EQ(Export({analysis}), GetParam().status);
  EXPECT_TRUE(analysis->GetContent().Streams.IsEmpty());
  EXPECT_EQ(Files(), GetParam().leaves_file ? std::vector<std::string>{"A.JSON"} : std::vector<std::string>());
  _Session.ClearFaults();
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{"Code":"L1"}]})");
}

INSTANTIATE_TEST_SUITE_P(Operations, PlatformFaultTest,
                         testing::Values(FaultRow{"KORMakePath", E_INVALIDARG, false},
                                         FaultRow{"KORFOpen", Fault, false}, FaultRow{"KORFWrite", E_FAIL, false},
                                         FaultRow{"KORFClose", E_FAIL, false},
                                         FaultRow{"FromNativeFilePathToUrl", E_FAIL, true},
                                         FaultRow{"AddExtendedSDForRepRef", Fault, true}),
                         RowName());

TEST_F(JsonExportTest, AStreamWhoseFormatCannotBeHadIsNoJsonStream) {
  WriteTemplates(GoodComplete, GoodLine);
  const auto analysis = MakeAnalysis("A");
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{"x":1}]})");
  _Session.InjectFault("GetStreamFormat", Fault);
  KORBaseUnknown_var object = analysis;
  EXPECT_EQ(VEXSTMJSONServices::IsJSONFileExistsOnTA(object), 0);
}

}  // namespace
