// Streams that come in.
#include "tools/exchange/StreamReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "VEXTADataIO.h"
#include "platform/base/KORNumberText.h"
#include "tools/NumberText.h"
#include "tools/analysis/AnalysisFile.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/StreamText.h"

namespace tool {

namespace {

constexpr std::string_view AttributeKind = "AttributeData";
constexpr std::string_view CellKind = "LineData";
constexpr std::size_t HeadItems = 3;  // "Save", the name and the system

// A whole number in 32 bits, with blanks around it at most.
std::optional<int> WholeNumber(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

// An item cut at ":".
class StreamReader::Fields {
 public:
  explicit Fields(std::string_view item) {
    for (std::size_t start = 0; _Count < _Fields.size(); ++_Count) {
      const std::size_t end = std::min(item.find(':', start), item.size());
      _Fields[_Count] = item.substr(start, end - start);
      _Starts[_Count] = start;
      if (end == item.size()) {
        ++_Count;
        break;
      }
      start = end + 1;
    }
    _Item = item;
  }

  std::size_t Count() const { return _Count; }
  /// The field at a position from 1.
  std::string_view operator[](std::size_t position) const { return _Fields[position - 1]; }
  /// All of the item from a field on.
  std::string_view From(std::size_t position) const { return _Item.substr(_Starts[position - 1]); }

 private:
  std::string_view _Item;
  std::array<std::string_view, 6> _Fields;
  std::array<std::size_t, 6> _Starts{};
  std::size_t _Count = 0;
};

std::vector<Failure> StreamContent::AllProblems(const std::string& path) const {
  std::vector<Failure> problems = Problems;
  if (FurtherProblems > 0) problems.push_back(MoreFaultyItems(path, FurtherProblems));
  return problems;
}

void StreamReader::Tell(const Failure& problem) {
  if (_Content.Problems.size() < MostProblems) {
    _Content.Problems.push_back(problem);
  } else {
    ++_Content.FurtherProblems;
  }
}

StreamContent StreamReader::Read(std::string_view bytes) {
  const KORUnicodeString text(WithoutStreamEnd(bytes));
  if (text.IsEmpty()) throw StreamEmpty(_Path);
  if (text.Bytes().find('\0') != std::string_view::npos) throw StreamWithNul(_Path);
  const auto count = static_cast<std::size_t>(std::count(text.Bytes().begin(), text.Bytes().end(), '|')) + 1;
  if (count > MostItems) throw StreamWithTooManyItems(_Path, count, MostItems);
  for (const KORUnicodeString& item : VEXTADataIO::ExplodeString("|", text)) {
    ++_Item;
    if (TakeItem(item.Bytes())) _Content.Items.Append(item);
  }
  if (!_HoldsSomething) throw StreamHoldsNothing(_Path);
  return std::move(_Content);
}

// True if the exchange is to read the item.
bool StreamReader::TakeItem(std::string_view item) {
  const Fields fields(item);
  const std::string_view kind = fields[1];
  if (kind == AttributeKind) return TakeAttribute(fields);
  if (kind == CellKind) return TakeCell(fields);
  if (_Item > HeadItems && !item.empty()) Tell(ItemOfNoKind({_Path, _Item}, item));
  return false;
}

bool StreamReader::TakeAttribute(const Fields& fields) {
  _HoldsSomething = true;
  const ItemPlace place{_Path, _Item};
  if (fields.Count() < 4) {
    Tell(ItemTooShort(place, AttributeKind, fields.Count(), 4));
    return false;
  }
  const std::string_view key = fields[2];
  const ExchangeType type = _Vocabulary.TypeOfAttribute(key);
  if (type == ExchangeType::None) {
    TakeUnknownKey(key, AttributeUnknown(place, key));
    return false;
  }
  if (!_Attributes.emplace(key).second) Tell(AttributeTwice(place, key));
  if (fields.Count() > 4) Tell(ValueWithColon(place, key, fields.From(4), fields[4]));
  CheckValue(key, type, fields[4]);
  return true;
}

bool StreamReader::TakeCell(const Fields& fields) {
  _HoldsSomething = true;
  const ItemPlace place{_Path, _Item};
  if (fields.Count() < 6) {
    Tell(ItemTooShort(place, CellKind, fields.Count(), 6));
    return false;
  }
  const std::optional<int> row_number = WholeNumber(fields[3]);
  if (!row_number) {
    Tell(RowNoNumber(place, fields[3]));
    return false;
  }
  if (*row_number == 0) {
    TakeHeading(fields);
    return true;
  }
  const Column* const column = FindColumn(fields[4]);
  const int row = *row_number;
  if (column == nullptr || !CheckRow(fields[3], row) || column->Type == ExchangeType::None) return false;
  const std::string_view value = fields[6];
  if (fields.From(6).size() > value.size()) Tell(ValueWithColon(place, column->Key, fields.From(6), value));
  CheckValue(column->Key, column->Type, value);
  if (column->Type == ExchangeType::Analysis && !value.empty()) _Content.Reused.push_back({row, std::string(value)});
  _RowCount = std::max(_RowCount, row);
  return true;
}

void StreamReader::TakeHeading(const Fields& fields) {
  const ItemPlace place{_Path, _Item};
  const std::string_view key = fields[6];
  const ExchangeType type = _Vocabulary.TypeOfCell(key);
  const bool twice = !_ColumnKeys.emplace(key).second;
  if (type == ExchangeType::None) {
    TakeUnknownKey(key, ColumnUnknown(place, key));
  } else if (twice) {
    Tell(ColumnTwiceInStream(place, key));
  }
  _Columns.push_back({std::string(key), type});
}

void StreamReader::TakeUnknownKey(std::string_view key, const Failure& problem) {
  if (_Unknown == UnknownKeys::Told) Tell(problem);
  _UnknownKeys.emplace(key);
  if (_UnknownKeys.size() > MostUnknownKeys) throw StreamWithUnknownKeys(_Path, MostUnknownKeys);
}

// The column of a cell; null, which is told, if there is none.
const StreamReader::Column* StreamReader::FindColumn(std::string_view text) {
  const ItemPlace place{_Path, _Item};
  const std::optional<int> number = WholeNumber(text);
  if (!number) {
    Tell(ColumnNoNumber(place, text));
    return nullptr;
  }
  if (*number < 0 || static_cast<std::size_t>(*number) >= _Columns.size()) {
    Tell(ColumnWithoutHeading(place, text, _Columns.size()));
    return nullptr;
  }
  return &_Columns[static_cast<std::size_t>(*number)];
}

// False, which is told, for a row that cannot be written.
bool StreamReader::CheckRow(std::string_view text, int row) {
  const ItemPlace place{_Path, _Item};
  if (row < 1) {
    Tell(RowBelowOne(place, text));
    return false;
  }
  if (row > _RowCount + 1) {
    Tell(RowBehindGap(place, text, _RowCount + 1));
    return false;
  }
  return true;
}

// Tells of a number that is none; it is read as far as it goes.
void StreamReader::CheckValue(std::string_view key, ExchangeType type, std::string_view value) {
  const ItemPlace place{_Path, _Item};
  if (type == ExchangeType::Real && !kornumber::ReadWholeReal(value)) {
    Tell(ValueNoNumber(place, key, value, type, NumberText(kornumber::ReadReal(value).value_or(0.0))));
  }
  const bool is_whole = type == ExchangeType::Integer || type == ExchangeType::Boolean;
  if (is_whole && !WholeNumber(value)) {
    Tell(ValueNoNumber(place, key, value, type, std::to_string(kornumber::ReadInteger(value).value_or(0))));
  }
}

}  // namespace tool
