// The elements of one entry as they stand in the file: what the reader passes over without a word.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/document/KORXMLDocument.h"
#include "tools/check/Finding.h"

namespace tool {

struct LineFlaw {
  int Line;
  Flaw What;
};

/// The fields of a "DATACARDENTRY" element and what is wrong with their presence and order.
struct EntryFields {
  int Line = 0;
  std::map<std::string, int, std::less<>> Lines;  // line of the first element of each name
  std::vector<LineFlaw> Flaws;
  // A code that the entry answers, its time and its options, which authors add for checks; lookups don't read them.
  std::string Example;
  std::string ExampleTime;
  std::string ExampleOptionId;

  /// Line of a field; that of the entry if it has none of this name.
  int LineOf(std::string_view name) const;
};

EntryFields ReadEntryFields(const KORIDOMNode_var& entry);

}  // namespace tool
