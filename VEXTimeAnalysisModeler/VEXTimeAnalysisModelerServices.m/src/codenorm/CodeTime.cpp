// The time of a typed code.
#include "codenorm/CodeTime.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "codenorm/SequenceText.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORTruncation.h"
#include "timevalue/TimeFormula.h"

namespace codenorm {
namespace {

using Entry = VEXSTMDataCardEntriesScan;

struct SystemFactor {
  std::string_view System;
  std::string_view CodeID;  // of the entry; empty: of every entry
  double Factor;
};

// What the value of a formula is multiplied by to give the time.
constexpr std::array<SystemFactor, 3> SystemFactors{{
    {"SAM", "", 5.0},
    {"RWF", "", 1.6667},
    {"MODAPTS", "1", 0.35833333362},
}};

int IntegerOf(const KORUnicodeString& text) {
  return kornumber::ReadInteger(text.Bytes()).value_or(0);
}

/// The form in which codes are compared. A short move of MTM-1 without a weight is looked up with the weight 1.
std::string ComparedForm(const KORUnicodeString& code, std::size_t most_characters_completed) {
  std::string compared = WithoutBlanks(code.Bytes());
  const bool completed =
      compared.starts_with('M') && (compared.ends_with('A') || compared.ends_with('B') || compared.ends_with('C'));
  const auto characters = static_cast<std::size_t>(KORUnicodeString(compared).GetLengthInChar());
  if (completed && characters <= most_characters_completed) compared += '1';
  return compared;
}

/// The numbers of the pattern that matched last.
class MatchedNumbers {
 public:
  void Take(const datacard::CodePattern& pattern, const std::vector<datacard::TokenMatch>& matches) {
    const std::size_t count = std::min(pattern.Size(), ReferenceCount);
    _Values.assign(count, 0.0);
    _Flags.assign(count, 0);
    for (std::size_t position = 0; position < count; ++position) {
      _Flags[position] = matches[position].Matched ? 1 : 0;
      _Values[position] = datacard::NumberOf(pattern[position], matches[position]);
    }
  }

  CodeNumbers Numbers() const { return {_Values, _Flags}; }

 private:
  std::vector<double> _Values;
  std::vector<int> _Flags;
};

/// One lookup: every entry that can match is visited, in the order of the table, and a later match overwrites an
/// earlier one, but for the times of the options, which add up.
class Lookup {
 public:
  Lookup(const KORUnicodeString& code, const KORUnicodeString& system)
      : _Code(ComparedForm(code, 4)), _System(system) {}

  void Visit(const datacard::EntryTable& table) {
    // A sequence of MODAPTS ends in a digit by nature; it is no code with a number behind it.
    const bool with_number = !(_System == "MODAPTS" && IsSequence(_Code));
    for (const std::uint32_t position : table.Index().Candidates(_Code, with_number)) {
      const Entry& entry = table.Records()[position];
      if (!entry._Pattern.IsEmpty()) {
        MatchPattern(entry, position, table.Index().PatternAt(position));
      } else if (entry._Code.Bytes() == _Code) {
        TakeOver(entry, position, std::string(entry._Time.Bytes()));
      }
      if (with_number) MatchNumberBehind(entry, position);
    }
  }

  CodeTime Finish() &&;

 private:
  void MatchPattern(const Entry& entry, std::size_t position, const datacard::CodePattern& pattern);
  void MatchNumberBehind(const Entry& entry, std::size_t position);

  void TakeOver(const Entry& entry, std::size_t position, std::string formula) {
    _Formula = std::move(formula);
    _Entry = position;
    _CodeID = entry._CodeID;
  }

  std::string CompletedFormula() const;

