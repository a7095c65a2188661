// Cuts a formula text into tokens. The grammar of the tokens stands in FormulaEvaluator.h.
#pragma once

#include "formula/FormulaEvaluator.h"

namespace formula {

/// What the scanner finds at its position.
struct Scanned {
  enum class Sort { Token, Name, Unreadable };

  Sort Found;
  FormulaToken Token;                         // of a token
  const FormulaFunction* Function = nullptr;  // of a name: its function, or null if it is unknown
};

/// Reads the tokens of one text from left to right. The text is only read and must outlive the scanner.
class FormulaScanner {
 public:
  explicit FormulaScanner(const wchar_t* text);

  /// The token behind the white space at the position; the position moves behind it. A name is read without what
  /// follows it. The position stays in front of a character that starts no token, and in front of the terminator.
  Scanned Next();

  /// Moves behind an open parenthesis, and white space ahead of it, and tells whether there was one.
  bool SkipOpenParenthesis();

  const wchar_t* Position() const { return _Position; }

 private:
  void SkipSpace();
  double ReadNumber();
  const FormulaFunction* ReadName();

  const wchar_t* _Position;
  wchar_t _DecimalCharacter;
};

}  // namespace formula
