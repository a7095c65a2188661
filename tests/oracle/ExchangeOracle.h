// The plain exchange of a time analysis as a list of items: cutting, both tables, the stream of the newest analysis of
// the system STD, reading an analysis out and writing one in, step by step and without any shortcut. It is the
// yardstick for the exchange. It searches the tables row by row and rewrites a line once per cell.
#pragma once

#include <string>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

namespace oracle {

/// One attribute of the exchange: what an item calls it, what the analysis calls it (several names joined by "|"), and
/// the type: 3 integer, 5 real, 8 text, 11 boolean.
struct ExchangeAttribute {
  const char* key;
  const char* names;
  int type;
};

/// One key of a line in the exchange: what an item calls it, what the line calls it, its column in a list that was read
/// out, and the type: as above, and 13 for another analysis.
struct ExchangeLineKey {
  const char* key;
  const char* line_key;
  int column;
  int type;
};

/// Both tables in the order of search.
const std::vector<ExchangeAttribute>& ExchangeAttributes();
const std::vector<ExchangeLineKey>& ExchangeLineKeys();

/// The stream of a new analysis of the system STD, with ten lines.
std::string ExchangeDefaultStream();

/// Cuts a text (UTF-8) at a separator.
std::vector<std::string> ExplodeString(const std::string& separator, const std::string& text);

/// What an operation gave beside what it changed.
struct ExchangeOutcome {
  long status = 0;
  std::vector<std::string> trace;  // the lines that it wrote to the trace, without their line feeds
  std::string fatal_error;         // what ends the process, with nothing changed; empty for an operation that returns
};

/// Reads an analysis out. The items of a fatal error or of E_FAIL are those that came in.
ExchangeOutcome GetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                                KORBaseUnknown* analysis);

/// Writes items into an analysis.
ExchangeOutcome SetAnalysisData(const KORUnicodeString& identifier, const KORListValKORUnicodeString& items,
                                KORBaseUnknown* analysis);

}  // namespace oracle
