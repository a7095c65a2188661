// Case files: what the tool is asked, and what it answers, as a person at a terminal would see it.
//
//   file    = { comment | case }
//   comment = "#" ...                       outside a case, as is an empty line
//   case    = "[" name "]" command { line } status
//   command = "$ timeanalysis" words        words as a shell takes them: '...' and "..." keep blanks together
//   line    = "@ " name "=" value           an environment variable of the run
//           | "< " text                     a line of standard input
//           | "> " text                     a line of the answers
//           | "! " text                     a line of the messages
//           | ">..." | "!..."               any lines, or none
//   status  = "= " number                   the exit status
//
// In all texts "{cases}" stands for the folder of the case files, "{tab}" for a tab and "{blank}" for a blank, which is
// how a blank at the end of a line is written.
#pragma once

#include <map>
#include <string>
#include <vector>

struct ToolCase {
  std::string Name;
  std::string Place;  // file and line
  std::vector<std::string> Arguments;
  std::map<std::string, std::string> Environment;
  std::string Input;
  std::vector<std::string> Answers;
  std::vector<std::string> Messages;
  int ExitStatus = -1;
};

/// The cases of a file. Raises std::runtime_error, with the place, for a line that is none of the above.
std::vector<ToolCase> ReadCaseFile(const std::string& path);

/// True if the lines are those expected, "..." standing for any of them.
bool LinesMatch(const std::vector<std::string>& expected, const std::string& text);
