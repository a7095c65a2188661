// Numbers in texts, read and printed, against formatted input and output of the C library.
// Input: a text; its first eight bytes are printed as a real too, and the first four as an integer.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "fuzz/FuzzSupport.h"
#include "platform/base/KORNumberText.h"

namespace {

template <class Number>
std::optional<Number> Scan(const std::string& text, const char* format) {
  Number number{};
  if (std::sscanf(text.c_str(), format, &number) != 1) return std::nullopt;
  return number;
}

void CompareIntegers(const std::string& text) {
  const auto decimal = Scan<int>(text, "%d");
  fuzz::RequireSame(decimal.has_value(), kornumber::ReadInteger(text).has_value(), "integer is read");
  if (decimal) fuzz::RequireSame(*decimal, *kornumber::ReadInteger(text), "integer");
  const auto hexadecimal = Scan<int>(text, "%x");
  fuzz::RequireSame(hexadecimal.has_value(), kornumber::ReadHexadecimal(text).has_value(), "hexadecimal is read");
  if (hexadecimal) fuzz::RequireSame(*hexadecimal, *kornumber::ReadHexadecimal(text), "hexadecimal");
}

void CompareReals(const std::string& text) {
  const auto real = Scan<double>(text, "%le");
  fuzz::RequireSame(real.has_value(), kornumber::ReadReal(text).has_value(), "real is read");
  if (real) fuzz::RequireSameNumber(*real, *kornumber::ReadReal(text), "real");
  if (text.find('(') != std::string::npos) return;  // what strtod takes behind "nan" belongs to no number here
  char* end = nullptr;
  const double whole = std::strtod(text.c_str(), &end);
  const bool is_whole = real && end[std::strspn(end, " \t\n\v\f\r")] == '\0';
  fuzz::RequireSame(is_whole, kornumber::ReadWholeReal(text).has_value(), "whole real is read");
  if (is_whole) fuzz::RequireSameNumber(whole, *kornumber::ReadWholeReal(text), "whole real");
}

template <class Number>
void ComparePrinted(const std::uint8_t* data, std::size_t size, const char* format, std::string (*print)(Number)) {
  Number number{};
  if (size < sizeof number) return;
  std::memcpy(&number, data, sizeof number);
  std::array<char, 64> printed{};
  std::snprintf(printed.data(), printed.size(), format, number);
  fuzz::RequireSame(std::string(printed.data()), print(number), "print");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::CText(fuzz::BytesOf(data, size));
  CompareIntegers(text);
  CompareReals(text);
  ComparePrinted<int>(data, size, "%d", kornumber::PrintInteger);
  ComparePrinted<double>(data, size, "%g", kornumber::PrintReal);
  return 0;
}
