// A catalogue made up for measuring: entries with varied codes, half of them with patterns, each with the regular
// expression that accepts the same codes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "VEXSTMDataCardScans.h"
#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/oracle/CodeTimeOracle.h"

namespace bench {

/// One entry, a code that it accepts, and the expression for exactly the codes that it accepts, in a syntax common to
/// RE2 and PCRE2 with a group around each number.
struct GeneratedEntry {
  std::string CodeID;
  std::string Code;
  std::string Text;
  std::string Time;
  std::string Par1Start;
  std::string Par1End;
  std::string Pattern;
  std::string Example;
  std::string Expression;
};

/// So many entries; the same ones on every call, and a shorter catalogue is the head of a longer one. Every second
/// entry has a pattern.
std::vector<GeneratedEntry> GenerateEntries(std::size_t count);

/// The entries as an entry file; `filled` pads the descriptions so that an entry takes some 400 bytes.
std::string EntryFileText(const std::vector<GeneratedEntry>& entries, bool filled);

/// The entries as the plain walk takes them.
std::vector<oracle::Entry> PlainEntries(const std::vector<GeneratedEntry>& entries);

/// Makes a service object for the system "STD" with the entries loaded; refuses if they cannot be.
VEXSTMTimeAnalysisDlgServices LoadEntries(const std::vector<GeneratedEntry>& entries);

}  // namespace bench
