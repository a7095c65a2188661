// A list of items fills an analysis.
//
// A line is written once for each of its cells: it is read, one key of it is changed, and it is stored. So a cell that
// cannot be stored shows in the status, and all that came before it stays. A record shares its values with the row that
// it was read from, so the cost of a cell does not depend on the number of rows.
#include "exchange/WriteIn.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ModuleTrace.h"
#include "exchange/AnalysisObject.h"
#include "exchange/ExchangeTables.h"
#include "exchange/ItemText.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORStatus.h"

namespace exchange {

namespace {

// Positions of the fields, and the number of fields that an item of the kind has.
namespace attribute_field {
constexpr std::size_t Key = 2;
constexpr std::size_t Value = 4;
constexpr std::size_t Count = 4;
}  // namespace attribute_field
namespace cell_field {
constexpr std::size_t Row = 3;
constexpr std::size_t Column = 4;
constexpr std::size_t Value = 6;
constexpr std::size_t Count = 6;
}  // namespace cell_field

int IntegerOf(std::string_view text) {
  return kornumber::ReadInteger(text).value_or(0);
}

double RealOf(std::string_view text) {
  return kornumber::ReadReal(text).value_or(0.0);
}

unsigned char BooleanOf(std::string_view text) {
  return IntegerOf(text) != 0 ? 1 : 0;
}

// Calls `set` with the value that the text stands for; not at all for a reference to an analysis.
template <class Set>
void SetTyped(ValueType type, std::string_view text, const Set& set) {
  switch (type) {
    case ValueType::Integer:
      return set(IntegerOf(text));
    case ValueType::Real:
      return set(RealOf(text));
    case ValueType::Text:
      return set(KORUnicodeString(text));
    case ValueType::Boolean:
      return set(BooleanOf(text));
    case ValueType::Analysis:
      return;
  }
}

// A column of the line table that is written in.
struct Column {
  std::string Key;     // as its header item has it
  const LineRow* Row;  // null: the exchange has no such key
};

class Writer {
 public:
  explicit Writer(const KORBaseUnknown_var& analysis) : _Attributes(AttributesOf(analysis)), _Lines(analysis) {}

  long Write(const KORListValKORUnicodeString& items);

 private:
  void ClearLines(const KORListValKORUnicodeString& items);
  long WriteAttribute(const Item& item);
  long WriteCell(const Item& item, int row);
  void SetCell(const LineRow& cell, std::string_view value, VEXTimeAnalysisLineData& line);

  VEXITimeAnalysisRepReference_var _Attributes;
  VEXITimeAnalysisLines_var _Lines;  // null: the object has no line table
  std::vector<Column> _Columns;      // in the order in which their header items arrived
  long _Status = E_FAIL;
};

void Writer::ClearLines(const KORListValKORUnicodeString& items) {
  const bool has_lines = std::any_of(
      items.begin(), items.end(), [](const KORUnicodeString& item) { return Item(item.Bytes()).Kind() == LineData; });
  if (has_lines && !_Lines.IsNull()) (void)_Lines->RemoveAllLines();
}

long Writer::WriteAttribute(const Item& item) {
  if (!item.HasFields(attribute_field::Count)) return E_INVALIDARG;
  const std::string_view key = item.Field(attribute_field::Key);
  const AttributeRow* const row = FindAttributeByKey(key);
  if (row == nullptr) {
    TraceNamed("Failed to map attribute ", key);
    return E_INVALIDARG;
  }
  long status = S_OK;
  FieldCutter names(NameSeparator, row->Names);
  for (auto name = names.Next(); name; name = names.Next()) {
    SetTyped(row->Type, item.Field(attribute_field::Value),
             [&](const auto& value) { status = _Attributes->SetValue(KORString(*name), value); });
  }
  return status;
}

void Writer::SetCell(const LineRow& cell, std::string_view value, VEXTimeAnalysisLineData& line) {
  const KORString key(cell.LineKey);
  if (cell.Type == ValueType::Analysis && cell.Key == "subanalysis") {
    const KORBaseUnknown_var reused = FindByIdentifier(KORUnicodeString(value));
    if (!reused.IsNull()) (void)line.SetValue(key, reused);
  } else {
    SetTyped(cell.Type, value, [&](const auto& typed) { (void)line.SetValue(key, typed); });
  }
}

long Writer::WriteCell(const Item& item, int row) {
  const int column = IntegerOf(item.Field(cell_field::Column));
  if (column < 0 || static_cast<std::size_t>(column) >= _Columns.size()) return E_INVALIDARG;
  const auto& [key, cell] = _Columns[static_cast<std::size_t>(column)];
  if (cell == nullptr) {
    TraceNamed("Failed to map line attribute ", key);
    return E_INVALIDARG;
  }
  VEXTimeAnalysisLineData line;
  (void)_Lines->GetLine(row, line);
  (void)line.SetValue("RowNum", row);
  SetCell(*cell, item.Field(cell_field::Value), line);
  return _Lines->SetLine(row, line);
}

long Writer::Write(const KORListValKORUnicodeString& items) {
  ClearLines(items);
  for (const KORUnicodeString& text : items) {
    const Item item(text.Bytes());
    if (item.Kind() == AttributeData) {
      _Status = WriteAttribute(item);
    } else if (item.Kind() == LineData && !item.HasFields(cell_field::Count)) {
      _Status = E_INVALIDARG;
    } else if (item.Kind() == LineData) {
      const int row = IntegerOf(item.Field(cell_field::Row));
      if (row == 0) {
        const std::string_view key = item.Field(cell_field::Value);
        _Columns.push_back({std::string(key), FindLineValueByKey(key)});
      } else if (_Lines.IsNull()) {
        return E_NOINTERFACE;
      } else {
        _Status = WriteCell(item, row);
      }
    }
  }
  return _Status;
}

}  // namespace

long WriteIn(const KORListValKORUnicodeString& items, const KORBaseUnknown_var& analysis) {
  return Writer(analysis).Write(items);
}

}  // namespace exchange
