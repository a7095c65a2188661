// Finds the entries of a table that a code can match.
#include "datacard/CodeIndex.h"

#include <algorithm>

#include "platform/base/KORNumberText.h"

namespace datacard {
namespace {

constexpr std::uint32_t NoPattern = 0xFFFFFFFFu;

void SortOut(EntryPositions& positions) {
  std::ranges::sort(positions);
  const auto repeated = std::ranges::unique(positions);
  positions.erase(repeated.begin(), repeated.end());
}

void Append(const EntryPositions& source, EntryPositions& target) {
  target.insert(target.end(), source.begin(), source.end());
}

/// A number other than 0 must stand behind a code to match with its number.
bool BeginsWithNumber(std::string_view text) {
  return kornumber::ReadReal(text).value_or(0.0) != 0.0;
}

}  // namespace

void PrefixIndex::Add(std::string_view prefix, std::uint32_t position) {
  EntryPositions& positions = _Entries[prefix];
  if (positions.empty() || positions.back() != position) positions.push_back(position);
  const auto place = std::ranges::lower_bound(_Lengths, prefix.size());
  if (place == _Lengths.end() || *place != prefix.size()) _Lengths.insert(place, prefix.size());
}

const EntryPositions* PrefixIndex::Find(std::string_view prefix) const {
  const auto found = _Entries.find(prefix);
  return found == _Entries.end() ? nullptr : &found->second;
}

void PrefixIndex::AppendMatches(std::string_view code, EntryPositions& positions) const {
  for (const std::size_t length : _Lengths) {
    if (length > code.size()) return;
    if (const EntryPositions* found = Find(code.substr(0, length))) Append(*found, positions);
  }
}

CodeIndex::CodeIndex(const std::vector<VEXSTMDataCardEntriesScan>& entries)
    : _PatternNumbers(entries.size(), NoPattern) {
  const auto has_pattern = [](const VEXSTMDataCardEntriesScan& entry) { return !entry._Pattern.IsEmpty(); };
  _Patterns.reserve(static_cast<std::size_t>(std::ranges::count_if(entries, has_pattern)));
  for (std::uint32_t position = 0; position < entries.size(); ++position) {
    const VEXSTMDataCardEntriesScan& entry = entries[position];
    _ByCode.Add(entry._Code.Bytes(), position);
    if (!has_pattern(entry)) continue;
    _PatternEntries.push_back(position);
    _PatternNumbers[position] = static_cast<std::uint32_t>(_Patterns.size());
    const CodePattern& pattern = _Patterns.emplace_back(entry._Pattern.Bytes());
    if (const auto beginnings = LeadingLiterals(pattern)) {
      for (const std::string_view beginning : *beginnings) _ByBeginning.Add(beginning, position);
    } else {
      _AnyBeginning.push_back(position);
    }
  }
}

void CodeIndex::AppendPatternCandidates(std::string_view code, EntryPositions& positions) const {
  if (code.empty()) return Append(_PatternEntries, positions);
  Append(_AnyBeginning, positions);
  _ByBeginning.AppendMatches(code, positions);
}

EntryPositions CodeIndex::PatternCandidates(std::string_view code) const {
  EntryPositions positions;
  AppendPatternCandidates(code, positions);
  SortOut(positions);
  return positions;
}

EntryPositions CodeIndex::Candidates(std::string_view code, bool with_number) const {
  EntryPositions positions;
  AppendPatternCandidates(code, positions);
  if (const EntryPositions* exact = _ByCode.Find(code)) Append(*exact, positions);
  if (with_number) {
    for (const std::size_t length : _ByCode.Lengths()) {
      if (length >= code.size()) break;
      const EntryPositions* found = _ByCode.Find(code.substr(0, length));
      if (found != nullptr && BeginsWithNumber(code.substr(length))) Append(*found, positions);
    }
  }
  SortOut(positions);
  return positions;
}

}  // namespace datacard
