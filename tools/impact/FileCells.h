// Single cells of a file of comma-separated values changed, and nothing else of it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct CellChange {
  std::size_t Line = 0;   // on which the record begins, from 1
  std::size_t Place = 0;  // of the cell in the record, from 1
  std::string Content;    // without quotes, separators and line ends
};

/// The text with other contents of some of its cells. Every other byte stays as it is, in whatever encoding: comments,
/// blank rows, line ends, a byte order mark, and of the cells themselves quotes and blanks around the content.
///
/// changes  in the order of their lines; the cells are as CsvReader.h has them
/// Nothing if the text has no such cell.
std::optional<std::string> WithCellsChanged(std::string_view text, const std::vector<CellChange>& changes);

}  // namespace tool
