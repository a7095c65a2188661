// Analyses made for the test: what is told of faulty rows, formulas, reuse and folders, and what comes out beside it.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

using Files = std::map<std::string, std::string>;

const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";

ToolOutcome Calc(const support::TemporaryFolder& folder, const std::string& path,
                 std::vector<std::string> options = {}) {
  options.insert(options.begin(), {"calc", folder.Path(path), "--catalogue", frozen_catalogue});
  return RunInProcess(options);
}

std::vector<nlohmann::json> Analyses(const ToolOutcome& outcome) {
  std::vector<nlohmann::json> analyses;
  std::istringstream lines(outcome.Output);
  for (std::string line; std::getline(lines, line);) analyses.push_back(nlohmann::json::parse(line));
  return analyses;
}

void WriteAll(const support::TemporaryFolder& folder, const Files& files) {
  for (const auto& [name, content] : files) folder.Write(name, content);
}

// A row of the system STD, where WALK takes 17 TMU and GR5 10 TMU.
struct FaultyRow {
  const char* name;
  std::string header;
  std::string row;
  const char* words;  // of the message
};

class FaultyRowTest : public testing::TestWithParam<FaultyRow> {};

TEST_P(FaultyRowTest, IsToldAndTheRestIsComputed) {
  const support::TemporaryFolder folder;
  const std::string& header = GetParam().header;
  const std::string good = header.starts_with("code,") ? "WALK\n" : "";
  folder.Write("a.csv", "# system: STD\n" + header + "\n" + good + GetParam().row + "\n");
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 1) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find("/a.csv, line 4: "), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
  const nlohmann::json analysis = Analyses(outcome).front();
  EXPECT_EQ(analysis["complete"], false);
  EXPECT_EQ(analysis["lines"][1]["state"], "flawed");
  EXPECT_EQ(analysis["lines"][1]["total"], nullptr);
  EXPECT_EQ(analysis["totals"]["total"]["tmu"], 17.0);
}

const std::string formula_header = "code,signature,body,values";

