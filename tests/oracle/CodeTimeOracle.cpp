// The walk over all entries: by pattern, by exact code, by the number behind the code; then the time of the formula.
#include "CodeTimeOracle.h"

#include <cmath>

#include "OracleText.h"

namespace oracle {
namespace {

// References at or above this number never count as matched.
constexpr int ParameterLimit = 2000;

std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

// Number of characters of a UTF-8 text: of each character one byte is no continuation.
std::size_t CountCharacters(const std::string& text) {
  std::size_t count = 0;
  for (const char c : text) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  return count;
}

bool IsShortMove(const std::string& code) {
  return !code.empty() && code.front() == 'M' && (code.back() == 'A' || code.back() == 'B' || code.back() == 'C');
}

int IntegerOf(const std::string& text) {
  int number = 0;
  ScanInteger(text.c_str(), number);
  return number;
}

bool TookPart(int position, const std::vector<int>& flags) {
  if (position < 0 || position >= ParameterLimit) return false;
  const auto index = static_cast<std::size_t>(position);
  return index < flags.size() && flags[index] != 0;
}

// One lookup under way.
class CodeWalk {
 public:
  CodeWalk(Lookup& lookup, const std::string& system, const PatternCheck& check_pattern)
      : _Lookup(lookup), _System(system), _CheckPattern(check_pattern) {}

  void Prepare();
  void Visit(const Entry& entry, int index);
  void Finish(const TimeFromFormula& time_from_formula);

 private:
  void VisitByPattern(const Entry& entry, int index);
  void VisitByNumber(const Entry& entry, int index);
  void TakeOver(const Entry& entry, int index, const std::string& time);

  Lookup& _Lookup;
  const std::string& _System;
  const PatternCheck& _CheckPattern;
  std::string _Code;
  std::string _Formula;
  std::vector<std::string> _OptionTimes;
  std::vector<double> _Values;
  std::vector<int> _Flags;
};

void CodeWalk::Prepare() {
  _Lookup.code_id.clear();
  _Lookup.code = UpperCase(_Lookup.code);
  _Code = WithoutBlanks(_Lookup.code);
  if (IsShortMove(_Code) && CountCharacters(_Code) < 5) _Code += PrintInteger(1);
}

void CodeWalk::Visit(const Entry& entry, int index) {
  if (!entry.pattern.empty()) {
    VisitByPattern(entry, index);
  } else if (_Code == entry.code) {
    TakeOver(entry, index, entry.time);
  }
  if (!(IsSequentialCode(_Code) && _System == "MODAPTS")) VisitByNumber(entry, index);
}

void CodeWalk::VisitByPattern(const Entry& entry, int index) {
  int count = 0;
  if (!_CheckPattern(_Code, entry.pattern, count, _Values, _Flags)) return;
  if (_OptionTimes.empty() && count >= 1) _OptionTimes.resize(static_cast<std::size_t>(count));
  const int parameter = IntegerOf(entry.option_par_id);
  if (!TookPart(parameter, _Flags)) return;
  TakeOver(entry, index, entry.time);
  const std::size_t position = parameter == 0 ? 1 : static_cast<std::size_t>(parameter);
  if (position <= _OptionTimes.size()) _OptionTimes[position - 1] = entry.option_time;
}

void CodeWalk::VisitByNumber(const Entry& entry, int index) {
  const std::size_t length = entry.code.size();
  if (_Code.compare(0, length, entry.code) != 0) return;
  const std::string behind = _Code.substr(length);
  double value = 0.0;
  ScanReal(behind.c_str(), value);
  if (value == 0.0) return;
  const int lowest = IntegerOf(entry.par1_start);
  const int highest = IntegerOf(entry.par1_end);
  if (value > lowest && value < highest) {
    std::string time = entry.time;
    const std::size_t first = time.find('$');
    const std::size_t second = first == std::string::npos ? first : time.find('$', first + 1);
    if (second != std::string::npos) time.replace(first, second - first + 1, behind);
    TakeOver(entry, index, time);
  } else if (value == lowest && value == highest) {
    TakeOver(entry, index, entry.time);
  }
}

void CodeWalk::TakeOver(const Entry& entry, int index, const std::string& time) {
  _Formula = time;
  _Lookup.description = entry.text;
  _Lookup.local_description = entry.local_text;
  _Lookup.value_added = entry.value_added;
  _Lookup.time_type = entry.time_type;
  _Lookup.frequency = entry.frequency;
  _Lookup.code_index = index;
  _Lookup.code_id = entry.code_id;
}

void CodeWalk::Finish(const TimeFromFormula& time_from_formula) {
  for (const std::string& option_time : _OptionTimes) _Formula += option_time;
  if (!_Formula.empty() && IsLetter(_Formula.front())) {
    for (char& c : _Formula) {
      if (c == ',') c = '_';
    }
  }
  _Formula = SubstParameterCode(_Formula, _Values, _Flags);
  if (_Formula == "0") {
    _Lookup.time = "0.0";
    return;
  }
  double value = time_from_formula(_Formula);
  if (_System == "SAM") value *= 5.0;
  if (_System == "RWF") value *= 1.6667;
  if (_System == "MODAPTS" && _Lookup.code_id == "1") value *= 0.35833333362;
  _Lookup.time = PrintReal(value);
}

}  // namespace

std::string SubstParameterCode(const std::string& formula, const std::vector<double>& values,
                               const std::vector<int>& flags) {
  std::string text;
  for (std::size_t i = 0; i < formula.size(); ++i) {
    if (formula[i] != '$') {
      text += formula[i];
      continue;
    }
    double number = 0.0;
    ScanReal(formula.c_str() + i + 1, number);
    const double reference = std::trunc(number);
    if (reference >= 0.0 && reference < ParameterLimit && TookPart(static_cast<int>(reference), flags)) {
      text += PrintReal(values[static_cast<std::size_t>(reference)]);
    }
    i = formula.find('$', i + 1);
    if (i == std::string::npos) break;
  }
  return text;
}

void GetTimeToCode(Lookup& lookup, const std::string& system, const std::vector<Entry>& entries, bool loaded,
                   const PatternCheck& check_pattern, const TimeFromFormula& time_from_formula) {
  if (lookup.code.empty()) {
    lookup.code_index = -1;
    return;
  }
  CodeWalk walk(lookup, system, check_pattern);
  walk.Prepare();
  if (loaded) {
    int index = 0;
    for (const Entry& entry : entries) walk.Visit(entry, index++);
  }
  walk.Finish(time_from_formula);
}

void GetOptionID(std::string code, long& identifier, const std::vector<Entry>& entries, bool loaded,
                 const PatternCheck& check_pattern) {
  if (code.empty()) return;
  code = WithoutBlanks(UpperCase(code));
  if (IsShortMove(code)) code += "1";
  if (!loaded) return;
  for (const Entry& entry : entries) {
    if (entry.pattern.empty()) continue;
    int count = 0;
    std::vector<double> values;
    std::vector<int> flags;
    if (!check_pattern(code, entry.pattern, count, values, flags)) continue;
    if (!TookPart(IntegerOf(entry.option_par_id), flags)) continue;
    identifier |= static_cast<long>(IntegerOf(entry.option_id));
  }
}

}  // namespace oracle
