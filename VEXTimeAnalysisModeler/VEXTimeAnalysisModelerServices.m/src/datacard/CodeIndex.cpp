// Finds the entries of a table that a code can match.
#include "datacard/CodeIndex.h"

#include <algorithm>

#include "platform/base/KORNumberText.h"

namespace datacard {
namespace {

constexpr std::uint32_t NoPattern = 0xFFFFFFFFu;

void SortOut(EntryPositions& positions) {
  if (positions.size() < 2) return;
  std::sort(positions.begin(), positions.end());
  positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
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
  MakeRoom();
  std::uint64_t hash = HashStart;
  for (const char byte : prefix) hash = HashStep(hash, byte);
  std::uint32_t& number = _Places[PlaceOf(hash, prefix)];
  if (number == 0) {
    _Filed.push_back({prefix, hash, {}});
    number = static_cast<std::uint32_t>(_Filed.size());
  }
  EntryPositions& positions = _Filed[number - 1].Positions;
  if (positions.empty() || positions.back() != position) positions.push_back(position);
  if (prefix.size() < MarkedLengths) _LengthMarks |= std::uint64_t{1} << prefix.size();
  _MostLength = std::max(_MostLength, prefix.size());
}

/// Keeps at least half of the places free.
void PrefixIndex::MakeRoom() {
  if (2 * (_Filed.size() + 1) <= _Places.size()) return;
  constexpr std::size_t first_size = 16;
  _Places.assign(std::max(first_size, 2 * _Places.size()), 0);
  for (std::size_t index = 0; index < _Filed.size(); ++index) {
    _Places[PlaceOf(_Filed[index].Hash, _Filed[index].Prefix)] = static_cast<std::uint32_t>(index + 1);
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
  _ByBeginning.ForEachPrefix(code, [&](std::string_view, const EntryPositions& found) { Append(found, positions); });
}

void CodeIndex::FindPatternCandidates(std::string_view code, EntryPositions& positions) const {
  positions.clear();
  AppendPatternCandidates(code, positions);
  SortOut(positions);
}

void CodeIndex::FindCandidates(std::string_view code, bool with_number, EntryPositions& positions) const {
  positions.clear();
  AppendPatternCandidates(code, positions);
  _ByCode.ForEachPrefix(code, [&](std::string_view prefix, const EntryPositions& found) {
    const bool whole = prefix.size() == code.size();
    if (whole || (with_number && BeginsWithNumber(code.substr(prefix.size())))) Append(found, positions);
  });
  SortOut(positions);
}

}  // namespace datacard
