// The tool run in the test's own process: arguments and input in, both outputs and the exit status out.
#pragma once

#include <map>
#include <string>
#include <vector>

/// What one run is given besides its arguments.
struct ToolInput {
  std::string Input;  // standard input
  std::map<std::string, std::string>
      Environment;            // set for this run; the variables that name catalogues are unset first
  std::string ProgramFolder;  // empty: no installed catalogue
};

struct ToolOutcome {
  std::string Output;
  std::string Errors;
  int ExitStatus = -1;
};

ToolOutcome RunInProcess(const std::vector<std::string>& arguments, const ToolInput& input = {});
