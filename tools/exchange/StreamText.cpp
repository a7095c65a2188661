// Streams as texts.
#include "tools/exchange/StreamText.h"

#include <array>
#include <bit>
#include <cstdint>

#include "VEXTADataIO.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

struct Total {
  const char* Tmu;
  const char* Seconds;
};
constexpr std::array Totals{Total{"TTBCalculated", "V_HumanTime"}, Total{"TTUCalculated", "V_MachineTime"},
                            Total{"TWCalculated", "V_WaitingTime"}, Total{"TRGCalculated", "V_SetupTime"},
                            Total{"TotalCalculated", "V_TotalTime"}};

std::string_view WithoutEnding(std::string_view text, std::string_view characters) {
  const std::size_t last = text.find_last_not_of(characters);
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool HasSameReal(VEXTimeAnalysisRepReference& left, VEXTimeAnalysisRepReference& right, const char* attribute) {
  double left_value = 0.0;
  double right_value = 0.0;
  if (Failed(left.GetValue(attribute, left_value)) || Failed(right.GetValue(attribute, right_value))) return false;
  return std::bit_cast<std::uint64_t>(left_value) == std::bit_cast<std::uint64_t>(right_value);
}

// An analysis of the same lines, outside of the model, with its totals computed.
AnalysisHandle CalculatedCopy(VEXTimeAnalysisRepReference& analysis, VEXSTMTimeAnalysisDlgServices& services) {
  auto copy = AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference(KORUnicodeString()));
  VEXTimeAnalysisLineData line;
  for (int row = 1, count = CountLines(analysis); row <= count; ++row) {
    (void)analysis.GetLine(row, line);
    (void)copy->SetLine(row, line);
  }
  (void)services.CalculateAnalyzedTimeBG(KORBaseUnknown_var(copy));
  return copy;
}

}  // namespace

std::string_view WithoutStreamEnd(std::string_view text) {
  if (text.starts_with(ByteOrderMark)) text.remove_prefix(ByteOrderMark.size());
  return WithoutEnding(WithoutEnding(text, "\r\n"), "|");
}

std::optional<Failure> FaultOfEnds(const std::string& path, std::string_view bytes) {
  std::string_view first = bytes;
  if (first.starts_with(ByteOrderMark)) {
    first.remove_prefix(ByteOrderMark.size());
    if (first.starts_with("AttributeData:") || first.starts_with("LineData:")) return StreamMarkRead(path);
  }
  const std::string_view without_line_feeds = WithoutEnding(bytes, "\n");
  if (!without_line_feeds.ends_with('\r')) return std::nullopt;
  const std::string_view last = WithoutEnding(without_line_feeds, "\r");
  if (last.empty() || last.ends_with('|')) return std::nullopt;  // an item of its own, which nobody reads
  return StreamReturnRead(path);
}

std::string_view SeparatorIn(std::string_view value) {
  constexpr std::string_view separators(":|\0", 3);
  const std::size_t found = value.find_first_of(separators);
  if (found == std::string_view::npos) return {};
  return value[found] == '\0' ? "NUL" : value[found] == ':' ? "\":\"" : "\"|\"";
}

void SetTotalsInSeconds(VEXTimeAnalysisRepReference& analysis, VEXSTMTimeAnalysisDlgServices& services) {
  const AnalysisHandle calculated = CalculatedCopy(analysis, services);
  for (const Total& total : Totals) {
    if (!HasSameReal(analysis, *calculated, total.Tmu)) return;
  }
  for (const Total& total : Totals) {
    double seconds = 0.0;
    (void)calculated->GetValue(total.Seconds, seconds);
    (void)analysis.SetValue(total.Seconds, seconds);
  }
}

void FillAnalysis(VEXTimeAnalysisRepReference& analysis, KORListValKORUnicodeString& items,
                  VEXSTMTimeAnalysisDlgServices& services) {
  (void)VEXTADataIO::SetAnalysisData("", items, &analysis);
  SetTotalsInSeconds(analysis, services);
}

}  // namespace tool
