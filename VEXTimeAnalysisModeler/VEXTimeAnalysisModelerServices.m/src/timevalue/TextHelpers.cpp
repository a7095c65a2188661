// Checks and cuts of number and parameter texts.
#include "timevalue/TextHelpers.h"

#include <algorithm>
#include <cstddef>

#include "platform/system/KORSystem.h"

namespace timevalue {
namespace {

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// Number of bytes of the UTF-8 character that `text` begins with.
std::size_t FirstCharacterSize(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0u) == 0x80u) ++size;
  return size;
}

}  // namespace

bool IsReal(const KORUnicodeString& text) {
  KORUnicodeString decimal_character;
  (void)KORSysGetLocalDecimalChar(decimal_character);  // after a failure it is empty, and digits alone pass
  std::string_view rest = text.Bytes();
  while (!rest.empty()) {
    if (IsDigit(rest.front())) {
      rest.remove_prefix(1);
    } else if (!decimal_character.IsEmpty() && rest.starts_with(decimal_character.Bytes())) {
      rest.remove_prefix(decimal_character.Bytes().size());
    } else {
      return false;
    }
  }
  return true;
}

bool IsInteger(const KORUnicodeString& text) {
  return std::ranges::all_of(text.Bytes(), IsDigit);
}

KORListValKORUnicodeString CutAtSeparator(std::string_view separator, std::string_view text) {
  KORListValKORUnicodeString parameters;
  std::size_t position = separator.empty() ? std::string_view::npos : text.find(separator);
  if (position == std::string_view::npos) {
    if (!text.empty()) parameters.Append(KORUnicodeString(text));
    return parameters;
  }
  while (position != std::string_view::npos) {
    parameters.Append(KORUnicodeString(text.substr(0, position)));
    text.remove_prefix(position + FirstCharacterSize(text.substr(position)));
    position = text.find(separator);
  }
  parameters.Append(KORUnicodeString(text));
  return parameters;
}

void SplitColor(const KORUnicodeString& color, int& red, int& green, int& blue) {
  int channels = 0;
  (void)color.ConvertToNum(channels, "%x");  // an unreadable text leaves the 0, which is no colour here
  if (channels <= 0) return;
  red = (channels >> 16) & 0xFF;
  green = (channels >> 8) & 0xFF;
  blue = channels & 0xFF;
}

}  // namespace timevalue
