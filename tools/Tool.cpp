// The command-line tool as a function.
#include "tools/Tool.h"

#include <filesystem>
#include <new>
#include <ostream>
#include <system_error>

#include "tools/Answers.h"
#include "tools/CommandLine.h"
#include "tools/Commands.h"
#include "tools/Messages.h"

namespace tool {

namespace {

void RunCommand(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  switch (line.Chosen) {
    case Command::Eval:
      return RunEval(line, surroundings, answers);
    case Command::Calc:
      return RunCalc(line, surroundings, answers);
    case Command::Impact:
      return RunImpact(line, surroundings, answers);
    case Command::Export:
      return RunExport(line, surroundings, answers);
    case Command::Import:
      return RunImport(line, surroundings, answers);
    case Command::Migrate:
      return RunMigrate(line, surroundings, answers);
    case Command::Code:
      return RunCode(line, surroundings, answers);
    case Command::Norm:
      return RunNorm(line, surroundings, answers);
    case Command::Pattern:
      return RunPattern(line, surroundings, answers);
    case Command::CatalogueList:
      return RunCatalogueList(line, surroundings, answers);
    case Command::CatalogueCheck:
      return RunCatalogueCheck(line, surroundings, answers);
  }
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
  const KORSession::Scope scope(surroundings.Session);
  Answers answers(surroundings);
  try {
    const CommandLine line = ParseCommandLine(arguments);
    if (line.Information) {
      surroundings.Out << *line.Information;
    } else {
      RunCommand(line, surroundings, answers);
    }
  } catch (const Failure& failure) {
    answers.Tell(failure);
  } catch (const std::bad_alloc&) {
    answers.Tell(OutOfMemory());
  }
  if (!surroundings.Out.flush()) answers.Tell(OutputNotWritable());
  return static_cast<int>(answers.Gravest());
}

std::string ProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string() : program.parent_path().string();
}

}  // namespace tool
