// Draws code patterns from their grammar, with now and then a slip of the pen, and codes that lie near the pattern.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace support {

/// One pattern and any number of codes near it. Of the pattern and of each code about a part is changed by dropping,
/// doubling or swapping characters, so that near misses are as frequent as matches.
class RandomPattern {
 public:
  /// chain: parts of the codes are joined by "+".
  RandomPattern(std::mt19937& generator, bool chain) : _Generator(generator), _Chain(chain) {
    const int length = Below(5) + 1;
    for (int item = 0; item < length; ++item) AppendItem(3);
    if (OneIn(4)) Mutate(_Pattern, "()|\"%$[],x5A \n");
  }

  const std::string& Pattern() const { return _Pattern; }

  /// A code that follows the pattern's literals and parameters from left to right, with random choices.
  std::string Code() {
    std::string code;
    for (std::size_t i = 0; i < _Pattern.size(); ++i) {
      const char character = _Pattern[i];
      if (character == '"') {
        const std::size_t end = std::min(_Pattern.find('"', i + 1), _Pattern.size());
        if (!OneIn(4)) AppendPart(code, _Pattern.substr(i + 1, end - i - 1));
        i = end;
      } else if (character == '%' || character == '$') {
        if (!OneIn(5)) AppendPart(code, Number(character == '$'));
        if (i + 1 < _Pattern.size() && _Pattern[i + 1] == '[') i = std::min(_Pattern.find(']', i), _Pattern.size());
      } else if (character == '|' && OneIn(2)) {
        i = SkipAlternative(i);
      }
    }
    if (OneIn(5)) Mutate(code, "AB15.-+X0e");
    return code;
  }

 private:
  int Below(int bound) { return static_cast<int>(_Generator() % static_cast<unsigned>(bound)); }
  bool OneIn(int count) { return Below(count) == 0; }
  char AnyOf(std::string_view characters) {
    return characters[static_cast<std::size_t>(Below(static_cast<int>(characters.size())))];
  }

  void AppendItem(int depth) {
    const int kind = Below(10);
    if (kind < 3) {
      AppendLiteral();
    } else if (kind < 6) {
      AppendParameter();
    } else if (kind == 6) {
      _Pattern += "\"\"";
    } else if (depth > 0) {
      AppendGroup(depth - 1);
    } else {
      AppendLiteral();
    }
  }

  void AppendLiteral() {
    _Pattern += '"';
    const int length = Below(3) + 1;
    for (int character = 0; character < length; ++character) _Pattern += AnyOf("AAAB15-");
    _Pattern += '"';
  }

  void AppendParameter() {
    _Pattern += OneIn(2) ? '%' : '$';
    if (OneIn(2)) {
      _Pattern += '[' + (OneIn(8) ? std::string("x") : std::to_string(Below(12) - 3)) + ',' +
                  (OneIn(8) ? std::string() : std::to_string(Below(30))) + ']';
    } else if (OneIn(12)) {
      _Pattern += "[4]";
    }
  }

  void AppendGroup(int depth) {
    _Pattern += '(';
    const bool alternatives = !OneIn(3);
    const int length = Below(4);
    for (int item = 0; item < length; ++item) {
      if (alternatives && !(item == 0 && OneIn(5))) _Pattern += '|';
      AppendItem(depth);
    }
    if (alternatives && OneIn(3)) _Pattern += "|\"\"";
    _Pattern += ')';
  }

  void AppendPart(std::string& code, const std::string& part) {
    if (_Chain && !code.empty() && !OneIn(6) && code.back() != '+') code += '+';
    code += part;
    if (_Chain && OneIn(10)) code += '+';
  }

  std::string Number(bool real) {
    switch (Below(real ? 10 : 8)) {
      case 0:
        return "0" + std::to_string(Below(20));
      case 1:
        return "-" + std::to_string(Below(20));
      case 2:
        return std::to_string(Below(3000000));
      case 3:
        return "99999999999999999999";
      case 8:
        return std::to_string(Below(30)) + "." + std::to_string(Below(1000));
      case 9:
        return "." + std::to_string(Below(100));
      default:
        return std::to_string(Below(25));
    }
  }

  // Behind a mark: from here to just ahead of the next mark or end of the group.
  std::size_t SkipAlternative(std::size_t from) const {
    const std::size_t next = _Pattern.find_first_of("|)", from + 1);
    return next == std::string::npos ? _Pattern.size() : next - 1;
  }

  void Mutate(std::string& text, std::string_view alphabet) {
    const int changes = Below(2) + 1;
    for (int change = 0; change < changes; ++change) {
      const auto at = static_cast<std::size_t>(Below(static_cast<int>(text.size()) + 1));
      if (OneIn(3) || at >= text.size()) {
        text.insert(at, 1, AnyOf(alphabet));
      } else if (OneIn(2)) {
        text.erase(at, 1);
      } else {
        text[at] = AnyOf(alphabet);
      }
    }
  }

  std::mt19937& _Generator;
  bool _Chain;
  std::string _Pattern;
};

}  // namespace support
