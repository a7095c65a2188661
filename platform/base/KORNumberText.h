// Numbers in texts, as formatted input and output of the C library reads and prints them in the "C" locale.
//
// Independent of the process locale and of the length of the text behind the number.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/base/KORExport.h"

namespace kornumber {

/// Reads as "%d": white space, a sign, decimal digits. A number beyond 64 bits counts as the nearest 64-bit number;
/// of a number beyond 32 bits the low 32 bits count. Nothing if there is no digit.
KORPLATFORM_API std::optional<int> ReadInteger(std::string_view text);

/// Reads as "%x": white space, a sign, "0x" or not, hexadecimal digits. A number beyond 64 bits counts as all bits
/// set; of a number beyond 32 bits the low 32 bits count. Nothing if there is no digit.
KORPLATFORM_API std::optional<int> ReadHexadecimal(std::string_view text);

/// Reads as "%le": white space, a sign, then a decimal or hexadecimal number, "inf", "infinity" or "nan".
/// Overflow gives an infinity, underflow the nearest denormal or zero. Nothing if no number stands there.
KORPLATFORM_API std::optional<double> ReadReal(std::string_view text);

/// Reads as ReadReal; nothing unless the number, with white space around it, is the whole text.
KORPLATFORM_API std::optional<double> ReadWholeReal(std::string_view text);

/// Prints as "%d".
KORPLATFORM_API std::string PrintInteger(int number);

/// Prints as "%g": six significant digits, no trailing zeros.
KORPLATFORM_API std::string PrintReal(double number);

/// Prints the shortest text that ReadReal reads back bit for bit; every NaN as "nan" or "-nan", by its sign.
KORPLATFORM_API std::string PrintExactReal(double number);

}  // namespace kornumber
