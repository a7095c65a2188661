// Patterns and codes matched by the services.
#include "tools/PatternMatch.h"

#include <algorithm>
#include <memory>
#include <string>

namespace tool {

namespace {

// Types of VEXSTMDataCardCodeScan.
constexpr int OpenToken = 0;
constexpr int CloseToken = 1;
constexpr int AlternativeToken = 2;
constexpr int IntegerToken = 4;
constexpr int RealToken = 5;
constexpr int EndToken = 7;

std::unique_ptr<VEXSTMDataCardCodeScan[]> Compile(const VEXSTMTimeAnalysisDlgServices& service,
                                                  const KORUnicodeString& pattern) {
  VEXSTMDataCardCodeScan* tokens = nullptr;
  service.CreateCodeScanPattern(pattern, tokens);
  return std::unique_ptr<VEXSTMDataCardCodeScan[]>(tokens);
}

// Positions at which the tokens and groups outside of any group begin, and behind them that of the end. Empty if there
// are alternatives outside of groups, or groups that do not close.
std::vector<int> OuterStarts(const VEXSTMDataCardCodeScan* tokens, int count) {
  std::vector<int> starts;
  int depth = 0;
  for (int position = 0; position < count; ++position) {
    const int type = tokens[position]._Type;
    if (depth == 0) starts.push_back(position);
    if (depth == 0 && (type == AlternativeToken || type == CloseToken)) return {};
    if (type == OpenToken) ++depth;
    if (type == CloseToken) --depth;
  }
  if (depth != 0) return {};
  starts.push_back(count);
  return starts;
}

// A walk that ends ahead of the code's end has passed over the parameters behind the last token that took part.
int ParameterBehind(const VEXSTMDataCardCodeScan* tokens, const std::vector<int>& starts) {
  int parameter = -1;
  for (std::size_t start = 0; start + 1 < starts.size(); ++start) {
    const VEXSTMDataCardCodeScan& token = tokens[starts[start]];
    const bool is_parameter = token._Type == IntegerToken || token._Type == RealToken;
    if (token._Matched != 0 || token._Type == OpenToken) parameter = -1;
    if (token._Matched == 0 && is_parameter && parameter < 0) parameter = starts[start];
  }
  return parameter;
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

PatternProgress MatchablePattern::WalkFromHead(std::string_view code) const {
  const auto tokens = Compile(_Service, _Pattern);
  const std::string terminated(code);
  int taken = 0;
  PatternProgress progress;
  progress.Failed = _Service.GetDataCardCodeScan(terminated.c_str(), tokens.get(), taken) == nullptr;
  progress.Taken = static_cast<std::size_t>(std::max(0, taken));
  const std::vector<int> starts = OuterStarts(tokens.get(), _TokenCount);
  if (starts.empty()) return progress;
  progress.Stopped = progress.Failed ? FindFailing(code, starts) : ParameterBehind(tokens.get(), starts);
  return progress;
}

// The walk goes forward only, so that a pattern cut off ahead of the failing token does not fail.
int MatchablePattern::FindFailing(std::string_view code, const std::vector<int>& starts) const {
  const std::string terminated(code);
  const auto tokens = Compile(_Service, _Pattern);
  const auto fails = [&](std::size_t count) {
    std::vector<VEXSTMDataCardCodeScan> cut(tokens.get(), tokens.get() + starts[count]);
    cut.emplace_back()._Type = EndToken;
    int taken = 0;
    return _Service.GetDataCardCodeScan(terminated.c_str(), cut.data(), taken) == nullptr;
  };
  std::size_t passing = 0;
  std::size_t failing = starts.size() - 1;
  while (failing - passing > 1) {
    const std::size_t middle = passing + (failing - passing) / 2;
    (fails(middle) ? failing : passing) = middle;
  }
  return starts[passing];
}

}  // namespace tool
