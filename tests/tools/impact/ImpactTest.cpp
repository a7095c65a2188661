// What the change of a template touches, and the files brought up to date.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/system/KORFault.h"
#include "tests/tools/impact/ImpactRuns.h"

namespace {

// ------------------------------------------------------------------------------------------------ What is touched

struct ImpactRow {
  const char* name;
  Files files;  // the template is t
  std::vector<Touched> touched;
  Files changed;  // by --apply
};

class ImpactTest : public testing::TestWithParam<ImpactRow> {};

TEST_P(ImpactTest, ListsWhatAChangeTouchesAndWritesNothing) {
  const support::TemporaryFolder folder;
  WriteAll(folder, GetParam().files);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--json"});
  EXPECT_EQ(outcome.Errors, "");
  EXPECT_EQ(outcome.ExitStatus, 0);
  EXPECT_EQ(TouchedOf(outcome), GetParam().touched);
  EXPECT_EQ(ReadAll(folder, GetParam().files), GetParam().files);
}

TEST_P(ImpactTest, AppliesItToTheFilesOnce) {
  const support::TemporaryFolder folder;
  WriteAll(folder, GetParam().files);
  Files expected = GetParam().files;
  for (const auto& [name, content] : GetParam().changed) expected[name] = content;
  std::vector<Touched> applied = GetParam().touched;
  for (Touched& touched : applied) {
    if (touched.State == "changes") touched.State = "written";
  }
  const ToolOutcome first = RunImpact(folder, "t", {"--json", "--apply"});
  EXPECT_EQ(first.Errors, "");
  EXPECT_EQ(first.ExitStatus, 0);
  EXPECT_EQ(TouchedOf(first), applied);
  EXPECT_EQ(ReadAll(folder, GetParam().files), expected);

  for (Touched& touched : applied) {
    touched.State = "follows";
    touched.Old = *touched.New;
  }
  const ToolOutcome second = RunImpact(folder, "t", {"--json", "--apply"});
  EXPECT_EQ(second.ExitStatus, 0);
  EXPECT_EQ(TouchedOf(second), applied) << "the second time changes nothing";
  EXPECT_EQ(ReadAll(folder, GetParam().files), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ImpactTest,
    testing::Values(
        ImpactRow{"NothingReusesIt", {{"t.csv", template_of_100}, {"a.csv", "time\n1\n"}}, {}, {}},
        ImpactRow{"ARowWithoutARecordedTimeFollowsByItself",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse\nt\n"}},
                  {{"a", 1, "follows", 100, 100}},
                  {}},
        ImpactRow{"ARecordedTimeIsTakenOver",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}},
                  {{"a", 1, "changes", 50, 100}},
                  {{"a.csv", "reuse,recorded\nt,3.6\n"}}},
        ImpactRow{"ARecordedTimeOfNothing",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,0\n"}},
                  {{"a", 1, "changes", 0, 100}},
                  {{"a.csv", "reuse,recorded\nt,3.6\n"}}},
        ImpactRow{"ARecordedTimeThatIsThePresentOneStaysAsItIsWritten",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,+3.60\n"}},
                  {{"a", 1, "follows", 100, 100}},
                  {}},
        ImpactRow{"Frequency",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded,frequency\nt,1.8,2.5\n"}},
                  {{"a", 1, "changes", 125, 250}},
                  {{"a.csv", "reuse,recorded,frequency\nt,3.6,2.5\n"}}},
        ImpactRow{"FrequencyGoesUpAllLevels",
                  {{"t.csv", template_of_100},
                   {"a.csv", "reuse,recorded,frequency\nt,1.8,2\n"},
                   {"b.csv", "reuse,recorded\na,3.6\n"},
                   {"c.csv", "reuse,recorded,frequency\nb,3.6,3\n"},
                   {"d.csv", "reuse\nc\n"}},
                  {{"a", 1, "changes", 100, 200},
                   {"b", 2, "changes", 100, 200},
                   {"c", 3, "changes", 300, 600},
                   {"d", 4, "follows", 300, 600}},
                  {{"a.csv", "reuse,recorded,frequency\nt,3.6,2\n"},
                   {"b.csv", "reuse,recorded\na,7.2\n"},
                   {"c.csv", "reuse,recorded,frequency\nb,7.2,3\n"}}},
        ImpactRow{"Chain",
                  {{"t.csv", template_of_100},
                   {"a.csv", "reuse,recorded,time\nt,1.8,\n,,10\n"},
                   {"b.csv", "reuse\na\n"},
                   {"c.csv", "reuse,recorded\nb,2.16\n"}},
                  {{"a", 1, "changes", 60, 110}, {"b", 2, "follows", 60, 110}, {"c", 3, "changes", 60, 110}},
                  {{"a.csv", "reuse,recorded,time\nt,3.6,\n,,10\n"}, {"c.csv", "reuse,recorded\nb,3.96\n"}}},
        ImpactRow{"TwoRows",
                  {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\nt,\nt,3.6\n"}},
                  {{"a", 1, "changes", 250, 300}},
                  {{"a.csv", "reuse,recorded\nt,3.6\nt,\nt,3.6\n"}}},
        ImpactRow{"Diamond",
                  {{"t.csv", template_of_100},
                   {"a.csv", "reuse,recorded\nt,1.8\n"},
                   {"b.csv", "reuse\nt\nt\n"},
                   {"c.csv", "reuse,recorded\na,1.8\nb,\nt,3.6\n"}},
                  {{"a", 1, "changes", 50, 100}, {"b", 1, "follows", 200, 200}, {"c", 2, "changes", 350, 400}},
                  {{"a.csv", "reuse,recorded\nt,3.6\n"}, {"c.csv", "reuse,recorded\na,3.6\nb,\nt,3.6\n"}}},
        ImpactRow{"SetupCountsOnTop",
                  {{"t.csv", "time,time type\n100,\n10,setup\n"}, {"a.csv", "reuse,recorded\nt,0\n"}},
                  {{"a", 1, "changes", 0, 120}},
                  {{"a.csv", "reuse,recorded\nt,4.32\n"}}},
        ImpactRow{
            "ATimeTypeOfTheRow",
            {{"t.csv", template_of_100},
             {"a.csv", "reuse,recorded,time type,frequency\nt,1.8,setup,2\n"},
             {"b.csv", "reuse,recorded\na,0\n"}},
            {{"a", 1, "changes", 100, 200}, {"b", 2, "changes", 0, 400}},
            {{"a.csv", "reuse,recorded,time type,frequency\nt,3.6,setup,2\n"}, {"b.csv", "reuse,recorded\na,14.4\n"}}},
        ImpactRow{"ARowOutsideAllTotalsIsBroughtUpToDateToo",
                  {{"t.csv", template_of_100}, {"a.csv", "code,reuse,recorded,time\n*,t,1.8,\n,,,7\n"}},
                  {{"a", 1, "changes", 7, 7}},
                  {{"a.csv", "code,reuse,recorded,time\n*,t,3.6,\n,,,7\n"}}},
        ImpactRow{"OtherRecordedTimesAreLeftAlone",
                  {{"t.csv", template_of_100}, {"o.csv", "time\n30\n"}, {"a.csv", "reuse,recorded\nt,1.8\no,0.36\n"}},
                  {{"a", 1, "changes", 60, 110}},
                  {{"a.csv", "reuse,recorded\nt,3.6\no,0.36\n"}}},
        ImpactRow{"ATemplateThatReusesOthers",
                  {{"o.csv", "time\n30\n"}, {"t.csv", "reuse,recorded\no,0.36\n"}, {"a.csv", "reuse,recorded\nt,0\n"}},
                  {{"a", 1, "changes", 0, 10}},
                  {{"a.csv", "reuse,recorded\nt,0.36\n"}}},
        ImpactRow{"FormulasAreEvaluatedAnew",
                  {{"t.csv", "signature,body,values\n\"x : Real, out Time : Time\",Time = x * 0.036,x=10\n"},
                   {"a.csv", "reuse,recorded,values\nt,0.72,x=20\n"},
                   {"b.csv", "reuse\na\n"}},
                  {{"a", 1, "changes", 20, 20}, {"b", 2, "follows", 20, 20}},
                  {{"a.csv", "reuse,recorded,values\nt,0.36,x=20\n"}}},
        ImpactRow{"ARowWithAFormulaOfItsOwn",
                  {{"t.csv", template_of_100},
                   {"a.csv", "reuse,recorded,signature,body\nt,1.8,out Time : Time,Time = 0.36\n"}},
                  {{"a", 1, "changes", 110, 110}},
                  {{"a.csv", "reuse,recorded,signature,body\nt,3.6,out Time : Time,Time = 0.36\n"}}},
        ImpactRow{"IdentifiersAndNamesThatAreNoAscii",
                  {{"t.csv", template_of_100},
                   {"Straße/größe.csv", "# name: Gehäuse\nreuse,recorded,description\nt,1.8,für\n"}},
                  {{"Straße/größe", 1, "changes", 50, 100}},
                  {{"Straße/größe.csv", "# name: Gehäuse\nreuse,recorded,description\nt,3.6,für\n"}}},
        ImpactRow{
            "FilesInSubFolders",
            {{"t.csv", template_of_100},
             {"x/a.csv", "reuse,recorded\nt,1.8\n"},
             {"x/y/b.csv", "# identifier: B-1\nreuse,recorded\na,1.8\n"}},
            {{"x/a", 1, "changes", 50, 100}, {"B-1", 2, "changes", 50, 100}},
            {{"x/a.csv", "reuse,recorded\nt,3.6\n"}, {"x/y/b.csv", "# identifier: B-1\nreuse,recorded\na,3.6\n"}}},
        ImpactRow{"LineEndsQuotesCommentsAndOrderStay",
                  {{"t.csv", template_of_100},
                   {"a.csv",
                    "\xEF\xBB\xBF# name: A;;\r\n# a note\r\nDescription;Recorded;Reuse\r\n\r\n\"x;\r\n\"\"y\"\"\";\" "
                    "1.8 \";t\r\n;;\r\n# end; 1.8\r\nlast; 1.8\t;t"}},
                  {{"a", 1, "changes", 100, 200}},
                  {{"a.csv",
                    "\xEF\xBB\xBF# name: A;;\r\n# a note\r\nDescription;Recorded;Reuse\r\n\r\n\"x;\r\n\"\"y\"\"\";\" "
                    "3.6 \";t\r\n;;\r\n# end; 1.8\r\nlast; 3.6\t;t"}}},
        ImpactRow{"TextsThatAreNoUtf8Stay",
                  {{"t.csv", template_of_100}, {"a.csv", "description,reuse,recorded\nT\xFCr \x80,t,1.8\n"}},
                  {{"a", 1, "changes", 50, 100}},
                  {{"a.csv", "description,reuse,recorded\nT\xFCr \x80,t,3.6\n"}}},
        ImpactRow{
            "CodesOfACatalogue",
            {{"t.csv", "# system: STD\ncode\nWALK\n"}, {"a.csv", "# system: STD\ncode,reuse,recorded\n,t,0\nGR5,,\n"}},
            {{"a", 1, "changes", 10, 27}},
            {{"a.csv", "# system: STD\ncode,reuse,recorded\n,t,0.612\nGR5,,\n"}}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Impact, TellsTheRowsThatReuse) {
  const support::TemporaryFolder folder;
  WriteAll(
      folder,
      {{"t.csv", template_of_100}, {"a.csv", "reuse\nt\n"}, {"b.csv", "# name: Both\nreuse,time\nt,\n,1\na,\nt,\n"}});
  const std::vector<nlohmann::json> objects = Objects(RunImpact(folder, "t", {"--json"}));
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(objects[1]["file"], folder.Path("b.csv"));
  EXPECT_EQ(objects[1]["name"], "Both");
  EXPECT_EQ(objects[1]["uses"].dump(), R"([{"lines":[3,6],"reused":"t"},{"lines":[5],"reused":"a"}])");
}

TEST(Impact, ATemplateInTheMiddleTouchesWhatIsAboveIt) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse\nt\n"}, {"b.csv", "reuse,recorded\na,1.8\n"}});
  EXPECT_EQ(TouchedOf(RunImpact(folder, "a", {"--json"})), (std::vector<Touched>{{"b", 1, "changes", 50, 100}}));
}

TEST(Impact, KeepsThePermissionsOfFiles) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}});
  ASSERT_EQ(chmod(folder.Path("a.csv").c_str(), 0640), 0);
  EXPECT_EQ(RunImpact(folder, "t", {"--apply"}).ExitStatus, 0);
  struct stat description {};
  ASSERT_EQ(stat(folder.Path("a.csv").c_str(), &description), 0);
  EXPECT_EQ(description.st_mode & 0777u, 0640u);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.csv", "t.csv"})) << "nothing temporary is left";
}

