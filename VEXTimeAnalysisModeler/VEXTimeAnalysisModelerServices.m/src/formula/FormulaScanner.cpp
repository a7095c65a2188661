// What the scanner of formula texts asks of the process locale.
#include "formula/FormulaScanner.h"

#include <cctype>
#include <cwchar>

#include "platform/base/KORLocale.h"

namespace formula {

// The character classes of the process locale end at 255.
Symbol FormulaScanner::SymbolBeyondAscii(std::uint32_t code) {
  if (code > 255) return Symbol::Unreadable;
  const int character = static_cast<int>(code);
  if (std::isspace(character) != 0) return Symbol::Space;
  if (std::isalpha(character) != 0) return Symbol::Letter;
  return Symbol::Unreadable;
}

wchar_t FormulaScanner::LocalDecimalCharacter() {
  return KORLocalDecimalCharacter();
}

double FormulaScanner::TakeNumberByLibrary() {
  wchar_t* end = nullptr;
  const double value = std::wcstod(_Position, &end);
  _Position = end;
  return value;
}

}  // namespace formula
