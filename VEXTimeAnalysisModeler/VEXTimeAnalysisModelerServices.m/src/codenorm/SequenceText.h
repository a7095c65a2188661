// What the sequence texts of MOST and MODAPTS are made of: letters with digits behind them, one byte a character.
#pragma once

#include <string>
#include <string_view>

namespace codenorm {

/// True for the letters "A" to "Z" and "a" to "z". Bytes of other characters are neither letters nor digits.
bool IsLetter(char byte);
bool IsDigit(char byte);

std::string WithoutBlanks(std::string_view text);

/// True if the letters of a code do not all stand together: a sequence of parameters, not one plain code.
bool IsSequence(std::string_view code);

}  // namespace codenorm
