// Texts as fields of comma-separated records.
#include "tools/analysis/CsvField.h"

namespace tool {

std::string CsvField(std::string_view text) {
  const bool plain = text.find_first_of(",;\t\"\r\n") == std::string_view::npos && !text.starts_with('#');
  return plain ? std::string(text) : QuotedCsvField(text);
}

std::string QuotedCsvField(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + "\"";
}

}  // namespace tool
