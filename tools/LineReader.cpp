// Lines of an input stream, read in blocks.
#include "tools/LineReader.h"

#include <algorithm>
#include <ios>
#include <istream>
#include <streambuf>
#include <utility>

#include "tools/Messages.h"

namespace tool {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t BlockSize = std::size_t{64} << 10;

}  // namespace

LineReader::LineReader(std::istream& input, std::function<void()> before_waiting)
    : _Input(input), _BeforeWaiting(std::move(before_waiting)) {
}

// Appends what the stream has ready, and waits for it only if it has nothing.
bool LineReader::Fill() {
  if (_Ended) return false;
  if (_BeforeWaiting) _BeforeWaiting();
  _Buffer.erase(0, std::exchange(_Start, 0));
  std::streambuf& source = *_Input.rdbuf();
  try {
    if (source.sgetc() == std::streambuf::traits_type::eof()) {
      _Ended = true;
      return false;
    }
    const auto ready = static_cast<std::size_t>(std::max<std::streamsize>(source.in_avail(), 1));
    const std::size_t held = _Buffer.size();
    _Buffer.resize(held + std::min(ready, BlockSize));
    const auto read = source.sgetn(_Buffer.data() + held, static_cast<std::streamsize>(_Buffer.size() - held));
    _Buffer.resize(held + static_cast<std::size_t>(std::max<std::streamsize>(read, 0)));
  } catch (const std::ios_base::failure& failure) {
    throw InputNotReadable(failure.code().message());
  }
  return true;
}

// Hands out the line of `length` bytes at the start, and steps over it and its separator.
std::string_view LineReader::Take(std::size_t length, std::size_t separator) {
  std::string_view line(_Buffer.data() + _Start, length);
  _Start += length + separator;
  ++_LineNumber;
  if (_LineNumber == 1 && line.starts_with(ByteOrderMark)) line.remove_prefix(ByteOrderMark.size());
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (line.find('\0') != std::string_view::npos) throw NulInLine(_LineNumber);
  return line;
}

bool LineReader::Next(std::string_view& line) {
  std::size_t searched = 0;
  while (true) {
    const std::size_t newline = _Buffer.find('\n', _Start + searched);
    if (newline != std::string::npos && newline - _Start <= LongestLine) {
      line = Take(newline - _Start, 1);
      return true;
    }
    searched = _Buffer.size() - _Start;
    if (searched > LongestLine) throw LineTooLong(_LineNumber + 1, LongestLine);
    if (!Fill()) break;
  }
  if (_Start == _Buffer.size()) return false;
  line = Take(_Buffer.size() - _Start, 0);
  return true;
}

}  // namespace tool