TEST(Impact, LeavesFilesThatDoNotChangeUntouched) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse\nt\n"}});
  struct stat before {};
  struct stat behind {};
  ASSERT_EQ(stat(folder.Path("a.csv").c_str(), &before), 0);
  EXPECT_EQ(RunImpact(folder, "t", {"--apply"}).ExitStatus, 0);
  ASSERT_EQ(stat(folder.Path("a.csv").c_str(), &behind), 0);
  EXPECT_EQ(before.st_ino, behind.st_ino);
}

// ------------------------------------------------------------------------------------------------ calc and records

TEST(RecordedTimes, CountInCalcAndAreToldOf) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}});
  const ToolOutcome outcome = RunInProcess({"calc", folder.Path("a.csv"), "--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(outcome.Errors, "timeanalysis: " + folder.Path("a.csv") +
                                ", line 2: the recorded time \"1.8\" of the reused analysis \"t\" is out of date, it "
                                "takes 3.6 s now; \"timeanalysis impact FOLDER --template ID\" tells what a change of "
                                "it touches, and takes it over with --apply\n");
  const nlohmann::json analysis = Objects(outcome).front();
  EXPECT_EQ(analysis["complete"], true);
  EXPECT_EQ(analysis["lines"][0]["state"], "counted");
  EXPECT_EQ(analysis["totals"]["total"]["tmu"], 50.0);
}