INSTANTIATE_TEST_SUITE_P(
    Rows, FaultyRowTest,
    testing::Values(
        FaultyRow{"UnknownCode", "code,frequency", "WALX", "nearest: WALK"},
        FaultyRow{"DecimalComma", "code,frequency", "WALK,\"1,5\"", "as 1.5"},
        FaultyRow{"NotANumber", "code,frequency", "WALK,nan", "the frequency \"nan\" is no number"},
        FaultyRow{"InfiniteFrequency", "code,frequency", "WALK,inf", "the frequency \"inf\" is no number"},
        FaultyRow{"FrequencyBeyondADouble", "code,frequency", "WALK,1e999", "the frequency \"1e999\" is no number"},
        FaultyRow{"NegativeFrequency", "code,frequency", "WALK,-1", "the frequency \"-1\" is no number from 0 on"},
        FaultyRow{"WordAsFrequency", "code,frequency", "WALK,twice", "the frequency \"twice\""},
        FaultyRow{"UnknownTimeType", "code,time type", "WALK,TTX", "the time type \"TTX\" is unknown"},
        FaultyRow{"UnknownSystem", "code,system", "WALK,STX", "\"STX\" is no motion-time system"},
        FaultyRow{"TimeAsText", "code,time", ",long", "\"long\" in the column \"time\""},
        FaultyRow{"NegativeSeconds", "code,seconds", ",-1", "\"-1\" in the column \"seconds\""},
        FaultyRow{"TwoTimes", "code,time,seconds", ",1,2", "leave one empty"},
        FaultyRow{"TimeByFrequencyInfinite", "code,time,frequency", ",1e300,1e300", "no finite number"},
        FaultyRow{"FrequencyAlone", "code,frequency", ",2", "nothing tells the time of this row"},
        FaultyRow{"ReuseMissing", "code,reuse", ",nope", "the reused analysis \"nope\" is not there"},
        FaultyRow{"ReuseOfItself", "code,reuse", ",a", "\"a\" -> \"a\""},
        FaultyRow{"ReuseAbove", "code,reuse", ",../a", "is no plain path"},
        FaultyRow{"ReuseAbsolute", "code,reuse", ",/etc/passwd", "is no plain path"},
        FaultyRow{"ReuseAboveInTheMiddle", "code,reuse", ",b/../../a", "is no plain path"},
        FaultyRow{"ReuseOfThisFolder", "code,reuse", ",./a", "is no plain path"},
        FaultyRow{"ReuseWithBackslash", "code,reuse", ",b\\a", "with \"/\" between folders"},
        FaultyRow{"CodeBesideReuse", "code,reuse", "GR5,nope", "the code \"GR5\" beside a reused analysis"},
        FaultyRow{"TimeBesideReuse", "code,reuse,time", ",nope,1", "a time beside a reused analysis"},
        FaultyRow{"SignatureWithoutBody", formula_header, ",out Time : Time,,", "the formula has no body"},
        FaultyRow{"BodyWithoutSignature", formula_header, ",,Time = 1,", "the formula has no signature"},
        FaultyRow{"SignatureNotReadable", formula_header, ",Time,Time = 1,", "the formula cannot be read"},
        FaultyRow{"BodyNotReadable", formula_header, ",out Time : Time,Time = (,", "the formula cannot be read"},
        FaultyRow{"FormulaFails", formula_header, ",out Time : Time,Time = nothing + 1,", "the formula fails"},
        FaultyRow{"FormulaWithoutEnd", formula_header, ",out Time : Time,while true do end,", "the formula fails"},
        FaultyRow{"NegativeTime", formula_header, ",out Time : Time,Time = -1,", "gives \"Time\" the value -1"},
        FaultyRow{"InfiniteTime", formula_header, ",out Time : Time,Time = 1/0,", "gives \"Time\" the value inf"},
        FaultyRow{"NegativeFrequencyOfAFormula", formula_header,
                  ",\"out Time : Time, out Frequency : Real\",Time = 1; Frequency = -2,",
                  "gives \"Frequency\" the value -2"},
        FaultyRow{"FormulaWithoutTime", formula_header, ",out Description : String,Description = \"a\",",
                  "nothing tells the time of this row"},
        FaultyRow{"ValueMissing", formula_header, ",\"x : Real, out Time : Time\",Time = x,",
                  "input \"x\" (Real) has no value"},
        FaultyRow{"ValueOfNoArgument", formula_header, ",out Time : Time,Time = 1,y=2",
                  "no formula of this row has an argument \"y\"; it has \"Time\""},
        FaultyRow{"ValueOfNoFormula", formula_header, ",,,y=2", "it has none at all"},
        FaultyRow{"ValueTwice", formula_header, ",\"x : Real, out Time : Time\",Time = x,x=1;x=2", "stands twice"},
        FaultyRow{"ValueWithoutName", formula_header, ",out Time : Time,Time = 1,=2", "name=value; name=value"},
        FaultyRow{"ValueWithoutSign", formula_header, ",out Time : Time,Time = 1,2", "name=value; name=value"},
        FaultyRow{"TextForANumber", formula_header, ",\"x : Real, out Time : Time\",Time = x,x=two",
                  "the value \"two\" of \"x\" is not of the type Real"},
        FaultyRow{"FractionForAnInteger", formula_header, ",\"x : Integer, out Time : Time\",Time = x,x=1.5",
                  "a whole number in 32 bits"},
        FaultyRow{"IntegerBeyond32Bits", formula_header, ",\"x : Integer, out Time : Time\",Time = x,x=2147483648",
                  "a whole number in 32 bits"}),
    [](const auto& row) { return std::string(row.param.name); });

// What a good row comes to.
struct GoodRow {
  const char* name;
  std::string header;
  std::string row;
  double tmu;    // one occurrence
  double total;  // all totals of the analysis
  const char* counted_as;
};

