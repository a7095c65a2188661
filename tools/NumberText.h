// Numbers as the tool prints them.
#pragma once

#include <string>

namespace tool {

/// The shortest text that reads back as the same number; "nan", "inf" and "-inf" for what is none.
std::string NumberText(double number);

/// The same without an exponent, below 1e15.
std::string PlainNumberText(double number);

/// The number that reads as the decimals of a rounded one: rounding puts whole part and decimals together in binary, so
/// that 1.6236 comes out as 1.6236000000000002.
double NearestDecimal(double number, int decimals);

}  // namespace tool
