// MOST sequences between norm format and code form.
#include "codenorm/MostNorm.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "codenorm/SequenceText.h"

namespace codenorm {
namespace {

struct Token {
  std::string_view Parameter;
  std::string_view Frequency;  // behind the first "-"; empty without one
};

bool IsMostSequence(std::string_view code) {
  return code.starts_with('A');
}

Token TokenOf(std::string_view text) {
  const std::size_t dash = text.find('-');
  if (dash == std::string_view::npos) return {text, {}};
  return {text.substr(0, dash), text.substr(dash + 1)};
}

/// Each letter begins a token.
std::vector<Token> Cut(std::string_view code) {
  std::vector<Token> tokens;
  while (!code.empty()) {
    const auto next = std::find_if(code.begin() + 1, code.end(), IsLetter);
    const auto length = static_cast<std::size_t>(next - code.begin());
    tokens.push_back(TokenOf(code.substr(0, length)));
    code.remove_prefix(length);
  }
  return tokens;
}

/// Writes parameters and opens and closes brackets between them.
class NormWriter {
 public:
  void Append(std::string_view parameter, bool bracketed) {
    if (bracketed != _Open) _Norm += bracketed ? '(' : ')';
    _Open = bracketed;
    _Norm += parameter;
  }

  std::string Finish() {
    if (_Open) _Norm += ')';
    return std::move(_Norm);
  }

 private:
  std::string _Norm;
  bool _Open = false;
};

void RemoveFirst(std::string& text, char character) {
  const std::size_t position = text.find(character);
  if (position != std::string::npos) text.erase(position, 1);
}

}  // namespace

std::string NormOfMostCode(std::string_view code, std::string_view frequency) {
  if (!IsMostSequence(code)) return std::string(code);
  const std::string compact = WithoutBlanks(code);
  NormWriter writer;
  for (const Token& token : Cut(compact)) writer.Append(token.Parameter, token.Frequency == frequency);
  std::string norm = writer.Finish();
  // Looks at the two ends alone: with brackets at both ends but not around the whole, the first pair goes.
  if (norm.starts_with('(') && norm.ends_with(')') && frequency == "1") {
    RemoveFirst(norm, '(');
    RemoveFirst(norm, ')');
  }
  return norm;
}

std::string NormOfMostCode(std::string_view code, const KORListValKORBoolean& bracket_flags) {
  if (!IsMostSequence(code)) return std::string(code);
  const std::string compact = WithoutBlanks(code);
  NormWriter writer;
  int position = 0;
  for (const Token& token : Cut(compact)) {
    if (++position > bracket_flags.Size()) break;
    writer.Append(token.Parameter, bracket_flags[position] != 0);
  }
  return writer.Finish();
}

std::string MostCodeOfNorm(std::string_view norm, std::string_view frequency) {
  if (!norm.starts_with('A') && !norm.starts_with('(')) return std::string(norm);
  const std::string text = WithoutBlanks(norm);
  std::string code;
  std::string_view current = "1";
  const auto append_separated = [&code, &text](std::string_view parameter_frequency, std::size_t next) {
    code += '-';
    code += parameter_frequency;
    code += ' ';
    if (next < text.size()) code += text[next];
  };
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char character = text[index];
    if (character == '(') {
      // The parameter ahead of a bracket has the frequency 1, whatever holds.
      if (!code.empty()) append_separated("1", ++index);
      current = frequency;
    } else if (character == ')') {
      append_separated(current, ++index);
      current = "1";
      if (index == text.size()) return code;
    } else if (IsLetter(character) && index > 1) {
      append_separated(current, index);
    } else {
      code += character;
    }
  }
  return code + '-' + std::string(current);
}

}  // namespace codenorm
