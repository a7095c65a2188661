// Runs of the command impact in folders of the test's own, and what they list.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

using Files = std::map<std::string, std::string>;  // contents by name

inline const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";

inline void WriteAll(const support::TemporaryFolder& folder, const Files& contents) {
  for (const auto& [name, content] : contents) folder.Write(name, content);
}

inline Files ReadAll(const support::TemporaryFolder& folder, const Files& contents) {
  Files read;
  for (const auto& [name, content] : contents) read[name] = folder.Read(name).value_or("(gone)");
  return read;
}

inline ToolOutcome RunImpact(const support::TemporaryFolder& folder, const std::string& identifier,
                             std::vector<std::string> options = {}, const ToolInput& input = {}) {
  options.insert(options.begin(), {"impact", folder.Path(), "--template", identifier, "--catalogue", frozen_catalogue});
  return RunInProcess(options, input);
}

inline std::vector<nlohmann::json> Objects(const ToolOutcome& outcome) {
  std::vector<nlohmann::json> objects;
  std::istringstream lines(outcome.Output);
  for (std::string line; std::getline(lines, line);) objects.push_back(nlohmann::json::parse(line));
  return objects;
}

// An analysis as the list has it: identifier, level, file, and the grand totals before and behind in TMU.
struct Touched {
  std::string Identifier;
  int Level;
  std::string State;
  double Old;
  std::optional<double> New;

  friend bool operator==(const Touched&, const Touched&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Touched& touched) {
    return out << touched.Identifier << ' ' << touched.Level << ' ' << touched.State << ' ' << touched.Old << ' '
               << touched.New.value_or(-1);
  }
};

inline std::vector<Touched> TouchedOf(const ToolOutcome& outcome) {
  std::vector<Touched> touched;
  for (const nlohmann::json& one : Objects(outcome)) {
    Touched entry{one["identifier"], one["level"], one["state"], one["old"]["total"]["tmu"], std::nullopt};
    if (!one["new"].is_null()) entry.New = one["new"]["total"]["tmu"].get<double>();
    touched.push_back(std::move(entry));
  }
  return touched;
}

// 100 TMU are 3.6 s.
inline const std::string template_of_100 = "time\n100\n";