class GoodRowTest : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodRowTest, IsCounted) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\n" + GetParam().header + "\n" + GetParam().row + "\n");
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  const nlohmann::json analysis = Analyses(outcome).front();
  EXPECT_NEAR(analysis["lines"][0]["time"]["tmu"].get<double>(), GetParam().tmu, 1e-6);
  EXPECT_NEAR(analysis["totals"]["total"]["tmu"].get<double>(), GetParam().total, 1e-6);
  EXPECT_EQ(analysis["totals"]["total"], analysis["totals"][GetParam().counted_as]);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GoodRowTest,
    testing::Values(
        GoodRow{"Code", "code", "WALK", 17, 17, "human"}, GoodRow{"SmallLetters", "code", "walk", 17, 17, "human"},
        GoodRow{"FrequencyZero", "code,frequency", "WALK,0", 17, 0, "human"},
        GoodRow{"TimeTypeOfTheCatalogue", "code", "L40A", 20, 20, "machine"},
        GoodRow{"TimeTypeOfTheRow", "code,time type", "L40A,waiting", 20, 20, "waiting"},
        GoodRow{"FrequencyOfTheCatalogueIsNotTaken", "code,frequency", "L40A,", 20, 20, "machine"},
        GoodRow{"SystemOfTheRow", "code,system", "M4,MODAPTS", 4 * 0.129 / 0.036, 4 * 0.129 / 0.036, "human"},
        GoodRow{"EnteredTime", "time,frequency", "12.5,2", 12.5, 25, "human"},
        GoodRow{"EnteredSeconds", "seconds,time type", "3.6,setup", 100, 100, "setup"},
        GoodRow{"EnteredTimeWithACodeOfItsOwn", "code,time", "MINE,5", 5, 5, "human"},
        GoodRow{"UnknownTotalWithTwoStars", "time,time type", "5,T**", 5, 5, "human"},
        GoodRow{"Formula", formula_header, ",\"x : Real, out Time : Time\",Time = x * 0.036,x=2.5", 2.5, 2.5, "human"},
        GoodRow{"FormulaAsAPlainExpression", formula_header, ",\"n : Integer, out Time : Time\",0.036 * n,n=3", 3, 3,
                "human"},
        GoodRow{"FormulaWithAText", formula_header,
                ",\"s : String, out Time : Time\",\"if s == \"\"a b\"\" then Time = 3.6 end\",s=a b", 100, 100,
                "human"},
        GoodRow{"FormulaWithItsFrequency", formula_header,
                ",\"out Time : Time, out Frequency : Real\",Time = 3.6; Frequency = 0.5,", 100, 50, "human"},
        GoodRow{"FormulaThatLeavesTheFrequency", "frequency,signature,body",
                "3,\"out Time : Time, out Frequency : Real\",Time = 3.6", 100, 300, "human"},
        GoodRow{"FormulaForMachineTime", "time type,signature,body", "TTU,out Time : Time,Time = 3.6", 100, 100,
                "machine"},
        GoodRow{"FormulaWithACodeOfItsOwn", formula_header, "MINE,out Time : Time,Time = 3.6,", 100, 100, "human"},
        GoodRow{"FormulaForTheFrequencyOfACode", formula_header, "L40A,out Frequency : Real,Frequency = 3,", 20, 60,
                "machine"},
        GoodRow{"OutputWithAValue", formula_header, ",out Time : Time,Time = Time * 2,Time=1.8", 100, 100, "human"},
        GoodRow{"FormulaOverSeveralLines", formula_header, ",out Time : Time,\"local t = 3.6\nTime = t\",", 100, 100,
                "human"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Descriptions, MayComeFromTheFormula) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv",
               "description,signature,body\nOld,\"out Time : Time, out Description : String\",Time = 1; Description = "
               "\"New\"\n");
  EXPECT_EQ(Analyses(Calc(folder, "a.csv", {"--json"})).front()["lines"][0]["description"], "New");
}

TEST(Rows, KeepTheirFurtherTexts) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "time,value added,additional description,picture\n1,NVA,\"more,\nmuch more\",p.png\n");
  const nlohmann::json line = Analyses(Calc(folder, "a.csv", {"--json"})).front()["lines"][0];
  EXPECT_EQ(line["valueAdded"], "NVA");
  EXPECT_EQ(line["additionalDescription"], "more,\nmuch more");
  EXPECT_EQ(line["picture"], "p.png");
}

TEST(Rows, OutsideAllTotalsShowTheirTimeAndDoNotCount) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "code,time,reuse\n*,5,\n*,,b\n,7,\n"}, {"b.csv", "time\n3\n"}});
  const nlohmann::json analysis = Analyses(Calc(folder, "a.csv", {"--json"})).front();
  EXPECT_EQ(analysis["lines"][0]["time"]["tmu"], 5.0);
  EXPECT_EQ(analysis["lines"][1]["time"]["tmu"], 3.0);
  EXPECT_EQ(analysis["lines"][1]["reuse"], "b");
  EXPECT_EQ(analysis["totals"]["total"]["tmu"], 7.0);
  EXPECT_EQ(analysis["complete"], true);
}