TEST(RecordedTimes, OfTodayAreNotToldOf) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,3.6\n"}});
  const ToolOutcome outcome = RunInProcess({"calc", folder.Path("a.csv"), "--json"});
  EXPECT_EQ(outcome.ExitStatus, 0);
  EXPECT_EQ(outcome.Errors, "");
}

// A stream has the time that counts; a file that is written anew would follow by itself.
TEST(RecordedTimes, AreExportedAsTimesAndNotLostUntold) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}});
  const ToolOutcome stream = RunInProcess({"export", folder.Path(), "--into", folder.Path("out")});
  EXPECT_EQ(stream.ExitStatus, 0) << stream.Errors;
  EXPECT_NE(folder.Read("out/a.stream").value_or("").find(":5:1.8|"), std::string::npos);
  const ToolOutcome csv = RunInProcess({"export", folder.Path(), "--into", folder.Path("out"), "--format", "csv"});
  EXPECT_EQ(csv.ExitStatus, 1);
  EXPECT_NE(csv.Errors.find("is out of date"), std::string::npos) << csv.Errors;
  EXPECT_FALSE(folder.Read("out/a.csv").has_value());
}

struct FaultyRecord {
  const char* name;
  const char* content;
  const char* words;
  int status = 1;
};

class FaultyRecordTest : public testing::TestWithParam<FaultyRecord> {};

