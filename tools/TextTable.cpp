// Tables for people.
#include "tools/TextTable.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "platform/base/KORUnicodeString.h"
#include "tools/NumberText.h"

namespace tool {

namespace {

std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(KORUnicodeString(text).GetLengthInChar());
}

}  // namespace

void NumberColumn::Take(const std::optional<double>& number) {
  if (!number) return;
  const std::string text = PlainNumberText(*number);
  const std::size_t point = text.find('.');
  if (point != std::string::npos) _Decimals = std::max(_Decimals, text.size() - point - 1);
}

std::string NumberColumn::Text(const std::optional<double>& number) const {
  if (!number) return std::string(NoValue);
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

Table::Table(std::vector<TableColumn> columns) : _Columns(std::move(columns)) {
  std::vector<std::string> headings;
  for (const TableColumn& column : _Columns) headings.push_back(column.Heading);
  AddRow(std::move(headings));
}

void Table::AddRow(std::vector<std::string> row) {
  for (std::size_t index = 0; index < row.size(); ++index) {
    _Columns[index].Width = std::max(_Columns[index].Width, WidthOf(row[index]));
  }
  _Rows.push_back(std::move(row));
}

void Table::Write(std::ostream& output) const {
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

}  // namespace tool
