// Code patterns as their author wrote them: the source text and the flaws of each token.
//
//   pattern = { token }
//   token   = "(" | ")" | "|" | literal | parameter
//   literal = '"' { any character but '"' } '"'
//   parameter = ( "%" | "$" ) [ "[" lower "," upper "]" ]
//
// The token kinds are those of VEXSTMDataCardCodeScan; a character that begins no token is one of kind Unknown.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

enum class PatternKind : int {
  GroupOpen = 0,
  GroupClose = 1,
  Alternative = 2,
  EmptyLiteral = 3,
  Integer = 4,
  Real = 5,
  Literal = 6,
  End = 7,
  Unknown = 8
};

struct PatternToken {
  PatternKind Kind = PatternKind::Unknown;
  std::string Source;  // as written, with its quotes or range
  std::string Text;    // of a literal, without its quotes
  int Min = -1000000;  // of a parameter, both inclusive
  int Max = 1000000;
  bool BlankAhead = false;  // a blank or a line feed stands ahead of it
  bool Open = false;        // the closing quote or the "]" is missing
  bool RangeWithoutComma = false;
  bool BoundNotRead = false;  // a bound is no whole number
};

/// The tokens of a pattern; their places in the list are the positions that formulas and options refer to.
std::vector<PatternToken> ReadPatternText(std::string_view pattern);

}  // namespace tool