TEST(Texts, ThatAreNoUtf8AreReadAsWindows1252) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "time,description\n1,T\xFCr\n2,\"T\xFCr \x80\"\n");
  const nlohmann::json analysis = Analyses(Calc(folder, "a.csv", {"--json"})).front();
  EXPECT_EQ(analysis["lines"][0]["description"], "T\xC3\xBCr");
  EXPECT_EQ(analysis["lines"][1]["description"], "T\xC3\xBCr \xE2\x82\xAC");
}

// ------------------------------------------------------------------------------------------------------------ Reuse

struct ReuseRow {
  const char* name;
  Files files;
  const char* asked_for;
  double tmu;  // of the analysis that is written last
  std::size_t written;
};

class ReuseTest : public testing::TestWithParam<ReuseRow> {};

TEST_P(ReuseTest, CountsTheReusedAnalysis) {
  const support::TemporaryFolder folder;
  WriteAll(folder, GetParam().files);
  const ToolOutcome outcome = Calc(folder, GetParam().asked_for, {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  const std::vector<nlohmann::json> analyses = Analyses(outcome);
  ASSERT_EQ(analyses.size(), GetParam().written);
  EXPECT_NEAR(analyses.back()["totals"]["total"]["tmu"].get<double>(), GetParam().tmu, 1e-6);
}

const std::string template_with_formula =
    "signature,body,values,time\n\"x : Real, out Time : Time, out Frequency : Real\",Time = x * 0.036,x=10,\n,,,5\n";

INSTANTIATE_TEST_SUITE_P(
    Rows, ReuseTest,
    testing::Values(
        ReuseRow{"ByName", {{"a.csv", "reuse\nb\n"}, {"b.csv", "time\n5\n"}}, "a.csv", 5, 1},
        ReuseRow{"ByFileName", {{"a.csv", "reuse\nb.csv\n"}, {"b.csv", "time\n5\n"}}, "a.csv", 5, 1},
        ReuseRow{"ByFrequency", {{"a.csv", "reuse,frequency\nb,3\n"}, {"b.csv", "time\n5\n"}}, "a.csv", 15, 1},
        ReuseRow{"BelowTheFolder", {{"a.csv", "reuse\nsub/b\n"}, {"sub/b.csv", "time\n5\n"}}, "a.csv", 5, 1},
        ReuseRow{"BesideTheFileFirst",
                 {{"z/a.csv", "reuse\nb\n"}, {"z/b.csv", "time\n5\n"}, {"b.csv", "time\n6\n"}},
                 "",
                 5,
                 3},
        ReuseRow{"ThenAbove", {{"z/y/a.csv", "reuse\nt/b\n"}, {"t/b.csv", "time\n6\n"}}, "", 6, 2},
        ReuseRow{"WholeFolder", {{"a.csv", "reuse\nb\n"}, {"b.csv", "time\n5\n"}}, "", 5, 2},
        ReuseRow{"FourLevels",
                 {{"a.csv", "reuse\nb\nb\n"},
                  {"b.csv", "reuse\nc\nc\n"},
                  {"c.csv", "reuse\nd\nd\n"},
                  {"d.csv", "time\n1\n"}},
                 "a.csv",
                 8,
                 1},
        ReuseRow{"SetupCountsOnTopOfTheTotal",
                 {{"a.csv", "reuse\nb\n"}, {"b.csv", "time,time type\n5,TTB\n1,setup\n"}},
                 "a.csv",
                 7,
                 1},
        ReuseRow{"Formula", {{"a.csv", "reuse\nb\n"}, {"b.csv", template_with_formula}}, "a.csv", 15, 1},
        ReuseRow{"FormulaByFrequency",
                 {{"a.csv", "reuse,frequency\nb,2\n"}, {"b.csv", template_with_formula}},
                 "a.csv",
                 30,
                 1},
        ReuseRow{"FormulaWithAnotherValue",
                 {{"a.csv", "reuse,values\nb,x=20\n"}, {"b.csv", template_with_formula}},
                 "a.csv",
                 25,
                 1},
        ReuseRow{"FormulaOverTwoLevels",
                 {{"a.csv", "reuse\nb\n"}, {"b.csv", "reuse,time\nc,\n,1\n"}, {"c.csv", template_with_formula}},
                 "a.csv",
                 16,
                 1},
        ReuseRow{
            "ValueChangedBetweenTheLevels",
            {{"a.csv", "reuse\nb\n"}, {"b.csv", "reuse,time,values\nc,,x=30\n,1,\n"}, {"c.csv", template_with_formula}},
            "a.csv",
            36,
            1},
        ReuseRow{
            "FormulaOfItsOwnOnTop",
            {{"a.csv", "reuse,signature,body\nb,out Time : Time,Time = 0.036\n"}, {"b.csv", template_with_formula}},
            "a.csv",
            16,
            1},
        ReuseRow{
            "DescriptionFromTheName", {{"a.csv", "reuse\nb\n"}, {"b.csv", "# name: B\ntime\n5\n"}}, "a.csv", 5, 1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Reuse, IsLookedForUpToTheFolderOfTheModel) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"op/a.csv", "reuse\nt/b\n"}, {"t/b.csv", "time\n6\n"}});
  const ToolOutcome alone = Calc(folder, "op/a.csv");
  EXPECT_EQ(alone.ExitStatus, 1);
  EXPECT_NE(alone.Errors.find("op/t/b.csv\". Folders further up are searched"), std::string::npos) << alone.Errors;
  const ToolOutcome outcome = Calc(folder, "op/a.csv", {"--model", folder.Path(), "--json"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  EXPECT_EQ(Analyses(outcome).front()["identifier"], "op/a");
  EXPECT_EQ(Analyses(outcome).front()["totals"]["total"]["tmu"], 6.0);
}

// A row above carries a formula once, with the frequency that the formula gives: where the two differ, it is told.
TEST(Reuse, TellsWhereCarriedFormulasComeToAnotherTime) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "reuse\nb\n"}, {"b.csv", "reuse,frequency\nc,2\n"}, {"c.csv", template_with_formula}});
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find(
                "a.csv, line 2: the formulas carried up from \"b\" give 0.54 s, while its own total is 1.08 s"),
            std::string::npos)
      << outcome.Errors;
  const nlohmann::json analysis = Analyses(outcome).front();
  EXPECT_EQ(analysis["lines"][0]["state"], "flawed");
  EXPECT_EQ(analysis["complete"], false);
}

