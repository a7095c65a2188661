// Every case file in tests/tools/cases, run in this process. A new file or case counts without a build.
#include "tests/tools/CaseFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/tools/ToolRun.h"

namespace {

std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(TEST_SOURCE_DIR "/tools/cases")) {
    if (entry.path().extension() == ".case") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string Listing(const std::vector<std::string>& lines) {
  std::string listing;
  for (const std::string& line : lines) listing += line + "\n";
  return listing;
}

/// Two blanks between the columns of a table: their widths depend on the folder that the checkout lies in.
std::string WithNarrowColumns(const std::string& text) {
  std::string narrow;
  for (const char character : text) {
    if (character != ' ' || !narrow.ends_with("  ")) narrow += character;
  }
  return narrow;
}

std::vector<std::string> WithNarrowColumns(std::vector<std::string> lines) {
  for (std::string& line : lines) line = WithNarrowColumns(line);
  return lines;
}

TEST(CaseFiles, AnswerAsWritten) {
  int count = 0;
  for (const std::string& file : CaseFiles()) {
    for (const ToolCase& expected : ReadCaseFile(file)) {
      SCOPED_TRACE(expected.Place + " [" + expected.Name + "]");
      const ToolOutcome outcome = RunInProcess(expected.Arguments, {expected.Input, expected.Environment, ""});
      EXPECT_TRUE(LinesMatch(WithNarrowColumns(expected.Answers), WithNarrowColumns(outcome.Output)))
          << "answers expected:\n"
          << Listing(expected.Answers) << "answers given:\n"
          << outcome.Output;
      EXPECT_TRUE(LinesMatch(expected.Messages, outcome.Errors)) << "messages expected:\n"
                                                                 << Listing(expected.Messages) << "messages given:\n"
                                                                 << outcome.Errors;
      EXPECT_EQ(outcome.ExitStatus, expected.ExitStatus);
      ++count;
    }
  }
  EXPECT_GT(count, 50) << "case files are missing from " TEST_SOURCE_DIR "/tools/cases";
}

// The comparison itself: what it lets pass and what it does not.
struct MatchRow {
  const char* name;
  std::vector<std::string> expected;
  const char* text;
  bool match;
};

class LinesMatchTest : public testing::TestWithParam<MatchRow> {};

TEST_P(LinesMatchTest, Compares) {
  EXPECT_EQ(LinesMatch(GetParam().expected, GetParam().text), GetParam().match);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LinesMatchTest,
    testing::Values(MatchRow{"NothingExpectedNothingGiven", {}, "", true},
                    MatchRow{"NothingExpected", {}, "a\n", false}, MatchRow{"SameLines", {"a", "b"}, "a\nb\n", true},
                    MatchRow{"LineMissing", {"a", "b"}, "a\n", false}, MatchRow{"LineTooMany", {"a"}, "a\nb\n", false},
                    MatchRow{"OtherLine", {"a"}, "b\n", false}, MatchRow{"LastLineWithoutNewline", {"a"}, "a", false},
                    MatchRow{"AnyLinesAtTheEnd", {"a", "..."}, "a\nb\nc\n", true},
                    MatchRow{"AnyLinesAhead", {"...", "c"}, "a\nb\nc\n", true},
                    MatchRow{"AnyLinesAreNone", {"...", "c"}, "c\n", true},
                    MatchRow{"AnyLinesAheadOfAMissingOne", {"...", "d"}, "a\nb\nc\n", false},
                    MatchRow{"PartOfALineIsNone", {"...", "c"}, "abc\n", false}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
