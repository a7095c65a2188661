// What the arguments of the program ask for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

enum class Command { Calc, Eval, Code, Norm, Pattern, CatalogueList, CatalogueCheck };

struct CommandLine {
  Command Chosen = Command::Eval;
  std::optional<std::string> Information;  // the text that --help or --version asks for, instead of a command
  bool Json = false;
  bool Csv = false;                // --csv
  std::string Catalogue;           // --catalogue, and the folder of "catalogue list" and "catalogue check"
  std::string Settings;            // --settings
  std::string System;              // empty: none
  std::string Pattern;             // of "pattern"
  std::vector<std::string> Texts;  // formulas, codes, norm texts, or files and folders of analyses
  bool FromInput = false;          // the texts, or all of "pattern", stand on standard input
  std::string Unit;                // --unit: "tmu", "s", "min", "h" or "mod"; empty: TMU, of "code" and seconds
  std::string Model;               // --model: the folder up to which reused analyses are looked for
  std::string Frequency = "1";     // --frequency
  std::string To;                  // --to: "code" or "norm"; empty: by the look of the text
};

/// Reads the arguments behind the program's name; raises WrongUsage and the like for what cannot be done.
///
/// An argument that begins with "-" is an option only if it is "-h" or begins with "--" and a letter, so that formulas
/// such as "-2*3" need no "--" ahead of them.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace tool