struct WrongFormulaTime {
  const char* name;
  const char* row;    // code, signature, body, frequency
  const char* words;  // of the message
};

class WrongFormulaTimeTest : public testing::TestWithParam<WrongFormulaTime> {};

TEST_P(WrongFormulaTimeTest, IsSeenAfterTheCalculation) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", std::string("# system: STD\ncode,signature,body,frequency\n") + GetParam().row + "\n");
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
  const nlohmann::json analysis = Analyses(outcome).front();
  EXPECT_EQ(analysis["lines"][0]["state"], "flawed");
  EXPECT_EQ(analysis["complete"], false);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongFormulaTimeTest,
    testing::Values(WrongFormulaTime{"NoneBesideAnUnknownCode", "WALX,out Time : Time,Time = 0,", "nearest: WALK"},
                    WrongFormulaTime{"InfiniteByFrequency", ",out Time : Time,Time = 1e305,1e300", "no finite number"},
                    WrongFormulaTime{"InfiniteInTmu", ",out Time : Time,Time = 1e308,", "no finite number"}),
    [](const auto& row) { return std::string(row.param.name); });

struct ReuseFaultRow {
  const char* name;
  Files files;
  std::vector<std::string> words;  // each in a message
};

class ReuseFaultTest : public testing::TestWithParam<ReuseFaultRow> {};

