// Analyses as files that calc reads: what they hold, and what is told of the rest.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"
#include "tests/tools/exchange/ModelComparison.h"
#include "tests/tools/exchange/RandomFile.h"

namespace {

const std::string examples = TEST_SOURCE_DIR "/../examples";
const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";

// All that is in a session's model, by its identifiers; of several with one identifier the first.
std::map<std::string, KORHandle<VEXTimeAnalysisRepReference>> AnalysesOf(KORSession& session) {
  const KORSession::Scope scope(session);
  std::map<std::string, KORHandle<VEXTimeAnalysisRepReference>> analyses;
  for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : KORModel::Current().GetTimeAnalyses()) {
    KORUnicodeString identifier;
    analysis->GetValue("PLM_ExternalID", identifier);
    analyses.emplace(identifier.Bytes(), analysis);
  }
  return analyses;
}

// Writes files for calc, and from these again.
void ExpectSameFilesAgain(const std::string& path, const std::string& catalogue) {
  const support::TemporaryFolder folder;
  KORSession before, after;
  const ToolOutcome first =
      RunInSession(before, {"export", path, "--format", "csv", "--into", folder.Path("out"), "--catalogue", catalogue});
  EXPECT_EQ(first.ExitStatus, 0);
  EXPECT_EQ(first.Errors, "");
  // Times stand in the files, so that no catalogue is needed any more.
  const ToolOutcome second = RunInSession(after, {"export", folder.Path("out"), "--format", "csv", "--into",
                                                  folder.Path("again"), "--catalogue", folder.Path("none")});
  EXPECT_EQ(second.ExitStatus, 0);
  EXPECT_EQ(second.Errors, "");
  const auto analyses_after = AnalysesOf(after);
  for (const auto& [identifier, analysis] : AnalysesOf(before)) {
    SCOPED_TRACE(identifier);
    const auto found = analyses_after.find(identifier);
    ASSERT_NE(found, analyses_after.end());
    EXPECT_EQ(Differences(*analysis, *found->second), std::set<std::string>());
    const std::string name = identifier + ".csv";
    EXPECT_EQ(folder.Read("out/" + name), folder.Read("again/" + name));
  }
}

TEST(FileForm, HoldsTheWorkedExamples) {
  ExpectSameFilesAgain(examples + "/worked", CATALOGUE_FOLDER);
}

TEST(FileForm, HoldsTheModelWithItsFormulasAndReuse) {
  ExpectSameFilesAgain(examples + "/model", CATALOGUE_FOLDER);
}

// Those in which calc finds no fault.
TEST(FileForm, HoldsRandomAnalyses) {
  int count = 0;
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomFile random(seed);
    const support::TemporaryFolder folder;
    folder.Write("deep/b.csv", random.Draw({}, true));
    folder.Write("a.csv", random.Draw({"deep/b"}, true));
    if (RunInProcess({"calc", folder.Path(), "--catalogue", frozen_catalogue}).ExitStatus != 0) continue;
    ExpectSameFilesAgain(folder.Path(), frozen_catalogue);
    ++count;
  }
  EXPECT_GT(count, 80);
}

// A stream of the system STD with one row of these values under their keys of the exchange.
struct RowOfStream {
  const char* name;
  std::map<std::string, std::string> cells;
  const char* row;    // of the file; a part of it
  const char* words;  // of the message; empty: none is expected
  int status;
};

std::string StreamOf(const std::map<std::string, std::string>& cells) {
  std::string stream = "Save|x|STD|AttributeData:subsystem:8:STD";
  std::string row;
  int column = 0;
  for (const auto& [key, value] : cells) {
    stream += "|LineData:et_linedata:0:" + std::to_string(column) + ":8:" + key;
    row += "|LineData:et_linedata:1:" + std::to_string(column) + ":8:" + value;
    ++column;
  }
  return stream + row;
}

class RowOfStreamTest : public testing::TestWithParam<RowOfStream> {};

