// The tool run in the test's own process.
#include "tests/tools/ToolRun.h"

#include <sstream>

#include "tools/Tool.h"

ToolOutcome RunInProcess(const std::vector<std::string>& arguments, const ToolInput& input) {
  KORSession session;
  return RunInSession(session, arguments, input);
}

ToolOutcome RunInSession(KORSession& session, const std::vector<std::string>& arguments, const ToolInput& input) {
  for (const char* name : {"KORStartupPath", "XDG_CONFIG_HOME", "HOME"}) session.UnsetEnvironment(name);
  for (const auto& [name, value] : input.Environment) {
    session.SetEnvironment(name, KORUnicodeString(std::string_view(value)));
  }
  std::istringstream in(input.Input);
  std::ostringstream out;
  std::ostringstream errors;
  ToolOutcome outcome;
  outcome.ExitStatus = tool::RunTool(
      arguments, {in, out, errors, session, input.ProgramFolder, input.ErrIsTerminal, input.Now, input.IsStopWanted});
  outcome.Output = out.str();
  outcome.Errors = errors.str();
  return outcome;
}
