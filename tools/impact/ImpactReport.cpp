// The forms in which the impact of a change is written.
#include "tools/impact/ImpactReport.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>

#include "tools/JsonLine.h"
#include "tools/Messages.h"
#include "tools/NumberText.h"
#include "tools/TextTable.h"
#include "tools/analysis/CsvField.h"
#include "tools/analysis/TimeJson.h"

namespace tool {

namespace {

constexpr std::string_view CsvHeader = "file,identifier,level,state,kind,reused,line,old,new,unit\n";

std::string_view NameOf(FileState state) {
  switch (state) {
    case FileState::Follows:
      return "follows";
    case FileState::Changes:
      return "changes";
    case FileState::Written:
      return "written";
    case FileState::Old:
      return "old";
    case FileState::Flawed:
      break;
  }
  return "flawed";
}

const AnalysisFolder::Member& MemberOf(const ImpactReport& report, std::size_t position) {
  return *report.Analyses[position].Member;
}

std::size_t LineOf(const AnalysisFolder::Member& member, std::size_t row) {
  return member.File.GetRows()[row].Line;
}

std::string LinesText(const AnalysisFolder::Member& member, const std::vector<std::size_t>& rows) {
  std::string lines;
  for (const std::size_t row : rows) lines += (lines.empty() ? "" : ", ") + std::to_string(LineOf(member, row));
  return Excerpt(lines);
}

std::optional<double> NewTotal(const ImpactedAnalysis& impacted, std::size_t index) {
  if (!impacted.NewTmu) return std::nullopt;
  return (*impacted.NewTmu)[index];
}

// ------------------------------------------------------------------------------------------------- For people

void WriteUses(std::ostream& output, const ImpactReport& report) {
  Table table({{"LEVEL", Align::Right},
               {"ANALYSIS", Align::Left},
               {"NAME", Align::Left},
               {"REUSES", Align::Left},
               {"LINES", Align::Left},
               {"FILE", Align::Left}});
  for (const ImpactedAnalysis& impacted : report.Impacted) {
    const AnalysisFolder::Member& member = MemberOf(report, impacted.Step.Analysis);
    std::vector<std::string> head{std::to_string(impacted.Step.Level), Excerpt(member.Identifier),
                                  Excerpt(member.File.GetName())};
    for (const ImpactUse& use : impacted.Uses) {
      std::vector<std::string> row = head;
      row.push_back(Excerpt(MemberOf(report, use.Reused).Identifier));
      row.push_back(LinesText(member, use.Rows));
      row.emplace_back(head.front().empty() ? std::string_view() : NameOf(impacted.State));
      table.AddRow(std::move(row));
      head = {"", "", ""};
    }
  }
  table.Write(output);
}

std::vector<std::optional<double>> InUnit(const ResultUnit& unit, const std::optional<TotalsOfAnalysis>& totals) {
  std::vector<std::optional<double>> numbers(TotalNames.size());
  if (!totals) return numbers;
  std::transform(totals->begin(), totals->end(), numbers.begin(),
                 [&unit](double total) { return std::optional(unit.Convert(total)); });
  return numbers;
}

void WriteTotals(std::ostream& output, const ImpactReport& report, const ResultUnit& unit) {
  NumberColumn times;
  for (const ImpactedAnalysis& impacted : report.Impacted) {
    for (const auto& number : InUnit(unit, impacted.OldTmu)) times.Take(number);
    for (const auto& number : InUnit(unit, impacted.NewTmu)) times.Take(number);
  }
  Table table({{"ANALYSIS", Align::Left},
               {"", Align::Left},
               {"HUMAN", Align::Right},
               {"MACHINE", Align::Right},
               {"WAITING", Align::Right},
               {"SETUP", Align::Right},
               {"TOTAL", Align::Right}});
  const auto add = [&](const std::string& analysis, const char* which, const std::optional<TotalsOfAnalysis>& totals) {
    std::vector<std::string> row{analysis, which};
    for (const auto& number : InUnit(unit, totals)) row.push_back(times.Text(number));
    table.AddRow(std::move(row));
  };
  for (const ImpactedAnalysis& impacted : report.Impacted) {
    add(Excerpt(MemberOf(report, impacted.Step.Analysis).Identifier), "old", impacted.OldTmu);
    add("", "new", impacted.NewTmu);
  }
  table.Write(output);
}

std::string Counted(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

void WriteClosing(std::ostream& output, const ImpactReport& report) {
  const auto count = [&report](FileState state) {
    return static_cast<std::size_t>(
        std::count_if(report.Impacted.begin(), report.Impacted.end(),
                      [state](const ImpactedAnalysis& impacted) { return impacted.State == state; }));
  };
  output << '\n' << Counted(report.Impacted.size(), "analysis", "analyses");
  if (count(FileState::Flawed) > 0) output << ", " << count(FileState::Flawed) << " flawed and left alone";
  if (count(FileState::Written) > 0)
    output << "; " << Counted(count(FileState::Written), "file", "files") << " written";
  if (count(FileState::Old) > 0) output << "; " << Counted(count(FileState::Old), "file", "files") << " left old";
  if (count(FileState::Changes) > 0) {
    output << "; --apply changes " << Counted(count(FileState::Changes), "file", "files");
  }
  const bool nothing = count(FileState::Written) + count(FileState::Old) + count(FileState::Changes) == 0;
  output << (nothing ? "; no file changes\n" : "\n");
}

}  // namespace

void WriteImpactTables(std::ostream& output, const ImpactReport& report, const ResultUnit& unit) {
  const AnalysisFolder::Member& changed = MemberOf(report, report.Template);
  const std::string& name = changed.File.GetName();
  output << changed.File.GetPath() << (name.empty() ? "" : ": ") << Printable(name) << "\nidentifier "
         << Printable(changed.Identifier) << ", total "
         << PlainNumberText(unit.Convert(ReadTotals(report.Analyses[report.Template].Built).back())) << ' '
         << unit.GetHeading() << (report.Analyses[report.Template].Built.IsComplete ? "\n\n" : ", incomplete\n\n");
  if (report.Impacted.empty()) {
    output << "No analysis reuses it\n";
    return;
  }
  WriteUses(output, report);
  output << "\nTotals in " << unit.GetHeading() << "\n\n";
  WriteTotals(output, report, unit);
  WriteClosing(output, report);
}

void WriteImpactJson(std::ostream& output, const ImpactReport& report, const VEXSTMTimeAnalysisDlgServices& services) {
  for (const ImpactedAnalysis& impacted : report.Impacted) {
    const AnalysisFolder::Member& member = MemberOf(report, impacted.Step.Analysis);
    nlohmann::ordered_json uses = nlohmann::ordered_json::array();
    for (const ImpactUse& use : impacted.Uses) {
      nlohmann::ordered_json lines = nlohmann::ordered_json::array();
      for (const std::size_t row : use.Rows) lines.push_back(LineOf(member, row));
      uses.push_back({{"reused", MemberOf(report, use.Reused).Identifier}, {"lines", std::move(lines)}});
    }
    nlohmann::ordered_json json;
    json["file"] = member.File.GetPath();
    json["identifier"] = member.Identifier;
    json["name"] = member.File.GetName();
    json["level"] = impacted.Step.Level;
    json["state"] = NameOf(impacted.State);
    json["uses"] = std::move(uses);
    json["old"] = TotalsJson(impacted.OldTmu, services);
    json["new"] = impacted.NewTmu ? TotalsJson(*impacted.NewTmu, services) : nlohmann::ordered_json(nullptr);
    WriteJsonLine(output, json);
  }
}

void WriteImpactCsv(std::ostream& output, const ImpactReport& report, const ResultUnit& unit) {
  output << CsvHeader;
  for (const ImpactedAnalysis& impacted : report.Impacted) {
    const AnalysisFolder::Member& member = MemberOf(report, impacted.Step.Analysis);
    const std::string head = CsvField(member.File.GetPath()) + "," + CsvField(member.Identifier) + "," +
                             std::to_string(impacted.Step.Level) + "," + std::string(NameOf(impacted.State)) + ",";
    for (const ImpactUse& use : impacted.Uses) {
      const std::string reused = CsvField(MemberOf(report, use.Reused).Identifier);
      for (const std::size_t row : use.Rows) {
        output << head << "use," << reused << ',' << LineOf(member, row) << ",,,\n";
      }
    }
    for (std::size_t index = 0; index < TotalNames.size(); ++index) {
      const std::optional<double> now = NewTotal(impacted, index);
      output << head << TotalNames[index] << ",,," << PlainNumberText(unit.Convert(impacted.OldTmu[index])) << ','
             << (now ? PlainNumberText(unit.Convert(*now)) : std::string()) << ',' << unit.GetName() << '\n';
    }
  }
}

}  // namespace tool
