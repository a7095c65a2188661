// Numbers as the tool prints them.
#pragma once

#include <string>

namespace tool {

/// The shortest text that reads back as the same number; "nan", "inf" and "-inf" for what is none.
std::string NumberText(double number);

/// The same without an exponent, below 1e15.
std::string PlainNumberText(double number);

}  // namespace tool
