// Texts as fields of comma-separated records.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// The field that CsvReader reads as the text: in quotes if it would be read as more than one field or as a comment.
std::string CsvField(std::string_view text);

/// The same in quotes, whatever the text.
std::string QuotedCsvField(std::string_view text);

}  // namespace tool
