// Streams that come in as files and folders, and what becomes of the analyses.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"
#include "tests/tools/exchange/ModelComparison.h"

namespace {

namespace files = std::filesystem;

const std::string examples = TEST_SOURCE_DIR "/../examples";
const std::string reuse_of =
    "Save|||LineData:t:0:0:8:rowno|LineData:t:0:1:8:subanalysis|LineData:t:1:0:3:1|"
    "LineData:t:1:1:13:";

double RealOf(KORSession& session, const std::string& identifier, const char* attribute) {
  double value = -1.0;
  FindAnalysis(session, identifier)->GetValue(attribute, value);
  return value;
}

// Two streams of examples/exchange: one as old systems wrote them, in Windows-1252, and one of the tool's own.
TEST(Examples, OfStreamsComeIn) {
  const support::TemporaryFolder folder;
  KORSession session;
  const ToolOutcome outcome = RunInSession(session, {"import", examples + "/exchange", "--into", folder.Path("out")});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  const std::string housing = folder.Read("out/housing.csv").value_or("");
  EXPECT_NE(housing.find("# name: Gehäuse verschließen\n"), std::string::npos) << housing;
  EXPECT_NE(housing.find("\nGKG,4,TTB,Clips eindrücken (4 Stück),0.576,VA,Kraft 25 N ± 10 %\n"), std::string::npos)
      << housing;
  const std::string station = folder.Read("out/station-4.csv").value_or("");
  EXPECT_NE(station.find("# name: Station 4 – housings at 24 € the hour\n"), std::string::npos) << station;
  EXPECT_NE(station.find(",Gehäuse verschließen,,housing,\n"), std::string::npos) << station;
  // The totals in seconds follow from those in TMU, which are the ones of the lines.
  EXPECT_DOUBLE_EQ(RealOf(session, "housing", "TTBCalculated"), 157.0);
  EXPECT_DOUBLE_EQ(RealOf(session, "housing", "V_HumanTime"), 5.652);
  const ToolOutcome calc = RunInProcess({"calc", folder.Path("out"), "--json", "--catalogue", CATALOGUE_FOLDER});
  EXPECT_EQ(calc.ExitStatus, 0) << calc.Errors;
  const nlohmann::json first = nlohmann::json::parse(calc.Output.substr(0, calc.Output.find('\n')));
  EXPECT_DOUBLE_EQ(first["totals"]["total"]["seconds"].get<double>(), 8.832);
}

// Times stand as they came, whether they fit together or not.
TEST(Import, CalculatesOnlyIfAsked) {
  const support::TemporaryFolder folder;
  const std::string path =
      folder.Write("a.stream",
                   "Save|||AttributeData:dbl_ttbcalculated:5:1|LineData:t:0:0:8:code|LineData:t:0:1:8:timetype|"
                   "LineData:t:0:2:8:ttbtime|LineData:t:0:3:8:totaltime|LineData:t:0:4:8:factor|LineData:t:1:0:8:A|"
                   "LineData:t:1:1:8:TTB|LineData:t:1:2:5:0.36|LineData:t:1:3:5:0.72|LineData:t:1:4:5:2");
  KORSession as_it_came, calculated;
  RunInSession(as_it_came, {"import", path, "--format", "list"});
  RunInSession(calculated, {"import", path, "--format", "list", "--calculate"});
  EXPECT_EQ(RealOf(as_it_came, "a", "TTBCalculated"), 1.0);
  EXPECT_EQ(RealOf(as_it_came, "a", "V_HumanTime"), -1.0) << "not set";
  EXPECT_DOUBLE_EQ(RealOf(calculated, "a", "TTBCalculated"), 20.0);
  EXPECT_DOUBLE_EQ(RealOf(calculated, "a", "V_HumanTime"), 0.72);
}

TEST(Import, ResolvesReferencesBothWays) {
  const support::TemporaryFolder folder;
  folder.Write("a.stream", reuse_of + "deep/b");
  folder.Write("deep/b.stream", reuse_of + "a");
  KORSession session;
  const ToolOutcome outcome = RunInSession(session, {"import", folder.Path(), "--format", "list"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  VEXTimeAnalysisLineData line;
  FindAnalysis(session, "a")->GetLine(1, line);
  KORBaseUnknown_var reused;
  line.GetValue("TimeAnalysis", reused);
  ASSERT_FALSE(reused.IsNull());
  EXPECT_EQ(reused->GetImpl(0), FindAnalysis(session, "deep/b")->GetImpl(0));
}

TEST(Import, TellsOfACircleWhereCalcWould) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", reuse_of + "a");
  const ToolOutcome outcome =
      RunInProcess({"import", folder.Path("in/a.stream"), "--into", folder.Path("out"), "--lossy"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  const ToolOutcome calc = RunInProcess({"calc", folder.Path("out")});
  EXPECT_NE(calc.Errors.find("a circle of reuse"), std::string::npos) << calc.Errors;
}

TEST(Import, TellsOnceOfAnAnalysisThatIsNotThere) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.stream", reuse_of + "b|LineData:t:2:1:13:b|LineData:t:3:1:13:c");
  const ToolOutcome outcome = RunInProcess({"import", path, "--format", "list"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(std::count(outcome.Errors.begin(), outcome.Errors.end(), '\n'), 2) << outcome.Errors;
  EXPECT_NE(outcome.Output.find("LineData:2:25:subanalysis:13:b\n"), std::string::npos) << outcome.Output;
}

TEST(Import, NamesAnalysesByTheirFiles) {
  const support::TemporaryFolder folder;
  for (const char* name : {"deep/a.b.stream", "c.stream", ".hidden.stream", "d.txt"}) {
    folder.Write(name, "AttributeData:name:8:x");
  }
  EXPECT_EQ(RunInProcess({"import", folder.Path(), "--into", folder.Path("out")}).ExitStatus, 0);
  EXPECT_TRUE(folder.Read("out/deep/a.b.csv").has_value());
  EXPECT_TRUE(folder.Read("out/c.csv").has_value());
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out")), {}), 2) << "other names are passed over";
  EXPECT_EQ(RunInProcess({"import", folder.Path("d.txt")}).Output, "# name: x\n# identifier: d\ncode\n")
      << "a file that is named is read whatever its name";
}

struct UnreadableFile {
  const char* name;
  std::function<void(const support::TemporaryFolder& folder)> make;  // "a.stream"
  const char* words;
};

class UnreadableFileTest : public testing::TestWithParam<UnreadableFile> {};

// The others are not written either, unless the rest is wanted.
TEST_P(UnreadableFileTest, IsTold) {
  const support::TemporaryFolder folder;
  GetParam().make(folder);
  folder.Write("b.stream", "AttributeData:name:8:x");
  const std::vector<std::string> arguments{"import", folder.Path(), "--format", "list"};
  const ToolOutcome outcome = RunInProcess(arguments);
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find("/a.stream: " + std::string(GetParam().words)), std::string::npos) << outcome.Errors;
  std::vector<std::string> lossy = arguments;
  lossy.emplace_back("--lossy");
  EXPECT_EQ(RunInProcess(lossy).Output, "AttributeData:name:8:x\n");
  EXPECT_EQ(RunInProcess(lossy).ExitStatus, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, UnreadableFileTest,
    testing::Values(
        UnreadableFile{"Empty", [](const auto& folder) { folder.Write("a.stream", ""); }, "empty"},
        UnreadableFile{"Binary",
                       [](const auto& folder) {
                         folder.Write("a.stream", std::string("\x7F"
                                                              "ELF\0\1|:|\0",
                                                              10));
                       },
                       "holds a NUL byte"},
        UnreadableFile{"Pipe", [](const auto& folder) { mkfifo(folder.Path("a.stream").c_str(), 0600); },
                       "cannot be read: not a regular file"},
        UnreadableFile{"LinkThatLeadsNowhere",
                       [](const auto& folder) { files::create_symlink("nowhere", folder.Path("a.stream")); },
                       "cannot be read"},
        UnreadableFile{"LinkThatLeadsOut",
                       [](const auto& folder) { files::create_symlink("/etc/hostname", folder.Path("a.stream")); },
                       "a link that leads out of the folder"},
        UnreadableFile{"TooLong",
                       [](const auto& folder) {
                         folder.Write("a.stream", "x");
                         files::resize_file(folder.Path("a.stream"), (std::uintmax_t{256} << 20) + 1);
                       },
                       "cannot be read: the file is longer than 268435456 bytes"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Import, TellsOfAStandardInputThatIsTooLong) {
  const ToolOutcome outcome = RunInProcess({"import", "-"}, {std::string((std::size_t{256} << 20) + 1, 'x'), {}, ""});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("standard input: longer than 268435456 bytes"), std::string::npos) << outcome.Errors;
}

TEST(Import, RefusesIdentifiersThatNoneMayHave) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a|b.stream", "AttributeData:name:8:x");
  const ToolOutcome outcome = RunInProcess({"import", path});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("the identifier \"a|b\" is empty or holds a \"|\""), std::string::npos)
      << outcome.Errors;
  EXPECT_EQ(RunInProcess({"import", path, "--identifier", "a"}).ExitStatus, 0);
}

// A template that is missing or broken is told before anything is read.
struct Template {
  const char* name;
  const char* complete;
  const char* line;
  const char* words;
};

class TemplateTest : public testing::TestWithParam<Template> {};

TEST_P(TemplateTest, IsTold) {
  const support::TemporaryFolder folder;
  folder.Write("JSONTemplates/TAComplete_Template.JSON", GetParam().complete);
  folder.Write("JSONTemplates/TALineAttributes_Template.JSON", GetParam().line);
  const ToolOutcome outcome = RunInProcess({"import", "-", "--format", "json", "--catalogue", folder.Path()},
                                           {"AttributeData:name:8:x", {}, ""});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
}

constexpr const char* good_template = R"({"TAATTRIBUTES":{"V_Name":""},"TALINESDETAILS":[]})";

INSTANTIATE_TEST_SUITE_P(
    Rows, TemplateTest,
    testing::Values(Template{"Empty", "", "{\"Code\":\"\"}", "TAComplete_Template.JSON does not hold an object"},
                    Template{"NoJson", "{", "{\"Code\":\"\"}", "TAComplete_Template.JSON does not hold an object"},
                    Template{"NoAttributes", R"({"TALINESDETAILS":[]})", "{\"Code\":\"\"}",
                             "an object \"TAATTRIBUTES\""},
                    Template{"LinesNoArray", R"({"TAATTRIBUTES":{},"TALINESDETAILS":{}})", "{\"Code\":\"\"}",
                             "an array \"TALINESDETAILS\""},
                    Template{"LineEmpty", good_template, "{}", "TALineAttributes_Template.JSON does not hold"},
                    Template{"LineNoObject", good_template, "[]", "TALineAttributes_Template.JSON does not hold"}),
    [](const auto& row) { return std::string(row.param.name); });

// The folder of the setting datacardpath is that of the catalogue.
TEST(Templates, AreFoundBesideTheCardsOfTheSetting) {
  const support::TemporaryFolder folder;
  folder.MakeFolder("DataCard");
  folder.Write("JSONTemplates/TAComplete_Template.JSON", good_template);
  folder.Write("JSONTemplates/TALineAttributes_Template.JSON", R"({"Code":""})");
  const std::string settings = folder.Write("my.settings", "datacardpath = " + folder.Path("DataCard") + "\n");
  const ToolOutcome outcome =
      RunInProcess({"import", "-", "--format", "json", "--settings", settings}, {"AttributeData:name:8:Gr\xF6\xDF"
                                                                                 "e",
                                                                                 {},
                                                                                 ""});
  EXPECT_EQ(outcome.Output, "{\"TAATTRIBUTES\":{\"V_Name\":\"Größe\"},\"TALINESDETAILS\":[]}\n") << outcome.Errors;
}

TEST(Templates, OfTheShippedCatalogueHoldEachAttribute) {
  const ToolOutcome outcome = RunInProcess(
      {"import", examples + "/exchange/housing.stream", "--format", "json", "--catalogue", CATALOGUE_FOLDER});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  const nlohmann::json document = nlohmann::json::parse(outcome.Output);
  EXPECT_EQ(document["TAATTRIBUTES"]["Department"], "Montage – Halle 3");
  EXPECT_EQ(document["TALINESDETAILS"].size(), 8u);
  EXPECT_EQ(document["TALINESDETAILS"][4]["AddDescription"], "Kraft 25 N ± 10 %");
  EXPECT_EQ(document["TALINESDETAILS"][4]["TotalTime"], 2.304);
}

}  // namespace
