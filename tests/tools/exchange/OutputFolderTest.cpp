// Files that the tool writes: each whole or not at all, and none outside of the folder.
#include "tools/exchange/OutputFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/FullDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

namespace files = std::filesystem;

const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";
const std::string stream = "Save|n|STD|AttributeData:name:8:Walk";

std::vector<std::string> Import(const support::TemporaryFolder& folder, std::vector<std::string> options) {
  options.insert(options.begin(), {"import", folder.Path("in/a.stream")});
  return options;
}

struct FileName {
  const char* name;
  std::string identifier;
};

class NamesOutsideTest : public testing::TestWithParam<FileName> {};

TEST_P(NamesOutsideTest, AreRefusedInEachForm) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.MakeFolder("out");
  for (const char* format : {"csv", "stream", "list", "json"}) {
    SCOPED_TRACE(format);
    const ToolOutcome outcome =
        RunInProcess(Import(folder, {"--identifier", GetParam().identifier, "--into", folder.Path("out"), "--format",
                                     format, "--catalogue", frozen_catalogue, "--lossy"}));
    EXPECT_EQ(outcome.ExitStatus, 2) << outcome.Errors;
    EXPECT_NE(outcome.Errors.find("is no name for a file"), std::string::npos) << outcome.Errors;
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"in", "out"}));
    EXPECT_TRUE(files::is_empty(folder.Path("out")));
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, NamesOutsideTest,
                         testing::Values(FileName{"Above", "../a"}, FileName{"AboveInTheMiddle", "b/../../a"},
                                         FileName{"AboveThatComesBack", "b/../a"}, FileName{"Absolute", "/tmp/a"},
                                         FileName{"Here", "./a"}, FileName{"EmptyPart", "b//a"},
                                         FileName{"SlashAtTheEnd", "a/"}, FileName{"Hidden", ".a"},
                                         FileName{"InAHiddenFolder", "b/.c/a"}, FileName{"Backslash", "..\\a"},
                                         FileName{"LineFeed", "a\nb"}, FileName{"Control", "a\x01"},
                                         FileName{"Nul", std::string("a\0b", 3)}, FileName{"Delete", "a\x7F"},
                                         FileName{"TenThousandCharacters", std::string(10'000, 'a')},
                                         FileName{"PartTooLong", std::string(300, 'a') + "/b"}),
                         [](const auto& row) { return std::string(row.param.name); });

// Identifiers that come with analyses, not from the command line.
TEST(OutputFolder, RefusesAnIdentifierOfAFile) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.csv", "# identifier: ../../a\ntime\n1\n");
  folder.Write("in/b.csv", "time\n1\n");
  const ToolOutcome outcome = RunInProcess({"export", folder.Path("in"), "--into", folder.Path("out/deep")});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("the identifier \"../../a\" is no name"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"in"}) << "the other one is not written either";
}

TEST(OutputFolder, MakesFoldersOnTheWay) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  const ToolOutcome outcome =
      RunInProcess(Import(folder, {"--identifier", "deep/down/a", "--into", folder.Path("out/new")}));
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  EXPECT_EQ(outcome.Output + outcome.Errors, "");
  EXPECT_EQ(folder.Read("out/new/deep/down/a.csv"), "# name: Walk\n# identifier: deep/down/a\ncode\n");
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out/new/deep/down")), {}), 1);
}

TEST(OutputFolder, DoesNotFollowLinksOnTheWay) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.MakeFolder("elsewhere");
  folder.MakeFolder("out");
  files::create_directory_symlink(folder.Path("elsewhere"), folder.Path("out/deep"));
  const ToolOutcome outcome =
      RunInProcess(Import(folder, {"--identifier", "deep/a", "--into", folder.Path("out"), "--force"}));
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("the identifier \"deep/a\" is no name for a file"), std::string::npos)
      << outcome.Errors;
  EXPECT_TRUE(files::is_empty(folder.Path("elsewhere")));
}

TEST(OutputFolder, ReplacesALinkAndNotWhereItLeads) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.Write("elsewhere.csv", "mine");
  folder.MakeFolder("out");
  files::create_symlink(folder.Path("elsewhere.csv"), folder.Path("out/a.csv"));
  EXPECT_EQ(RunInProcess(Import(folder, {"--into", folder.Path("out")})).ExitStatus, 2);
  EXPECT_EQ(RunInProcess(Import(folder, {"--into", folder.Path("out"), "--force"})).ExitStatus, 0);
  EXPECT_EQ(folder.Read("elsewhere.csv"), "mine");
  EXPECT_FALSE(files::is_symlink(folder.Path("out/a.csv")));
}

TEST(OutputFolder, ReplacesFilesOnlyIfForced) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.Write("in/b.stream", stream);
  folder.Write("out/b.csv", "mine");
  const std::vector<std::string> arguments{"import", folder.Path("in"), "--into", folder.Path("out")};
  const ToolOutcome refused = RunInProcess(arguments);
  EXPECT_EQ(refused.ExitStatus, 2);
  EXPECT_NE(refused.Errors.find("out/b.csv: is there already"), std::string::npos) << refused.Errors;
  EXPECT_EQ(folder.Read("out/b.csv"), "mine");
  EXPECT_FALSE(folder.Read("out/a.csv").has_value()) << "all or none";
  std::vector<std::string> forced = arguments;
  forced.emplace_back("--force");
  EXPECT_EQ(RunInProcess(forced).ExitStatus, 0);
  EXPECT_EQ(folder.Read("out/b.csv"), "# name: Walk\n# identifier: b\ncode\n");
  EXPECT_TRUE(folder.Read("out/a.csv").has_value());
}

