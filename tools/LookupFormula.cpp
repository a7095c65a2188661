// The formula behind the time of a code.
#include "tools/LookupFormula.h"

#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

#include "platform/base/KORNumberText.h"
#include "tools/LookupForm.h"
#include "tools/PatternMatch.h"

namespace tool {

namespace {

int IntegerOf(const KORUnicodeString& text) {
  return kornumber::ReadInteger(text.Bytes()).value_or(0);
}

// The form in which a lookup compares a code: a short move without a weight has the weight 1.
std::string ComparedForm(std::string_view code) {
  std::string form = LookupForm(code);
  const bool move = form.starts_with('M') && (form.ends_with('A') || form.ends_with('B') || form.ends_with('C'));
  if (move && KORUnicodeString(std::string_view(form)).GetLengthInChar() <= 4) form += '1';
  return form;
}

// Goes over the entries as the lookup does: the last match gives the numbers, the answering entry the formula, and
// the times of the options add up in the order of their positions.
class FormulaGathering {
 public:
  FormulaGathering(VEXSTMTimeAnalysisDlgServices& service, std::string_view code, int answering)
      : _Service(service), _Code(ComparedForm(code)), _Answering(answering) {
    _Numbers.Values.resize(LookupArrayLength);
    _Numbers.Flags.resize(LookupArrayLength);
  }

  KORUnicodeString Gather() {
    for (int index = 0; index < _Service.GetDCEntriesCount(); ++index) {
      const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
      if (!entry._Pattern.IsEmpty()) {
        TakePattern(entry, index == _Answering);
      } else if (index == _Answering) {
        _Formula = entry._Time.Bytes();
      }
      if (index == _Answering) TakeNumberBehind(entry);
    }
    for (const std::string& time : _OptionTimes) _Formula += time;
    if (!_Formula.empty() && std::isalpha(static_cast<unsigned char>(_Formula.front())) != 0) {
      std::replace(_Formula.begin(), _Formula.end(), ',', '_');
    }
    KORUnicodeString formula{std::string_view(_Formula)};
    if (_Formula.find('$') != std::string::npos) {
      _Service.SubstParameterCode(formula, _Numbers.Values.data(), _Numbers.Flags.data());
    }
    return formula;
  }

 private:
  void TakePattern(const VEXSTMDataCardEntriesScan& entry, bool answers) {
    const MatchablePattern pattern(_Service, entry._Pattern.Bytes());
    PatternMatch match = pattern.Match(_Code);
    if (!match.Matches) return;
    _Numbers = std::move(match);
    if (_OptionTimes.empty()) _OptionTimes.resize(static_cast<std::size_t>(pattern.GetTokenCount()));
    const int option = IntegerOf(entry._OptionParID);
    if (option < 0 || option >= LookupArrayLength || _Numbers.Flags[static_cast<std::size_t>(option)] == 0) return;
    if (answers) _Formula = entry._Time.Bytes();
    const auto place = static_cast<std::size_t>(std::max(option, 1)) - 1;
    if (place < _OptionTimes.size()) _OptionTimes[place] = entry._OptionTime.Bytes();
  }

  // The number behind the code takes the place of the first "$...$" of the formula, unless a single one is accepted.
  void TakeNumberBehind(const VEXSTMDataCardEntriesScan& entry) {
    const std::string_view entry_code = entry._Code.Bytes();
    if (_Code.size() == entry_code.size() || !_Code.starts_with(entry_code)) return;
    if (_Service.GetSubsystem() == KORUnicodeString("MODAPTS") &&
        _Service.IsSequentialCode(KORUnicodeString(std::string_view(_Code))) != 0) {
      return;
    }
    const std::string typed = _Code.substr(entry_code.size());
    const double number = kornumber::ReadReal(typed).value_or(0.0);
    const int low = IntegerOf(entry._Par1Start);
    const int high = IntegerOf(entry._Par1End);
    const bool between = number > low && number < high;
    if (number == 0.0 || (!between && !(number == low && number == high))) return;
    _Formula = entry._Time.Bytes();
    const std::size_t first = _Formula.find('$');
    const std::size_t second = first == std::string::npos ? first : _Formula.find('$', first + 1);
    if (between && second != std::string::npos) _Formula.replace(first, second - first + 1, typed);
  }

  VEXSTMTimeAnalysisDlgServices& _Service;
  std::string _Code;
  int _Answering;
  std::string _Formula;
  PatternMatch _Numbers;
  std::vector<std::string> _OptionTimes;  // by pattern position, from 1
};

}  // namespace

LookupFormula EvaluateLookupFormula(VEXSTMTimeAnalysisDlgServices& service, std::string_view code, int entry) {
  const KORUnicodeString formula = FormulaGathering(service, code, entry).Gather();
  LookupFormula evaluated;
  evaluated.Value = service.GetTimeFromFormula(formula, evaluated.Status);
  evaluated.Text = formula.Bytes();
  return evaluated;
}

std::string EntryName(const VEXSTMTimeAnalysisDlgServices& service, int index) {
  return "entry " + std::to_string(index + 1) + " (" + std::string(service.GetDCEntry(index)->_Code.Bytes()) + ")";
}

}  // namespace tool
