// An analysis as a text file: what it is called, and its rows as they were written.
//
//   file     = { property | comment | blank } header { row | comment | blank }
//   property = "#" name ":" value            name: "system", "name", "description" or "identifier"; separators behind
//                                            the value do not count, and the whole may stand in quotes
//   comment  = "#" anything
//   header   = column { separator column }   in any order, small and capital letters alike; the names stand in
//                                            ColumnNames; below an empty one all cells are empty
//   row      = cell { separator cell }       cells missing at the end are empty
//   blank    = a record without anything in its fields
//
// Records, separators and quotes are those of CsvReader.h. Blanks around cells, names and values do not count, nor
// do small and capital letters of names. Behind the header there are no properties.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/analysis/AnalysisMessages.h"

namespace tool {

/// Columns of an analysis.
enum class Column : std::size_t {
  Code,
  Frequency,
  TimeType,
  Description,
  Time,     // TMU, entered by hand
  Seconds,  // the same in seconds
  System,
  Reuse,
  Signature,
  Body,
  Values,
  ValueAdded,
  AdditionalDescription,
  Picture,
  Recorded  // of a reused analysis, the time in seconds that was taken over from it
};

inline constexpr std::array<std::string_view, 15> ColumnNames{"code",
                                                              "frequency",
                                                              "time type",
                                                              "description",
                                                              "time",
                                                              "seconds",
                                                              "system",
                                                              "reuse",
                                                              "signature",
                                                              "body",
                                                              "values",
                                                              "value added",
                                                              "additional description",
                                                              "picture",
                                                              "recorded"};

struct AnalysisRow {
  std::size_t Line = 0;            // of the file, from 1
  std::vector<std::string> Cells;  // as the header has them
  bool HasSurplus = false;         // it has cells that no column is there for, so that others may stand in wrong ones
};

class AnalysisFile {
 public:
  AnalysisFile() = default;
  /// Reads the text of a file. Whatever is wrong goes to GetProblems, and the rest is read all the same.
  ///
  /// path  what messages call the file
  AnalysisFile(std::string path, std::string_view text);

  const std::string& GetPath() const { return _Path; }

  /// Values of the properties; empty if the file does not have them. The system is a known one.
  const std::string& GetSystem() const { return _System; }
  const std::string& GetName() const { return _Name; }
  const std::string& GetDescription() const { return _Description; }
  const std::string& GetIdentifier() const { return _Identifier; }
  /// Line of the property "identifier"; 0 if there is none.
  std::size_t GetIdentifierLine() const { return _IdentifierLine; }

  const std::vector<AnalysisRow>& GetRows() const { return _Rows; }
  /// The text in a column of a row, without blanks around it; empty if the file has no such column.
  std::string_view Cell(const AnalysisRow& row, Column column) const;

  /// Place of a column among the cells of a row, from 1; 0 if the file has no such column.
  std::size_t PlaceOf(Column column) const { return _Places[static_cast<std::size_t>(column)]; }

  /// False if it has no header row that can be used, and if its end was not read.
  bool IsWhole() const { return _IsWhole; }

  /// What was wrong, in the order of the file.
  const std::vector<PlacedFailure>& GetProblems() const { return _Problems; }

 private:
  void TakeProperty(std::size_t line, std::string_view text);
  void TakeHeader(std::size_t line, const std::vector<std::string>& names);
  void TakeRow(std::size_t line, std::vector<std::string>&& cells);
  void CheckColumns(std::size_t line);

  std::string _Path;
  std::string _System;
  std::string _Name;
  std::string _Description;
  std::string _Identifier;
  std::size_t _IdentifierLine = 0;
  std::size_t _ColumnCount = 0;                           // of the header; 0 ahead of it
  std::array<std::size_t, ColumnNames.size()> _Places{};  // of each column among the cells, from 1; 0 for none
  std::vector<std::size_t> _Unnamed;                      // places of columns without a name, from 0
  bool _IsWhole = true;
  std::vector<AnalysisRow> _Rows;
  std::vector<PlacedFailure> _Problems;
};

/// The text without blanks, tabs and line ends at both ends.
std::string_view Trimmed(std::string_view text);

}  // namespace tool
