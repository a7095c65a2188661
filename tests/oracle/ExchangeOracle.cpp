// Cutting texts, reading an analysis out as items, writing items into an analysis.
#include "ExchangeOracle.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "OracleText.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/model/VEXTimeAnalysisLineData.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace oracle {
namespace {

// The characters of a text. The lead byte of each tells its length and holds its first bits.
std::u32string CharactersOf(const std::string& text) {
  std::u32string characters;
  for (const char signed_byte : text) {
    const auto byte = static_cast<unsigned char>(signed_byte);
    if (byte < 0x80U) {
      characters += byte;
    } else if (byte >= 0xF0U) {
      characters += byte & 0x07U;
    } else if (byte >= 0xE0U) {
      characters += byte & 0x0FU;
    } else if (byte >= 0xC0U) {
      characters += byte & 0x1FU;
    } else if (!characters.empty()) {
      characters.back() = (characters.back() << 6U) | (byte & 0x3FU);
    }
  }
  return characters;
}

std::string TextOf(const std::u32string& characters) {
  std::string text;
  const auto append = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  for (const char32_t character : characters) {
    if (character < 0x80U) {
      append(character);
      continue;
    }
    if (character < 0x800U) {
      append(0xC0U | character >> 6U);
    } else if (character < 0x10000U) {
      append(0xE0U | character >> 12U);
      append(0x80U | (character >> 6U & 0x3FU));
    } else {
      append(0xF0U | character >> 18U);
      append(0x80U | (character >> 12U & 0x3FU));
      append(0x80U | (character >> 6U & 0x3FU));
    }
    append(0x80U | (character & 0x3FU));
  }
  return text;
}

// Position of the first occurrence of a separator, from 0; -1 if there is none.
int Search(const std::u32string& text, const std::u32string& separator) {
  const std::size_t position = text.find(separator);
  return separator.empty() || position == std::u32string::npos ? -1 : static_cast<int>(position);
}

std::string BytesOf(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

// A holder that starts at 0 is read into with "%d". Beyond 64 bits the nearest number counts, beyond 32 bits the low
// ones do.
int IntegerOf(const std::string& text) {
  const auto number = static_cast<std::uint64_t>(std::strtoll(text.c_str(), nullptr, 10));
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

// A holder that starts at 0 is read into with "%le".
double RealOf(const std::string& text) {
  double number = 0.0;
  ScanReal(text.c_str(), number);
  return number;
}

unsigned char BooleanOf(const std::string& text) {
  return IntegerOf(text) != 0 ? 1 : 0;
}

// The one object with an identifier; null if it is not found.
KORBaseUnknown_var Query(const KORUnicodeString& identifier) {
  VEXSTTAdpIdentificationSet set;
  (void)set.AddAttribute("PLM_ExternalID", identifier);
  KORBaseUnknown* element = nullptr;
  const long status = VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(set, element);
  // The reference that came with the element is let go at the end.
  KORBaseUnknown_var found = KORBaseUnknown_var::Adopt(element);
  if (Failed(status)) return NULL_var;
  return found;
}

// The object given, or the one found under the identifier. Without either the failure is traced.
KORBaseUnknown_var FindObject(const KORUnicodeString& identifier, KORBaseUnknown* analysis, ExchangeOutcome& outcome) {
  if (analysis != nullptr) return KORBaseUnknown_var(analysis);
  KORBaseUnknown_var found = Query(identifier);
  if (found.IsNull()) {
    outcome.trace.push_back("Failed to get object <" + BytesOf(identifier) + "> from session/database into session.");
    outcome.status = E_FAIL;
  }
  return found;
}

const ExchangeAttribute* AttributeOfKey(const std::string& key) {
  for (const ExchangeAttribute& row : ExchangeAttributes()) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

const ExchangeAttribute* AttributeOfName(const std::string& name) {
  for (const ExchangeAttribute& row : ExchangeAttributes()) {
    for (const std::string& part : ExplodeString("|", row.names)) {
      if (part == name) return &row;
    }
  }
  return nullptr;
}

const ExchangeLineKey* LineKeyOfKey(const std::string& key) {
  for (const ExchangeLineKey& row : ExchangeLineKeys()) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

const ExchangeLineKey* LineKeyOfName(const std::string& name) {
  for (const ExchangeLineKey& row : ExchangeLineKeys()) {
    if (row.line_key == name) return &row;
  }
  return nullptr;
}

}  // namespace

std::vector<std::string> ExplodeString(const std::string& separator, const std::string& text) {
  std::vector<std::string> fields;
  const std::u32string cut_at = CharactersOf(separator);
  std::u32string left = CharactersOf(text);
  int position = Search(left, cut_at);
  if (position == -1) {
    if (!left.empty()) fields.push_back(text);
    return fields;
  }
  while (position != -1) {
    const auto ahead = static_cast<std::size_t>(position);
    fields.push_back(TextOf(left.substr(0, ahead)));
    // One character more than stands ahead, however long the separator is.
    left.erase(0, ahead + 1);
    position = Search(left, cut_at);
  }
  fields.push_back(TextOf(left));
  return fields;
}

// ---- Reading out ----------------------------------------------------------------------------------------------------

namespace {

void ReadAttributesOut(VEXITimeAnalysisRepReference& reference, KORListValKORUnicodeString& items,
                       ExchangeOutcome& outcome) {
  KORListValKORUnicodeString names, values;
  if (Failed(reference.GetAllValues(names, values))) return;
  items.RemoveAll();
  for (int position = 1; position <= names.Size(); ++position) {
    const std::string name = BytesOf(names[position]);
    const ExchangeAttribute* const row = AttributeOfName(name);
    if (row == nullptr) {
      outcome.trace.push_back("Failed to map attribute <" + name + ">");
      continue;
    }
    items.Append(KORUnicodeString("AttributeData:" + std::string(row->key) + ":" + PrintInteger(row->type) + ":" +
                                  BytesOf(values[position])));
  }
}

// The identifier of the analysis that a row reuses, in place of the text that stands for it.
void ReadReusedOut(VEXITimeAnalysisLines& lines, int row, KORUnicodeString& value) {
  VEXTimeAnalysisLineData line;
  if (!Failed(lines.GetLine(row, line))) {
    KORBaseUnknown_var reused;
    (void)line.GetValue("TimeAnalysis", reused);
    const VEXITimeAnalysisRepReference_var reference(reused);
    if (!reference.IsNull()) (void)reference->GetValue("PLM_ExternalID", value);
  }
  (void)line.ClearFormulaAndParamters();
}

void ReadRowOut(VEXITimeAnalysisLines& lines, int row, KORListValKORUnicodeString& items, ExchangeOutcome& outcome) {
  KORListValKORUnicodeString names, values;
  (void)lines.GetLineAttributes(row, names, values);
  for (int position = 1; position <= values.Size(); ++position) {
    const std::string name = BytesOf(names[position]);
    const ExchangeLineKey* const key = LineKeyOfName(name);
    if (key == nullptr) {
      outcome.trace.push_back("Failed to map line attribute <" + name + ">");
      continue;
    }
    KORUnicodeString value = values[position];
    if (key->type == 13 && name == "TimeAnalysis") ReadReusedOut(lines, row, value);
    items.Append(KORUnicodeString("LineData:" + PrintInteger(row) + ":" + PrintInteger(key->column) + ":" + key->key +
                                  ":" + PrintInteger(key->type) + ":" + BytesOf(value)));
  }
}

}  // namespace

ExchangeOutcome GetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                                KORBaseUnknown* analysis) {
  ExchangeOutcome outcome;
  const KORBaseUnknown_var object = FindObject(identifier, analysis, outcome);
  if (object.IsNull()) return outcome;

  const VEXITimeAnalysisRepReference_var reference(object);
  if (reference.IsNull()) {
    outcome.fatal_error = "AssertionFailed:NULL_var != spTARepRef";
    return outcome;
  }
  KORListValKORUnicodeString read_out = items;
  ReadAttributesOut(*reference, read_out, outcome);

  const VEXITimeAnalysisLines_var lines(object);
  if (lines.IsNull()) {
    outcome.fatal_error = "AssertionFailed:NULL_var != spTALines";
    return outcome;
  }
  int count = 0;
  const long status = lines->GetLineCount(count);
  if (!Failed(status) && count >= 1) {
    for (int row = 1; row <= count; ++row) ReadRowOut(*lines, row, read_out, outcome);
  }
  items = read_out;
  outcome.status = S_OK;
  return outcome;
}

// ---- Writing in -----------------------------------------------------------------------------------------------------

namespace {

// The items of one call on their way into an analysis.
class ItemWriter {
 public:
  ItemWriter(KORBaseUnknown_var object, VEXITimeAnalysisRepReference& reference, ExchangeOutcome& outcome)
      : _Object(std::move(object)), _Reference(reference), _Outcome(outcome) {}

  void ClearLines(const KORListValKORUnicodeString& items);
  void WriteAll(const KORListValKORUnicodeString& items);

 private:
  using Fields = std::vector<std::string>;

  void WriteAttribute(const Fields& fields);
  void WriteLineItem(const Fields& fields);
  void WriteCell(VEXITimeAnalysisLines& lines, int row, int column, const std::string& value);
  static void SetCell(VEXTimeAnalysisLineData& line, const ExchangeLineKey& key, const std::string& value);

  KORBaseUnknown_var _Object;
  VEXITimeAnalysisRepReference& _Reference;
  ExchangeOutcome& _Outcome;
  std::vector<std::string> _Columns;  // the key of each column, in the order in which the header items came
  bool _Ended = false;                // no further item is looked at
};

// All lines go as soon as one item has to do with lines.
void ItemWriter::ClearLines(const KORListValKORUnicodeString& items) {
  for (const KORUnicodeString& item : items) {
    const Fields fields = ExplodeString(":", BytesOf(item));
    if (fields.empty() || fields[0] != "LineData") continue;
    const VEXITimeAnalysisLines_var lines(_Object);
    if (!lines.IsNull()) (void)lines->RemoveAllLines();
    return;
  }
}

void ItemWriter::WriteAll(const KORListValKORUnicodeString& items) {
  for (const KORUnicodeString& item : items) {
    const Fields fields = ExplodeString(":", BytesOf(item));
    if (fields.empty()) continue;
    if (fields[0] == "AttributeData") WriteAttribute(fields);
    if (fields[0] == "LineData") WriteLineItem(fields);
    if (_Ended) return;
  }
}

void ItemWriter::WriteAttribute(const Fields& fields) {
  if (fields.size() < 4) {
    _Outcome.status = E_INVALIDARG;
    return;
  }
  const std::string& key = fields[1];
  const std::string& value = fields[3];
  const ExchangeAttribute* const row = AttributeOfKey(key);
  if (row == nullptr) {
    _Outcome.trace.push_back("Failed to map attribute <" + key + ">");
    _Outcome.status = E_INVALIDARG;
    return;
  }
  _Outcome.status = S_OK;
  for (const std::string& part : ExplodeString("|", row->names)) {
    const KORString name(part);
    if (row->type == 3) _Outcome.status = _Reference.SetValue(name, IntegerOf(value));
    if (row->type == 5) _Outcome.status = _Reference.SetValue(name, RealOf(value));
    if (row->type == 8) _Outcome.status = _Reference.SetValue(name, KORUnicodeString(std::string_view(value)));
    if (row->type == 11) _Outcome.status = _Reference.SetValue(name, BooleanOf(value));
  }
}

void ItemWriter::WriteLineItem(const Fields& fields) {
  if (fields.size() < 6) {
    _Outcome.status = E_INVALIDARG;
    return;
  }
  const int row = IntegerOf(fields[2]);
  const int column = IntegerOf(fields[3]);
  const std::string& value = fields[5];
  if (row == 0) {
    _Columns.push_back(value);
    return;
  }
  const VEXITimeAnalysisLines_var lines(_Object);
  if (lines.IsNull()) {
    _Outcome.status = E_NOINTERFACE;
    _Ended = true;
    return;
  }
  WriteCell(*lines, row, column, value);
}

void ItemWriter::WriteCell(VEXITimeAnalysisLines& lines, int row, int column, const std::string& value) {
  if (column < 0 || static_cast<std::size_t>(column) >= _Columns.size()) {
    _Outcome.status = E_INVALIDARG;
    return;
  }
  const std::string& name = _Columns[static_cast<std::size_t>(column)];
  const ExchangeLineKey* const key = LineKeyOfKey(name);
  if (key == nullptr) {
    _Outcome.trace.push_back("Failed to map line attribute <" + name + ">");
    _Outcome.status = E_INVALIDARG;
    return;
  }
  VEXTimeAnalysisLineData line;
  (void)lines.GetLine(row, line);
  (void)line.SetValue("RowNum", row);
  SetCell(line, *key, value);
  _Outcome.status = lines.SetLine(row, line);
  (void)line.ClearFormulaAndParamters();
}

void ItemWriter::SetCell(VEXTimeAnalysisLineData& line, const ExchangeLineKey& key, const std::string& value) {
  const KORString name(key.line_key);
  if (key.type == 3) (void)line.SetValue(name, IntegerOf(value));
  if (key.type == 5) (void)line.SetValue(name, RealOf(value));
  if (key.type == 8) (void)line.SetValue(name, KORUnicodeString(std::string_view(value)));
  if (key.type == 11) (void)line.SetValue(name, BooleanOf(value));
  if (key.type == 13 && std::string_view(key.key) == "subanalysis") {
    const KORBaseUnknown_var found = Query(KORUnicodeString(std::string_view(value)));
    if (!found.IsNull()) (void)line.SetValue(name, found);
  }
}

}  // namespace

ExchangeOutcome SetAnalysisData(const KORUnicodeString& identifier, const KORListValKORUnicodeString& items,
                                KORBaseUnknown* analysis) {
  ExchangeOutcome outcome;
  const KORBaseUnknown_var object = FindObject(identifier, analysis, outcome);
  if (object.IsNull()) return outcome;

  const VEXITimeAnalysisRepReference_var reference(object);
  if (reference.IsNull()) {
    outcome.fatal_error = "AssertionFailed:NULL_var != spTARepRef";
    return outcome;
  }
  outcome.status = E_FAIL;
  if (items.Size() == 0) return outcome;
  ItemWriter writer(object, *reference, outcome);
  writer.ClearLines(items);
  writer.WriteAll(items);
  return outcome;
}

}  // namespace oracle
