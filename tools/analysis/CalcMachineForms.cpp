// An analysis as JSON and as comma-separated values, for other programs.
#include <ostream>

#include "tools/JsonLine.h"
#include "tools/NumberText.h"
#include "tools/analysis/CalcReport.h"
#include "tools/analysis/CsvField.h"
#include "tools/analysis/TimeJson.h"

namespace tool {

namespace {

constexpr std::string_view CsvHeader =
    "file,identifier,kind,line,code,description,time type,frequency,time,total,unit,state\n";

std::string_view NameOf(RowState state) {
  switch (state) {
    case RowState::Counted:
      return "counted";
    case RowState::Outside:
      return "outside";
    case RowState::Text:
      return "text";
    case RowState::Flawed:
      break;
  }
  return "flawed";
}

nlohmann::ordered_json LineJson(const ResultLine& line, const VEXSTMTimeAnalysisDlgServices& services) {
  nlohmann::ordered_json json;
  json["line"] = line.FileLine;
  json["code"] = line.Code;
  json["description"] = line.Description;
  json["timeType"] = line.TimeType;
  json["frequency"] = line.Frequency ? JsonNumber(*line.Frequency) : nlohmann::ordered_json(nullptr);
  json["time"] = TimeJson(line.Tmu, services);
  json["total"] = TimeJson(line.TotalTmu, services);
  json["reuse"] = line.Reused;
  json["valueAdded"] = line.ValueAdded;
  json["additionalDescription"] = line.AdditionalDescription;
  json["picture"] = line.Picture;
  json["state"] = NameOf(line.State);
  return json;
}

std::string CsvNumber(const std::optional<double>& number) {
  return number ? PlainNumberText(*number) : std::string();
}

std::string CsvTime(const ResultUnit& unit, const std::optional<double>& tmu) {
  return tmu ? PlainNumberText(unit.Convert(*tmu)) : std::string();
}

}  // namespace

void WriteResultJson(std::ostream& output, const AnalysisResult& result,
                     const VEXSTMTimeAnalysisDlgServices& services) {
  nlohmann::ordered_json lines = nlohmann::ordered_json::array();
  for (const ResultLine& line : result.Lines) lines.push_back(LineJson(line, services));
  nlohmann::ordered_json json;
  json["file"] = result.Path;
  json["identifier"] = result.Identifier;
  json["operation"] = result.Operation;
  json["name"] = result.Name;
  json["description"] = result.Description;
  json["system"] = result.System;
  json["complete"] = result.IsComplete;
  json["lines"] = std::move(lines);
  json["totals"] = TotalsJson(result.TotalsTmu, services);
  WriteJsonLine(output, json);
}

void WriteCsvHeader(std::ostream& output) {
  output << CsvHeader;
}

void WriteResultCsv(std::ostream& output, const AnalysisResult& result, const ResultUnit& unit) {
  const std::string head = CsvField(result.Path) + "," + CsvField(result.Identifier) + ",";
  const std::string tail = "," + std::string(unit.GetName()) + ",";
  for (const ResultLine& line : result.Lines) {
    output << head << "line," << line.FileLine << ',' << CsvField(line.Code) << ',' << CsvField(line.Description) << ','
           << CsvField(line.TimeType) << ',' << CsvNumber(line.Frequency) << ',' << CsvTime(unit, line.Tmu) << ','
           << CsvTime(unit, line.TotalTmu) << tail << NameOf(line.State) << '\n';
  }
  for (std::size_t index = 0; index < TotalNames.size(); ++index) {
    output << head << TotalNames[index] << ",,,," << TotalTimeTypes[index] << ",,,"
           << PlainNumberText(unit.Convert(result.TotalsTmu[index])) << tail
           << (result.IsComplete ? "complete" : "incomplete") << '\n';
  }
}

}  // namespace tool
