// Files that --apply changes: each whole, old or new, and a message that says which.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "tests/support/FullDisk.h"
#include "tests/tools/impact/ImpactRuns.h"

namespace {

namespace files = std::filesystem;

const Files three_files{{"t.csv", template_of_100},
                        {"a.csv", "reuse,recorded\nt,1.8\n"},
                        {"b.csv", "reuse,recorded\na,1.8\n"},
                        {"c.csv", "reuse,recorded\nb,1.8\n"}};
const std::string new_a = "reuse,recorded\nt,3.6\n";
const std::string new_b = "reuse,recorded\na,3.6\n";
const std::string new_c = "reuse,recorded\nb,3.6\n";

std::string StateOf(const ToolOutcome& outcome, const std::string& identifier) {
  for (const Touched& touched : TouchedOf(outcome)) {
    if (touched.Identifier == identifier) return touched.State;
  }
  return "(none)";
}

TEST(FilesOfImpact, AReadOnlyOneKeepsAllFromBeingWritten) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ASSERT_EQ(chmod(folder.Path("b.csv").c_str(), 0444), 0);
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_EQ(outcome.Errors, "timeanalysis: " + folder.Path("b.csv") +
                                ": would be changed, and may only be read; allow writing to it\n"
                                "timeanalysis: no file was changed; correct what is told above\n");
  EXPECT_EQ(StateOf(outcome, "a"), "old");
  EXPECT_EQ(ReadAll(folder, three_files), three_files);
}

TEST(FilesOfImpact, AReadOnlyOneThatDoesNotChangeIsLetPass) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ASSERT_EQ(chmod(folder.Path("t.csv").c_str(), 0444), 0);
  EXPECT_EQ(RunImpact(folder, "t", {"--apply"}).ExitStatus, 0);
  EXPECT_EQ(folder.Read("c.csv"), new_c);
}

TEST(FilesOfImpact, ALinkKeepsAllFromBeingWritten) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  files::rename(folder.Path("b.csv"), folder.Path("b.text"));
  files::create_symlink("b.text", folder.Path("b.csv"));
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("/b.csv: would be changed, and is a link"), std::string::npos) << outcome.Errors;
  EXPECT_TRUE(files::is_symlink(folder.Path("b.csv")));
  EXPECT_EQ(ReadAll(folder, three_files), three_files);
}

TEST(FilesOfImpact, ANameThatNoneMayHaveKeepsAllFromBeingWritten) {
  const support::TemporaryFolder folder;
  WriteAll(folder, {{"t.csv", template_of_100}, {"a\tb.csv", "reuse,recorded\nt,1.8\n"}});
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply"});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("is no name for a file"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(folder.Read("a\tb.csv"), "reuse,recorded\nt,1.8\n");
}

// The second file has no room on the disk.
TEST(FilesOfImpact, AFullDiskLeavesEachOldOrNew) {
  const support::TemporaryFolder folder;
  Files contents = three_files;
  contents["b.csv"] += "# " + std::string(100'000, 'x') + "\n";
  WriteAll(folder, contents);
  ToolOutcome outcome;
  {
    const support::FullDisk disk(50'000);
    outcome = RunImpact(folder, "t", {"--apply", "--json"});
  }
  EXPECT_EQ(outcome.ExitStatus, 3);
  EXPECT_EQ(outcome.Errors, "timeanalysis: " + folder.Path("b.csv") +
                                ": cannot be written: File too large. What stood there was left as it is\n"
                                "1 of 3 files written, each whole; run the command again for the others\n  new  " +
                                folder.Path("a.csv") + "\n  old  " + folder.Path("b.csv") + "\n  old  " +
                                folder.Path("c.csv") + "\n");
  EXPECT_EQ(StateOf(outcome, "a"), "written");
  EXPECT_EQ(StateOf(outcome, "b"), "old");
  EXPECT_EQ(StateOf(outcome, "c"), "old");
  Files expected = contents;
  expected["a.csv"] = new_a;
  EXPECT_EQ(ReadAll(folder, contents), expected);
  EXPECT_EQ(folder.Names().size(), 4u) << "nothing temporary is left";

  EXPECT_EQ(RunImpact(folder, "t", {"--apply"}).ExitStatus, 0) << "with room, the others follow";
  EXPECT_EQ(folder.Read("c.csv"), new_c);
}

TEST(FilesOfImpact, AStopBetweenTwoFilesLeavesEachOldOrNew) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ToolInput input;
  input.IsStopWanted = [&folder] { return folder.Read("b.csv") == new_b; };
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"}, input);
  EXPECT_EQ(outcome.ExitStatus, 3);
  EXPECT_EQ(
      outcome.Errors,
      "timeanalysis: interrupted\n2 of 3 files written, each whole; run the command again for the others\n  new  " +
          folder.Path("a.csv") + "\n  new  " + folder.Path("b.csv") + "\n  old  " + folder.Path("c.csv") + "\n");
  EXPECT_EQ(StateOf(outcome, "b"), "written");
  EXPECT_EQ(StateOf(outcome, "c"), "old");
  Files expected = three_files;
  expected["a.csv"] = new_a;
  expected["b.csv"] = new_b;
  EXPECT_EQ(ReadAll(folder, three_files), expected);
}

TEST(FilesOfImpact, AStopAheadOfTheFirstFileLeavesAllOld) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ToolInput input;
  input.IsStopWanted = [] { return true; };
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply"}, input);
  EXPECT_EQ(outcome.ExitStatus, 3);
  EXPECT_EQ(outcome.Errors, "timeanalysis: interrupted ahead of the first change; all files are old\n");
  EXPECT_EQ(ReadAll(folder, three_files), three_files);
}

TEST(FilesOfImpact, WithoutApplyNobodyAsksForAStop) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ToolInput input;
  input.IsStopWanted = [] { return true; };
  EXPECT_EQ(RunImpact(folder, "t", {}, input).ExitStatus, 0);
}

// Somebody saves the second file while the first one is written.
TEST(FilesOfImpact, AFileThatWasChangedMeanwhileIsLeft) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ToolInput input;
  input.IsStopWanted = [&folder] {
    if (folder.Read("a.csv") == new_a) folder.Write("b.csv", "reuse,recorded\na,1.8\nt,9\n");
    return false;
  };
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply"}, input);
  EXPECT_EQ(outcome.ExitStatus, 3);
  EXPECT_NE(outcome.Errors.find("/b.csv: has changed since it was read"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(folder.Read("a.csv"), new_a);
  EXPECT_EQ(folder.Read("b.csv"), "reuse,recorded\na,1.8\nt,9\n");
  EXPECT_EQ(folder.Read("c.csv"), three_files.at("c.csv"));
}

// Somebody saves a file between its being read and its change being made up: it is left, with all above it.
TEST(FilesOfImpact, AFileThatWasChangedWhileOthersWereComputedIsLeft) {
  const support::TemporaryFolder folder;
  WriteAll(folder, three_files);
  ToolInput input;
  input.IsStopWanted = [&folder] {
    folder.Write("b.csv", "reuse,recorded\na,1.8\nt,9\n");
    return false;
  };
  const ToolOutcome outcome = RunImpact(folder, "t", {"--apply", "--json"}, input);
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("/b.csv: has changed since it was read"), std::string::npos) << outcome.Errors;
  EXPECT_EQ(StateOf(outcome, "a"), "written");
  EXPECT_EQ(StateOf(outcome, "b"), "flawed");
  EXPECT_EQ(StateOf(outcome, "c"), "flawed");
  EXPECT_EQ(folder.Read("c.csv"), three_files.at("c.csv"));
}

}  // namespace