  std::string _Code;
  const KORUnicodeString& _System;
  std::string _Formula;
  std::optional<std::size_t> _Entry;
  KORUnicodeString _CodeID;
  std::vector<std::string_view> _OptionTimes;  // by pattern position, from 1
  MatchedNumbers _Numbers;
  std::vector<datacard::TokenMatch> _Matches;
};

void Lookup::MatchPattern(const Entry& entry, std::size_t position, const datacard::CodePattern& pattern) {
  if (!datacard::MatchesWhole(pattern, _Code, _System == "SAM", _Matches)) return;
  _Numbers.Take(pattern, _Matches);
  if (_OptionTimes.empty()) _OptionTimes.resize(pattern.Size());
  const int option = IntegerOf(entry._OptionParID);
  if (!_Numbers.Numbers().IsSet(option)) return;
  TakeOver(entry, position, std::string(entry._Time.Bytes()));
  const auto place = static_cast<std::size_t>(std::max(option, 1)) - 1;
  if (place < _OptionTimes.size()) _OptionTimes[place] = entry._OptionTime.Bytes();
}

/// The bounds of the number are exclusive unless they are equal, which is how a single value is written.
void Lookup::MatchNumberBehind(const Entry& entry, std::size_t position) {
  const std::string_view code = _Code;
  const std::string_view entry_code = entry._Code.Bytes();
  if (!code.starts_with(entry_code)) return;
  const std::string_view typed = code.substr(entry_code.size());
  const double number = kornumber::ReadReal(typed).value_or(0.0);
  if (number == 0.0) return;
  const int low = IntegerOf(entry._Par1Start);
  const int high = IntegerOf(entry._Par1End);
  std::string formula(entry._Time.Bytes());
  if (number > low && number < high) {
    const std::size_t first = formula.find('$');
    const std::size_t second = first == std::string::npos ? first : formula.find('$', first + 1);
    if (second != std::string::npos) formula.replace(first, second - first + 1, typed);
    TakeOver(entry, position, std::move(formula));
  } else if (number == low && number == high) {
    TakeOver(entry, position, std::move(formula));
  }
}

std::string Lookup::CompletedFormula() const {
  std::string formula = _Formula;
  for (const std::string_view option_time : _OptionTimes) formula += option_time;
  // In a call "_" separates arguments in every locale.
  if (!formula.empty() && IsLetter(formula.front())) std::ranges::replace(formula, ',', '_');
  return Substitute(formula, _Numbers.Numbers());
}

CodeTime Lookup::Finish() && {
  const std::string formula = CompletedFormula();
  if (formula == "0") return {_Entry, "0.0"};
  int status = 0;  // a formula that fails gives the time 0
  double time = timevalue::TimeOfFormula(KORUnicodeString(formula), _System, status);
  for (const SystemFactor& factor : SystemFactors) {
    const bool holds = factor.CodeID.empty() || factor.CodeID == _CodeID.Bytes();
    if (holds && factor.System == _System.Bytes()) time *= factor.Factor;
  }
  return {_Entry, kornumber::PrintReal(time)};
}

}  // namespace

CodeTime LookUpCode(const KORUnicodeString& code, const datacard::EntryTable* table, const KORUnicodeString& system) {
  Lookup lookup(code, system);
  if (table != nullptr) lookup.Visit(*table);
  return std::move(lookup).Finish();
}

long OptionsOfCode(const KORUnicodeString& code, const datacard::EntryTable* table, const KORUnicodeString& system) {
  long options = 0;
  if (table == nullptr) return options;
  const std::string compared = ComparedForm(code, std::string::npos);
  std::vector<datacard::TokenMatch> matches;
  MatchedNumbers numbers;
  for (const std::uint32_t position : table->Index().PatternCandidates(compared)) {
    const Entry& entry = table->Records()[position];
    const datacard::CodePattern& pattern = table->Index().PatternAt(position);
    if (!datacard::MatchesWhole(pattern, compared, system == "SAM", matches)) continue;
    numbers.Take(pattern, matches);
    if (numbers.Numbers().IsSet(IntegerOf(entry._OptionParID))) options |= IntegerOf(entry._OptionID);
  }
  return options;
}

std::string Substitute(std::string_view formula, const CodeNumbers& numbers) {
  std::string text;
  text.reserve(formula.size());
  for (;;) {
    const std::size_t mark = formula.find('$');
    text += formula.substr(0, mark);
    if (mark == std::string_view::npos) return text;
    formula.remove_prefix(mark + 1);
    const int position = kornumber::TruncateToInt32(kornumber::ReadReal(formula).value_or(0.0));
    if (numbers.IsSet(position)) text += kornumber::PrintReal(numbers.Values[static_cast<std::size_t>(position)]);
    const std::size_t closing = formula.find('$');
    if (closing == std::string_view::npos) return text;
    formula.remove_prefix(closing + 1);
  }
}

}  // namespace codenorm
