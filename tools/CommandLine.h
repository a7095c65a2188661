// What the arguments of the program ask for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

enum class Command { Calc, Impact, Export, Import, Migrate, Eval, Code, Norm, Pattern, CatalogueList, CatalogueCheck };

struct CommandLine {
  Command Chosen = Command::Eval;
  std::optional<std::string> Information;  // the text that --help or --version asks for, instead of a command
  bool Json = false;
  bool Csv = false;                // --csv
  std::string Catalogue;           // --catalogue, and the folder of "catalogue list" and "catalogue check"
  std::string Settings;            // --settings
  std::string System;              // empty: none
  std::string Pattern;             // of "pattern"
  std::vector<std::string> Texts;  // formulas, codes, norm texts, or files and folders of analyses or streams
  bool FromInput = false;          // the texts, or all of "pattern", stand on standard input
  std::string Unit;                // --unit: "tmu", "s", "min", "h" or "mod"; empty: TMU, of "code" and seconds
  std::string Model;               // --model: the folder up to which reused analyses are looked for
  std::string Template;            // --template: identifier of the analysis whose change is looked at
  bool Apply = false;              // --apply: files are changed, not only listed
  std::string Format;              // --format: "list", "stream", "json" or "csv"
  std::string Into;                // --into: the folder that files are written into; empty: standard output
  std::string Identifier;          // --identifier, of the one stream that is imported; empty: by the name of its file
  bool Force = false;              // --force: files in that folder are replaced
  bool Lossy = false;              // --lossy: what a form can hold is written, though it cannot hold all
  bool Calculate = false;          // --calculate: totals of imported analyses are computed anew
  std::string Frequency = "1";     // --frequency
  std::string To;                  // --to: "code" or "norm"; empty: by the look of the text
};

/// Reads the arguments behind the program's name; raises WrongUsage and the like for what cannot be done.
///
/// An argument that begins with "-" is an option only if it is "-h" or begins with "--" and a letter, so that formulas
/// such as "-2*3" need no "--" ahead of them.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace tool
