// Streams of old systems that are migrated: each by itself, with a report, as often as one likes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "VEXTADataIO.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

namespace files = std::filesystem;

using support::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string examples = TEST_SOURCE_DIR "/../examples/exchange";
constexpr const char* Good = "Save|x|STD|AttributeData:name:8:x|\n";
constexpr const char* GoodFile = "# name: x\n# identifier: good\ncode\n";

ToolOutcome Migrate(const TemporaryFolder& folder, const std::vector<std::string>& options = {}) {
  std::vector<std::string> arguments{"migrate", folder.Path("in"), "--into", folder.Path("out")};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return RunInProcess(arguments);
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// What comes over

TEST(Migrate, WritesTheFilesThatImportWrites) {
  const TemporaryFolder folder;
  const ToolOutcome migrated = RunInProcess({"migrate", examples, "--into", folder.Path("migrated")});
  const ToolOutcome imported = RunInProcess({"import", examples, "--into", folder.Path("imported")});
  EXPECT_EQ(migrated.ExitStatus, 0) << migrated.Errors;
  EXPECT_EQ(imported.ExitStatus, 0) << imported.Errors;
  EXPECT_EQ(migrated.Errors, imported.Errors);
  for (const char* name : {"housing.csv", "station-4.csv"}) {
    ASSERT_TRUE(folder.Read(std::string("imported/") + name).has_value()) << name;
    EXPECT_EQ(folder.Read(std::string("migrated/") + name), folder.Read(std::string("imported/") + name));
  }
}

TEST(Migrate, ReportsOnEachStream) {
  const TemporaryFolder folder;
  const std::string out = folder.Path("out");
  const ToolOutcome outcome = RunInProcess({"migrate", examples, "--into", out});
  EXPECT_THAT(LinesOf(outcome.Output),
              ElementsAre("migrated   " + examples + "/housing.stream: 8 lines to " + out + "/housing.csv",
                          "migrated   " + examples + "/station-4.stream: 7 lines to " + out + "/station-4.csv",
                          "2 migrated, 0 unchanged, 0 skipped"));
}

TEST(Migrate, ReportsInJson) {
  const TemporaryFolder folder;
  folder.Write("in/bad.stream", "");
  folder.Write("in/good.stream",
               "AttributeData:weight:8:3|LineData:t:0:0:8:colour|AttributeData:name:8:x|"
               "LineData:t:0:1:8:code|LineData:t:0:2:8:timetype|LineData:t:1:0:8:red|LineData:t:1:1:8:*|"
               "LineData:t:1:2:8:TTB");
  const ToolOutcome outcome = Migrate(folder, {"--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  const std::vector<std::string> lines = LinesOf(outcome.Output);
  ASSERT_EQ(lines.size(), 2u) << outcome.Output;
  const auto bad = nlohmann::ordered_json::parse(lines[0]), good = nlohmann::ordered_json::parse(lines[1]);
  EXPECT_EQ(bad["stream"], folder.Path("in/bad.stream"));
  EXPECT_EQ(bad["result"], "skipped");
  EXPECT_EQ(bad["file"], "");
  EXPECT_THAT(bad["cause"].get<std::string>(), HasSubstr("empty"));
  nlohmann::ordered_json expected;
  expected["stream"] = folder.Path("in/good.stream");
  expected["result"] = "migrated";
  expected["file"] = folder.Path("out/good.csv");
  expected["lines"] = 1;
  expected["unmappedAttributes"] = {"weight"};
  expected["unmappedColumns"] = {"colour"};
  expected["cause"] = "";
  EXPECT_EQ(lines[1], expected.dump()) << "keys in their order";
  EXPECT_EQ(good, expected);
}

// Each name stands once, however many cells have it.
TEST(Migrate, ReportsNamesThatTheExchangeDoesNotKnow) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream",
               "AttributeData:weight:8:3|AttributeData:name:8:x|AttributeData:area:8:3|"
               "LineData:t:0:0:8:colour|LineData:t:0:1:8:code|LineData:t:0:2:8:timetype|"
               "LineData:t:1:0:8:red|LineData:t:1:1:8:*|LineData:t:1:2:8:TTB|LineData:t:2:1:8:*|"
               "LineData:t:2:2:8:TTB|LineData:t:2:0:8:red");
  testing::internal::CaptureStderr();
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the trace shows in the report alone";
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Output << outcome.Errors;
  EXPECT_THAT(outcome.Output, HasSubstr(": 2 lines to " + folder.Path("out/a.csv") +
                                        "; unmapped attributes: area, weight; unmapped columns: colour\n"));
  EXPECT_EQ(folder.Read("out/a.csv"), "# name: x\n# identifier: a\ncode,time type\n*,TTB\n*,TTB\n");
}

TEST(Migrate, GivesTheTraceBack) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  (void)Migrate(folder);
  const auto analysis = KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference);
  KORListValKORUnicodeString items;
  items.Append("AttributeData:weight:8:3");
  testing::internal::CaptureStderr();
  (void)VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to map attribute <weight>\n");
}

