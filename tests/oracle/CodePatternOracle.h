// The plain recursive walk of a typed code against a code pattern of the catalogue, one call for each level of groups.
// It is the yardstick for the matcher.
//
//   pattern  = { token }                  blanks and line feeds between tokens are passed over
//   token    = "(" | ")" | "|" | literal | parameter | any other character, which never matches
//   literal  = '"' text '"'               nothing between the quotes: the empty literal
//   parameter = ( "%" | "$" ) [ "[" lower "," upper "]" ]
//
// Numbers go through the formats "%d", "%le" and "%g"; the process must run in the "C" locale.
#pragma once

#include <string>
#include <vector>

namespace oracle {

/// Type: 0 "(", 1 ")", 2 "|", 3 empty literal, 4 integer parameter, 5 real parameter, 6 literal, 7 end, 8 unknown.
struct Token {
  int Type = 7;
  std::string Text;
  int IntValue = 0;
  double RealValue = 0.0;
  int Min = 0;
  int Max = 0;
  bool Matched = false;
};

/// The tokens of a pattern in its order, with one end token behind them.
std::vector<Token> CompilePattern(const std::string& pattern);

/// Walks one level, from the token at index first, over the rest of a code.
///
/// system    name of the motion-time system; in "SAM" a literal stands for a whole part of a chain joined by "+".
/// consumed  the number of characters matched is added to it; after a failure it means nothing.
/// Returns   index of the token at which the walk stopped; -1 if it failed.
int GetCodeScan(const std::string& system, const std::string& code, std::vector<Token>& tokens, int first,
                int& consumed);

/// Whether a whole code matches a pattern. On a match count is the number of tokens, and values and flags get one
/// element for each; otherwise the three stay untouched. An empty pattern matches nothing.
bool CheckPattern(const std::string& system, const std::string& code, const std::string& pattern, int& count,
                  std::vector<double>& values, std::vector<int>& flags);

}  // namespace oracle
