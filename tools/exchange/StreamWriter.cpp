// Analyses as streams.
#include "tools/exchange/StreamWriter.h"

#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "tools/exchange/StreamText.h"

namespace tool {

namespace {

constexpr const char* RowNumberKey = "RowNum";

// True for a reference that cannot be carried, as there is no analysis or it has no identifier.
bool IsEmptyReference(const KORKeyedValues::View& value) {
  return TypeOf(value) == ExchangeType::Analysis && TextOfValue(value).empty();
}

class StreamWriter {
 public:
  StreamWriter(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary)
      : _Analysis(analysis), _Vocabulary(vocabulary) {}

  std::string Write() {
    WriteHead();
    WriteAttributes();
    FindColumns();
    WriteHeadings();
    for (int row = 1, count = CountLines(_Analysis); row <= count; ++row) WriteLine(row);
    if (_Text.ends_with('\n') || _Text.ends_with('\r')) _Text += '|';
    return std::move(_Text);
  }

 private:
  // Nobody reads name and system here; they are there only where they cannot be taken for something else.
  void WriteHead() {
    _Text = "Save";
    for (const char* attribute : {"V_Name", "V_Subsystem"}) {
      KORUnicodeString value;
      (void)_Analysis.GetValue(attribute, value);
      const bool is_item = value == "AttributeData" || value == "LineData";
      _Text += '|';
      if (FitsIntoStream(value.Bytes()) && !is_item) _Text += value.Bytes();
    }
  }

  void WriteAttributes() {
    std::set<std::string_view> written;
    _Analysis.GetAttributes().ForEach([&](std::string_view name, const KORKeyedValues::View& value) {
      const ExchangeName& known = _Vocabulary.OfAttribute(name);
      if (known.Type == ExchangeType::None || !written.insert(known.Key).second) return;
      const std::string text = TextOfValue(value);
      if (FitsIntoStream(text)) Append({"AttributeData", known.Key, TypeText(known.Type), text});
    });
  }

  // The name under which a value of a line is written; null if it is not.
  const ExchangeName* NameOfCell(std::string_view key, const KORKeyedValues::View& value) {
    const ExchangeName& name = _Vocabulary.OfLineKey(key);
    if (name.Type == ExchangeType::None || IsEmptyReference(value)) return nullptr;
    const bool is_free_text = TypeOf(value) == ExchangeType::Text || TypeOf(value) == ExchangeType::Analysis;
    if (is_free_text && !FitsIntoStream(TextOfValue(value))) return nullptr;
    return &name;
  }

  void FindColumns() {
    std::map<int, const ExchangeName*> columns;
    const ExchangeName& row_number = _Vocabulary.OfLineKey(RowNumberKey);
    for (int row = 1, count = CountLines(_Analysis); row <= count; ++row) {
      bool has_cell = false;
      ValuesOfLine(_Analysis, row).ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
        const ExchangeName* const name = NameOfCell(key, value);
        if (name == nullptr) return;
        columns.emplace(name->Column, name);
        has_cell = true;
      });
      if (!has_cell) columns.emplace(row_number.Column, &row_number);
    }
    for (const auto& [number, name] : columns) {
      _Places.emplace(name->Column, std::to_string(_Columns.size()));
      _Columns.push_back(name);
    }
  }

  void WriteHeadings() {
    for (const ExchangeName* name : _Columns) {
      Append({"LineData", "et_linedata", "0", _Places.at(name->Column), TypeText(ExchangeType::Text), name->Key});
    }
  }

  // The cells of a line stand in the order of the columns.
  void WriteLine(int row) {
    std::map<int, std::pair<const ExchangeName*, std::string>> cells;
    ValuesOfLine(_Analysis, row).ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
      const ExchangeName* const name = NameOfCell(key, value);
      if (name != nullptr) cells.emplace(name->Column, std::pair(name, TextOfValue(value)));
    });
    const std::string row_text = std::to_string(row);
    if (cells.empty()) {
      const ExchangeName& row_number = _Vocabulary.OfLineKey(RowNumberKey);
      cells.emplace(row_number.Column, std::pair(&row_number, row_text));
    }
    for (const auto& [column, cell] : cells) {
      const auto& [name, text] = cell;
      Append({"LineData", "et_linedata", row_text, _Places.at(column), TypeText(name->Type), text});
    }
  }

  static std::string TypeText(ExchangeType type) { return std::to_string(static_cast<int>(type)); }

  void Append(std::initializer_list<std::string_view> fields) {
    char separator = '|';
    for (const std::string_view field : fields) {
      _Text += separator;
      _Text += field;
      separator = ':';
    }
  }

  VEXTimeAnalysisRepReference& _Analysis;
  ExchangeVocabulary& _Vocabulary;
  std::vector<const ExchangeName*> _Columns;
  std::map<int, std::string> _Places;  // of each column, by its number
  std::string _Text;
};

}  // namespace

std::string StreamOf(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary) {
  return StreamWriter(analysis, vocabulary).Write();
}

}  // namespace tool
