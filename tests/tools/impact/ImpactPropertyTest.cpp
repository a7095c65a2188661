// On folders drawn by lot: the old totals are those that calc computes ahead of the change, the new ones those that it
// computes behind it, and nothing but recorded times is changed.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/RandomText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

using Totals = std::map<std::string, nlohmann::json>;  // by identifier

constexpr int files_of_folder = 12;

std::string NameOf(int index) {
  return "f" + std::to_string(index);
}

// Files of which each reuses some before it.
class RandomFolder {
 public:
  RandomFolder(unsigned seed, const support::TemporaryFolder& folder) : _Random(seed), _Folder(folder) {}

  void Write(bool with_formulas) {
    for (int index = 0; index < files_of_folder; ++index) {
      std::string file = "reuse,frequency,time type,recorded,time,code,signature,body,values\n";
      for (int left = _Random.Below(4) + 1; left > 0; --left) file += Row(index, with_formulas) + "\n";
      _Folder.Write(NameOf(index) + ".csv", file);
    }
  }

 private:
  std::string Row(int index, bool with_formulas) {
    static const std::vector<std::string> types{"", "", "TTB", "machine", "TW", "setup", "T**"};
    static const std::vector<std::string> frequencies{"", "", "1", "2", "0.5", "0", "0.333"};
    static const std::vector<std::string> recorded{"", "", "0", "1.5", "0.036", " 7 ", "\"2\""};
    const std::string head = _Random.AnyOf(frequencies) + "," + _Random.AnyOf(types) + ",";
    if (with_formulas && _Random.OneIn(9)) {
      return "," + head + ",,,\"x : Real, out Time : Time\",Time = x * 0.36,x=" + std::to_string(_Random.Below(5) + 1);
    }
    if (index == 0 || _Random.OneIn(4)) return "," + head + "," + std::to_string(_Random.Below(50)) + ",";
    const std::string values = with_formulas && _Random.OneIn(6) ? ",,,x=3" : "";
    return NameOf(_Random.Below(index)) + "," + head + _Random.AnyOf(recorded) + ",," + (_Random.OneIn(8) ? "*" : "") +
           values;
  }

  support::RandomText _Random;
  const support::TemporaryFolder& _Folder;
};

std::vector<nlohmann::json> Objects(const ToolOutcome& outcome) {
  std::vector<nlohmann::json> objects;
  std::istringstream lines(outcome.Output);
  for (std::string line; std::getline(lines, line);) objects.push_back(nlohmann::json::parse(line));
  return objects;
}

// Those of analyses without a fault; null for the others.
Totals TotalsByCalc(const support::TemporaryFolder& folder) {
  Totals totals;
  for (const nlohmann::json& one : Objects(RunInProcess({"calc", folder.Path(), "--json"}))) {
    totals[one["identifier"]] = one["complete"].get<bool>() ? one["totals"] : nlohmann::json();
  }
  return totals;
}

std::vector<std::string> Contents(const support::TemporaryFolder& folder) {
  std::vector<std::string> contents;
  for (int index = 0; index < files_of_folder; ++index) contents.push_back(*folder.Read(NameOf(index) + ".csv"));
  return contents;
}

// The content of a file without that of the cells in the column "recorded".
std::string WithoutRecorded(const std::string& content) {
  std::string rest;
  std::istringstream lines(content);
  for (std::string line; std::getline(lines, line);) {
    int commas = 0;
    for (const char character : line) {
      if (character == ',') ++commas;
      const bool is_recorded = commas == 3 && character != ',' && character != ' ' && character != '"';
      if (!is_recorded) rest += character;
    }
    rest += '\n';
  }
  return rest;
}

int applied = 0;  // files changed by all rounds

void CheckFolder(unsigned seed, bool with_formulas) {
  SCOPED_TRACE("seed " + std::to_string(seed) + (with_formulas ? " with formulas" : ""));
  const support::TemporaryFolder folder;
  RandomFolder(seed, folder).Write(with_formulas);
  const std::string identifier = NameOf(static_cast<int>(seed) % files_of_folder);
  const std::vector<std::string> arguments{"impact", folder.Path(), "--template", identifier, "--json"};
  std::vector<std::string> apply = arguments;
  apply.emplace_back("--apply");
  const std::vector<std::string> before = Contents(folder);
  const Totals old_totals = TotalsByCalc(folder);

  const ToolOutcome listed = RunInProcess(arguments);
  EXPECT_EQ(listed.Errors.find("comes to a total of"), std::string::npos) << listed.Errors;
  EXPECT_EQ(Contents(folder), before);
  const ToolOutcome done = RunInProcess(apply);
  const Totals new_totals = TotalsByCalc(folder);
  for (const nlohmann::json& one : Objects(done)) {
    if (one["state"] == "flawed") continue;
    EXPECT_EQ(one["old"], old_totals.at(one["identifier"])) << one;
    EXPECT_EQ(one["new"], new_totals.at(one["identifier"])) << one;
    if (one["state"] == "written") ++applied;
  }
  const std::vector<std::string> behind = Contents(folder);
  for (int index = 0; index < files_of_folder; ++index) {
    const auto at = static_cast<std::size_t>(index);
    EXPECT_EQ(WithoutRecorded(behind[at]), WithoutRecorded(before[at]));
  }
  const ToolOutcome again = RunInProcess(apply);
  EXPECT_EQ(Contents(folder), behind) << "the second time changes nothing";
  EXPECT_EQ(again.Output.find("\"written\""), std::string::npos);
}

TEST(ImpactOfRandomFolders, IsWhatCalcComputes) {
  applied = 0;
  for (unsigned seed = 1; seed <= 60; ++seed) CheckFolder(seed, false);
  EXPECT_GT(applied, 60) << "the folders drawn leave nothing to do";
}

TEST(ImpactOfRandomFolders, WithFormulasIsWhatCalcComputes) {
  applied = 0;
  for (unsigned seed = 1001; seed <= 1100; ++seed) CheckFolder(seed, true);
  EXPECT_GT(applied, 20) << "the folders drawn leave nothing to do";
}

}  // namespace
