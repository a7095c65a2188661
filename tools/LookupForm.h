// The form in which lookups compare codes.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// The code in upper case and without blanks.
std::string LookupForm(std::string_view code);

}  // namespace tool