TEST(Migrate, NamesFilesByTheirPathFromTheFolder) {
  const TemporaryFolder folder;
  folder.Write("in/deep/down/a.b.stream", Good);
  EXPECT_EQ(Migrate(folder).ExitStatus, 0);
  EXPECT_TRUE(folder.Read("out/deep/down/a.b.csv").has_value());
}

// References

// A stream whose rows reuse these analyses.
std::string ReuseOf(const std::vector<std::string>& identifiers) {
  std::string stream = "Save|x|STD";
  int column = 0;
  for (const char* key : {"code", "timetype", "subanalysis"}) {
    stream += "|LineData:t:0:" + std::to_string(column++) + ":8:" + key;
  }
  for (std::size_t index = 0; index < identifiers.size(); ++index) {
    const std::string cell = "|LineData:t:" + std::to_string(index + 1) + ":";
    stream += cell + "0:8:" + identifiers[index] + cell + "1:8:TTB" + cell + "2:13:" + identifiers[index];
  }
  return stream;
}

TEST(Migrate, KeepsReferencesInAnyOrder) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream", ReuseOf({"z/b"}));
  folder.Write("in/z/b.stream", ReuseOf({"c"}));
  folder.Write("in/c.stream", Good);
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Output << outcome.Errors;
  EXPECT_THAT(folder.Read("out/a.csv").value_or(""), HasSubstr("\n,TTB,z/b\n"));
  EXPECT_THAT(folder.Read("out/z/b.csv").value_or(""), HasSubstr("\n,TTB,c\n"));
}

TEST(Migrate, TellsOfAReferenceThatLeadsNowhereAndKeepsIt) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream", ReuseOf({"b", "b"}));
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_THAT(LinesOf(outcome.Errors), ElementsAre(HasSubstr("row 1: the reused analysis \"b\" is not among")));
  EXPECT_THAT(folder.Read("out/a.csv").value_or(""), HasSubstr("\n,TTB,b\n,TTB,b\n"));
}

TEST(Migrate, KeepsTheReferenceToAStreamThatIsSkipped) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream", ReuseOf({"b"}));
  folder.Write("in/b.stream", "");
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_THAT(outcome.Output, HasSubstr("1 migrated, 0 unchanged, 1 skipped"));
  EXPECT_THAT(folder.Read("out/a.csv").value_or(""), HasSubstr("\n,TTB,b\n"));
}

TEST(Migrate, SkipsAFileThatWouldFindAnotherAnalysis) {
  const TemporaryFolder folder;
  folder.Write("in/deep/a.stream", ReuseOf({"b"}));
  folder.Write("in/deep/b.stream", Good);
  folder.Write("in/b.stream", Good);
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_THAT(outcome.Errors, HasSubstr("where \"deep/b\" is found ahead of it"));
  EXPECT_THAT(outcome.Output, HasSubstr("2 migrated, 0 unchanged, 1 skipped"));
  EXPECT_FALSE(folder.Read("out/deep/a.csv").has_value());
}

// Streams that are skipped, and do not keep the others from being migrated

struct SkippedStream {
  const char* name;
  std::function<void(const TemporaryFolder& folder)> make;  // "in/bad.stream"
  const char* words;
  int status;
};

class SkippedStreamTest : public testing::TestWithParam<SkippedStream> {};

TEST_P(SkippedStreamTest, IsReportedWithItsCause) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  GetParam().make(folder);
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, GetParam().status);
  EXPECT_THAT(outcome.Output, HasSubstr("skipped    " + folder.Path("in/bad.stream") + ": "));
  EXPECT_THAT(outcome.Output, HasSubstr(GetParam().words));
  EXPECT_THAT(outcome.Output, HasSubstr("1 migrated, 0 unchanged, 1 skipped\n"));
  EXPECT_EQ(folder.Read("out/good.csv"), GoodFile);
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out")), {}), 1);
}

