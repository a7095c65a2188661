// Small text functions that the yardsticks share: numbers read and printed by the C library in the "C" locale, ASCII
// letters and digits, and the removal of blanks. Nothing here sets a locale; the process must run in "C" for them.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>

namespace oracle {

/// Reads an integer at the head of a text with "%d". Returns false, and leaves the holder, if there is none.
inline bool ScanInteger(const char* text, int& holder) {
  return std::sscanf(text, "%d", &holder) == 1;
}

/// Reads a real at the head of a text with "%le". Returns false, and leaves the holder, if there is none.
inline bool ScanReal(const char* text, double& holder) {
  return std::sscanf(text, "%le", &holder) == 1;
}

/// Prints an integer with "%d".
inline std::string PrintInteger(int value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%d", value);
  return buffer;
}

/// Prints a real with "%g".
inline std::string PrintReal(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%g", value);
  return buffer;
}

inline bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The text without any blank.
inline std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

/// The character at an index as a text; nothing at or behind the end.
inline std::string CharacterAt(const std::string& text, std::size_t index) {
  return index < text.size() ? std::string(1, text[index]) : std::string();
}

}  // namespace oracle
