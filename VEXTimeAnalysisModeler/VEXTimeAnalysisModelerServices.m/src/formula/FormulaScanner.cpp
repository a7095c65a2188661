// Cuts a formula text into tokens.
#include "formula/FormulaScanner.h"

#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string_view>

#include "platform/base/KORLocale.h"

namespace formula {
namespace {

using Kind = FormulaTokenKind;

// The character classes of the process locale end at 255.
bool IsByte(wchar_t character) {
  return character >= 0 && character <= 255;
}
bool IsSpace(wchar_t character) {
  return IsByte(character) && std::isspace(static_cast<int>(character)) != 0;
}
bool IsLetter(wchar_t character) {
  return IsByte(character) && std::isalpha(static_cast<int>(character)) != 0;
}
bool IsLetterOrDigit(wchar_t character) {
  return IsByte(character) && std::isalnum(static_cast<int>(character)) != 0;
}
bool IsDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

Scanned TokenOf(Kind kind, double value = 0.0) {
  return {Scanned::Sort::Token, {kind, value}};
}

// Powers of ten that a double holds exactly.
constexpr std::array ExactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                      1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// As many decimal digits stay below 2^53, so that the digits are an exact double.
constexpr int ExactDigits = 15;

}  // namespace

FormulaScanner::FormulaScanner(const wchar_t* text) : _Position(text), _DecimalCharacter(KORLocalDecimalCharacter()) {
}

void FormulaScanner::SkipSpace() {
  while (IsSpace(*_Position)) ++_Position;
}

bool FormulaScanner::SkipOpenParenthesis() {
  SkipSpace();
  if (*_Position != L'(') return false;
  ++_Position;
  return true;
}

Scanned FormulaScanner::Next() {
  SkipSpace();
  const wchar_t character = *_Position;
  if (IsDigit(character)) return TokenOf(Kind::Number, ReadNumber());
  if (character == L'\0') return TokenOf(Kind::End);
  if (IsLetter(character)) return {Scanned::Sort::Name, {}, ReadName()};
  ++_Position;
  switch (character) {
    case L'(':
      return TokenOf(Kind::OpenParenthesis);
    case L')':
      return TokenOf(Kind::CloseParenthesis);
    case L'*':
      return TokenOf(Kind::MultiplicativeOperator, MultiplyMark);
    case L'/':
      return TokenOf(Kind::MultiplicativeOperator, DivideMark);
    case L'+':
      return TokenOf(Kind::AdditiveOperator, PlusMark);
    case L'-':
      return TokenOf(Kind::AdditiveOperator, MinusMark);
    case L',':
    case L'_':
      return TokenOf(Kind::Separator);
    default:
      --_Position;
      return {Scanned::Sort::Unreadable, {}};
  }
}

/// Numbers of up to 15 digits with a fraction, the common case, come out of one exact division, which rounds as wcstod
/// does; everything else is left to wcstod.
double FormulaScanner::ReadNumber() {
  const wchar_t* position = _Position;
  std::uint64_t digits = 0;
  int digit_count = 0;
  std::size_t fraction_count = 0;
  for (; IsDigit(*position) && digit_count <= ExactDigits; ++position, ++digit_count) {
    digits = digits * 10 + static_cast<std::uint64_t>(*position - L'0');
  }
  if (*position == _DecimalCharacter && _DecimalCharacter != L'\0') {
    for (++position; IsDigit(*position) && digit_count <= ExactDigits; ++position, ++digit_count, ++fraction_count) {
      digits = digits * 10 + static_cast<std::uint64_t>(*position - L'0');
    }
  }
  if (digit_count <= ExactDigits && !IsLetter(*position)) {  // a letter may be an exponent or a base
    _Position = position;
    return static_cast<double>(digits) / ExactPowersOfTen[fraction_count];
  }
  wchar_t* end = nullptr;
  const double value = std::wcstod(_Position, &end);
  _Position = end;
  return value;
}

const FormulaFunction* FormulaScanner::ReadName() {
  const wchar_t* begin = _Position;
  while (IsLetterOrDigit(*_Position)) ++_Position;
  const std::wstring_view name(begin, static_cast<std::size_t>(_Position - begin));
  for (const FormulaFunction& candidate : FormulaFunctions()) {
    if (candidate.Function == nullptr) break;
    if (candidate.Name == name) return &candidate;
  }
  return nullptr;
}

}  // namespace formula
