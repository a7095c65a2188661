// MODAPTS sequences as a user writes them into code form: a machine driven by one character at a time.
#include "codenorm/ModaptsNorm.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "codenorm/SequenceText.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORTruncation.h"
#include "timevalue/TimeFormula.h"

namespace codenorm {
namespace {

constexpr const char* Unreadable = "0";

class ModaptsMachine {
 public:
  ModaptsMachine(std::string_view text, std::string_view system) : _Text(text), _System(system) {}

  std::string Run();

 private:
  enum class State {
    Start,
    Multiplier,         // a digit has been read outside a parameter
    Value,              // the value of a parameter has just been written
    MultipliedBracket,  // a bracket with a multiplier has been entered
    Separator,          // a blank has been passed
    Operator,           // an operator of a multiplier waits for its digit
  };

  void TakeBlank();
  void TakeOpenBracket();
  void TakeLetter(char letter);
  void TakeDigit(char digit);

  double MultiplierValue() const {
    int status = 0;  // an unreadable multiplier counts as 0
    return timevalue::TimeOfFormula(_Number, _System, status);
  }

  /// Closes the parameter written last and begins the next with the character at `next`.
  void AppendSeparated(std::string_view frequency, std::size_t next) {
    _Code += '-';
    _Code += frequency;
    _Code += ' ';
    if (next < _Text.size()) _Code += _Text[next];
  }

  char Before() const { return _Text[_Index - 1]; }

  std::string_view _Text;
  std::string_view _System;
  std::size_t _Index = 0;
  State _State = State::Start;
  std::string _Code;
  std::string _Number;        // digits and operators of the multiplier being read
  std::string _Factor = "1";  // the frequency of the parameters being written
};

std::string ModaptsMachine::Run() {
  for (; _Index < _Text.size(); ++_Index) {
    const char character = _Text[_Index];
    if (character == ' ') {
      TakeBlank();
    } else if (character == '(') {
      TakeOpenBracket();
    } else if (character == ')') {
      AppendSeparated(_Factor, ++_Index);
      _Factor = "1";
      if (_Index == _Text.size()) return _Code;
    } else if (character == '*' || character == '/') {
      if (_State != State::Multiplier) return Unreadable;
      _Number += character;
      _State = State::Operator;
    } else if (IsLetter(character)) {
      TakeLetter(character);
    } else if (IsDigit(character)) {
      TakeDigit(character);
    } else {
      return Unreadable;
    }
  }
  return _Code + '-' + _Factor;
}

/// A multiplier that a blank ends becomes a whole number.
void ModaptsMachine::TakeBlank() {
  if (_State == State::Multiplier) {
    _Factor = kornumber::PrintInteger(kornumber::TruncateToInt32(MultiplierValue() + 0.1));
  } else if (_State == State::Value) {
    AppendSeparated(_Factor, _Text.size());
  }
  _State = State::Separator;
}

/// A multiplier right ahead of a bracket keeps its fraction and gains a little.
void ModaptsMachine::TakeOpenBracket() {
  if (_State == State::Multiplier) {
    if (!IsDigit(Before())) return;
    _State = State::MultipliedBracket;
    _Factor = kornumber::PrintReal(MultiplierValue() + 0.0001);
    _Number.clear();
  } else if (!_Code.empty()) {
    AppendSeparated("1", ++_Index);
  }
}

void ModaptsMachine::TakeLetter(char letter) {
  if (_Index > 1 && !_Code.empty() && _State != State::Separator && _State != State::MultipliedBracket) {
    AppendSeparated(_Factor, _Index);
  } else {
    _Code += letter;
  }
}

void ModaptsMachine::TakeDigit(char digit) {
  if (_Index > 0 && IsLetter(Before())) {
    _State = State::Value;
    _Code += digit;
  } else if (_Index > 0 && Before() == ' ') {
    _State = State::Multiplier;
    _Number = digit;
  } else if (_Index == 0 || IsDigit(Before()) || _State == State::Operator) {
    _State = State::Multiplier;
    _Number += digit;
  }
}

std::string_view WithoutBlanksAtEnds(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

KORUnicodeString ModaptsCodeOfNorm(const KORUnicodeString& norm, std::string_view system) {
  std::string text(WithoutBlanksAtEnds(norm.Bytes()));
  if (!IsSequence(text)) return norm;
  // Only where there are brackets can a blank end a multiplier.
  if (text.find('(') == std::string::npos || text.find(')') == std::string::npos) text = WithoutBlanks(text);
  return KORUnicodeString(ModaptsMachine(text, system).Run());
}

}  // namespace codenorm
