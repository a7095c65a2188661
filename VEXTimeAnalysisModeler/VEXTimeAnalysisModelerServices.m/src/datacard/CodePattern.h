// Code patterns: the family of codes that an entry of a catalogue stands for.
//
//   pattern     = { token }                 tokens follow each other; blanks and line feeds between them do not count
//   token       = "(" | ")" | "|" | parameter | literal | unknown
//   parameter   = ( "%" | "$" ) [ "[" integer "," integer "]" ]     "%" an integer, "$" a real number, bounds inclusive
//   literal     = '"' { any character but '"' } '"'                 '""' matches nothing and succeeds
//   unknown     = any other character                               never matches
//
// A literal without its closing quote, and a range without "]", run to the end of the pattern. A range without a comma
// is passed over. A bound that cannot be read takes the value of the bound read before it in the pattern, 0 at first.
//
// A group in parentheses is a sequence, all or nothing, or, from its first "|" on, a list of alternatives of which the
// first that matches wins; there is no return to an alternative. Numbers are measured by their printed form.
//
// Every token has a position, from 0; time formulas and options refer to the numbers of a code by these positions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace datacard {

/// Types of tokens; the numbers are those of VEXSTMDataCardCodeScan::_Type.
enum class PatternTokenType : int {
  GroupOpen = 0,
  GroupClose = 1,
  Alternative = 2,
  EmptyLiteral = 3,
  IntegerParameter = 4,
  RealParameter = 5,
  Literal = 6,
  End = 7,
  Unknown = 8,
};

inline constexpr int LeastParameter = -1000000;
inline constexpr int GreatestParameter = 1000000;

struct PatternToken {
  PatternTokenType Type = PatternTokenType::End;
  int Min = 0;  // bounds of a parameter
  int Max = 0;
  std::uint32_t Closing = 0;  // where the group or the pattern around the token ends; see CodePattern::ClosingOf
  std::string_view Text{};    // of a literal; belongs to the pattern
};

/// What a match found at one token.
struct TokenMatch {
  bool Matched = false;
  bool HoldsNumber = false;  // a parameter has taken a number of the code
  int Integer = 0;           // number read, also one out of bounds
  double Real = 0.0;
};

/// Where the walk of a pattern ended.
struct PatternWalk {
  std::optional<std::size_t> Stop;  // position of the token; nothing if the walk failed
  std::size_t Consumed = 0;         // bytes of the code matched, of a failed walk too
};

/// A compiled pattern. Constant once made, so that threads may share it. Moves, but does not copy.
class CodePattern {
 public:
  explicit CodePattern(std::string_view pattern);
  /// From tokens; what stands behind an End token is dropped. The texts stay the caller's and must outlive the pattern.
  explicit CodePattern(std::vector<PatternToken> tokens);
  CodePattern(CodePattern&&) = default;
  CodePattern& operator=(CodePattern&&) = default;

  /// Number of tokens, and the token at a position; the token at Size() is the end.
  std::size_t Size() const { return _Tokens.size() - 1; }
  const PatternToken& operator[](std::size_t position) const { return _Tokens[position]; }

  /// Where the inside of the group or of the pattern that begins at `position` ends: its ")", or Size() if it has none.
  std::size_t ClosingOf(std::size_t position) const { return _Tokens[position].Closing; }

  /// Walks the pattern along a code. `matches` has an element for each token, which the walk fills; marks that are set
  /// in it at the start stay, but for those that a failure clears.
  ///
  /// chained  the code is a chain of parts joined by "+", and a literal stands for one whole part
  PatternWalk Walk(std::string_view code, bool chained, std::vector<TokenMatch>& matches) const;

 private:
  std::unique_ptr<char[]> _Text;      // the pattern as written, which the literals are parts of
  std::vector<PatternToken> _Tokens;  // closed by an End token
};

/// The number that a parameter holds for references to its position; 0.0 for a token that is no parameter.
inline double NumberOf(const PatternToken& token, const TokenMatch& match) {
  if (token.Type == PatternTokenType::IntegerParameter) return match.Integer;
  return token.Type == PatternTokenType::RealParameter ? match.Real : 0.0;
}

/// True if the whole code matches; `matches` then has an element for each token. On false its content says nothing.
bool MatchesWhole(const CodePattern& pattern, std::string_view code, bool chained, std::vector<TokenMatch>& matches);

/// Texts of which a code must begin with one to match the pattern; nothing if that cannot be told from the pattern, as
/// for one that begins with a parameter. The texts belong to the pattern. Holds for codes that are not empty.
std::optional<std::vector<std::string_view>> LeadingLiterals(const CodePattern& pattern);

}  // namespace datacard
