// Lines of an input stream, read in blocks.
//
//   input = [ byte order mark ] { line newline } [ line ]
//
// A carriage return ahead of a newline, or at the end of the input, belongs to the newline. A last line without newline
// counts; behind a last newline there is no further line. Empty lines are lines.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

namespace tool {

class LineReader {
 public:
  /// before_waiting  called whenever the next line is not yet in memory, so that answers are seen by who types
  explicit LineReader(std::istream& input, std::function<void()> before_waiting = {});

  /// The next line, valid until the next call. False at the end of the input. Raises NulInLine for a line that holds a
  /// NUL byte, which no text does, LineTooLong beyond LongestLine bytes, and InputNotReadable if reading fails.
  bool Next(std::string_view& line);

  /// Number of the line read last, from 1.
  std::size_t LineNumber() const { return _LineNumber; }

  static constexpr std::size_t LongestLine = std::size_t{16} << 20;

 private:
  bool Fill();
  std::string_view Take(std::size_t length, std::size_t separator);

  std::istream& _Input;
  std::function<void()> _BeforeWaiting;
  std::string _Buffer;
  std::size_t _Start = 0;  // of the next line in the buffer
  std::size_t _LineNumber = 0;
  bool _Ended = false;
};

}  // namespace tool
