// An analysis as a text file.
#include "tools/analysis/AnalysisFile.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "tools/Systems.h"
#include "tools/analysis/CsvReader.h"

namespace tool {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

// Columns of which an analysis needs at least one: what can tell the time of a row.
constexpr std::array TimeGivingColumns{Column::Code, Column::Time, Column::Seconds, Column::Reuse, Column::Signature};

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return small;
}

// A line as spreadsheets save "# system: MTM1": in quotes, and with separators for the columns that it does not have.
std::string_view WithoutEmptyCells(std::string_view text) {
  const std::size_t end = text.find_last_not_of(" \t,;");
  return text.substr(0, end == std::string_view::npos ? 0 : end + 1);
}

bool IsBlank(const std::vector<std::string>& cells) {
  return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return Trimmed(cell).empty(); });
}

bool IsQuotedProperty(const std::vector<std::string>& cells) {
  return cells.front().starts_with('#') && IsBlank({cells.begin() + 1, cells.end()});
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(Blanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(Blanks) - start + 1);
}

// file
AnalysisFile::AnalysisFile(std::string path, std::string_view text) : _Path(std::move(path)) {
  CsvReader reader(text);
  for (CsvRecord record; reader.Next(record);) {
    if (record.IsComment) {
      if (_ColumnCount == 0) TakeProperty(record.Line, record.Fields.front());
      continue;
    }
    if (IsBlank(record.Fields)) continue;
    if (_ColumnCount == 0 && IsQuotedProperty(record.Fields)) {
      TakeProperty(record.Line, std::string_view(record.Fields.front()).substr(1));
      continue;
    }
    if (record.HasTextBehindQuote) _Problems.push_back(TextBehindQuote({_Path, record.Line}));
    if (_ColumnCount == 0) {
      TakeHeader(record.Line, record.Fields);
    } else {
      TakeRow(record.Line, std::move(record.Fields));
    }
  }
  if (reader.GetFault() == CsvFault::OpenQuote) _Problems.push_back(OpenQuote({_Path, reader.GetFaultLine()}));
  if (reader.GetFault() == CsvFault::NulByte) _Problems.push_back(NulInRecord({_Path, reader.GetFaultLine()}));
  if (reader.GetFault() == CsvFault::TooLong) {
    _Problems.push_back(RecordTooLong({_Path, reader.GetFaultLine()}, CsvReader::LongestRecord));
  }
  _IsWhole = _IsWhole && _ColumnCount > 0 && reader.GetFault() == CsvFault::None;
  if (_ColumnCount == 0 && reader.GetFault() == CsvFault::None) _Problems.push_back(NoHeader(_Path));
}

// property
void AnalysisFile::TakeProperty(std::size_t line, std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return;
  const std::string name = SmallLetters(Trimmed(text.substr(0, colon)));
  const std::string value(Trimmed(WithoutEmptyCells(text.substr(colon + 1))));
  const std::array<std::pair<std::string_view, std::string*>, 4> properties{
      {{"system", &_System}, {"name", &_Name}, {"description", &_Description}, {"identifier", &_Identifier}}};
  const auto property =
      std::find_if(properties.begin(), properties.end(), [&name](const auto& known) { return known.first == name; });
  if (property == properties.end()) return;
  if (value.empty()) {
    _Problems.push_back(EmptyProperty({_Path, line}, name));
  } else if (!property->second->empty()) {
    _Problems.push_back(PropertyTwice({_Path, line}, name));
  } else if (property->second == &_System && !IsSystem(value)) {
    _Problems.push_back(UnknownSystemInFile({_Path, line}, value));
  } else {
    *property->second = value;
    if (property->second == &_Identifier) _IdentifierLine = line;
  }
}

// header
void AnalysisFile::TakeHeader(std::size_t line, const std::vector<std::string>& names) {
  _ColumnCount = names.size();
  std::vector<std::string> unknown;
  for (std::size_t place = 0; place < names.size(); ++place) {
    const std::string name = SmallLetters(Trimmed(names[place]));
    if (name.empty()) {
      _Unnamed.push_back(place);
      continue;
    }
    const auto known = std::find(ColumnNames.begin(), ColumnNames.end(), name);
    if (known == ColumnNames.end()) {
      unknown.emplace_back(Trimmed(names[place]));
      continue;
    }
    std::size_t& column = _Places[static_cast<std::size_t>(known - ColumnNames.begin())];
    if (column == 0) {
      column = place + 1;
    } else {
      _Problems.push_back(ColumnTwice({_Path, line}, name));
    }
  }
  if (!unknown.empty()) _Problems.push_back(UnknownColumns({_Path, line}, unknown));
  CheckColumns(line);
}

void AnalysisFile::CheckColumns(std::size_t line) {
  const auto has = [this](Column column) { return PlaceOf(column) != 0; };
  if (std::none_of(TimeGivingColumns.begin(), TimeGivingColumns.end(), has)) {
    _Problems.push_back(NoTimeGivingColumn({_Path, line}));
    _IsWhole = false;
  }
  if (has(Column::Signature) != has(Column::Body)) {
    _Problems.push_back(FormulaColumnMissing({_Path, line}, has(Column::Signature) ? "body" : "signature"));
  }
}

// row
void AnalysisFile::TakeRow(std::size_t line, std::vector<std::string>&& cells) {
  const auto surplus = cells.begin() + static_cast<std::ptrdiff_t>(std::min(cells.size(), _ColumnCount));
  const bool has_surplus =
      std::any_of(surplus, cells.end(), [](const std::string& cell) { return !Trimmed(cell).empty(); });
  if (has_surplus) _Problems.push_back(TooManyCells({_Path, line}, cells.size(), _ColumnCount));
  const bool has_unnamed = std::any_of(_Unnamed.begin(), _Unnamed.end(), [&cells](std::size_t place) {
    return place < cells.size() && !Trimmed(cells[place]).empty();
  });
  if (has_unnamed) _Problems.push_back(CellWithoutHeading({_Path, line}));
  cells.erase(surplus, cells.end());
  _Rows.push_back({line, std::move(cells), has_surplus || has_unnamed});
}

std::string_view AnalysisFile::Cell(const AnalysisRow& row, Column column) const {
  const std::size_t place = PlaceOf(column);
  return place == 0 || place > row.Cells.size() ? std::string_view() : Trimmed(row.Cells[place - 1]);
}

}  // namespace tool
