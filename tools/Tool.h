// The command-line tool as a function: arguments and streams in, exit status out.
#pragma once

#include <string>
#include <vector>

#include "tools/Surroundings.h"

namespace tool {

/// Runs one command.
///
/// arguments  those behind the program's name
/// Returns    the exit status: 0 done; 1 something was not found, or a finding was made; 2 wrong usage or unreadable
///            input; 3 stopped while files were changed. Answers go to Out, messages to Err; nothing is thrown.
int RunTool(const std::vector<std::string>& arguments, const Surroundings& surroundings);

/// Folder of the running program; empty if the system doesn't tell.
std::string ProgramFolder();

}  // namespace tool
