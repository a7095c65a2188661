// The text type of the platform.
#include "platform/base/KORUnicodeString.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/base/KORNumberText.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUtf8.h"
#include "platform/base/KORWindows1252.h"

namespace {

std::string AsUtf8(std::string_view bytes) {
  if (korutf8::IsValid(bytes)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 4);
  for (const char byte : bytes) {
    korutf8::AppendCharacter(text, Windows1252Character(static_cast<unsigned char>(byte)));
  }
  return text;
}

// Replaces every character of `bytes` by its image: byte by byte in ASCII, else by the tables of Unicode.
template <class AsciiMap, class UnicodeMap>
void MapCharacters(std::string& bytes, AsciiMap map_ascii, UnicodeMap map_unicode) {
  if (korutf8::IsAscii(bytes)) {
    std::transform(bytes.begin(), bytes.end(), bytes.begin(), map_ascii);
    return;
  }
  std::string mapped;
  mapped.reserve(bytes.size());
  for (std::size_t offset = 0; offset < bytes.size();) {
    const char32_t character = korutf8::ReadCharacter(bytes, offset);
    korutf8::AppendCharacter(mapped, static_cast<char32_t>(map_unicode(static_cast<utf8proc_int32_t>(character))));
  }
  bytes = std::move(mapped);
}

// The part of the characters `position` to `position` + `length` that lies at 0 or behind: its start and its length.
std::pair<int, int> ClipToText(int position, int length) {
  if (position >= 0) return {position, std::max(length, 0)};
  const std::int64_t end = std::int64_t{position} + length;
  return {0, static_cast<int>(std::max<std::int64_t>(end, 0))};
}

template <class Number>
long Deliver(const std::optional<Number>& read, Number& number) {
  if (!read) return E_FAIL;
  number = *read;
  return S_OK;
}

}  // namespace

KORUnicodeString::KORUnicodeString(const char* bytes)
    : KORUnicodeString(bytes == nullptr ? std::string_view() : std::string_view(bytes)) {
}

KORUnicodeString::KORUnicodeString(std::string_view bytes) : _Bytes(AsUtf8(bytes)) {
}

KORUnicodeString::KORUnicodeString(std::wstring_view characters) {
  _Bytes.reserve(characters.size());
  for (const wchar_t character : characters) {
    korutf8::AppendCharacter(_Bytes, static_cast<char32_t>(character));
  }
}

std::wstring KORUnicodeString::ConvertToWideChar() const {
  if (IsAscii()) return {_Bytes.begin(), _Bytes.end()};
  std::wstring characters;
  characters.reserve(_Bytes.size());
  for (std::size_t offset = 0; offset < _Bytes.size();) {
    characters += static_cast<wchar_t>(korutf8::ReadCharacter(_Bytes, offset));
  }
  return characters;
}

int KORUnicodeString::GetLengthInChar() const {
  return CharacterPosition(_Bytes.size());
}

KORUnicodeString KORUnicodeString::SubString(int position, int length) const {
  const auto [start, count] = ClipToText(position, length);
  const std::size_t begin = ByteOffset(start);
  const std::string_view rest = Bytes().substr(begin);
  KORUnicodeString part;
  part._Bytes = rest.substr(0, korutf8::OffsetOf(rest, static_cast<std::size_t>(count)));
  return part;
}

int KORUnicodeString::SearchSubString(const KORUnicodeString& text, int from) const {
  if (text.IsEmpty()) return -1;
  const std::size_t found = _Bytes.find(text._Bytes, ByteOffset(from));
  return found == std::string::npos ? -1 : CharacterPosition(found);
}

int KORUnicodeString::SearchSubStringBackward(const KORUnicodeString& text) const {
  if (text.IsEmpty()) return -1;
  const std::size_t found = _Bytes.rfind(text._Bytes);
  return found == std::string::npos ? -1 : CharacterPosition(found);
}

void KORUnicodeString::ReplaceAll(const KORUnicodeString& old_text, const KORUnicodeString& new_text) {
  if (old_text.IsEmpty()) return;
  std::size_t found = _Bytes.find(old_text._Bytes);
  if (found == std::string::npos) return;
  std::string replaced;
  std::size_t copied = 0;
  for (; found != std::string::npos; found = _Bytes.find(old_text._Bytes, copied)) {
    replaced.append(_Bytes, copied, found - copied).append(new_text._Bytes);
    copied = found + old_text._Bytes.size();
  }
  replaced.append(_Bytes, copied);
  _Bytes = std::move(replaced);
}

void KORUnicodeString::Remove(int position, int length) {
  const auto [start, count] = ClipToText(position, length);
  const std::size_t begin = ByteOffset(start);
  const std::string_view rest = Bytes().substr(begin);
  _Bytes.erase(begin, korutf8::OffsetOf(rest, static_cast<std::size_t>(count)));
}

void KORUnicodeString::Strip(StripPlace place, char character) {
  if (static_cast<unsigned char>(character) >= 0x80) return;  // a part of a character must not go alone
  if (place == StripPlace::Everywhere) {
    std::erase(_Bytes, character);
    return;
  }
  if (place != StripPlace::Leading) _Bytes.erase(_Bytes.find_last_not_of(character) + 1);
  if (place != StripPlace::Trailing) _Bytes.erase(0, std::min(_Bytes.find_first_not_of(character), _Bytes.size()));
}

void KORUnicodeString::ToUpper() {
  const auto ascii = [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  };
  MapCharacters(_Bytes, ascii, utf8proc_toupper);
}

void KORUnicodeString::ToLower() {
  const auto ascii = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  MapCharacters(_Bytes, ascii, utf8proc_tolower);
}

long KORUnicodeString::ConvertToNum(int& number, const char* format) const {
  const std::string_view wanted = format == nullptr ? "" : format;
  if (wanted == "%d") return Deliver(kornumber::ReadInteger(_Bytes), number);
  if (wanted == "%x") return Deliver(kornumber::ReadHexadecimal(_Bytes), number);
  return E_FAIL;
}

long KORUnicodeString::ConvertToNum(double& number, const char* format) const {
  const std::string_view wanted = format == nullptr ? "" : format;
  return wanted == "%le" ? Deliver(kornumber::ReadReal(_Bytes), number) : E_FAIL;
}

KORUnicodeString KORUnicodeString::FromInteger(int number) {
  KORUnicodeString text;
  text._Bytes = kornumber::PrintInteger(number);
  return text;
}

KORUnicodeString KORUnicodeString::FromReal(double number) {
  KORUnicodeString text;
  text._Bytes = kornumber::PrintReal(number);
  return text;
}

std::size_t KORUnicodeString::ByteOffset(int position) const {
  return korutf8::OffsetOf(_Bytes, static_cast<std::size_t>(std::max(position, 0)));
}

int KORUnicodeString::CharacterPosition(std::size_t byte_offset) const {
  return static_cast<int>(korutf8::CountCharacters(Bytes().substr(0, byte_offset)));
}

bool KORUnicodeString::IsAscii() const {
  return korutf8::IsAscii(_Bytes);
}
