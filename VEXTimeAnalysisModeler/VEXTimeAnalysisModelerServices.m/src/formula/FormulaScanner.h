// Reads a formula text character by character. The grammar stands in FormulaEvaluator.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

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
  ///
  /// Numbers of up to 15 digits with a fraction, the common case, come out of one exact division, which rounds as
  /// wcstod does; everything else is left to wcstod.
  double TakeNumber() {
    std::uint64_t digits = 0;  // wraps around where there are too many of them
    const wchar_t* position = TakeDigits(_Position, digits);
    auto digit_count = position - _Position;
    std::ptrdiff_t fraction_count = 0;
    if (IsDecimalCharacter(*position)) {
      const wchar_t* fraction = ++position;
      position = TakeDigits(fraction, digits);
      fraction_count = position - fraction;
      digit_count += fraction_count;
    }
    // A letter may be an exponent or a base.
    if (digit_count > ExactDigits || SymbolOf(*position) == Symbol::Letter) return TakeNumberByLibrary();
    _Position = position;
    const auto whole = static_cast<double>(digits);
    return fraction_count == 0 ? whole : whole / ExactPowersOfTen[static_cast<std::size_t>(fraction_count)];
  }

  /// Takes the name whose first letter stands here. Its function, or null if there is none of that name.
  const FormulaFunction* TakeName() {
    const wchar_t* begin = _Position;
    Symbol symbol = Symbol::Letter;
    // Beyond ASCII no locale has digits.
    while (symbol == Symbol::Letter || symbol == Symbol::Digit) symbol = SymbolOf(*++_Position);
    return FindFormulaFunction({begin, static_cast<std::size_t>(_Position - begin)});
  }

  const wchar_t* Position() const { return _Position; }

 private:
  static Symbol SymbolOf(wchar_t character) {
    const auto code = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<wchar_t>>(character));
    return code < AsciiSymbols.size() ? AsciiSymbols[code] : SymbolBeyondAscii(code);
  }
  static Symbol SymbolBeyondAscii(std::uint32_t code);

  /// No decimal character is a letter, an operator or white space.
  bool IsDecimalCharacter(wchar_t character) {
    const Symbol symbol = SymbolOf(character);
    if (symbol != Symbol::Unreadable && symbol != Symbol::Separator) return false;
    if (_DecimalCharacter == L'\0') _DecimalCharacter = LocalDecimalCharacter();
    return character == _DecimalCharacter;
  }
  static wchar_t LocalDecimalCharacter();

  /// Appends the decimal digits at `position` to a number; returns where they end.
  static const wchar_t* TakeDigits(const wchar_t* position, std::uint64_t& digits) {
    for (; *position >= L'0' && *position <= L'9'; ++position) {
      digits = digits * 10 + static_cast<std::uint64_t>(*position - L'0');
    }
    return position;
  }
  double TakeNumberByLibrary();

  // As many decimal digits stay below 2^53, so that the digits are an exact double; so are these powers of ten.
  static constexpr int ExactDigits = 15;
  static constexpr std::array ExactPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

  static constexpr std::array<Symbol, 128> MakeAsciiSymbols();
  static const std::array<Symbol, 128> AsciiSymbols;

  const wchar_t* _Position;
  wchar_t _DecimalCharacter = L'\0';  // of the locale, once a number has asked for it
};

constexpr std::array<Symbol, 128> FormulaScanner::MakeAsciiSymbols() {
  std::array<Symbol, 128> symbols{};
  symbols.fill(Symbol::Unreadable);
  constexpr std::array<std::size_t, 6> spaces{' ', '\t', '\n', '\v', '\f', '\r'};
  for (const std::size_t space : spaces) symbols[space] = Symbol::Space;
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
