// The byte text of the platform, which serves as key: names of attributes, values of a line, types.
#pragma once

#include <compare>
#include <string>
#include <string_view>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// A text of bytes that is taken as it comes, never converted. KORUnicodeString is the text for people.
///
/// Cheap to make and to compare, as every value of every line is found by one. Distinct texts may be used on distinct
/// threads at once.
class KORPLATFORM_API KORString {
 public:
  KORString() = default;
  /// From a byte string that ends in a NUL; a null pointer gives the empty text.
  KORString(const char* bytes) : _Bytes(ViewOf(bytes)) {}  // implicit on purpose: literals stand for keys everywhere
  explicit KORString(std::string_view bytes) : _Bytes(bytes) {}
  /// The UTF-8 bytes of the text.
  explicit KORString(const KORUnicodeString& text) : _Bytes(text.Bytes()) {}

  /// The bytes, terminated; valid until the text is changed or gone.
  const char* ConvertToChar() const { return _Bytes.c_str(); }
  std::string_view Bytes() const { return _Bytes; }

  /// Number of characters, counted as KORUnicodeString reads the bytes: UTF-8, or Windows-1252 where they are not UTF-8
  /// as a whole.
  int GetLengthInChar() const;
  bool IsEmpty() const { return _Bytes.empty(); }

  /// 0 for equal texts, else -1 or 1: whether this text comes before or behind `other` in the order of the bytes, each
  /// taken as a number from 0 to 255. A null pointer stands for the empty text.
  int Compare(const KORString& other) const { return Sign(Bytes().compare(other.Bytes())); }
  int Compare(const char* other) const { return Sign(Bytes().compare(ViewOf(other))); }

  KORString& operator+=(const KORString& other) {
    _Bytes += other._Bytes;
    return *this;
  }
  friend KORString operator+(KORString left, const KORString& right) {
    left += right;
    return left;
  }
  friend bool operator==(const KORString&, const KORString&) = default;
  friend bool operator==(const KORString& left, const char* right) { return left.Bytes() == ViewOf(right); }
  /// The order of Compare.
  friend std::strong_ordering operator<=>(const KORString&, const KORString&) = default;

 private:
  static std::string_view ViewOf(const char* bytes) { return bytes == nullptr ? std::string_view() : bytes; }
  static int Sign(int difference) { return (difference > 0) - (difference < 0); }

  std::string _Bytes;
};
