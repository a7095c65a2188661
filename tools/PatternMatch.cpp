// Patterns and codes matched by the services.
#include "tools/PatternMatch.h"

#include <algorithm>
#include <memory>
#include <string>

namespace tool {

namespace {

constexpr int EndToken = 7;

std::unique_ptr<VEXSTMDataCardCodeScan[]> Compile(const VEXSTMTimeAnalysisDlgServices& service,
                                                  const KORUnicodeString& pattern) {
  VEXSTMDataCardCodeScan* tokens = nullptr;
  service.CreateCodeScanPattern(pattern, tokens);
  return std::unique_ptr<VEXSTMDataCardCodeScan[]>(tokens);
}

}  // namespace

MatchablePattern::MatchablePattern(VEXSTMTimeAnalysisDlgServices& service, std::string_view pattern)
    : _Service(service), _Pattern(pattern) {
  const auto tokens = Compile(service, _Pattern);
  while (tokens && tokens[static_cast<std::size_t>(_TokenCount)]._Type != EndToken) ++_TokenCount;
}

PatternMatch MatchablePattern::Match(std::string_view code) const {
  PatternMatch match;
  const auto length = static_cast<std::size_t>(std::max(_TokenCount, LookupArrayLength));
  match.Values.resize(length);
  match.Flags.resize(length);
  match.Matches = _Service.CheckDataCardCodePattern(KORUnicodeString(code), _Pattern, match.Count, match.Values.data(),
                                                    match.Flags.data()) != 0;
  return match;
}

int MatchablePattern::TakenFromHead(std::string_view code) const {
  const auto tokens = Compile(_Service, _Pattern);
  int taken = 0;
  const std::string terminated(code);
  return _Service.GetDataCardCodeScan(terminated.c_str(), tokens.get(), taken) == nullptr ? -1 : taken;
}

}  // namespace tool
