// MOST sequences between norm format and code form.
//
//   code form   = parameter "-" frequency { " " parameter "-" frequency }
//   norm format = { parameter | "(" { parameter } ")" }
//   parameter   = letter { digit }
//
// The conversions hold no table of sequence models and check no index; a text that is not of the form goes through
// character by character.
#pragma once

#include <string>
#include <string_view>

#include "platform/base/KORList.h"

namespace codenorm {

/// Code form to norm format. `frequency` is the frequency of the line as printed; a parameter with exactly that
/// frequency stands in a bracket. A bracket around the whole text goes away for the frequency "1".
std::string NormOfMostCode(std::string_view code, std::string_view frequency);

/// The same with one flag per parameter; parameters behind the last flag are dropped.
std::string NormOfMostCode(std::string_view code, const KORListValKORBoolean& bracket_flags);

/// Norm format to code form. `frequency` goes on the parameters in brackets, "1" on the others.
std::string MostCodeOfNorm(std::string_view norm, std::string_view frequency);

}  // namespace codenorm