TEST_P(FaultyRecordTest, IsToldAndNothingIsApplied) {
  const support::TemporaryFolder folder;
  const Files contents{{"t.csv", template_of_100},
                       {"a.csv", GetParam().content},
                       {"b.csv", "reuse,recorded\na,0.36\n"},
                       {"c.csv", "reuse,recorded\nt,1.8\n"}};
  WriteAll(folder, contents);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"});
  EXPECT_EQ(outcome.ExitStatus, GetParam().status);
  EXPECT_NE(outcome.Errors.find(GetParam().words), std::string::npos) << outcome.Errors;
  Files expected = contents;
  expected["c.csv"] = "reuse,recorded\nt,3.6\n";
  EXPECT_EQ(ReadAll(folder, contents), expected) << "the rest goes on";
  for (const Touched& touched : TouchedOf(outcome)) {
    EXPECT_EQ(touched.State, touched.Identifier == "c" ? "written" : "flawed") << touched;
    EXPECT_EQ(touched.New.has_value(), touched.Identifier == "c") << touched;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FaultyRecordTest,
    testing::Values(FaultyRecord{"NoNumber", "reuse,recorded\nt,soon\n", "\"soon\" in the column \"recorded\""},
                    FaultyRecord{"Negative", "reuse,recorded\nt,-1\n", "\"-1\" in the column \"recorded\""},
                    FaultyRecord{"WithoutReuse", "reuse,recorded,time\nt,1.8,\n,1.8,5\n", "reuses no analysis"},
                    FaultyRecord{"Alone", "reuse,recorded,description\nt,1.8,\n,1.8,x\n", "reuses no analysis"},
                    FaultyRecord{"FaultInAnotherRow", "reuse,recorded,time\nt,1.8,\n,,long\n", "\"long\""},
                    FaultyRecord{"TimeBesideReuse", "reuse,recorded,time\nt,1.8,5\n", "a time beside a reused"},
                    FaultyRecord{"Circle", "reuse,recorded\nt,1.8\nb,1.8\n", "a circle of reuse"},
                    FaultyRecord{"TooManyCells", "reuse,recorded\nt,1.8,9\n", "3 cells for 2 columns"},
                    FaultyRecord{"OpenQuote", "reuse,recorded\nt,1.8\n\"", "a quote that is not closed", 2}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Impact, AFlawedTemplateIsNotApplied) {
  const support::TemporaryFolder folder;
  const Files contents{{"t.csv", "time\nlong\n"}, {"a.csv", "reuse,recorded\nt,1.8\n"}};
  WriteAll(folder, contents);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(TouchedOf(outcome), (std::vector<Touched>{{"a", 1, "flawed", 50, std::nullopt}}));
  EXPECT_EQ(ReadAll(folder, contents), contents);
}

// The new time by its frequency is beyond all numbers, the recorded one was not.
TEST(Impact, AFaultThatTheChangeBringsIsToldAndNotApplied) {
  const support::TemporaryFolder folder;
  const Files contents{{"t.csv", "seconds\n1e300\n"},
                       {"a.csv", "reuse,recorded,frequency\nt,1,1e10\n"},
                       {"b.csv", "reuse,recorded\na,1\n"}};
  WriteAll(folder, contents);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find("a.csv, line 2: time by frequency is no finite number"), std::string::npos)
      << outcome.Errors;
  for (const Touched& touched : TouchedOf(outcome)) EXPECT_EQ(touched.State, "flawed") << touched;
  EXPECT_EQ(ReadAll(folder, contents), contents);
}

// ------------------------------------------------------------------------------------------------ The template

TEST(Impact, NamesTheNearestOfAnUnknownTemplate) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"parts/grip.csv", template_of_100}, {"a.csv", "# identifier: T-1\ntime\n1\n"}});
  const ToolOutcome outcome = RunImpact(folder, "grip");
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_EQ(outcome.Errors, "timeanalysis: " + folder.Path() +
                                ": no analysis in this folder has the identifier \"grip\"; nearest: parts/grip\n");
  EXPECT_NE(RunImpact(folder, "T-2").Errors.find("nearest: T-1\n"), std::string::npos);
  EXPECT_NE(RunImpact(folder, "elsewhere").Errors.find("none comes near it\n"), std::string::npos);
}

