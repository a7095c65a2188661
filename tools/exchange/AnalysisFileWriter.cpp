// Analyses as the files that calc reads.
#include "tools/exchange/AnalysisFileWriter.h"

#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <span>
#include <string_view>

#include "tools/NumberText.h"
#include "tools/Systems.h"
#include "tools/analysis/AnalysisNumber.h"
#include "tools/analysis/CsvField.h"
#include "tools/analysis/RowFormula.h"

namespace tool {

namespace {

using Cells = std::array<std::string, ColumnNames.size()>;
using Parameters = std::vector<VEXTimeAnalysisFormulaParameter>;

std::string TextUnder(const KORKeyedValues& values, std::string_view key) {
  KORUnicodeString text;
  (void)values.Get(key, text);
  return std::string(text.Bytes());
}

std::optional<double> RealUnder(const KORKeyedValues& values, std::string_view key) {
  double number = 0.0;
  if (Failed(values.Get(key, number))) return std::nullopt;
  return number;
}

Parameters ParametersOf(const VEXTimeAnalysisLineData::Content& line) {
  Parameters parameters;
  if (line.Parameters == nullptr) return parameters;
  for (const auto& parameter : *line.Parameters) {
    if (parameter) parameters.push_back(*parameter);
  }
  return parameters;
}

VEXTimeAnalysisLineData::Content ContentOf(VEXTimeAnalysisRepReference& analysis, int row) {
  VEXTimeAnalysisLineData line;
  (void)analysis.GetLine(row, line);
  return line.GetContent();
}

KORBaseUnknown_var ReusedBy(const KORKeyedValues& values) {
  KORBaseUnknown_var reused;
  (void)values.Get("TimeAnalysis", reused);
  return reused;
}

bool IsText(const VEXTimeAnalysisLineData::Content& line) {
  return TextUnder(line.Values, "Code").empty() && ReusedBy(line.Values).IsNull() && ParametersOf(line).empty();
}

// One line as the cells of a row.
class RowWriter {
 public:
  RowWriter(const std::string& identifier, int row, const VEXTimeAnalysisLineData::Content& line,
            const BuiltAnalysis* reused)
      : _Values(line.Values), _Parameters(ParametersOf(line)), _Reused(reused), _IsText(IsText(line)) {
    const KORUnicodeString owner{std::string_view(identifier)};
    const KORUnicodeString owner_row = KORUnicodeString::FromInteger(row);
    const auto is_own = [&](const VEXTimeAnalysisFormulaParameter& parameter) {
      return parameter._OwnerPLMId == owner && parameter._OwnerRow == owner_row;
    };
    while (_CarriedCount < _Parameters.size() && !is_own(_Parameters[_CarriedCount])) ++_CarriedCount;
  }

  Cells Write() {
    Cell(Column::Description) = Text("Description");
    Cell(Column::AdditionalDescription) = Text("AddDescription");
    Cell(Column::ValueAdded) = Text("ValueAdded");
    Cell(Column::Picture) = Text("FormulaPicture");
    if (_IsText) return std::move(_Cells);
    WriteCode();
    Cell(Column::TimeType) = Text("TimeType");
    WriteFormula();
    WriteFrequency();
    WriteSeconds();
    return std::move(_Cells);
  }

 private:
  std::string& Cell(Column column) { return _Cells[static_cast<std::size_t>(column)]; }
  std::string Text(std::string_view key) const { return TextUnder(_Values, key); }
  bool IsReuse() const { return !ReusedBy(_Values).IsNull(); }
  std::span<const VEXTimeAnalysisFormulaParameter> OwnFormula() const {
    return std::span(_Parameters).subspan(_CarriedCount);
  }

  void WriteCode() {
    const std::string code = Text("Code");
    if (IsReuse()) {
      Cell(Column::Reuse) = VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(ReusedBy(_Values).Get()).Bytes();
      if (code == "*") Cell(Column::Code) = code;
    } else if (code != " ") {  // the code of lines that count without one
      Cell(Column::Code) = code;
    }
  }

  void WriteFormula() {
    if (!OwnFormula().empty()) {
      Cell(Column::Signature) = OwnFormula().front()._Signature.Bytes();
      Cell(Column::Body) = OwnFormula().front()._Body.Bytes();
    }
    std::string& values = Cell(Column::Values);
    values = ValuesOfFormula(OwnFormula());
    for (const auto& [name, value] : ChangedValues()) {
      values += (values.empty() ? "" : "; ") + NamedValueText(name, value);
    }
  }

