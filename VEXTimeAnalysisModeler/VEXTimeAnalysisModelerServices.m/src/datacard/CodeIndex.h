// Finds the entries of a table that a code can match, without asking each of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "VEXSTMDataCardScans.h"
#include "datacard/CodePattern.h"

namespace datacard {

/// Positions of entries in the table, ascending.
using EntryPositions = std::vector<std::uint32_t>;

/// Entries filed under texts of which a code must begin with one.
class PrefixIndex {
 public:
  /// Positions must come in ascending order. The text must outlive the index.
  void Add(std::string_view prefix, std::uint32_t position);

  /// Appends the positions filed under each prefix of `code`, the empty and the whole text included, in no order.
  void AppendMatches(std::string_view code, EntryPositions& positions) const;

  /// The positions filed under exactly `prefix`; null if there are none.
  const EntryPositions* Find(std::string_view prefix) const;

  /// The lengths in bytes of the prefixes filed, ascending.
  const std::vector<std::size_t>& Lengths() const { return _Lengths; }

 private:
  std::unordered_map<std::string_view, EntryPositions> _Entries;
  std::vector<std::size_t> _Lengths;
};

/// The compiled patterns of a table of entries, and its entries filed by how the codes begin that they can match.
/// Constant once made; the table must outlive it.
class CodeIndex {
 public:
  explicit CodeIndex(const std::vector<VEXSTMDataCardEntriesScan>& entries);

  /// The compiled pattern of the entry at a position, which must have one.
  const CodePattern& PatternAt(std::uint32_t position) const { return _Patterns[_PatternNumbers[position]]; }

  /// All entries whose pattern may match a code, ascending.
  EntryPositions PatternCandidates(std::string_view code) const;

  /// All entries that may match a code by their pattern, as their exact code, or, if `with_number`, as their code with
  /// a number behind it, ascending.
  EntryPositions Candidates(std::string_view code, bool with_number) const;

 private:
  void AppendPatternCandidates(std::string_view code, EntryPositions& positions) const;

  std::vector<CodePattern> _Patterns;
  std::vector<std::uint32_t> _PatternNumbers;  // for each entry the position of its pattern in _Patterns
  EntryPositions _PatternEntries;              // entries that have a pattern
  EntryPositions _AnyBeginning;                // entries whose pattern does not tell how a code begins
  PrefixIndex _ByBeginning;                    // the other entries that have a pattern
  PrefixIndex _ByCode;                         // all entries
};

}  // namespace datacard