TEST(Impact, RefusesAnIdentifierThatTwoFilesShare) {
  const support::TemporaryFolder folder;
  const Files contents{
      {"t.csv", template_of_100}, {"u.csv", "# identifier: t\ntime\n1\n"}, {"a.csv", "reuse,recorded\nt,1.8\n"}};
  WriteAll(folder, contents);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find("the identifier \"t\" is that of " + folder.Path("t.csv") + ", " +
                                folder.Path("u.csv") + "; give each analysis its own\n"),
            std::string::npos)
      << outcome.Errors;
  EXPECT_EQ(ReadAll(folder, contents), contents);
}

TEST(Impact, TellsOfAFolderThatIsNone) {
  const support::TemporaryFolder folder;
  folder.Write("t.csv", template_of_100);
  const ToolOutcome file = RunInProcess({"impact", folder.Path("t.csv"), "--template", "t"});
  EXPECT_EQ(file.ExitStatus, 2);
  EXPECT_NE(file.Errors.find("t.csv: no folder; name the folder"), std::string::npos) << file.Errors;
  const ToolOutcome missing = RunInProcess({"impact", folder.Path("nope"), "--template", "t"});
  EXPECT_EQ(missing.ExitStatus, 2);
  EXPECT_NE(missing.Errors.find("nope: neither a file nor a folder"), std::string::npos) << missing.Errors;
}

