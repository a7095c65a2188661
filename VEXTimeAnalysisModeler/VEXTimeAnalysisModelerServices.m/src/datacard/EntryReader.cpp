// Reads the entries of a data card entry file.
#include "datacard/EntryReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "datacard/XmlAccess.h"

namespace datacard {
namespace {

using Record = VEXSTMDataCardEntriesScan;
using Field = KORUnicodeString Record::*;

struct ElementField {
  std::string_view Element;
  Field Target;
  bool Stripped;  // leading "#" characters are taken off
};

// clang-format off
constexpr std::array<ElementField, 7> PlainFields{{
    {"TEXT",        &Record::_Text,       true},
    {"LOCALTEXT",   &Record::_LocalText,  true},
    {"VALUEADDED",  &Record::_ValueAdded, true},
    {"FREQUENCY",   &Record::_Frequency,  false},
    {"TIME",        &Record::_Time,       false},
    {"PAR_1_START", &Record::_Par1Start,  false},
    {"PAR_1_END",   &Record::_Par1End,    false},
}};

constexpr std::array<ElementField, 3> OptionFields{{
    {"PAR_ID",    &Record::_OptionParID, false},
    {"TIME",      &Record::_OptionTime,  false},
    {"OPTION_ID", &Record::_OptionID,    false},
}};
// clang-format on

const ElementField* FieldOf(std::string_view element, auto& fields) {
  const auto found = std::ranges::find(fields, element, &ElementField::Element);
  return found == fields.end() ? nullptr : &*found;
}

std::string_view WithoutLeading(std::string_view text, char character) {
  text.remove_prefix(std::min(text.find_first_not_of(character), text.size()));
  return text;
}

void ReadOption(const KORIDOMNode_var& option, Record& record) {
  for (KORIDOMNode_var child = option.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    const ElementField* field = FieldOf(child.GetNodeName(), OptionFields);
    if (field != nullptr && !child.GetFirstChild().IsNull()) record.*field->Target = KORUnicodeString(ValueOf(child));
  }
}

/// The two pieces of a pattern as one text. Line feeds are layout of the file, but a first piece alone stays as it is.
KORUnicodeString JoinedPattern(std::string_view first, std::string_view second) {
  if (second.empty()) return KORUnicodeString(first);
  std::string joined(first);
  joined += second;
  std::erase(joined, '\n');
  return KORUnicodeString(joined);
}

/// Reads the pattern that begins at `node` and moves on to its second piece; to null, with the pattern left as it was,
/// if there is none.
void ReadPattern(KORIDOMNode_var& node, Record& record) {
  const std::string_view first = ValueOf(node);
  while (!node.IsNull() && node.GetNodeName() != "PATTERN1") node = node.GetNextSibling();
  if (!node.IsNull()) record._Pattern = JoinedPattern(first, ValueOf(node));
}

Record ReadEntry(const KORIDOMNode_var& entry) {
  Record record;
  bool open = false;
  for (KORIDOMNode_var child = entry.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    const std::string_view name = child.GetNodeName();
    if (name == "CODE_ID") {
      record = Record{};
      open = true;
      record._CodeID = KORUnicodeString(ValueOf(child));
      if (record._CodeID.IsEmpty()) break;
    } else if (!open) {
      continue;
    } else if (name == "CODE") {
      const std::string_view value = ValueOf(child);
      if (value.empty()) break;
      record._Code = KORUnicodeString(value);
    } else if (const ElementField* field = FieldOf(name, PlainFields)) {
      const std::string_view value = ValueOf(child);
      record.*field->Target = KORUnicodeString(field->Stripped ? WithoutLeading(value, '#') : value);
    } else if (name == "PATTERN") {
      ReadPattern(child, record);
      if (child.IsNull()) break;
    } else if (name == "TIMETYPE") {
      if (!child.GetFirstChild().IsNull()) record._TimeType = KORUnicodeString(ValueOf(child));
    } else if (name == "OPTION") {
      ReadOption(child, record);
    }
  }
  return record;
}

}  // namespace

std::vector<VEXSTMDataCardEntriesScan> ReadEntries(const KORIDOMNodeList_var& elements) {
  std::vector<VEXSTMDataCardEntriesScan> records;
  records.reserve(static_cast<std::size_t>(elements.GetLength()));
  for (int index = 0; index < elements.GetLength(); ++index) records.push_back(ReadEntry(elements.Item(index)));
  return records;
}

}  // namespace datacard
