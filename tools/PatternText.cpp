// Code patterns as their author wrote them.
#include "tools/PatternText.h"

#include <charconv>
#include <utility>

namespace tool {

namespace {

// A bound as its author meant it: a whole number with blanks around it at most.
bool ReadBound(std::string_view text, int& bound) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return false;
  text = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bound);
  return error == std::errc() && end == text.data() + text.size();
}

// range = "[" lower "," upper "]"; `place` is that of the "[", the result that behind the "]".
std::size_t ReadRange(std::string_view pattern, std::size_t place, PatternToken& token) {
  const std::size_t close = pattern.find(']', place);
  token.Open = close == std::string_view::npos;
  const std::size_t end = token.Open ? pattern.size() : close;
  const std::string_view bounds = pattern.substr(place + 1, end - place - 1);
  const std::size_t comma = bounds.find(',');
  if (comma == std::string_view::npos) {
    token.RangeWithoutComma = true;
  } else {
    const bool lower = ReadBound(bounds.substr(0, comma), token.Min);
    const bool upper = ReadBound(bounds.substr(comma + 1), token.Max);
    token.BoundNotRead = !lower || !upper;
  }
  return token.Open ? end : end + 1;
}

// Reads the token at `place`; the result is the place behind it.
std::size_t ReadToken(std::string_view pattern, std::size_t place, PatternToken& token) {
  switch (pattern[place]) {
    case '(':
      token.Kind = PatternKind::GroupOpen;
      return place + 1;
    case ')':
      token.Kind = PatternKind::GroupClose;
      return place + 1;
    case '|':
      token.Kind = PatternKind::Alternative;
      return place + 1;
    case '%':
    case '$':
      token.Kind = pattern[place] == '%' ? PatternKind::Integer : PatternKind::Real;
      ++place;
      return place < pattern.size() && pattern[place] == '[' ? ReadRange(pattern, place, token) : place;
    case '"': {
      const std::size_t quote = pattern.find('"', place + 1);
      token.Open = quote == std::string_view::npos;
      token.Text = pattern.substr(place + 1, token.Open ? quote : quote - place - 1);
      token.Kind = token.Text.empty() && !token.Open ? PatternKind::EmptyLiteral : PatternKind::Literal;
      return token.Open ? pattern.size() : quote + 1;
    }
    default:
      token.Kind = PatternKind::Unknown;
      ++place;
      // The bytes of one character beyond ASCII make one token.
      while (place < pattern.size() && (static_cast<unsigned char>(pattern[place]) & 0xC0) == 0x80) ++place;
      return place;
  }
}

}  // namespace

std::vector<PatternToken> ReadPatternText(std::string_view pattern) {
  std::vector<PatternToken> tokens;
  bool blank = false;
  for (std::size_t place = 0; place < pattern.size();) {
    if (pattern[place] == ' ' || pattern[place] == '\n') {
      blank = true;
      ++place;
      continue;
    }
    PatternToken token;
    token.BlankAhead = std::exchange(blank, false);
    const std::size_t end = ReadToken(pattern, place, token);
    token.Source = pattern.substr(place, end - place);
    tokens.push_back(std::move(token));
    place = end;
  }
  return tokens;
}

}  // namespace tool