TEST_P(ReuseFaultTest, IsToldAndAllAnalysesAreWritten) {
  const support::TemporaryFolder folder;
  WriteAll(folder, GetParam().files);
  const ToolOutcome outcome = Calc(folder, "", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 1) << outcome.Errors;
  for (const std::string& words : GetParam().words) {
    EXPECT_NE(outcome.Errors.find(words), std::string::npos) << outcome.Errors;
  }
  EXPECT_EQ(Analyses(outcome).size(), GetParam().files.size());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReuseFaultTest,
    testing::Values(
        ReuseFaultRow{"CircleOfThree",
                      {{"a.csv", "reuse\nb\n"}, {"b.csv", "time,reuse\n1,\n,c\n"}, {"c.csv", "reuse\na\n"}},
                      {"c.csv, line 2: a circle of reuse: \"a\" -> \"b\" -> \"c\" -> \"a\"",
                       "b.csv, line 3: the reused analysis \"c\" is incomplete"}},
        ReuseFaultRow{"SharedIdentifier",
                      {{"a.csv", "# identifier: T\ntime\n1\n"}, {"b.csv", "\n# identifier: T\ntime\n1\n"}},
                      {"b.csv, line 2: the identifier \"T\" is that of ", "/a.csv as well"}},
        ReuseFaultRow{"IdentifierOfAnotherFile",
                      {{"a.csv", "# identifier: b\ntime\n1\n"}, {"b.csv", "time\n1\n"}},
                      {"b.csv: the identifier \"b\" is that of "}},
        ReuseFaultRow{"BarInAnIdentifier",
                      {{"a|b.csv", "signature,body\nout Time : Time,Time = 1\n"}, {"c.csv", "reuse\na|b\n"}},
                      {"the identifier \"a|b\" holds a \"|\""}},
        ReuseFaultRow{"ReusedAnalysisIncomplete",
                      {{"a.csv", "reuse\nb\n"}, {"b.csv", "time\n1\nlong\n"}},
                      {"a.csv, line 2: the reused analysis \"b\" is incomplete", "b.csv, line 3: \"long\""}},
        ReuseFaultRow{"ValueChangedSoThatTheFormulaFails",
                      {{"a.csv", "reuse,values\nb,x=-1\n"}, {"b.csv", template_with_formula}},
                      {"a.csv, line 2: the formula gives \"Time\" the value"}},
        ReuseFaultRow{"ValueOfNoCarriedFormula",
                      {{"a.csv", "reuse,values\nb,y=1\n"}, {"b.csv", template_with_formula}},
                      {"no formula of this row has an argument \"y\"; it has \"x\", \"Time\", \"Frequency\""}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Reuse, OfAFileThatCannotBeReadIsTold) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "reuse\nb\n"}, {"b.csv", ""}});
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("b.csv: no header row"), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find("a.csv, line 2: the reused analysis \"b\" is incomplete"), std::string::npos)
      << outcome.Errors;
}

TEST(Reuse, OfVeryManyLevelsTakesNoStack) {
  const support::TemporaryFolder folder;
  constexpr int levels = 10'000;
  for (int level = 0; level < levels; ++level) {
    const std::string next = level + 1 < levels ? "a" + std::to_string(level + 1) : "";
    folder.Write("a" + std::to_string(level) + ".csv", "reuse,time\n" + next + ",\n,1\n");
  }
  const ToolOutcome outcome = Calc(folder, "a0.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors.substr(0, 500);
  EXPECT_NEAR(Analyses(outcome).front()["totals"]["total"]["tmu"].get<double>(), levels, 1e-3);
}

TEST(Reuse, OfALadderOfFormulasStaysSmall) {
  const support::TemporaryFolder folder;
  constexpr int steps = 40;
  for (int step = 0; step < steps; ++step) {
    const std::string next = "a" + std::to_string(step + 1);
    folder.Write("a" + std::to_string(step) + ".csv", "reuse\n" + next + "\n" + next + "\n");
  }
  folder.Write("a" + std::to_string(steps) + ".csv", template_with_formula);
  EXPECT_EQ(Analyses(Calc(folder, "", {"--json"})).size(), steps + 1u);
}

TEST(Reuse, OfTooManyFormulaParametersIsTold) {
  const support::TemporaryFolder folder;
  std::string signature = "out Time : Time";
  for (int output = 1; output < 100; ++output) signature += ", out o" + std::to_string(output) + " : Real";
  std::string rows;
  for (int row = 0; row < 11; ++row) rows += "\"" + signature + "\",Time = 0.036\n";
  WriteAll(folder, {{"a.csv", "reuse\nb\n"}, {"b.csv", "signature,body\n" + rows}});
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find("a.csv, line 2: more than 1000 formula parameters are carried up to one row"),
            std::string::npos)
      << outcome.Errors;
  EXPECT_EQ(Analyses(outcome).front()["complete"], false);
}

// ---------------------------------------------------------------------------------------------------------- Folders

TEST(Folders, AreWalkedInTheOrderOfTheirNames) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"b.csv", "time\n1\n"},
                    {"a/z.csv", "time\n1\n"},
                    {"c/a.csv", "time\n1\n"},
                    {"a.csv", "time\n1\n"},
                    {".git/x.csv", "time\n1\n"},
                    {".hidden.csv", "time\n1\n"},
                    {"notes.txt", "no analysis"}});
  std::vector<std::string> identifiers;
  for (const nlohmann::json& analysis : Analyses(Calc(folder, "", {"--json"})))
    identifiers.push_back(analysis["identifier"]);
  EXPECT_EQ(identifiers, (std::vector<std::string>{"a", "b", "a/z", "c/a"}));
}

