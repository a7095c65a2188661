// What the sequence texts of MOST and MODAPTS are made of.
#include "codenorm/SequenceText.h"

#include <algorithm>
#include <iterator>

namespace codenorm {

bool IsLetter(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}
bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

std::string WithoutBlanks(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  std::ranges::copy_if(text, std::back_inserter(kept), [](char byte) { return byte != ' '; });
  return kept;
}

/// The letters, gathered in order, stand in the code as they are exactly if nothing stands between them.
bool IsSequence(std::string_view code) {
  const auto first = std::ranges::find_if(code, IsLetter);
  const auto behind_run = std::find_if_not(first, code.end(), IsLetter);
  return std::find_if(behind_run, code.end(), IsLetter) != code.end();
}

}  // namespace codenorm
