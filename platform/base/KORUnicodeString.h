// The text type of the platform.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/base/KORExport.h"

/// A text of Unicode characters, held as UTF-8.
///
/// Positions, lengths and sub-strings count characters (code points), positions from 0; a failed search gives -1.
/// Plain ASCII texts, the common case, cost no decoding.
///
/// A byte string that comes in and is not valid UTF-8 as a whole is read as Windows-1252, so that no letter of an
/// old file is lost; the five bytes that Windows-1252 leaves open become the control characters of the same number.
///
/// Numbers are read and printed independently of the process locale, with "." as decimal character.
/// Distinct texts may be used on distinct threads at once.
class KORPLATFORM_API KORUnicodeString {
 public:
  /// Where Strip removes a character.
  enum class StripPlace { Leading, Trailing, Both, Everywhere };

  KORUnicodeString() = default;
  /// From a byte string that ends in a NUL; a null pointer gives the empty text.
  KORUnicodeString(const char* bytes);  // implicit on purpose: literals stand for texts everywhere
  explicit KORUnicodeString(std::string_view bytes);
  /// From one wide character for each character; what is no character of Unicode becomes U+FFFD.
  explicit KORUnicodeString(std::wstring_view characters);

  /// The text as UTF-8, terminated; valid until the text is changed or gone.
  const char* ConvertToChar() const { return _Bytes.c_str(); }
  std::string_view Bytes() const { return _Bytes; }
  /// The text as wide characters, one for each character of the text.
  std::wstring ConvertToWideChar() const;

  int GetLengthInChar() const;
  bool IsEmpty() const { return _Bytes.empty(); }

  /// 2 for identical texts, 0 for different ones; this platform counts nothing as a weaker likeness.
  static constexpr int Identical = 2;
  int Compare(const KORUnicodeString& other) const { return *this == other ? Identical : 0; }

  /// The characters from `position` on, at most `length` of them. What lies outside the text adds nothing.
  KORUnicodeString SubString(int position, int length) const;

  /// Position of the first occurrence of `text` that starts at `from` or behind; -1 if there is none. An empty `text`
  /// is nowhere.
  int SearchSubString(const KORUnicodeString& text, int from = 0) const;
  /// Position of the last occurrence of `text`; -1 if there is none, and for an empty `text`.
  int SearchSubStringBackward(const KORUnicodeString& text) const;

  /// Replaces every occurrence of `old_text`, from the left; an empty `old_text` is nowhere.
  void ReplaceAll(const KORUnicodeString& old_text, const KORUnicodeString& new_text);
  /// Takes `length` characters away from `position` on; what lies outside the text is not missed.
  void Remove(int position, int length);
  /// Takes `character` (an ASCII character) away at the ends told, or everywhere.
  void Strip(StripPlace place, char character);

  void Append(const KORUnicodeString& other) { _Bytes += other._Bytes; }
  void ToUpper();
  void ToLower();

  /// Reads a number from the head of the text as C input with `format` does: "%d" and "%x" into an integer, "%le"
  /// into a real. Returns S_OK, or E_FAIL, with `number` untouched, if nothing can be read or the format is another.
  long ConvertToNum(int& number, const char* format = "%d") const;
  long ConvertToNum(double& number, const char* format = "%le") const;

  /// Prints a number as C output with "%d" and "%g" does.
  static KORUnicodeString FromInteger(int number);
  static KORUnicodeString FromReal(double number);

  KORUnicodeString& operator+=(const KORUnicodeString& other) {
    Append(other);
    return *this;
  }
  friend KORUnicodeString operator+(KORUnicodeString left, const KORUnicodeString& right) {
    left.Append(right);
    return left;
  }
  friend bool operator==(const KORUnicodeString&, const KORUnicodeString&) = default;
  /// With an ASCII literal, without making a text of it; a null pointer stands for the empty text.
  friend bool operator==(const KORUnicodeString& left, const char* right) {
    return right == nullptr ? left.IsEmpty() : left.Bytes() == right;
  }
  /// Order of the UTF-8 bytes, which is the order of the code points.
  friend std::strong_ordering operator<=>(const KORUnicodeString&, const KORUnicodeString&) = default;

 private:
  std::size_t ByteOffset(int position) const;
  int CharacterPosition(std::size_t byte_offset) const;
  bool IsAscii() const;

  std::string _Bytes;  // valid UTF-8 at all times
};
