// Flaws of a code pattern that show in its text: where it does not mean what it says.
#pragma once

#include <string_view>
#include <vector>

#include "tools/PatternText.h"
#include "tools/check/Finding.h"

namespace tool {

/// parts_with_plus  true in the system "SAM", where "+" joins the parts of a code and a literal stands for one part
std::vector<Flaw> FindPatternFlaws(const std::vector<PatternToken>& tokens, bool parts_with_plus);

}  // namespace tool
