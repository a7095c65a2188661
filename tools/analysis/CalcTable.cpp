// Analyses as tables for people.
#include <array>
#include <ostream>
#include <utility>

#include "tools/Messages.h"
#include "tools/TextTable.h"
#include "tools/analysis/CalcReport.h"

namespace tool {

namespace {

// As TotalNames; the last column of the overview marks what is not complete.
constexpr std::array<std::string_view, TotalNames.size() + 1> TotalHeadings{"HUMAN", "MACHINE", "WAITING",
                                                                            "SETUP", "TOTAL",   ""};

std::optional<double> InUnit(const ResultUnit& unit, const std::optional<double>& tmu) {
  if (!tmu) return std::nullopt;
  return unit.Convert(*tmu);
}

// Times and totals have the same decimals.
struct NumberColumns {
  NumberColumn Frequencies;
  NumberColumn Times;
};

NumberColumns TakeNumbers(const AnalysisResult& result, const ResultUnit& unit) {
  NumberColumns columns;
  for (const ResultLine& line : result.Lines) {
    columns.Frequencies.Take(line.Frequency);
    columns.Times.Take(InUnit(unit, line.Tmu));
    columns.Times.Take(InUnit(unit, line.TotalTmu));
  }
  for (const double total : result.TotalsTmu) columns.Times.Take(unit.Convert(total));
  return columns;
}

Table EmptyTable(const ResultUnit& unit) {
  const std::string in_unit = " (" + std::string(unit.GetHeading()) + ")";
  return Table({{"LINE", Align::Right},
                {"CODE", Align::Left},
                {"DESCRIPTION", Align::Left},
                {"TYPE", Align::Left},
                {"FREQUENCY", Align::Right},
                {"TIME" + in_unit, Align::Right},
                {"TOTAL" + in_unit, Align::Right}});
}

void WriteHead(std::ostream& output, const AnalysisResult& result) {
  output << result.Path << (result.Name.empty() ? "" : ": ") << Printable(result.Name) << '\n';
  if (!result.Description.empty()) output << Printable(result.Description) << '\n';
  output << "identifier " << Printable(result.Identifier) << (result.System.empty() ? "" : ", system " + result.System)
         << "\n\n";
}

void WriteTable(std::ostream& output, const AnalysisResult& result, const ResultUnit& unit) {
  const NumberColumns columns = TakeNumbers(result, unit);
  Table table = EmptyTable(unit);
  for (const ResultLine& line : result.Lines) {
    std::vector<std::string> row{std::to_string(line.FileLine), Excerpt(line.Code), Excerpt(line.Description)};
    if (line.State != RowState::Text) {
      row.insert(row.end(),
                 {Excerpt(line.TimeType), columns.Frequencies.Text(line.Frequency),
                  columns.Times.Text(InUnit(unit, line.Tmu)), columns.Times.Text(InUnit(unit, line.TotalTmu))});
    }
    table.AddRow(std::move(row));
  }
  table.AddRow({});
  for (std::size_t index = 0; index < TotalNames.size(); ++index) {
    table.AddRow({"", "", std::string(TotalNames[index]), std::string(TotalTimeTypes[index]), "", "",
                  columns.Times.Text(unit.Convert(result.TotalsTmu[index]))});
  }
  table.Write(output);
}

}  // namespace

void WriteResultTable(std::ostream& output, const AnalysisResult& result, const ResultUnit& unit, bool is_first) {
  if (!is_first) output << '\n';
  WriteHead(output, result);
  WriteTable(output, result, unit);
  if (result.IsComplete) return;
  output << "Incomplete: ";
  if (result.FlawedRows > 0) {
    output << result.FlawedRows << " of " << result.Lines.size()
           << (result.Lines.size() == 1 ? " row has" : " rows have") << " no time, or a wrong one";
  } else {
    output << "the file was not read to its end";
  }
  output << "; the totals are not to be relied on\n";
}

void WriteOverview(std::ostream& output, const std::vector<AnalysisResult>& results, const ResultUnit& unit) {
  NumberColumn times;
  std::vector<TableColumn> columns{{"OPERATION", Align::Left}, {"ANALYSIS", Align::Left}, {"NAME", Align::Left}};
  for (const std::string_view heading : TotalHeadings) columns.push_back({std::string(heading), Align::Right});
  for (const AnalysisResult& result : results) {
    for (const double total : result.TotalsTmu) times.Take(unit.Convert(total));
  }
  Table table(std::move(columns));
  for (const AnalysisResult& result : results) {
    const std::string operation = result.Operation.empty() ? std::string(NoValue) : result.Operation;
    std::vector<std::string> row{Excerpt(operation), Excerpt(result.Identifier), Excerpt(result.Name)};
    for (const double total : result.TotalsTmu) row.push_back(times.Text(unit.Convert(total)));
    if (!result.IsComplete) row.emplace_back("incomplete");
    table.AddRow(std::move(row));
  }
  output << "\nTotals in " << unit.GetHeading() << "\n\n";
  table.Write(output);
}

}  // namespace tool