TEST_P(RowOfStreamTest, BecomesARowOfAFile) {
  const ToolOutcome outcome = RunInProcess({"import", "-", "--lossy"}, {StreamOf(GetParam().cells), {}, ""});
  EXPECT_NE(outcome.Output.find(GetParam().row), std::string::npos) << outcome.Output;
  EXPECT_EQ(outcome.ExitStatus, 0);
  if (*GetParam().words == '\0') {
    EXPECT_EQ(outcome.Errors, "");
  } else {
    EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
  }
  const ToolOutcome strict = RunInProcess({"import", "-"}, {StreamOf(GetParam().cells), {}, ""});
  EXPECT_EQ(strict.ExitStatus, GetParam().status) << strict.Errors;
  EXPECT_EQ(strict.Output, GetParam().status == 0 ? outcome.Output : "");
}

INSTANTIATE_TEST_SUITE_P(
    Times, RowOfStreamTest,
    testing::Values(
        RowOfStream{"OwnTime",
                    {{"code", "A"}, {"timetype", "TTU"}, {"ttutime", "0.5"}, {"totaltime", "0.5"}},
                    "\nA,TTU,0.5\n",
                    "",
                    0},
        RowOfStream{
            "NoValueMarksOfOtherTypes",
            {{"code", "A"}, {"timetype", "TTB"}, {"ttbtime", "0.5"}, {"totaltime", "0.5"}, {"twtime", "-0.036"}},
            "\nA,TTB,0.5\n",
            "",
            0},
        RowOfStream{"NoTime", {{"code", "A"}, {"timetype", "TTB"}, {"ttbtime", "-0.036"}}, "\nA,TTB,0\n", "", 0},
        RowOfStream{"TimeOfAnotherType",
                    {{"code", "A"}, {"timetype", "TTB"}, {"ttbtime", "1"}, {"totaltime", "1"}, {"twtime", "2"}},
                    "\nA,TTB,1\n",
                    "left out, as a file of calc has no place for them: the line keys TWTime",
                    0},
        RowOfStream{"TotalThatIsNotTimeByFrequency",
                    {{"code", "A"}, {"factor", "3"}, {"timetype", "TTB"}, {"ttbtime", "1"}, {"totaltime", "1"}},
                    "\nA,3,TTB,1\n",
                    "calc computes from the file, to other values than they have here: times (row 1)",
                    0},
        RowOfStream{"InfiniteTime",
                    {{"code", "A"}, {"timetype", "TTB"}, {"ttbtime", "inf"}},
                    "\nA,TTB,inf\n",
                    "row 1: key TTBTime \"inf\"",
                    1},
        RowOfStream{"UnknownTimeType",
                    {{"code", "A"}, {"timetype", "TXX"}, {"ttbtime", "1"}},
                    "\nA,TXX,1\n",
                    "the time type \"TXX\" is unknown",
                    1},
        RowOfStream{"NoTimeType",
                    {{"code", "A"}, {"ttbtime", "1"}, {"totaltime", "1"}},
                    "\nA,1\n",
                    "row 1: key TimeType: comes back from a file of calc as \"TTB\"",
                    1}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Frequencies, RowOfStreamTest,
    testing::Values(RowOfStream{"One", {{"code", "A"}, {"factor", "1"}, {"timetype", "TTB"}}, "\nA,TTB,0\n", "", 0},
                    RowOfStream{
                        "NoneOfItsOwn", {{"code", "A"}, {"factor", "-1"}, {"timetype", "TTB"}}, "\nA,TTB,0\n", "", 0},
                    RowOfStream{"AsEntered",
                                {{"code", "A"}, {"factor", "2"}, {"factorstring", "2.0"}, {"timetype", "TTB"}},
                                "\nA,2.0,TTB,0\n",
                                "",
                                0},
                    RowOfStream{"EnteredAsAFormula",
                                {{"code", "A"}, {"factor", "6"}, {"factorstring", "2*3"}, {"timetype", "TTB"}},
                                "\nA,6,TTB,0\n",
                                "row 1: key FactorString \"2*3\": comes back from a file of calc as \"6\"",
                                1}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Texts, RowOfStreamTest,
    testing::Values(
        RowOfStream{"TextAlone", {{"analysisdescription", "Set up"}}, "\n,Set up\n", "", 0},
        RowOfStream{"LineFeedsAndQuotes", {{"analysisdescription", "a \"b\",\nc"}}, "\n,\"a \"\"b\"\",\nc\"\n", "", 0},
        RowOfStream{"BlanksAtTheEnds",
                    {{"analysisdescription", " a"}},
                    "\n, a\n",
                    "row 1: key Description \" a\": comes back from a file of calc as \"a\"",
                    1},
        RowOfStream{"NothingAtAll", {{"adddescription", ""}}, "\n", "row 1: the line says nothing", 1},
        RowOfStream{"BlankCodeOfALineThatCounts",
                    {{"code", " "}, {"timetype", "TTB"}, {"ttbtime", "1"}, {"totaltime", "1"}},
                    "\n,TTB,1\n",
                    "",
                    0},
        RowOfStream{"TimeWithoutACodeThatDoesNotCount",
                    {{"analysisdescription", "a"}, {"code", ""}, {"timetype", "TTB"}, {"ttbtime", "1"}},
                    "\n,a\n",
                    "row 1: key TTBTime \"1\"",
                    1},
        RowOfStream{"OutsideAllTotals",
                    {{"analysisdescription", "a"}, {"code", "*"}, {"timetype", "TTB"}},
                    "\n*,TTB,a\n",
                    "",
                    0},
        RowOfStream{"KeysWithoutAColumn",
                    {{"analysisdescription", "a"}, {"rulein", "x"}, {"bitmask", "4"}, {"linetype", ""}},
                    "\n,a\n",
                    "the line keys Bitmask, RuleIn\n",
                    0}),
    [](const auto& row) { return std::string(row.param.name); });

// An attribute of a stream as a property of a file.
struct AttributeOfStream {
  const char* name;
  const char* key;
  const char* value;
  const char* property;
  const char* words;
  int status;
};

class AttributeOfStreamTest : public testing::TestWithParam<AttributeOfStream> {};

TEST_P(AttributeOfStreamTest, BecomesAProperty) {
  const std::string stream = "Save|||AttributeData:" + std::string(GetParam().key) + ":8:" + GetParam().value + "|";
  const ToolOutcome outcome = RunInProcess({"import", "-", "--lossy"}, {stream, {}, ""});
  EXPECT_EQ(outcome.Output, std::string(GetParam().property) + "code\n");
  EXPECT_EQ(outcome.ExitStatus, 0);
  EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
  EXPECT_EQ(RunInProcess({"import", "-"}, {stream, {}, ""}).ExitStatus, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AttributeOfStreamTest,
    testing::Values(AttributeOfStream{"Name", "name", "Größe", "# name: Größe\n", "", 0},
                    AttributeOfStream{"LineFeeds", "name", "a\n\"b\"", "\"# name: a\n\"\"b\"\"\"\n", "", 0},
                    AttributeOfStream{"System", "subsystem", "MTM1", "# system: MTM1\n", "", 0},
                    AttributeOfStream{"UnknownSystem", "subsystem", "MINE", "", "attribute V_Subsystem \"MINE\"", 1},
                    AttributeOfStream{"SeparatorAtTheEnd", "name", "a;", "# name: a;\n",
                                      "attribute V_Name \"a;\": comes back from a file of calc as \"a\"", 1},
                    AttributeOfStream{"NoProperty", "auditor", "M", "", "no place for them: the attributes Auditor", 0},
                    AttributeOfStream{"EmptyOne", "auditor", "", "", "", 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FileForm, TellsTheIdentifierThatWasGiven) {
  const std::string stream = "Save|||AttributeData:name:8:a";
  EXPECT_EQ(RunInProcess({"import", "-"}, {stream, {}, ""}).Output, "# name: a\ncode\n");
  EXPECT_EQ(RunInProcess({"import", "-", "--identifier", "op/7"}, {stream, {}, ""}).Output,
            "# name: a\n# identifier: op/7\ncode\n");
}

TEST(FileForm, TellsOfAReuseThatAnotherFileWouldAnswer) {
  const support::TemporaryFolder folder;
  folder.Write("in/op/a.stream", "Save|||LineData:t:0:0:8:subanalysis|LineData:t:1:0:13:b");
  folder.Write("in/b.stream", "Save|||AttributeData:name:8:right");
  folder.Write("in/op/b.stream", "Save|||AttributeData:name:8:wrong");
  const ToolOutcome outcome = RunInProcess({"import", folder.Path("in"), "--into", folder.Path("out"), "--lossy"});
  EXPECT_NE(outcome.Errors.find("the reused analysis \"b\" is looked for from the folder of \"op/a\" upward, where "
                                "\"op/b\" is found ahead of it"),
            std::string::npos)
      << outcome.Errors;
}

}  // namespace
