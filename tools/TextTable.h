// Tables for people: columns of texts and of numbers.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Stands where a table has no value.
inline constexpr std::string_view NoValue = "-";

/// Numbers with as many decimals as the longest of them has, so that their points stand below each other.
class NumberColumn {
 public:
  void Take(const std::optional<double>& number);

  /// The text of one of the numbers taken; NoValue for none.
  std::string Text(const std::optional<double>& number) const;

 private:
  std::size_t _Decimals = 0;
};

enum class Align { Left, Right };

struct TableColumn {
  std::string Heading;
  Align Side;
  std::size_t Width = 0;
};

/// Rows of texts below their headings, two blanks between the columns.
class Table {
 public:
  explicit Table(std::vector<TableColumn> columns);

  /// Cells missing at the end are empty.
  void AddRow(std::vector<std::string> row);
  void Write(std::ostream& output) const;

 private:
  std::vector<TableColumn> _Columns;
  std::vector<std::vector<std::string>> _Rows;
};

}  // namespace tool