  // What the row says of the formulas that it carries up.
  std::map<std::string, std::string> ChangedValues() const {
    std::map<std::string, std::string> changed;
    if (_Reused == nullptr || _CarriedCount == 0) return changed;
    const Parameters carried = CarriedParameters(*_Reused);
    for (std::size_t index = 0; index < std::min(_CarriedCount, carried.size()); ++index) {
      const VEXTimeAnalysisFormulaParameter& here = _Parameters[index];
      if (here._ValueText == carried[index]._ValueText) continue;
      changed.emplace(here._ParameterName.Bytes(), here._ValueText.Bytes());
    }
    return changed;
  }

  void WriteFrequency() {
    const std::optional<double> frequency = RealUnder(_Values, "Factor");
    const std::string entered = Text("FactorString");
    const bool from_formula = entered.empty() && !_Parameters.empty();
    if (!frequency || *frequency < 0.0 || from_formula) return;
    if (!entered.empty() && ReadFiniteNumber(entered) == frequency) {
      Cell(Column::Frequency) = entered;
    } else if (*frequency != 1.0) {
      Cell(Column::Frequency) = NumberText(*frequency);
    }
  }

  void WriteSeconds() {
    if (IsReuse()) return;
    // The time that a formula may leave as it is stands here, whatever the time type.
    const bool has_formula = !_Parameters.empty();
    const std::string time_type = Text("TimeType");
    const std::string_view key = has_formula || TimeKeyOf(time_type).empty() ? "TTBTime" : TimeKeyOf(time_type);
    const std::optional<double> seconds = RealUnder(_Values, key);
    if (seconds && *seconds >= 0.0) {
      Cell(Column::Seconds) = NumberText(*seconds);
    } else if (!has_formula && Cell(Column::Code) != "*") {
      Cell(Column::Seconds) = "0";
    }
  }

  const KORKeyedValues& _Values;
  Parameters _Parameters;  // those carried up, then the row's own
  std::size_t _CarriedCount = 0;
  const BuiltAnalysis* _Reused;
  bool _IsText;
  Cells _Cells;
};

std::string Property(std::string_view name, std::string_view value) {
  if (value.empty()) return {};
  const std::string property = "# " + std::string(name) + ": " + std::string(value);
  const bool has_line_end = value.find_first_of("\r\n") != std::string_view::npos;
  return (has_line_end ? QuotedCsvField(property) : property) + "\n";
}

bool HasNothing(const Cells& cells) {
  return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return Trimmed(cell).empty(); });
}

std::string RecordOf(const Cells& cells, const std::vector<std::size_t>& columns) {
  std::string record;
  for (const std::size_t column : columns) {
    if (column != columns.front()) record += ',';
    record += CsvField(cells[column]);
  }
  return record + "\n";
}

std::string TableOf(const std::vector<Cells>& rows) {
  Cells headings;
  std::copy(ColumnNames.begin(), ColumnNames.end(), headings.begin());
  std::vector<std::size_t> columns{static_cast<std::size_t>(Column::Code)};
  for (std::size_t column = columns.front() + 1; column < headings.size(); ++column) {
    const auto has_cell = [column](const Cells& row) { return !row[column].empty(); };
    if (std::any_of(rows.begin(), rows.end(), has_cell)) columns.push_back(column);
  }
  std::string table = RecordOf(headings, columns);
  for (const Cells& row : rows) table += RecordOf(row, columns);
  return table;
}

}  // namespace

bool IsTextLine(VEXTimeAnalysisRepReference& analysis, int row) {
  return IsText(ContentOf(analysis, row));
}

AnalysisFileText AnalysisFileOf(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused) {
  AnalysisFileText file;
  const KORKeyedValues& attributes = analysis.Analysis->GetAttributes();
  const std::string system = TextUnder(attributes, "V_Subsystem");
  if (IsSystem(system)) file.Text += Property("system", system);
  file.Text += Property("name", TextUnder(attributes, "V_Name"));
  file.Text += Property("description", TextUnder(attributes, "V_description"));
  if (analysis.IsNamed) file.Text += Property("identifier", analysis.Identifier);
  std::vector<Cells> rows;
  for (int row = 1, count = CountLines(*analysis.Analysis); row <= count; ++row) {
    const VEXTimeAnalysisLineData::Content line = ContentOf(*analysis.Analysis, row);
    Cells cells = RowWriter(analysis.Identifier, row, line, reused[static_cast<std::size_t>(row) - 1]).Write();
    if (HasNothing(cells)) continue;
    rows.push_back(std::move(cells));
    file.Rows.push_back(row);
  }
  file.Text += TableOf(rows);
  return file;
}

}  // namespace tool
