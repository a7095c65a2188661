// The whole tool where a case file cannot go: bytes, streams, folders made for the test, JSON read back.
#include "tools/Tool.h"

#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"
#include "tools/JsonLine.h"
#include "tools/NumberText.h"

namespace {

const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";

TEST(Numbers, ReadBackBitForBit) {
  std::mt19937_64 random(11);
  for (int round = 0; round < 100000; ++round) {
    const double number = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
    if (!std::isfinite(number)) continue;
    std::ostringstream line;
    tool::WriteJsonLine(line, {{"value", tool::JsonNumber(number)}});
    const double read = nlohmann::json::parse(line.str())["value"].get<double>();
    ASSERT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(number)) << line.str();
    ASSERT_EQ(std::bit_cast<std::uint64_t>(std::strtod(tool::NumberText(number).c_str(), nullptr)),
              std::bit_cast<std::uint64_t>(number));
  }
}

struct NumberRow {
  const char* name;
  double number;
  const char* text;
  const char* json;
};

class NumberTextTest : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberTextTest, Prints) {
  EXPECT_EQ(tool::NumberText(GetParam().number), GetParam().text);
  EXPECT_EQ(tool::JsonNumber(GetParam().number).dump(), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberTextTest,
                         testing::Values(NumberRow{"Whole", 3.0, "3", "3.0"}, NumberRow{"Zero", 0.0, "0", "0.0"},
                                         NumberRow{"NegativeZero", -0.0, "-0", "-0.0"},
                                         NumberRow{"Fraction", 0.1, "0.1", "0.1"},
                                         NumberRow{"Large", 1e22, "1e+22", "1e+22"},
                                         NumberRow{"NotANumber", std::nan(""), "nan", "\"nan\""},
                                         NumberRow{"NegativeNotANumber", -std::nan(""), "nan", "\"nan\""},
                                         NumberRow{"Infinity", HUGE_VAL, "inf", "\"inf\""},
                                         NumberRow{"NegativeInfinity", -HUGE_VAL, "-inf", "\"-inf\""}),
                         [](const auto& row) { return std::string(row.param.name); });

// Bytes that are no UTF-8 are read as Windows-1252 and come out as UTF-8.
TEST(Bytes, ThatAreNoUtf8BecomeText) {
  const std::string bytes = "1\xE4\x80\xFF";
  for (const std::vector<std::string>& command : {std::vector<std::string>{"eval", "--json", bytes},
                                                  {"code", "STD", bytes, "--json", "--catalogue", frozen_catalogue},
                                                  {"norm", "MOST", "--json", bytes}}) {
    const ToolOutcome outcome = RunInProcess(command);
    const auto answer = nlohmann::json::parse(outcome.Output);
    EXPECT_EQ(answer.begin().key().empty(), false);
    EXPECT_NE(outcome.Output.find("1\xC3\xA4\xE2\x82\xAC\xC3\xBF"), std::string::npos) << outcome.Output;
  }
}

TEST(Bytes, InPatternsAndCodesDoNoHarm) {
  EXPECT_EQ(RunInProcess({"pattern", "STD", "\"\xE4\"\xFF%", "\xE4"}).ExitStatus, 1);
  EXPECT_EQ(RunInProcess({"pattern", "STD", "\"\xE4\"", "\xE4", "--json"}).ExitStatus, 0);
}

TEST(Bytes, NulStopsTheReading) {
  const ToolOutcome outcome = RunInProcess({"eval", "-"}, {std::string("1+1\n1\0+1\n2\n", 11), {}, ""});
  EXPECT_EQ(outcome.Output, "2\t0\t1+1\n");
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find("line 2: holds a NUL byte"), std::string::npos) << outcome.Errors;
}

TEST(LongTexts, AreAnswered) {
  const std::string code(100000, 'R');
  const ToolOutcome looked_up = RunInProcess({"code", "STD", code, "--catalogue", frozen_catalogue});
  EXPECT_EQ(looked_up.ExitStatus, 1);
  EXPECT_LT(looked_up.Errors.size(), 1000u);
  const std::string nested = std::string(1000000, '(') + "1" + std::string(1000000, ')');
  EXPECT_EQ(RunInProcess({"eval", "-"}, {nested + "\n", {}, ""}).Output.substr(0, 4), "1\t0\t");
  std::string pattern;
  for (int count = 0; count < 100000; ++count) pattern += "\"A\"";
  const ToolOutcome matched = RunInProcess({"pattern", "STD", pattern, std::string(100000, 'A'), "--json"});
  EXPECT_EQ(nlohmann::json::parse(matched.Output)["count"], 100000);
  EXPECT_EQ(matched.ExitStatus, 0);
}

