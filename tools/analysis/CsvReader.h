// Records of comma-separated text, as spreadsheets write it (RFC 4180), with comment lines.
//
//   text      = { comment | record } (a byte order mark at the start is dropped)
//   comment   = "#" ... line-end
//   record    = field { separator field } line-end
//   field     = quoted | plain
//   quoted    = '"' { any character | '""' } '"'       line ends and separators inside belong to the field
//   plain     = { any character but separator and line end }
//   separator = "," | ";" | tab                        the same one throughout
//   line-end  = line feed | carriage return, line feed | carriage return | end of the text
//
// The separator is the first of the three that stands in the first record outside quotes; a comma if none does. Behind
// a last line end there is no further record. A quote inside a plain field is a character like any other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Where a field stands in the text, its quotes and what stands behind them included.
struct CsvExtent {
  std::size_t Start = 0;  // from the start of the text, a byte order mark included
  std::size_t Length = 0;
};

struct CsvRecord {
  std::size_t Line = 0;             // on which it begins, from 1
  bool IsComment = false;           // then the text behind "#" is its only field
  bool HasTextBehindQuote = false;  // something stands between a closing quote and the next separator; it is kept
  std::vector<std::string> Fields;  // at least one
  std::vector<CsvExtent> Extents;   // of the fields; none for a comment
};

/// Why a text cannot be read to its end.
enum class CsvFault { None, OpenQuote, NulByte, TooLong };

class CsvReader {
 public:
  /// The text has to outlive the reader.
  explicit CsvReader(std::string_view text);

  /// The next record. False at the end of the text and at a fault: a quote without its partner, a NUL byte, a record
  /// above LongestRecord bytes.
  bool Next(CsvRecord& record);

  CsvFault GetFault() const { return _Fault; }
  /// Line on which the record with the fault begins, from 1.
  std::size_t GetFaultLine() const { return _FaultLine; }

  static constexpr std::size_t LongestRecord = std::size_t{16} << 20;

 private:
  bool Stop(CsvFault fault, std::size_t line);
  void FindSeparator();
  bool TakeQuoted(std::string& field);
  void TakePlain(std::string& field);
  void TakeLineEnd();
  bool AtLineEnd() const;

  std::string_view _Text;  // without the byte order mark
  std::size_t _Ahead = 0;  // bytes of that mark
  std::size_t _Place = 0;
  std::size_t _Line = 1;
  char _Separator = '\0';  // not yet known
  CsvFault _Fault = CsvFault::None;
  std::size_t _FaultLine = 0;
};

}  // namespace tool
