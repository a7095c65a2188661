// Finds the entries of a table that a code can match, without asking each of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "VEXSTMDataCardScans.h"
#include "datacard/CodePattern.h"

namespace datacard {

/// Positions of entries in the table, ascending.
using EntryPositions = std::vector<std::uint32_t>;

/// Entries filed under texts with which a code can begin. A table of the texts by their hash, which a walk along a code
/// computes for all of its beginnings at once.
class PrefixIndex {
 public:
  /// Positions must come in ascending order. The text must outlive the index.
  void Add(std::string_view prefix, std::uint32_t position);

  /// Calls `take` with each text filed that `code` begins with, from the shortest on, and the positions filed under it.
  template <class Taker>
  void ForEachPrefix(std::string_view code, Taker take) const {
    if (_Places.empty()) return;
    std::uint64_t hash = HashStart;
    for (std::size_t length = 0;; ++length) {
      const Filed* filed = IsLength(length) ? Find(hash, code.substr(0, length)) : nullptr;
      if (filed != nullptr) take(filed->Prefix, filed->Positions);
      if (length == code.size() || length == _MostLength) return;
      hash = HashStep(hash, code[length]);
    }
  }

 private:
  struct Filed {
    std::string_view Prefix;
    std::uint64_t Hash;
    EntryPositions Positions;
  };

  // FNV-1a, 64 bits.
  static constexpr std::uint64_t HashStart = 0xCBF29CE484222325u;
  static constexpr std::uint64_t HashStep(std::uint64_t hash, char byte) {
    return (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3u;
  }

  static constexpr std::size_t MarkedLengths = 64;
  bool IsLength(std::size_t length) const { return length >= MarkedLengths || (_LengthMarks >> length & 1) != 0; }

  /// The place of a text: where it is filed, or the free place where it belongs.
  std::size_t PlaceOf(std::uint64_t hash, std::string_view prefix) const {
    const std::size_t mask = _Places.size() - 1;
    for (std::size_t place = (hash ^ hash >> 32) & mask;; place = (place + 1) & mask) {
      if (_Places[place] == 0) return place;
      const Filed& filed = _Filed[_Places[place] - 1];
      if (filed.Hash == hash && filed.Prefix == prefix) return place;
    }
  }
  const Filed* Find(std::uint64_t hash, std::string_view prefix) const {
    const std::uint32_t number = _Places[PlaceOf(hash, prefix)];
    return number == 0 ? nullptr : &_Filed[number - 1];
  }
  void MakeRoom();

  std::vector<Filed> _Filed;
  std::vector<std::uint32_t> _Places;  // by hash: the number from 1 of what is filed there, 0 if free; a power of two
  std::uint64_t _LengthMarks = 0;      // the lengths of the texts filed, as far as they are below MarkedLengths
  std::size_t _MostLength = 0;
};

/// The compiled patterns of a table of entries, and its entries filed by how the codes begin that they can match.
/// Constant once made; the table must outlive it.
class CodeIndex {
 public:
  explicit CodeIndex(const std::vector<VEXSTMDataCardEntriesScan>& entries);

  /// The compiled pattern of the entry at a position, which must have one.
  const CodePattern& PatternAt(std::uint32_t position) const { return _Patterns[_PatternNumbers[position]]; }

  /// Fills `positions` with all entries whose pattern may match a code, ascending.
  void FindPatternCandidates(std::string_view code, EntryPositions& positions) const;

  /// Fills `positions` with all entries that may match a code by their pattern, as their exact code, or, if
  /// `with_number`, as their code with a number behind it, ascending.
  void FindCandidates(std::string_view code, bool with_number, EntryPositions& positions) const;

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