TEST(Folders, WithoutAnalysesAreTold) {
  const support::TemporaryFolder folder;
  folder.Write("empty/notes.txt", "none");
  const ToolOutcome outcome = Calc(folder, "empty");
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("the folder holds no analysis"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(outcome.Output, "");
}

TEST(Links, InCirclesAreNotFollowed) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"sub/a.csv", "time\n1\n"}});
  std::filesystem::create_directory_symlink(folder.Path(), folder.Path("sub/up"));
  std::filesystem::create_symlink("loop.csv", folder.Path("loop.csv"));
  const ToolOutcome outcome = Calc(folder, "", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("loop.csv: cannot be read: "), std::string::npos) << outcome.Errors;
  EXPECT_EQ(Analyses(outcome).size(), 1u);
}

TEST(Links, OutOfTheFolderAreNotRead) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"secret.csv", "time\n99\n"}, {"model/a.csv", "reuse\nlink\n"}, {"model/b.csv", "time\n1\n"}});
  std::filesystem::create_symlink(folder.Path("secret.csv"), folder.Path("model/link.csv"));
  const ToolOutcome outcome = Calc(folder, "model", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("link.csv: a link that leads out of the folder"), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find("a.csv, line 2: the reused analysis \"link\""), std::string::npos) << outcome.Errors;
  EXPECT_EQ(outcome.Output.find("99"), std::string::npos);
}

TEST(Links, WithinTheFolderAndThoseNamedAreRead) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"far/secret.csv", "time\n99\n"}, {"model/a.csv", "reuse\nlink\n"}, {"model/b.csv", "time\n1\n"}});
  std::filesystem::create_symlink("b.csv", folder.Path("model/link.csv"));
  EXPECT_EQ(Calc(folder, "model").ExitStatus, 0);
  std::filesystem::create_symlink(folder.Path("far/secret.csv"), folder.Path("named.csv"));
  EXPECT_EQ(Calc(folder, "named.csv").ExitStatus, 0);
}

TEST(Paths, ThatAreNoAnalysesAreTold) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "time\n1\n"}});
  folder.MakeFolder("folder.csv");
  ASSERT_EQ(mkfifo(folder.Path("pipe.csv").c_str(), 0600), 0);
  EXPECT_EQ(Calc(folder, "a.csv/b.csv").ExitStatus, 2);
  EXPECT_NE(Calc(folder, "pipe.csv").Errors.find("not a regular file"), std::string::npos);
  EXPECT_EQ(Calc(folder, "folder.csv").ExitStatus, 2);
}

// The superuser reads everything: the test is somebody else as long as this lives.
class NotTheSuperuser {
 public:
  NotTheSuperuser() { EXPECT_TRUE(_Was != 0 || seteuid(Nobody) == 0); }
  ~NotTheSuperuser() { EXPECT_TRUE(_Was != 0 || seteuid(_Was) == 0); }
  NotTheSuperuser(const NotTheSuperuser&) = delete;
  NotTheSuperuser& operator=(const NotTheSuperuser&) = delete;

 private:
  static constexpr uid_t Nobody = 65534;
  uid_t _Was = geteuid();
};

TEST(Paths, WithoutPermissionAreTold) {
  using std::filesystem::perms;
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "time\n1\n"}, {"locked/b.csv", "time\n1\n"}, {"c.csv", "time\n1\n"}});
  std::filesystem::permissions(folder.Path("a.csv"), perms::none);
  std::filesystem::permissions(folder.Path("locked"), perms::none);
  std::filesystem::permissions(folder.Path(), perms::owner_all | perms::group_read | perms::group_exec |
                                                  perms::others_read | perms::others_exec);
  ToolOutcome outcome;
  {
    const NotTheSuperuser somebody;
    outcome = Calc(folder, "", {"--json"});
  }
  std::filesystem::permissions(folder.Path("locked"), perms::owner_all);
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("a.csv: cannot be read: "), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find("locked: the folder cannot be read: "), std::string::npos) << outcome.Errors;
  EXPECT_EQ(Analyses(outcome).size(), 1u);
}

