// Single cells of a file of comma-separated values changed.
#include "tools/impact/FileCells.h"

#include "tools/analysis/AnalysisFile.h"
#include "tools/analysis/CsvReader.h"

namespace tool {

namespace {

// The content of a cell: without the quotes around it, and without blanks. A cell with quotes inside it is its content.
std::string_view ContentOf(std::string_view cell) {
  const bool quoted = cell.size() > 1 && cell.starts_with('"') && cell.ends_with('"');
  if (quoted && cell.find('"', 1) == cell.size() - 1) cell = cell.substr(1, cell.size() - 2);
  const std::string_view content = Trimmed(cell);
  return content.empty() ? cell.substr(0, 0) : content;
}

}  // namespace

std::optional<std::string> WithCellsChanged(std::string_view text, const std::vector<CellChange>& changes) {
  std::string changed;
  std::size_t taken = 0;  // bytes of the text that stand in `changed`, or were replaced
  auto change = changes.begin();
  CsvReader reader(text);
  for (CsvRecord record; change != changes.end() && reader.Next(record);) {
    for (; change != changes.end() && change->Line == record.Line; ++change) {
      if (change->Place == 0 || change->Place > record.Extents.size()) return std::nullopt;
      const CsvExtent& extent = record.Extents[change->Place - 1];
      const std::string_view content = ContentOf(text.substr(extent.Start, extent.Length));
      const auto start = static_cast<std::size_t>(content.data() - text.data());
      if (start < taken) return std::nullopt;
      changed += text.substr(taken, start - taken);
      changed += change->Content;
      taken = start + content.size();
    }
  }
  if (change != changes.end()) return std::nullopt;
  changed += text.substr(taken);
  return changed;
}

}  // namespace tool
