// The analyses that streams become, and those that their lines refer to.
#include "tools/exchange/StreamAnalyses.h"

#include <string_view>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/model/KORModel.h"
#include "tools/exchange/ExchangeMessages.h"

namespace tool {

AnalysisHandle StreamAnalyses::Make(const std::string& identifier) {
  const AnalysisHandle made = KORModel::Current().CreateTimeAnalysis(KORUnicodeString(std::string_view(identifier)));
  _ByIdentifier[identifier].Analysis = made;
  return made;
}

void StreamAnalyses::Resolve(const StreamInput& input, const StreamContent& content) {
  std::set<std::string_view> told;
  for (const StreamReference& reference : content.Reused) {
    if (_ByIdentifier.count(reference.Identifier) == 0) {
      Make(reference.Identifier);
      _StandIns.insert(reference.Identifier);
    }
    const bool is_resolved = _StandIns.count(reference.Identifier) == 0;
    if (is_resolved || !told.insert(reference.Identifier).second) continue;
    _Unresolved.push_back(ReferenceUnresolved(input.Path, reference.Row, reference.Identifier));
  }
}

ReusedAnalyses StreamAnalyses::ReusedBy(const AnalysisHandle& analysis) const {
  ReusedAnalyses reused;
  for (int row = 1, count = CountLines(*analysis); row <= count; ++row) {
    const KORBaseUnknown_var of_row = VEXSTMTimeAnalysisDlgServices::GetReusedTAOfRow(row, analysis);
    const KORUnicodeString identifier = VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(of_row.Get());
    const auto found = _ByIdentifier.find(std::string(identifier.Bytes()));
    reused.push_back(found == _ByIdentifier.end() ? nullptr : &found->second);
  }
  return reused;
}

}  // namespace tool