TEST(Streams, AFullDiskIsTold) {
  KORSession session;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream errors;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(tool::RunTool({"eval", "1"}, {in, out, errors, session, ""}), 2);
  EXPECT_NE(errors.str().find("cannot be written"), std::string::npos) << errors.str();
}

TEST(Catalogues, TheSettingGoesAheadOfTheEnvironment) {
  const support::TemporaryFolder folder;
  folder.Write("cards/DataCardEntry/dce_std.xml",
               "<C><DATACARDENTRY><CODE_ID>1</CODE_ID><CODE>WALK</CODE><TIME>99</TIME></DATACARDENTRY></C>");
  folder.MakeFolder("cards/DataCard");
  const std::string settings = folder.Write("my.settings", "datacardpath = " + folder.Path("cards/DataCard") + "\n");
  const ToolInput input{"", {{"KORStartupPath", frozen_catalogue}}, ""};
  const auto time = [](const ToolOutcome& outcome) { return nlohmann::json::parse(outcome.Output)["time"]; };
  EXPECT_EQ(time(RunInProcess({"code", "STD", "WALK", "--json", "--settings", settings}, input)), "99");
  EXPECT_EQ(time(RunInProcess({"code", "STD", "WALK", "--json"}, input)), "17");
  EXPECT_EQ(RunInProcess({"code", "STD", "WALK", "--settings", settings, "--catalogue", folder.Path("none")}, input)
                .ExitStatus,
            2);
  const ToolOutcome missing = RunInProcess({"code", "MTM2", "GA5", "--settings", settings}, input);
  EXPECT_LT(missing.Errors.find(folder.Path("cards/DataCardEntry/dce_mtm2.xml")),
            missing.Errors.find(frozen_catalogue + "/DataCardEntry/dce_mtm2.xml"))
      << missing.Errors;
}

TEST(Catalogues, TheInstalledOneComesLast) {
  const support::TemporaryFolder folder;
  folder.Write("share/VEXTimeAnalysisModeler/catalogue/DataCardEntry/dce_std.xml",
               "<C><DATACARDENTRY><CODE_ID>1</CODE_ID><CODE>WALK</CODE><TIME>98</TIME></DATACARDENTRY></C>");
  const std::string program_folder = folder.MakeFolder("bin");
  const auto time = [](const ToolOutcome& outcome) { return nlohmann::json::parse(outcome.Output)["time"]; };
  EXPECT_EQ(time(RunInProcess({"code", "STD", "WALK", "--json"}, {"", {}, program_folder})), "98");
  EXPECT_EQ(time(RunInProcess({"code", "STD", "WALK", "--json"},
                              {"", {{"KORStartupPath", frozen_catalogue}}, program_folder})),
            "17");
}

TEST(Catalogues, AFolderInPlaceOfAFileIsTold) {
  const support::TemporaryFolder folder;
  folder.MakeFolder("DataCardEntry/dce_std.xml");
  const ToolOutcome outcome = RunInProcess({"code", "STD", "WALK", "--catalogue", folder.Path()});
  EXPECT_EQ(outcome.ExitStatus, 2);
  EXPECT_NE(outcome.Errors.find(folder.Path("DataCardEntry/dce_std.xml")), std::string::npos) << outcome.Errors;
  EXPECT_EQ(RunInProcess({"catalogue", "check", folder.Path()}).ExitStatus, 1);
}

// One run as a process of its own: the standard streams, the exit status and the catalogue beside the program.
TEST(Program, AnswersFromTheShell) {
  const std::string command = "printf '1+1\\n2*(\\n' | '" TIMEANALYSIS_PROGRAM
                              "' eval - 2>/dev/null; echo $?; "
                              "'" TIMEANALYSIS_PROGRAM
                              "' eval - 2>&1 < /; echo $?; "
                              "env -u KORStartupPath '" TIMEANALYSIS_PROGRAM "' catalogue list | head -1";
  FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  std::array<char, 256> block{};
  while (fgets(block.data(), block.size(), pipe) != nullptr) output += block.data();
  EXPECT_EQ(pclose(pipe), 0);
  EXPECT_EQ(output,
            "2\t0\t1+1\n0\t4\t2*(\n1\n"
            "timeanalysis: standard input cannot be read: Is a directory; give it a text file or a pipe\n2\n"
            "SYSTEM    ENTRIES  FILE\n");
}

}  // namespace
