// Numbers in texts, as formatted input and output of the C library reads and prints them in the "C" locale.
//
//   integer     = [ sign ] digit { digit }
//   hexadecimal = [ sign ] [ "0x" ] { hexdigit }                  with at least a digit, the "0" of "0x" included
//   real        = [ sign ] ( decimal | "0x" hexdecimal | "inf" | "infinity" | "nan" )
//   decimal     = digits with at most one "." among them [ "e" [ sign ] { digit } ]
//   hexdecimal  = hexdigits with at most one "." among them [ "p" [ sign ] { digit } ]
//
// Input first takes the longest text of that shape and then reads the number at its head, so that "1e+" reads 1 and
// "0x." reads 0, while "0x" and "infi" read nothing. Letters count in both cases.
#include "platform/base/KORNumberText.h"

#include <locale.h>
#include <stdlib.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace kornumber {

namespace {

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

char Lower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool IsHexadecimalDigit(char character) {
  return IsDigit(character) || (Lower(character) >= 'a' && Lower(character) <= 'f');
}

bool IsSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

// Walks along a text; behind its end stands a NUL, which is part of no number.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : _Text(text) {}

  char Next() const { return _Offset < _Text.size() ? _Text[_Offset] : '\0'; }
  std::size_t Offset() const { return _Offset; }
  std::string_view From(std::size_t offset) const { return _Text.substr(offset, _Offset - offset); }
  void Advance() { ++_Offset; }

  void SkipSpace() {
    while (IsSpace(Next())) Advance();
  }

  // Takes a sign if one stands here; true for a minus.
  bool TakeSign() {
    const char sign = Next();
    if (sign == '+' || sign == '-') Advance();
    return sign == '-';
  }

  // Takes `letter`, given in lower case, in either case.
  bool Take(char letter) {
    if (Lower(Next()) != letter) return false;
    Advance();
    return true;
  }

  bool Take(std::string_view word) {
    for (const char letter : word) {
      if (!Take(letter)) return false;
    }
    return true;
  }

 private:
  std::string_view _Text;
  std::size_t _Offset = 0;
};

// A real number at the head of a text: its value, and where it ends.
struct Real {
  double Value;
  std::size_t End;
};

int LowBits(std::uint64_t number) {
  return static_cast<int>(static_cast<std::uint32_t>(number));
}

// The nearest real number of a text that is one, by the C library: the slow way, for the rare shapes.
Real ReadByLibrary(std::string_view number, std::size_t start) {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  const std::string terminated(number);
  char* end = nullptr;
  const double value = strtod_l(terminated.c_str(), &end, plain);
  return {value, start + static_cast<std::size_t>(end - terminated.c_str())};
}

// Takes the digits of a number without its sign, to the end of what belongs to it; false if that is nothing.
bool TakeDigits(Scanner& scanner, bool hexadecimal, bool any_digit) {
  const std::size_t start = scanner.Offset();
  bool any_dot = false;
  for (;; scanner.Advance()) {
    const char next = scanner.Next();
    if (IsDigit(next) || (hexadecimal && IsHexadecimalDigit(next))) {
      any_digit = true;
    } else if (next == '.' && !any_dot) {
      any_dot = true;
    } else {
      break;
    }
  }
  const bool anything = any_digit || scanner.Offset() > start;
  if (any_digit && scanner.Take(hexadecimal ? 'p' : 'e')) {
    scanner.TakeSign();
    while (IsDigit(scanner.Next())) scanner.Advance();
  }
  return anything;
}

std::optional<Real> ReadNumber(Scanner& scanner) {
  const std::size_t start = scanner.Offset();
  const bool zero = scanner.Take('0');
  const bool hexadecimal = zero && scanner.Take('x');
  if (!TakeDigits(scanner, hexadecimal, zero && !hexadecimal)) return std::nullopt;
  const std::string_view number = scanner.From(start);
  if (hexadecimal) return ReadByLibrary(number, start);

  double value = 0.0;
  const auto [end, fault] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (fault == std::errc::result_out_of_range) return ReadByLibrary(number, start);
  if (fault != std::errc()) return std::nullopt;
  return Real{value, start + static_cast<std::size_t>(end - number.data())};
}