std::function<void(const TemporaryFolder& folder)> Content(const std::string& content) {
  return [content](const TemporaryFolder& folder) { folder.Write("in/bad.stream", content); };
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SkippedStreamTest,
    testing::Values(
        SkippedStream{"Empty", Content(""), "empty; a stream is", 2},
        SkippedStream{"LineFeedsAlone", Content("\n\n"), "empty; a stream is", 2},
        SkippedStream{"Binary",
                      Content(std::string("\x7F"
                                          "ELF\0\1|:|\0",
                                          10)),
                      "holds a NUL byte", 2},
        SkippedStream{"Letter", Content("Dear Sirs,\nno stream\n"), "is it a stream?", 2},
        SkippedStream{"HeadAlone", Content("Save|x|STD|\n"), "no item of it is an attribute", 2},
        SkippedStream{"TooLong",
                      [](const TemporaryFolder& folder) {
                        folder.Write("in/bad.stream", "x");
                        files::resize_file(folder.Path("in/bad.stream"), (std::uintmax_t{256} << 20) + 1);
                      },
                      "longer than 268435456 bytes", 2},
        SkippedStream{"Pipe", [](const TemporaryFolder& folder) { mkfifo(folder.Path("in/bad.stream").c_str(), 0600); },
                      "not a regular file", 2},
        SkippedStream{
            "LinkThatLeadsNowhere",
            [](const TemporaryFolder& folder) { files::create_symlink("nowhere", folder.Path("in/bad.stream")); },
            "cannot be read", 2},
        SkippedStream{
            "LinkThatLeadsOut",
            [](const TemporaryFolder& folder) { files::create_symlink("/etc/hostname", folder.Path("in/bad.stream")); },
            "a link that leads out of the folder", 2},
        SkippedStream{"ValueWithColon", Content("AttributeData:name:8:12:30"), "1 value does not come over whole", 1},
        SkippedStream{"NoNumber", Content("AttributeData:state:3:x|AttributeData:version:3:y"),
                      "2 values do not come over whole", 1},
        SkippedStream{"RowBehindAGap", Content("LineData:t:0:0:8:code|LineData:t:2:0:8:A"),
                      "1 value does not come over whole", 1},
        SkippedStream{"CarriageReturnAtTheEnd", Content("AttributeData:name:8:x\r\n"),
                      "1 value does not come over whole", 1},
        SkippedStream{"ByteOrderMarkAheadOfAValue",
                      Content("\xEF\xBB\xBF"
                              "AttributeData:name:8:x"),
                      "1 value does not come over whole", 1},
        SkippedStream{"ValueThatTheFileCannotHold", Content("AttributeData:name:8: x "),
                      "1 value does not come over whole", 1}),
    [](const auto& row) { return std::string(row.param.name); });

// Ends that the migration does not take for a part of a value.
TEST(Migrate, TakesStreamsWithOtherEndsThatDoNotMatter) {
  const TemporaryFolder folder;
  folder.Write("in/mark.stream", "\xEF\xBB\xBFSave|x|STD|AttributeData:name:8:x");
  folder.Write("in/return.stream", "Save|x|STD|AttributeData:name:8:x|\r\n");
  const ToolOutcome outcome = Migrate(folder);
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Output << outcome.Errors;
  EXPECT_EQ(folder.Read("out/mark.csv"), "# name: x\n# identifier: mark\ncode\n");
  EXPECT_EQ(folder.Read("out/return.csv"), "# name: x\n# identifier: return\ncode\n");
}

TEST(Migrate, WritesTheRestOfAStreamIfItIsWanted) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream", "AttributeData:name:8:12:30|AttributeData:state:3:x");
  const ToolOutcome refused = Migrate(folder), lossy = Migrate(folder, {"--lossy"});
  EXPECT_EQ(refused.ExitStatus, 1);
  EXPECT_EQ(lossy.ExitStatus, 0);
  EXPECT_EQ(lossy.Errors, refused.Errors) << "the same messages, which do not count";
  EXPECT_THAT(LinesOf(lossy.Errors), ElementsAre(HasSubstr("item 1: the value \"12:30\""), HasSubstr("item 2: ")));
  EXPECT_EQ(folder.Read("out/a.csv"), "# name: 12\n# identifier: a\ncode\n");
}

TEST(Migrate, SkipsAStreamThatTheLibraryLeavesOut) {
  const TemporaryFolder folder;
  folder.Write("in/a.stream", Good);
  for (const char* operation : {"KORFRead", "CreateRepReference", "AddRepInstance"}) {
    KORSession session;
    session.InjectFault(operation, E_FAIL);
    const ToolOutcome outcome = RunInSession(session, {"migrate", folder.Path("in"), "--into", folder.Path("out")});
    EXPECT_EQ(outcome.ExitStatus, 2) << operation;
    EXPECT_THAT(outcome.Output, HasSubstr("a.stream: the migration left it out with status 0x80004005")) << operation;
    EXPECT_FALSE(files::exists(folder.Path("out"))) << operation;
  }
}

