// MODAPTS sequences as a user writes them into code form.
//
//   norm text  = { parameter | blank | [ multiplier ] "(" { parameter } ")" }
//   multiplier = digit { digit | "*" digit | "/" digit }
//   parameter  = letter digit
//   code form  = parameter "-" frequency { " " parameter "-" frequency }
//
// A second digit behind a parameter does not belong to it, and is lost unless a bracket makes it a multiplier.
#pragma once

#include <string_view>

#include "platform/base/KORUnicodeString.h"

namespace codenorm {

/// The code form; the text itself if it is no sequence; "0" if it holds a character that has no place in it.
/// `system` is the motion-time system in force for the value of a multiplier.
KORUnicodeString ModaptsCodeOfNorm(const KORUnicodeString& norm, std::string_view system);

}  // namespace codenorm