TEST(Files, ThatAreNoTextDoNoHarm) {
  const support::TemporaryFolder folder;
  std::string bytes;
  unsigned state = 1;
  for (int count = 0; count < 100'000; ++count) {
    state = state * 1664525u + 1013904223u;
    bytes += static_cast<char>(state >> 24);
  }
  WriteAll(folder, {{"binary.csv", bytes}, {"good.csv", "time\n1\n"}});
  const ToolOutcome outcome = Calc(folder, "", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_LT(outcome.Errors.size(), 10'000u);
  EXPECT_EQ(Analyses(outcome).back()["identifier"], "good");
}

TEST(Files, WithOneFaultAreReadUpToThere) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "time\n1\n2\n\"3\n4\n");
  const ToolOutcome outcome = Calc(folder, "a.csv", {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("a.csv, line 4: a cell begins with a quote"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(Analyses(outcome).front()["complete"], false);
  EXPECT_EQ(Analyses(outcome).front()["totals"]["total"]["tmu"], 3.0);
}

// ------------------------------------------------------------------------------------------------------------ Units

struct UnitRow {
  const char* unit;
  const char* heading;
  const char* line_total;
  const char* total;
};

class UnitTest : public testing::TestWithParam<UnitRow> {};

TEST_P(UnitTest, IsThatOfAllTimes) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "time,frequency\n1000,2\n0.5,1\n");
  const std::string table = Calc(folder, "a.csv", {"--unit", GetParam().unit}).Output;
  EXPECT_NE(table.find(std::string("TOTAL (") + GetParam().heading + ")"), std::string::npos) << table;
  EXPECT_NE(table.find(std::string(" ") + GetParam().line_total + "\n"), std::string::npos) << table;
  EXPECT_NE(table.find(std::string(" ") + GetParam().total + "\n"), std::string::npos) << table;
}

INSTANTIATE_TEST_SUITE_P(Rows, UnitTest,
                         testing::Values(UnitRow{"tmu", "TMU", "2000.0", "2000.5"},
                                         UnitRow{"s", "s", "72.000", "72.018"},
                                         UnitRow{"min", "min", "1.2000", "1.2003"},
                                         UnitRow{"h", "h", "0.020000", "0.020005"},
                                         UnitRow{"mod", "MOD", "558.139535", "558.279070"}),
                         [](const auto& row) { return std::string(row.param.unit); });

// 2,000 TMU per minute: 0.03 s each. Times of codes follow, entered seconds stay.
TEST(Settings, OfTheSiteConvert) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\ncode,time,seconds\nWALK,,\n,100,\n,,3\n");
  const std::string settings = folder.Write("my.settings", "mintotmuconversion = 2000\n");
  const nlohmann::json analysis = Analyses(Calc(folder, "a.csv", {"--json", "--settings", settings})).front();
  const std::vector<std::pair<double, double>> expected{{17, 0.51}, {100, 3}, {100, 3}};
  for (std::size_t line = 0; line < expected.size(); ++line) {
    EXPECT_DOUBLE_EQ(analysis["lines"][line]["time"]["tmu"].get<double>(), expected[line].first);
    EXPECT_DOUBLE_EQ(analysis["lines"][line]["time"]["seconds"].get<double>(), expected[line].second);
  }
  EXPECT_DOUBLE_EQ(analysis["totals"]["total"]["seconds"].get<double>(), 6.51);
  EXPECT_DOUBLE_EQ(analysis["totals"]["total"]["tmu"].get<double>(), 217);
}

TEST(Forms, OfManyAnalysesStandBelowEachOther) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"a.csv", "time,description\n1,\"a, \"\"b\"\"\"\n"}, {"b.csv", "time\n2\n"}});
  const std::string csv = Calc(folder, "", {"--csv"}).Output;
  EXPECT_EQ(csv.rfind("file,identifier,kind", 0), 0u);
  EXPECT_EQ(csv.find("file,identifier,kind", 1), std::string::npos) << "one header";
  EXPECT_NE(csv.find(",\"a, \"\"b\"\"\",TTB,1,1,1,tmu,counted\n"), std::string::npos) << csv;
  EXPECT_EQ(Analyses(Calc(folder, "", {"--json"})).size(), 2u);
  const std::string table = Calc(folder, "").Output;
  EXPECT_NE(table.find("\n\n" + folder.Path("b.csv")), std::string::npos) << "a blank line between two";
}

}  // namespace
