// Reads the tables of constants that the tests compare with: one CSV file per table of the card.
//
//   file = { "#" comment line } heading line { row line }
//
// The first column of a row is its name, the first line gives the names of the columns.
#pragma once

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace formulatest {

class ConstantTable {
 public:
  explicit ConstantTable(const std::string& file) : _Path(std::string(TEST_SOURCE_DIR) + "/formula/data/" + file) {
    std::ifstream stream(_Path);
    for (std::string line; std::getline(stream, line);) {
      if (line.starts_with('#')) continue;
      _Columns.empty() ? ReadHeading(line) : ReadRow(line);
    }
    if (_Rows.empty()) throw std::runtime_error("no rows in " + _Path);
  }

  int RowCount() const { return static_cast<int>(_Rows.size()); }
  int ColumnCount() const { return static_cast<int>(_Columns.size()); }
  const std::string& RowName(int row) const { return _RowNames.at(static_cast<std::size_t>(row)); }
  const std::string& ColumnName(int column) const { return _Columns.at(static_cast<std::size_t>(column)); }

  double At(int row, int column) const {
    return _Rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
  }
  double At(int row, const std::string& column) const {
    for (int index = 0; index < ColumnCount(); ++index) {
      if (ColumnName(index) == column) return At(row, index);
    }
    throw std::runtime_error("no column " + column + " in " + _Path);
  }
  double At(const std::string& row, int column) const {
    for (int index = 0; index < RowCount(); ++index) {
      if (RowName(index) == row) return At(index, column);
    }
    throw std::runtime_error("no row " + row + " in " + _Path);
  }

 private:
  static std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    return cells;
  }

  void ReadHeading(const std::string& line) {
    _Columns = Cells(line);
    _Columns.erase(_Columns.begin());
  }

  void ReadRow(const std::string& line) {
    const std::vector<std::string> cells = Cells(line);
    _RowNames.push_back(cells.front());
    std::vector<double> numbers;
    for (std::size_t column = 1; column < cells.size(); ++column) {
      numbers.push_back(std::strtod(cells[column].c_str(), nullptr));
    }
    _Rows.push_back(numbers);
  }

  std::string _Path;
  std::vector<std::string> _Columns;
  std::vector<std::string> _RowNames;
  std::vector<std::vector<double>> _Rows;
};

}  // namespace formulatest
