// The tool run in the test's own process: arguments and input in, both outputs and the exit status out.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/system/KORSession.h"

/// What one run is given besides its arguments.
struct ToolInput {
  std::string Input;  // standard input
  std::map<std::string, std::string>
      Environment;            // set for this run; the variables that name catalogues are unset first
  std::string ProgramFolder;  // empty: no installed catalogue
  bool ErrIsTerminal = false;
  std::function<std::chrono::steady_clock::time_point()> Now = std::chrono::steady_clock::now;
  std::function<bool()> IsStopWanted = {};
};

struct ToolOutcome {
  std::string Output;
  std::string Errors;
  int ExitStatus = -1;
};

/// Runs the tool in a session that outlives the run, so that what it made there can be looked at.
ToolOutcome RunInSession(KORSession& session, const std::vector<std::string>& arguments, const ToolInput& input = {});

/// Runs it in a session of its own.
ToolOutcome RunInProcess(const std::vector<std::string>& arguments, const ToolInput& input = {});
