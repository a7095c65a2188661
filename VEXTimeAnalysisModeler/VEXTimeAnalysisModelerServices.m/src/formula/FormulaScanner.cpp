// Reads the numbers and names of a formula text.
#include "formula/FormulaScanner.h"

#include <cctype>
#include <cwchar>
#include <string_view>

#include "platform/base/KORLocale.h"

namespace formula {
namespace {

bool IsDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

// Powers of ten that a double holds exactly.
constexpr std::array ExactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                      1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// As many decimal digits stay below 2^53, so that the digits are an exact double.
constexpr int ExactDigits = 15;

// The names of the function table with their lengths, so that most are told apart by these.
struct NamedFunction {
  std::wstring_view Name;
  const FormulaFunction* Function;
};

const std::array<NamedFunction, FormulaFunctionCount>& NamedFunctions() {
  static const auto functions = [] {
    std::array<NamedFunction, FormulaFunctionCount> named{};
    for (std::size_t slot = 0; slot < FormulaFunctionCount && FormulaFunctions()[slot].Function != nullptr; ++slot) {
      named[slot] = {FormulaFunctions()[slot].Name, &FormulaFunctions()[slot]};
    }
    return named;
  }();
  return functions;
}

}  // namespace

// The character classes of the process locale end at 255.
Symbol FormulaScanner::SymbolBeyondAscii(std::uint32_t code) {
  if (code > 255) return Symbol::Unreadable;
  const int character = static_cast<int>(code);
  if (std::isspace(character) != 0) return Symbol::Space;
  if (std::isalpha(character) != 0) return Symbol::Letter;
  return Symbol::Unreadable;
}

bool FormulaScanner::IsDecimalCharacter(wchar_t character) {
  if (_DecimalCharacter == L'\0') _DecimalCharacter = KORLocalDecimalCharacter();
  return character != L'\0' && character == _DecimalCharacter;
}

/// Numbers of up to 15 digits with a fraction, the common case, come out of one exact division, which rounds as wcstod
/// does; everything else is left to wcstod.
double FormulaScanner::TakeNumber() {
  const wchar_t* position = _Position;
  std::int64_t digits = 0;
  int digit_count = 0;
  std::size_t fraction_count = 0;
  for (; IsDigit(*position) && digit_count <= ExactDigits; ++position, ++digit_count) {
    digits = digits * 10 + (*position - L'0');
  }
  if (IsDecimalCharacter(*position)) {
    for (++position; IsDigit(*position) && digit_count <= ExactDigits; ++position, ++digit_count, ++fraction_count) {
      digits = digits * 10 + (*position - L'0');
    }
  }
  if (digit_count <= ExactDigits && SymbolOf(*position) != Symbol::Letter) {  // a letter may be an exponent or a base
    _Position = position;
    const auto whole = static_cast<double>(digits);
    return fraction_count == 0 ? whole : whole / ExactPowersOfTen[fraction_count];
  }
  wchar_t* end = nullptr;
  const double value = std::wcstod(_Position, &end);
  _Position = end;
  return value;
}

const FormulaFunction* FormulaScanner::TakeName() {
  const wchar_t* begin = _Position;
  Symbol symbol = Symbol::Letter;
  // Beyond ASCII no locale has digits.
  while (symbol == Symbol::Letter || symbol == Symbol::Digit) symbol = SymbolOf(*++_Position);
  const std::wstring_view name(begin, static_cast<std::size_t>(_Position - begin));
  for (const NamedFunction& candidate : NamedFunctions()) {
    if (candidate.Function == nullptr) return nullptr;
    if (candidate.Name.size() == name.size() && candidate.Name == name) return candidate.Function;
  }
  return nullptr;
}

}  // namespace formula
