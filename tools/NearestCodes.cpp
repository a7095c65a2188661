// Codes of a catalogue that come near a mistyped one.
#include "tools/NearestCodes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <set>

#include "tools/CodeLookup.h"
#include "tools/LookupForm.h"

namespace tool {

namespace {

constexpr std::size_t MostNearest = 5;
constexpr std::size_t LongestForStrokes = 24;
// A long list of unknown codes is to stay quick: behind so many lookups only listed codes are named.
constexpr int MostStrokeLookups = 250'000;

bool IsDigit(char character) {
  return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

// How far a code may be and still be called near.
std::size_t FarthestFor(std::string_view typed) {
  return std::clamp<std::size_t>(typed.size() / 2, 1, 3);
}

}  // namespace

// How likely one code was meant for another: by distance, then by kind of slip.
struct NearestCodes::Candidate {
  std::size_t Distance;
  int Kind;  // 0 one for one of its kind, 1 two swapped, 2 one too many, 3 one missing, 4 one for another, 5 listed
  std::string Code;

  friend auto operator<=>(const Candidate&, const Candidate&) = default;
};

// Bit-parallel: each bit of the two masks tells whether a cell of the distance table's column goes up or down by one.
std::size_t EditDistance(std::string_view from, std::string_view to) {
  if (from.empty()) return to.size();
  std::array<std::uint64_t, 256> places{};
  for (std::size_t index = 0; index < from.size(); ++index) {
    places[static_cast<unsigned char>(from[index])] |= std::uint64_t{1} << index;
  }
  const std::uint64_t last = std::uint64_t{1} << (from.size() - 1);
  std::uint64_t up = ~std::uint64_t{0};
  std::uint64_t down = 0;
  std::size_t distance = from.size();
  for (const char character : to) {
    const std::uint64_t equal = places[static_cast<unsigned char>(character)];
    const std::uint64_t zero = (((equal & up) + up) ^ up) | equal | down;
    std::uint64_t right_up = down | ~(zero | up);
    std::uint64_t right_down = zero & up;
    if (right_up & last) ++distance;
    if (right_down & last) --distance;
    right_up = (right_up << 1) | 1;
    right_down <<= 1;
    up = right_down | ~(zero | right_up);
    down = right_up & zero;
  }
  return distance;
}

NearestCodes::NearestCodes(VEXSTMTimeAnalysisDlgServices& service) : _Service(service) {
  std::set<std::string> listed;
  std::set<char> alphabet;
  const auto take_characters = [&alphabet](std::string_view text) {
    for (const char character : text) {
      const auto byte = static_cast<unsigned char>(character);
      if (std::isupper(byte) || std::isdigit(byte) || character == '-') alphabet.insert(character);
    }
  };
  for (const char digit : std::string_view("0123456789")) alphabet.insert(digit);
  for (int index = 0; index < service.GetDCEntriesCount(); ++index) {
    const VEXSTMDataCardEntriesScan& entry = *service.GetDCEntry(index);
    take_characters(entry._Code.Bytes());
    take_characters(entry._Pattern.Bytes());
    const std::string code(entry._Code.Bytes());
    if (!code.empty() && code.size() <= 2 * LongestCode && IsKnownCode(service, code)) listed.insert(code);
  }
  _Listed.assign(listed.begin(), listed.end());
  _Alphabet.assign(alphabet.begin(), alphabet.end());
}

void NearestCodes::AddOneStrokeAway(const std::string& typed, std::vector<Candidate>& candidates) {
  if (typed.size() > LongestForStrokes || _Lookups > MostStrokeLookups) return;
  const auto try_code = [&](int kind, const std::string& code) {
    ++_Lookups;
    if (!code.empty() && IsKnownCode(_Service, code)) candidates.push_back({1, kind, code});
  };
  for (std::size_t place = 0; place <= typed.size(); ++place) {
    for (const char character : _Alphabet) {
      std::string code = typed;
      try_code(3, code.insert(place, 1, character));
      if (place == typed.size() || typed[place] == character) continue;
      code = typed;
      code[place] = character;
      try_code(IsDigit(character) == IsDigit(typed[place]) ? 0 : 4, code);
    }
    if (place < typed.size()) try_code(2, std::string(typed).erase(place, 1));
    if (place + 1 < typed.size() && typed[place] != typed[place + 1]) {
      std::string code = typed;
      std::swap(code[place], code[place + 1]);
      try_code(1, code);
    }
  }
}

void NearestCodes::AddListed(const std::string& typed, std::vector<Candidate>& candidates) const {
  const std::size_t farthest = FarthestFor(typed);
  for (const std::string& code : _Listed) {
    if (code.size() > typed.size() + farthest || typed.size() > code.size() + farthest) continue;
    const std::size_t distance = EditDistance(typed, code);
    if (distance <= farthest) candidates.push_back({distance, 5, code});
  }
}

std::vector<std::string> NearestCodes::Find(std::string_view typed) {
  const std::string form = typed.size() > LongestCode * 2 ? std::string() : LookupForm(typed);
  std::vector<std::string> nearest;
  if (form.empty() || form.size() > LongestCode) return nearest;
  std::vector<Candidate> candidates;
  AddOneStrokeAway(form, candidates);
  AddListed(form, candidates);
  std::sort(candidates.begin(), candidates.end());
  for (const Candidate& candidate : candidates) {
    if (std::find(nearest.begin(), nearest.end(), candidate.Code) != nearest.end()) continue;
    nearest.push_back(candidate.Code);
    if (nearest.size() == MostNearest) break;
  }
  return nearest;
}

}  // namespace tool
