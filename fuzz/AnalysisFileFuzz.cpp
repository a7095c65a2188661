// Files of analyses: whatever a file holds, its rows and problems stand on lines that it has, and what was read of it
// reads the same when it is written again. Input: the content of the file.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "tools/analysis/AnalysisFile.h"
#include "tools/analysis/CsvReader.h"

namespace {

std::vector<tool::CsvRecord> RecordsOf(tool::CsvReader& reader) {
  std::vector<tool::CsvRecord> records;
  for (tool::CsvRecord record; reader.Next(record);) records.push_back(record);
  return records;
}

std::string Quoted(std::string_view field) {
  std::string text = "\"";
  for (const char character : field) text.append(character == '"' ? 2 : 1, character);
  return text + "\"";
}

std::string Written(const tool::CsvRecord& record) {
  if (record.IsComment) return "#" + record.Fields.front() + "\n";
  std::string text;
  for (const std::string& field : record.Fields) text += (text.empty() ? "" : ",") + Quoted(field);
  return text + "\n";
}

void CheckRecords(std::string_view text) {
  tool::CsvReader reader(text);
  const std::vector<tool::CsvRecord> records = RecordsOf(reader);
  std::string written;
  for (const tool::CsvRecord& record : records) written += Written(record);
  tool::CsvReader second_reader(written);
  const std::vector<tool::CsvRecord> again = RecordsOf(second_reader);
  fuzz::RequireSame(records.size(), again.size(), "number of records");
  for (std::size_t index = 0; index < records.size(); ++index) {
    fuzz::RequireSame(true, records[index].Fields == again[index].Fields, "fields of a record");
    fuzz::RequireSame(records[index].IsComment, again[index].IsComment, "comment");
  }
}

void CheckFile(std::string_view text) {
  const tool::AnalysisFile file("file.csv", text);
  const auto line_ends = std::ranges::count_if(text, [](char byte) { return byte == '\n' || byte == '\r'; });
  const std::size_t lines = static_cast<std::size_t>(line_ends) + 1;
  std::size_t before = 0;
  for (const tool::AnalysisRow& row : file.GetRows()) {
    fuzz::RequireSame(true, before < row.Line && row.Line <= lines, "line of a row");
    before = row.Line;
    for (std::size_t column = 0; column < tool::ColumnNames.size(); ++column) {
      const std::string_view cell = file.Cell(row, static_cast<tool::Column>(column));
      fuzz::RequireSame(true, cell == tool::Trimmed(cell), "blanks around a cell");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::BytesOf(data, size);
  CheckRecords(text);
  CheckFile(text);
  return 0;
}
