// The JSON export once more, written plainly on the library's own values: templates parsed anew wherever they are used,
// nothing kept, nothing moved. For comparison in tests and fuzz targets.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KOROmxJson.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace support {

using PlainJson = nlohmann::ordered_json;

/// True if the value has objects or arrays one in the other beyond that number.
inline bool IsNestedBeyond(const PlainJson& value, int levels) {
  if (!value.is_structured()) return false;
  if (levels == 0) return true;
  for (const PlainJson& inner : value) {
    if (IsNestedBeyond(inner, levels - 1)) return true;
  }
  return false;
}

/// The object that the content of a template stands for; one without keys if it stands for none.
inline PlainJson PlainTemplate(std::string_view content) {
  const bool is_read = content.size() <= KOROmxLongestJsonFile && content.find('\0') == std::string_view::npos;
  const KORUnicodeString text(content);  // UTF-8, or Windows-1252
  PlainJson value = is_read ? PlainJson::parse(text.Bytes(), nullptr, false) : PlainJson();
  if (!value.is_object() || IsNestedBeyond(value, KOROmxDeepestJsonFile)) return PlainJson::object();
  return value;
}

/// The object with the values of an analysis or a line.
template <class Source>
PlainJson PlainFilled(PlainJson object, Source& source) {
  for (auto& [key, value] : object.items()) {
    const KORString name(std::string_view{key});
    if (value.is_boolean()) {
      unsigned char truth = 0;
      (void)source.GetValue(name, truth);
      value = truth != 0;
    } else if (value.is_number_float()) {
      double number = 0.0;
      (void)source.GetValue(name, number);
      value = number;
    } else if (value.is_number()) {
      int number = 0;
      (void)source.GetValue(name, number);
      value = number;
    } else if (value.is_string()) {
      KORUnicodeString text;
      (void)source.GetValue(name, text);
      value = std::string(text.Bytes());
    }
  }
  return object;
}

/// The document of an analysis, by the contents of the two templates.
inline PlainJson PlainDocument(std::string_view complete, std::string_view line,
                               VEXTimeAnalysisRepReference& analysis) {
  PlainJson document = PlainTemplate(complete);
  const bool has_attributes = document.contains("TAATTRIBUTES") && document["TAATTRIBUTES"].is_object();
  document["TAATTRIBUTES"] = PlainFilled(has_attributes ? document["TAATTRIBUTES"] : PlainJson::object(), analysis);
  const bool has_lines = document.contains("TALINESDETAILS") && document["TALINESDETAILS"].is_array();
  PlainJson lines = has_lines ? document["TALINESDETAILS"] : PlainJson::array();
  int count = 0;
  (void)analysis.GetLineCount(count);
  for (int row = 1; row <= count; ++row) {
    VEXTimeAnalysisLineData record;
    (void)analysis.GetLine(row, record);
    const auto place = static_cast<std::size_t>(row - 1);
    if (place < lines.size()) lines.erase(place);
    lines.insert(lines.begin() + (row - 1), PlainFilled(PlainTemplate(line), record));
  }
  document["TALINESDETAILS"] = lines;
  return document;
}

}  // namespace support
