// Codes of a catalogue that come near a mistyped one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"

namespace tool {

/// Finds codes that the catalogue accepts and that differ little from a typed one: those one stroke away, which takes
/// in the codes that only a pattern knows, and the codes that its entries are listed under.
class NearestCodes {
 public:
  /// Gathers the codes of the service's entry table. The service has to outlive the object.
  explicit NearestCodes(VEXSTMTimeAnalysisDlgServices& service);

  /// At most five codes, the nearest first; none for an empty code and for one beyond LongestCode characters.
  std::vector<std::string> Find(std::string_view typed);

  static constexpr std::size_t LongestCode = 64;

 private:
  struct Candidate;
  void AddOneStrokeAway(const std::string& typed, std::vector<Candidate>& candidates);
  void AddListed(const std::string& typed, std::vector<Candidate>& candidates) const;

  VEXSTMTimeAnalysisDlgServices& _Service;
  std::vector<std::string> _Listed;  // codes of the entries that a lookup finds
  std::string _Alphabet;             // characters that stand in codes of the catalogue
  int _Lookups = 0;                  // made so far for codes one stroke away
};

/// Number of characters to change, add or take away to come from one ASCII text, of at most 64 characters, to another.
std::size_t EditDistance(std::string_view from, std::string_view to);

}  // namespace tool
