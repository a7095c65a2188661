// The stream that stands for an analysis of the system "STD" where no stored one is at hand.
#pragma once

#include "platform/base/KORUnicodeString.h"

namespace exchange {

/// The default stream: three leading fields, attributes, the header row, and ten lines. It has no separator and no line
/// feed at its end.
KORUnicodeString DefaultStream();

}  // namespace exchange