TEST(OutputFolder, LeavesAFolderInPlaceOfAFile) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.MakeFolder("out/a.csv");
  const ToolOutcome outcome = RunInProcess(Import(folder, {"--into", folder.Path("out"), "--force"}));
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("out/a.csv: cannot be written: Is a directory"), std::string::npos) << outcome.Errors;
}

TEST(OutputFolder, TellsOfAFileInPlaceOfTheFolder) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.Write("out", "mine");
  const ToolOutcome outcome = RunInProcess(Import(folder, {"--into", folder.Path("out")}));
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("cannot be written: Not a directory"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(folder.Read("out"), "mine");
}

TEST(OutputFolder, RefusesTwoAnalysesUnderOneName) {
  const support::TemporaryFolder folder;
  folder.Write("x/a.csv", "time\n1\n");
  folder.Write("y/a.csv", "time\n1\n");
  const ToolOutcome outcome =
      RunInProcess({"export", folder.Path("x/a.csv"), folder.Path("y/a.csv"), "--into", folder.Path("out")});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("two analyses with the identifier \"a\" would be one file"), std::string::npos)
      << outcome.Errors;
  EXPECT_FALSE(files::exists(folder.Path("out")));
}

TEST(OutputFolder, LeavesWhatWasThereWhereTheDiskIsFull) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", "Save|n|STD|AttributeData:name:8:" + std::string(100'000, 'a'));
  folder.Write("out/a.csv", "mine");
  ToolOutcome outcome;
  {
    const support::FullDisk disk(50'000);
    outcome = RunInProcess(Import(folder, {"--into", folder.Path("out"), "--force"}));
  }
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("out/a.csv: cannot be written: File too large. What stood there was left"),
            std::string::npos)
      << outcome.Errors;
  EXPECT_EQ(folder.Read("out/a.csv"), "mine");
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out")), {}), 1) << "nothing else is left";
}

TEST(OutputFolder, KeepsWhatWasWrittenBeforeTheDiskWasFull) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.Write("in/b.stream", "Save|n|STD|AttributeData:name:8:" + std::string(100'000, 'a'));
  folder.Write("in/c.stream", stream);
  ToolOutcome outcome;
  {
    const support::FullDisk disk(50'000);
    outcome = RunInProcess({"import", folder.Path("in"), "--into", folder.Path("out")});
  }
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_TRUE(folder.Read("out/a.csv").has_value());
  EXPECT_EQ(std::distance(files::directory_iterator(folder.Path("out")), {}), 1);
}

TEST(OutputFolder, TellsOfJsonThatTheDiskHasNoRoomFor) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", "Save|n|STD|AttributeData:name:8:" + std::string(100'000, 'a'));
  ToolOutcome outcome;
  {
    const support::FullDisk disk(50'000);
    outcome = RunInProcess(Import(folder, {"--format", "json", "--catalogue", frozen_catalogue}));
  }
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find("its JSON cannot be written in the temporary folder"), std::string::npos)
      << outcome.Errors;
}

// What a program run by itself leaves in the folder for temporary files: nothing.
TEST(OutputFolder, LeavesNothingTemporary) {
  const support::TemporaryFolder folder;
  folder.Write("in/a.stream", stream);
  folder.MakeFolder("tmp");
  const std::string before = getenv("TMPDIR") == nullptr ? "" : getenv("TMPDIR");
  setenv("TMPDIR", folder.Path("tmp").c_str(), 1);
  const ToolOutcome outcome = RunInProcess(Import(folder, {"--format", "json", "--catalogue", frozen_catalogue,
                                                           "--identifier", "deep/a", "--into", folder.Path("out")}));
  before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", before.c_str(), 1);
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  EXPECT_TRUE(files::is_empty(folder.Path("tmp")));
  EXPECT_TRUE(folder.Read("out/deep/a.json").has_value());
}

std::string OutputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return "no pipe";
  std::string output;
  std::array<char, 256> block{};
  while (fgets(block.data(), block.size(), pipe) != nullptr) output += block.data();
  pclose(pipe);
  return output;
}

TEST(Program, TellsOfAFullDiskBehindStandardOutput) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.stream", stream);
  EXPECT_EQ(
      OutputOf("'" TIMEANALYSIS_PROGRAM "' import '" + path + "' 2>&1 >/dev/full; echo $?"),
      "timeanalysis: the answers cannot be written to standard output; is the disk full, or the reader gone?\n2\n");
}

TEST(Program, TellsOfABoundOnTheSizeOfFiles) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.stream", "AttributeData:name:8:" + std::string(100'000, 'a'));
  const std::string output = OutputOf("ulimit -f 50; '" TIMEANALYSIS_PROGRAM "' import '" + path + "' --into '" +
                                      folder.Path("out") + "' 2>&1; echo $?");
  EXPECT_NE(output.find("cannot be written: File too large"), std::string::npos) << output;
  EXPECT_TRUE(output.ends_with("\n2\n")) << output;
}

TEST(Program, TakesStreamsFromPipes) {
  EXPECT_EQ(
      OutputOf("'" TIMEANALYSIS_PROGRAM "' export '" TEST_SOURCE_DIR "/tools/cases/analyses/walk.csv' --catalogue '" +
               frozen_catalogue + "' | '" TIMEANALYSIS_PROGRAM "' import - --identifier walk"),
      OutputOf("'" TIMEANALYSIS_PROGRAM "' export '" TEST_SOURCE_DIR
               "/tools/cases/analyses/walk.csv' --format csv --catalogue '" +
               frozen_catalogue + "'"));
}

}  // namespace
