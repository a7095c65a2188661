// What the attributes of an analysis and the values of its lines are called in the exchange, and of which type they
// are.
#include "exchange/ExchangeTables.h"

#include <algorithm>

#include "exchange/ItemText.h"

namespace exchange {

namespace {

template <class Table, class Matches>
const typename Table::value_type* FindRow(const Table& table, const Matches& matches) {
  const auto found = std::find_if(table.begin(), table.end(), matches);
  return found == table.end() ? nullptr : &*found;
}

bool HasName(const AttributeRow& row, std::string_view name) {
  FieldCutter names(NameSeparator, row.Names);
  for (auto part = names.Next(); part; part = names.Next()) {
    if (*part == name) return true;
  }
  return false;
}

}  // namespace

const AttributeRow* FindAttributeByKey(std::string_view key) {
  return FindRow(AttributeTable, [key](const AttributeRow& row) { return row.Key == key; });
}

const AttributeRow* FindAttributeByName(std::string_view name) {
  return FindRow(AttributeTable, [name](const AttributeRow& row) { return HasName(row, name); });
}

const LineRow* FindLineValueByKey(std::string_view key) {
  return FindRow(LineTable, [key](const LineRow& row) { return row.Key == key; });
}

const LineRow* FindLineValueByLineKey(std::string_view line_key) {
  return FindRow(LineTable, [line_key](const LineRow& row) { return row.LineKey == line_key; });
}

}  // namespace exchange
