// The MODAPTS state machine, character by character, and the sequence test.
#include "ModaptsNormOracle.h"

#include <limits>

#include "OracleText.h"

namespace oracle {
namespace {

std::string WithoutBlanksAtTheEnds(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

int Truncated(double value) {
  constexpr int lowest = std::numeric_limits<int>::min();
  return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : lowest;
}

class ModaptsMachine {
 public:
  ModaptsMachine(const std::string& text, const TimeFromFormula& time_from_formula)
      : _Text(text), _TimeFromFormula(time_from_formula) {}

  std::string Convert();

 private:
  // False ends the conversion: with the result as it stands, or with "0" when the text can't be read.
  bool Step();
  void StepBlank();
  void StepOpen();
  bool StepClose();
  bool StepOperator();
  void StepLetter();
  void StepDigit();

  char Before() const { return _I > 0 ? _Text[_I - 1] : '\0'; }

  const std::string& _Text;
  const TimeFromFormula& _TimeFromFormula;
  std::size_t _I = 0;
  char _C = '\0';
  std::string _Result;
  std::string _State;
  std::string _Number;
  std::string _Factor = "1";
};

std::string ModaptsMachine::Convert() {
  for (_I = 0; _I < _Text.size(); ++_I) {
    _C = _Text[_I];
    if (!Step()) return _Result;
  }
  return _Result + "-" + _Factor;
}

bool ModaptsMachine::Step() {
  if (_C == ' ') {
    StepBlank();
  } else if (_C == '(') {
    StepOpen();
  } else if (_C == ')') {
    return StepClose();
  } else if (_C == '*' || _C == '/') {
    return StepOperator();
  } else if (IsLetter(_C)) {
    StepLetter();
  } else if (IsDigit(_C)) {
    StepDigit();
  } else {
    _Result = "0";
    return false;
  }
  return true;
}

void ModaptsMachine::StepBlank() {
  if (_State == "t") {
    _Factor = _Number;
    _Factor = PrintInteger(Truncated(_TimeFromFormula(_Factor) + 0.1));
  } else if (_State == "v") {
    _Result += "-" + _Factor + " ";
  }
  _State = "s";
}

void ModaptsMachine::StepOpen() {
  if (_State == "t") {
    if (!IsDigit(Before())) return;
    _State = "p";
    _Factor = _Number;
    _Factor = PrintReal(_TimeFromFormula(_Factor) + 0.0001);
    _Number.clear();
  } else if (!_Result.empty()) {
    ++_I;
    _Result += "-1 " + CharacterAt(_Text, _I);
  }
}

bool ModaptsMachine::StepClose() {
  ++_I;
  _Result += "-" + _Factor + " " + CharacterAt(_Text, _I);
  _Factor = "1";
  return _I < _Text.size();
}

bool ModaptsMachine::StepOperator() {
  if (_State != "t") {
    _Result = "0";
    return false;
  }
  _Number += _C;
  _State = "o";
  return true;
}

void ModaptsMachine::StepLetter() {
  if (_I > 1 && !_Result.empty() && _State != "s" && _State != "p") _Result += "-" + _Factor + " ";
  _Result += _C;
}

void ModaptsMachine::StepDigit() {
  if (_I == 0) {
    _State = "t";
    _Number += _C;
  } else if (IsLetter(Before())) {
    _State = "v";
    _Result += _C;
  } else if (IsDigit(Before())) {
    _State = "t";
    _Number += _C;
  } else if (Before() == ' ') {
    _State = "t";
    _Number = _C;
  } else if (_State == "o") {
    _State = "t";
    _Number += _C;
  }
}

}  // namespace

bool IsSequentialCode(const std::string& code) {
  std::string letters;
  for (const char c : code) {
    if (IsLetter(c)) letters += c;
  }
  if (!letters.empty() && code.find(letters) != std::string::npos) return false;
  return letters.size() > 1;
}

std::string GetModaptsCode(const std::string& norm, const TimeFromFormula& time_from_formula) {
  if (norm.empty()) return norm;
  std::string text = WithoutBlanksAtTheEnds(norm);
  if (!IsSequentialCode(text)) return norm;
  const bool both_brackets = text.find('(') != std::string::npos && text.find(')') != std::string::npos;
  if (!both_brackets) text = WithoutBlanks(text);
  return ModaptsMachine(text, time_from_formula).Convert();
}

}  // namespace oracle
