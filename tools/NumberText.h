// Numbers as the tool prints them.
#pragma once

#include <string>

namespace tool {

/// The shortest text that reads back as the same number; "nan", "inf" and "-inf" for what is none.
std::string NumberText(double number);

}  // namespace tool
