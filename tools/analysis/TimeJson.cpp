// A time in JSON.
#include "tools/analysis/TimeJson.h"

#include <string>

#include "tools/JsonLine.h"

namespace tool {

nlohmann::ordered_json TimeJson(const std::optional<double>& tmu, const VEXSTMTimeAnalysisDlgServices& services) {
  if (!tmu) return nullptr;
  nlohmann::ordered_json time;
  time["tmu"] = JsonNumber(ResultUnit(services, "tmu").Convert(*tmu));
  time["seconds"] = JsonNumber(ResultUnit(services, "s").Convert(*tmu));
  return time;
}

nlohmann::ordered_json TotalsJson(const TotalsOfAnalysis& totals, const VEXSTMTimeAnalysisDlgServices& services) {
  nlohmann::ordered_json json;
  for (std::size_t index = 0; index < TotalNames.size(); ++index) {
    json[std::string(TotalNames[index])] = TimeJson(totals[index], services);
  }
  return json;
}

}  // namespace tool