std::optional<Real> ReadUnsigned(Scanner& scanner) {
  if (Lower(scanner.Next()) == 'n') {
    if (!scanner.Take("nan")) return std::nullopt;
    return Real{std::numeric_limits<double>::quiet_NaN(), scanner.Offset()};
  }
  if (Lower(scanner.Next()) == 'i') {
    if (!scanner.Take("inf")) return std::nullopt;
    if (Lower(scanner.Next()) == 'i' && !scanner.Take("inity")) return std::nullopt;
    return Real{std::numeric_limits<double>::infinity(), scanner.Offset()};
  }
  return ReadNumber(scanner);
}

std::optional<Real> ReadSigned(std::string_view text) {
  Scanner scanner(text);
  scanner.SkipSpace();
  const bool negative = scanner.TakeSign();
  std::optional<Real> real = ReadUnsigned(scanner);
  if (real && negative) real->Value = -real->Value;
  return real;
}

}  // namespace

std::optional<int> ReadInteger(std::string_view text) {
  Scanner scanner(text);
  scanner.SkipSpace();
  const bool negative = scanner.TakeSign();
  if (!IsDigit(scanner.Next())) return std::nullopt;

  const std::uint64_t greatest = std::uint64_t{std::numeric_limits<std::int64_t>::max()} + (negative ? 1 : 0);
  std::uint64_t number = 0;
  for (; IsDigit(scanner.Next()); scanner.Advance()) {
    const auto digit = static_cast<std::uint64_t>(scanner.Next() - '0');
    if (number > (greatest - digit) / 10) return LowBits(negative ? 0 - greatest : greatest);  // however many follow
    number = number * 10 + digit;
  }
  return LowBits(negative ? 0 - number : number);
}

std::optional<int> ReadHexadecimal(std::string_view text) {
  Scanner scanner(text);
  scanner.SkipSpace();
  const bool negative = scanner.TakeSign();
  const bool zero = scanner.Take('0');
  if (zero) scanner.Take('x');
  if (!zero && !IsHexadecimalDigit(scanner.Next())) return std::nullopt;

  std::uint64_t number = 0;
  bool beyond = false;
  for (; IsHexadecimalDigit(scanner.Next()); scanner.Advance()) {
    const char digit = Lower(scanner.Next());
    beyond = beyond || number >> 60 != 0;
    number = number << 4 | static_cast<std::uint64_t>(IsDigit(digit) ? digit - '0' : digit - 'a' + 10);
  }
  if (beyond) return LowBits(~std::uint64_t{0});
  return LowBits(negative ? 0 - number : number);
}

std::optional<double> ReadReal(std::string_view text) {
  const std::optional<Real> real = ReadSigned(text);
  return real ? std::optional(real->Value) : std::nullopt;
}

std::optional<double> ReadWholeReal(std::string_view text) {
  const std::optional<Real> real = ReadSigned(text);
  if (!real) return std::nullopt;
  for (const char behind : text.substr(real->End)) {
    if (!IsSpace(behind)) return std::nullopt;
  }
  return real->Value;
}

std::string PrintInteger(int number) {
  std::array<char, 16> digits{};
  const auto [end, fault] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), end};
}

std::string PrintReal(double number) {
  // The longest text is that of a negative number with a three-digit exponent: -1.23457e-300.
  std::array<char, 32> digits{};
  const auto [end, fault] =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 6);
  return {digits.data(), end};
}

std::string PrintExactReal(double number) {
  // The longest text has 17 digits and a three-digit exponent: -1.2345678901234567e-300.
  std::array<char, 32> digits{};
  const auto [end, fault] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), end};
}

}  // namespace kornumber