TEST(Impact, TellsWhereTheChangeCannotBeCarriedUp) {
  const support::TemporaryFolder folder;
  const Files contents{{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}};
  WriteAll(folder, contents);
  KORSession session;
  session.InjectFault("GetElementsFromAttributes", KORFault{});
  const ToolOutcome outcome = RunInSession(session, {"impact", folder.Path(), "--template", "t", "--apply"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Errors, "timeanalysis: " + folder.Path("t.csv") +
                                ": its change cannot be carried up; run the command again. No file was changed\n");
  EXPECT_EQ(ReadAll(folder, contents), contents);
}

// Nothing is carried up, and nobody says so: the files would come to other totals than those listed.
TEST(Impact, ProvesThatFilesComeToTheTotalsCarriedUp) {
  const support::TemporaryFolder folder;
  const Files contents{{"t.csv", template_of_100}, {"a.csv", "reuse,recorded\nt,1.8\n"}};
  WriteAll(folder, contents);
  KORSession session;
  session.InjectFault("GetAllTimeAnalysis", KORFault{});
  const ToolOutcome outcome = RunInSession(session, {"impact", folder.Path(), "--template", "t", "--apply"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find("/a.csv: the change carried up comes to a total of 50 TMU, the file with it to one of "
                                "100 TMU"),
            std::string::npos)
      << outcome.Errors;
  EXPECT_EQ(ReadAll(folder, contents), contents);
}

// ------------------------------------------------------------------------------------------------ Bounds

// Each level reuses the one below it twice, so that formulas come up by 2, 4, 8 ... ways.
Files Ladder(int levels) {
  Files contents{{"l0.csv", "signature,body\nout Time : Time,Time = 0.036\n"}};
  for (int level = 1; level <= levels; ++level) {
    const std::string below = "l" + std::to_string(level - 1);
    contents["l" + std::to_string(level) + ".csv"] = "reuse\n" + below + "\n" + below + "\n";
  }
  return contents;
}

TEST(Impact, RefusesToCarryTooManyParametersToARow) {
  const support::TemporaryFolder folder;
  WriteAll(folder, Ladder(40));
  const ToolOutcome outcome = RunImpact(folder, "l0", {"--apply"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find("/l11.csv, line 2: the change would carry more than 1000 formula parameters up to one "
                                "row"),
            std::string::npos)
      << outcome.Errors;
}

TEST(Impact, RefusesToCarryTooManyParametersInOneRun) {
  const support::TemporaryFolder folder;
  WriteAll(folder, Ladder(9));
  std::string rows = "reuse\n";
  for (int row = 0; row < 2000; ++row) rows += "l9\n";
  folder.Write("wide.csv", rows);
  const ToolOutcome outcome = RunImpact(folder, "l0", {"--apply"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_NE(outcome.Errors.find("more than 1000000 formula parameters up to all rows of a run"), std::string::npos)
      << outcome.Errors;
}

}  // namespace