TEST(Migrate, ReportsStreamsThatCannotBeTold) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  folder.Write("in/a|b.stream", Good);
  folder.Write("in/c\\d.stream", Good);
  const std::string into = folder.Path("out");
  const ToolOutcome outcome =
      RunInProcess({"migrate", folder.Path("in"), folder.Path("in/good.stream"), "nope.stream", "--into", into});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_THAT(LinesOf(outcome.Output), ElementsAre(StartsWith("skipped    nope.stream: neither a file nor a folder"),
                                                   HasSubstr("the identifier \"a|b\" is empty or holds a \"|\""),
                                                   HasSubstr("the identifier \"good\" is that of"),
                                                   HasSubstr("d.stream: the identifier \"c\\d\" is no name for a file"),
                                                   StartsWith("migrated   " + folder.Path("in/good.stream")),
                                                   "1 migrated, 0 unchanged, 4 skipped"));
}

// Runs again

TEST(Migrate, LeavesAFileThatIsThereWithTheSameContent) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  (void)Migrate(folder);
  const auto time = files::last_write_time(folder.Path("out/good.csv")) - std::chrono::hours(1);
  files::last_write_time(folder.Path("out/good.csv"), time);
  for (const std::vector<std::string>& options : {std::vector<std::string>{}, std::vector<std::string>{"--force"}}) {
    const ToolOutcome again = Migrate(folder, options);
    EXPECT_EQ(again.ExitStatus, 0);
    EXPECT_THAT(LinesOf(again.Output), ElementsAre("unchanged  " + folder.Path("in/good.stream") +
                                                       ": 0 lines, already in " + folder.Path("out/good.csv"),
                                                   "0 migrated, 1 unchanged, 0 skipped"));
    EXPECT_EQ(files::last_write_time(folder.Path("out/good.csv")), time) << "not written again";
  }
}

TEST(Migrate, ReplacesAFileWithOtherContentOnlyIfForced) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  folder.Write("in/new.stream", "AttributeData:name:8:x");
  const std::string same_length(std::string(GoodFile).size(), 'x');
  for (const std::string& mine : {std::string("mine"), same_length, std::string(GoodFile) + "\n", std::string()}) {
    folder.Write("out/good.csv", mine);
    files::remove(folder.Path("out/new.csv"));
    const ToolOutcome refused = Migrate(folder);
    EXPECT_EQ(refused.ExitStatus, 2);
    EXPECT_THAT(refused.Output, HasSubstr("in/good.stream: " + folder.Path("out/good.csv") + ": is there already"));
    EXPECT_EQ(folder.Read("out/good.csv"), mine);
    EXPECT_TRUE(folder.Read("out/new.csv").has_value()) << "the other one is written";
    const ToolOutcome forced = Migrate(folder, {"--force"});
    EXPECT_EQ(forced.ExitStatus, 0);
    EXPECT_THAT(forced.Output, HasSubstr("1 migrated, 1 unchanged, 0 skipped"));
    EXPECT_EQ(folder.Read("out/good.csv"), GoodFile);
  }
}

TEST(Migrate, TakesALinkInTheFolderForAnotherFile) {
  const TemporaryFolder folder;
  folder.Write("in/good.stream", Good);
  folder.Write("elsewhere.csv", GoodFile);
  folder.MakeFolder("out");
  files::create_symlink(folder.Path("elsewhere.csv"), folder.Path("out/good.csv"));
  EXPECT_EQ(Migrate(folder).ExitStatus, 2) << "the same content, but not here";
  EXPECT_EQ(Migrate(folder, {"--force"}).ExitStatus, 0);
  EXPECT_FALSE(files::is_symlink(folder.Path("out/good.csv")));
  EXPECT_EQ(folder.Read("elsewhere.csv"), GoodFile);
}

TEST(Migrate, WritesAFileWholeOrNotAtAllOnAFullDisk) {
  const TemporaryFolder folder;
  folder.Write("in/long.stream", "AttributeData:name:8:" + std::string(5000, 'x'));
  folder.Write("in/good.stream", Good);
  ToolOutcome outcome;
  {
    const support::FullDisk disk(1000);
    outcome = Migrate(folder);
  }
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_THAT(outcome.Output, HasSubstr("in/long.stream: " + folder.Path("out/long.csv") + ": cannot be written"));
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out")), {}), 1) << "nothing is left of it";
  EXPECT_EQ(folder.Read("out/good.csv"), GoodFile);
  EXPECT_THAT(Migrate(folder).Output, HasSubstr("1 migrated, 1 unchanged, 0 skipped")) << "a further run does the rest";
}

}  // namespace
