// What a check of a catalogue brings to light.
#pragma once

#include <string>
#include <vector>

namespace tool {

struct CatalogueFinding {
  std::string File;
  int Line = 0;   // from 1; 0: the finding is on no line of the file, or its text names the line
  int Entry = 0;  // position of the entry in the file, from 1; 0: the finding is on no entry
  std::string Code;
  std::string Kind;
  std::string Text;
};

using CatalogueFindings = std::vector<CatalogueFinding>;

/// The kinds of findings, as they are printed.
namespace findingkind {
inline constexpr const char* File = "file";            // does not parse, or nothing reads it
inline constexpr const char* Missing = "missing";      // a field that has to be there
inline constexpr const char* Unread = "unread";        // a field where the reader passes over it
inline constexpr const char* Duplicate = "duplicate";  // a code or a field that is there twice
inline constexpr const char* Pattern = "pattern";      // does not compile to what it says
inline constexpr const char* Never = "never";          // can never match
inline constexpr const char* Formula = "formula";      // fails to evaluate
inline constexpr const char* Example = "example";      // the code that an entry gives as its example
inline constexpr const char* Range = "range";          // bounds of the number behind a code
}  // namespace findingkind

/// A kind and a text, before the file, line and entry are known.
struct Flaw {
  const char* Kind;
  std::string Text;
};

}  // namespace tool
