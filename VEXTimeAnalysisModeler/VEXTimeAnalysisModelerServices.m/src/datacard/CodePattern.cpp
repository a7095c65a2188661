// Compiling of code patterns, and what their beginning tells.
#include "datacard/CodePattern.h"

#include <algorithm>
#include <utility>

#include "platform/base/KORNumberText.h"

namespace datacard {
namespace {

using Type = PatternTokenType;

/// Reads a pattern from left to right.
class PatternCompiler {
 public:
  explicit PatternCompiler(std::string_view pattern) : _Rest(pattern) {}

  std::vector<PatternToken> Run() {
    std::vector<PatternToken> tokens;
    while (!_Rest.empty()) {
      const char character = Take();
      if (character != ' ' && character != '\n') tokens.push_back(TokenOf(character));
    }
    tokens.emplace_back();
    return tokens;
  }

 private:
  char Take() {
    const char character = _Rest.front();
    _Rest.remove_prefix(1);
    return character;
  }

  /// The text up to `closing`, which is taken too, or up to the end.
  std::string_view TakeUpTo(char closing) {
    const std::size_t length = std::min(_Rest.find(closing), _Rest.size());
    const std::string_view text = _Rest.substr(0, length);
    _Rest.remove_prefix(std::min(length + 1, _Rest.size()));
    return text;
  }

  PatternToken TokenOf(char character) {
    switch (character) {
      case '(':
        return {Type::GroupOpen};
      case ')':
        return {Type::GroupClose};
      case '|':
        return {Type::Alternative};
      case '%':
        return ParameterOf(Type::IntegerParameter);
      case '$':
        return ParameterOf(Type::RealParameter);
      case '"':
        return LiteralOf();
      default:
        return {Type::Unknown};
    }
  }

  PatternToken LiteralOf() {
    if (_Rest.starts_with('"')) {
      Take();
      return {Type::EmptyLiteral};
    }
    PatternToken token{Type::Literal};
    token.Text = TakeUpTo('"');
    return token;
  }

  PatternToken ParameterOf(Type type) {
    PatternToken token{type, LeastParameter, GreatestParameter};
    if (!_Rest.starts_with('[')) return token;
    Take();
    const std::string_view range = TakeUpTo(']');
    const std::size_t comma = range.find(',');
    if (comma == std::string_view::npos) return token;
    token.Min = BoundOf(range.substr(0, comma));
    token.Max = BoundOf(range.substr(comma + 1));
    return token;
  }

  int BoundOf(std::string_view text) {
    _Bound = kornumber::ReadInteger(text).value_or(_Bound);
    return _Bound;
  }

  std::string_view _Rest;
  int _Bound = 0;  // the bound last read
};

/// Finds for each position the first ")" at or behind it that closes a group opened ahead of it; the end if there is
/// none.
void FindClosings(std::vector<PatternToken>& tokens) {
  const auto end = static_cast<std::uint32_t>(tokens.size() - 1);
  tokens[end].Closing = end;
  std::vector<std::uint32_t> open_closings;  // of the groups around the position, the innermost last
  for (std::uint32_t position = end; position-- > 0;) {
    if (tokens[position].Type == Type::GroupClose) open_closings.push_back(position);
    if (tokens[position].Type == Type::GroupOpen && !open_closings.empty()) open_closings.pop_back();
    tokens[position].Closing = open_closings.empty() ? end : open_closings.back();
  }
}

std::unique_ptr<char[]> Copied(std::string_view text) {
  auto copy = std::make_unique<char[]>(text.size());
  std::ranges::copy(text, copy.get());
  return copy;
}

/// What one level of a pattern adds to the texts that a code can begin with.
class LeadingLiteralSearch {
 public:
  explicit LeadingLiteralSearch(const CodePattern& pattern) : _Pattern(pattern) {}

  std::optional<std::vector<std::string_view>> Run() {
    _Levels.push_back(0);
    while (!_Levels.empty() && !_Anything) {
      const std::size_t position = _Levels.back();
      _Levels.pop_back();
      if (_Pattern[position].Type == Type::Alternative) {
        TakeAlternatives(position);
      } else {
        TakeToken(position);
      }
    }
    if (_Anything) return std::nullopt;
    return std::move(_Literals);
  }

 private:
  /// In a sequence the first token decides: the sequence fails with it.
  void TakeToken(std::size_t position) {
    const PatternToken& token = _Pattern[position];
    switch (token.Type) {
      case Type::Literal:
        _Literals.push_back(token.Text);
        _Anything = token.Text.empty();
        break;
      case Type::GroupOpen:
        _Levels.push_back(position + 1);
        break;
      case Type::Unknown:  // can't match
        break;
      default:  // parameters, and whatever succeeds without the code
        _Anything = true;
        break;
    }
  }

  /// Among alternatives every token of the level is tried until one matches, also those behind the first of a sequence.
  void TakeAlternatives(std::size_t position) {
    const std::size_t closing = _Pattern.ClosingOf(position);
    for (; position < closing && !_Anything; ++position) {
      if (_Pattern[position].Type == Type::Alternative) continue;
      TakeToken(position);
      if (_Pattern[position].Type == Type::GroupOpen) position = _Pattern.ClosingOf(position + 1);
    }
  }

  const CodePattern& _Pattern;
  std::vector<std::size_t> _Levels;  // beginnings of the levels still to be looked at
  std::vector<std::string_view> _Literals;
  bool _Anything = false;
};

std::vector<PatternToken> CutAtEnd(std::vector<PatternToken> tokens) {
  const auto end = std::ranges::find(tokens, Type::End, &PatternToken::Type);
  tokens.erase(end, tokens.end());
  tokens.emplace_back();
  return tokens;
}

}  // namespace

CodePattern::CodePattern(std::string_view pattern)
    : _Text(Copied(pattern)), _Tokens(PatternCompiler({_Text.get(), pattern.size()}).Run()) {
  FindClosings(_Tokens);
}

CodePattern::CodePattern(std::vector<PatternToken> tokens) : _Tokens(CutAtEnd(std::move(tokens))) {
  FindClosings(_Tokens);
}

std::optional<std::vector<std::string_view>> LeadingLiterals(const CodePattern& pattern) {
  return LeadingLiteralSearch(pattern).Run();
}

}  // namespace datacard
