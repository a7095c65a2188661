// Analyses as tables for people.
#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

#include "platform/base/KORUnicodeString.h"
#include "tools/Messages.h"
#include "tools/NumberText.h"
#include "tools/analysis/CalcReport.h"

namespace tool {

namespace {

constexpr std::string_view None = "-";

// As TotalNames; the last column of the overview marks what is not complete.
constexpr std::array<std::string_view, TotalNames.size() + 1> TotalHeadings{"HUMAN", "MACHINE", "WAITING",
                                                                            "SETUP", "TOTAL",   ""};

// Numbers with as many decimals as the longest of them has, so that their points stand below each other.
class NumberColumn {
 public:
  void Take(const std::optional<double>& number) {
    if (!number) return;
    const std::string text = PlainNumberText(*number);
    const std::size_t point = text.find('.');
    if (point != std::string::npos) _Decimals = std::max(_Decimals, text.size() - point - 1);
  }

  /// One of the numbers taken.
  std::string Text(const std::optional<double>& number) const {
    if (!number) return std::string(None);
    std::string text = PlainNumberText(*number);
    const bool plain = text.find_first_not_of("-.0123456789") == std::string::npos;
    if (!plain || _Decimals == 0) return text;
    std::size_t point = text.find('.');
    if (point == std::string::npos) {
      point = text.size();
      text += '.';
    }
    text.resize(point + 1 + _Decimals, '0');
    return text;
  }

 private:
  std::size_t _Decimals = 0;
};

enum class Align { Left, Right };

struct TableColumn {
  std::string Heading;
  Align Side;
  std::size_t Width = 0;
};

std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(KORUnicodeString(text).GetLengthInChar());
}

// Rows of texts below their headings, two blanks between the columns.
class Table {
 public:
  explicit Table(std::vector<TableColumn> columns) : _Columns(std::move(columns)) {
    std::vector<std::string> headings;
    for (const TableColumn& column : _Columns) headings.push_back(column.Heading);
    AddRow(std::move(headings));
  }

  void AddRow(std::vector<std::string> row) {
    for (std::size_t index = 0; index < row.size(); ++index) {
      _Columns[index].Width = std::max(_Columns[index].Width, WidthOf(row[index]));
    }
    _Rows.push_back(std::move(row));
  }

  void Write(std::ostream& output) const {
    for (const std::vector<std::string>& row : _Rows) {
      std::string text;
      for (std::size_t index = 0; index < row.size(); ++index) {
        const std::string gap(_Columns[index].Width - WidthOf(row[index]), ' ');
        const bool left = _Columns[index].Side == Align::Left;
        text += (index == 0 ? "" : "  ") + (left ? row[index] + gap : gap + row[index]);
      }
      text.erase(text.find_last_not_of(' ') + 1);
      output << text << '\n';
    }
  }

 private:
  std::vector<TableColumn> _Columns;
  std::vector<std::vector<std::string>> _Rows;
};

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
    const std::string operation = result.Operation.empty() ? std::string(None) : result.Operation;
    std::vector<std::string> row{Excerpt(operation), Excerpt(result.Identifier), Excerpt(result.Name)};
    for (const double total : result.TotalsTmu) row.push_back(times.Text(unit.Convert(total)));
    if (!result.IsComplete) row.emplace_back("incomplete");
    table.AddRow(std::move(row));
  }
  output << "\nTotals in " << unit.GetHeading() << "\n\n";
  table.Write(output);
}

}  // namespace tool
