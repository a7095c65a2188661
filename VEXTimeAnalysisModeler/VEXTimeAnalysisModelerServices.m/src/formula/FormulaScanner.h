// Reads a formula text character by character. The grammar stands in FormulaEvaluator.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "formula/FormulaEvaluator.h"

namespace formula {

/// What a character can begin.
enum class Symbol : std::uint8_t {
  Space,
  Digit,
  Letter,
  OpenParenthesis,
  CloseParenthesis,
  Multiply,
  Divide,
  Plus,
  Minus,
  Separator,
  End,
  Unreadable,
};

/// Reads the tokens of one text from left to right. The text is only read and must outlive the scanner.
///
/// The classes of the ASCII characters are the same in every locale; those of 128 to 255 are asked of the process
/// locale.
class FormulaScanner {
 public:
  explicit FormulaScanner(const wchar_t* text) : _Position(text) {}

  /// Skips white space and tells what stands behind it, without taking it.
  Symbol Next() {
    Symbol symbol = SymbolOf(*_Position);
    while (symbol == Symbol::Space) symbol = SymbolOf(*++_Position);
    return symbol;
  }

  /// Takes one character.
  void Take() { ++_Position; }

  /// Takes the number whose first digit stands here.
  double TakeNumber();

  /// Takes the name whose first letter stands here. Its function, or null if there is none of that name.
  const FormulaFunction* TakeName();

  const wchar_t* Position() const { return _Position; }

 private:
  static Symbol SymbolOf(wchar_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    return code < AsciiSymbols.size() ? AsciiSymbols[code] : SymbolBeyondAscii(code);
  }
  static Symbol SymbolBeyondAscii(std::uint32_t code);
  bool IsDecimalCharacter(wchar_t character);

  static constexpr std::array<Symbol, 128> MakeAsciiSymbols();
  static const std::array<Symbol, 128> AsciiSymbols;

  const wchar_t* _Position;
  wchar_t _DecimalCharacter = L'\0';  // of the locale, once a number has asked for it
};

constexpr std::array<Symbol, 128> FormulaScanner::MakeAsciiSymbols() {
  std::array<Symbol, 128> symbols{};
  symbols.fill(Symbol::Unreadable);
  for (const char space : {' ', '\t', '\n', '\v', '\f', '\r'}) symbols[static_cast<std::size_t>(space)] = Symbol::Space;
  for (std::size_t digit = '0'; digit <= '9'; ++digit) symbols[digit] = Symbol::Digit;
  for (std::size_t letter = 'A'; letter <= 'Z'; ++letter) symbols[letter] = Symbol::Letter;
  for (std::size_t letter = 'a'; letter <= 'z'; ++letter) symbols[letter] = Symbol::Letter;
  symbols['('] = Symbol::OpenParenthesis;
  symbols[')'] = Symbol::CloseParenthesis;
  symbols['*'] = Symbol::Multiply;
  symbols['/'] = Symbol::Divide;
  symbols['+'] = Symbol::Plus;
  symbols['-'] = Symbol::Minus;
  symbols[','] = Symbol::Separator;
  symbols['_'] = Symbol::Separator;
  symbols['\0'] = Symbol::End;
  return symbols;
}

inline constexpr std::array<Symbol, 128> FormulaScanner::AsciiSymbols = FormulaScanner::MakeAsciiSymbols();

}  // namespace formula
