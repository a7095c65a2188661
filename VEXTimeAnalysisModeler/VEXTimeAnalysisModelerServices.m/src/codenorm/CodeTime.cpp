// The time of a typed code.
#include "codenorm/CodeTime.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "codenorm/LookupMemory.h"
#include "codenorm/SequenceText.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORTruncation.h"
#include "platform/base/KORUnicodeString.h"
#include "timevalue/DecimalCharacter.h"
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
  return text.IsEmpty() ? 0 : kornumber::ReadInteger(text.Bytes()).value_or(0);
}

/// The form in which codes are compared. A short move of MTM-1 without a weight is looked up with the weight 1.
std::string ComparedForm(std::string_view code, int most_characters_completed) {
  std::string compared = WithoutBlanks(code);
  const bool completed = compared.starts_with('M') &&
                         (compared.ends_with('A') || compared.ends_with('B') || compared.ends_with('C')) &&
                         KORUnicodeString(std::string_view(compared)).GetLengthInChar() <= most_characters_completed;
  if (completed) compared += '1';
  return compared;
}

/// The numbers of the pattern that matched last.
class MatchedNumbers {
 public:
  void Clear() { _Flags.clear(); }

  void Take(const datacard::CodePattern& pattern, const std::vector<datacard::TokenMatch>& matches) {
    const std::size_t count = std::min(pattern.Size(), ReferenceCount);
    _Values.resize(count);
    _Flags.resize(count);
    for (std::size_t position = 0; position < count; ++position) {
      _Flags[position] = matches[position].Matched ? 1 : 0;
      _Values[position] = datacard::NumberOf(pattern[position], matches[position]);
    }
  }

  CodeNumbers Numbers() const { return {{_Values.data(), _Flags.size()}, _Flags}; }

 private:
  std::vector<double> _Values;
  std::vector<int> _Flags;
};

/// Room for the work of lookups and the memory of their answers, kept by each thread.
struct LookupRoom {
  datacard::EntryPositions Candidates;
  std::vector<datacard::TokenMatch> Matches;
  MatchedNumbers Numbers;                     // of the pattern that matched last
  std::vector<std::string_view> OptionTimes;  // by pattern position, from 1
  LookupMemory Memory;

  static LookupRoom& OfThread() {
    thread_local LookupRoom room;
    return room;
  }
};

/// One lookup: every entry that can match is visited, in the order of the table, and a later match overwrites an
/// earlier one, but for the times of the options, which add up.
class Lookup {
 public:
  Lookup(std::string_view code, std::string_view system)
      : _Room(LookupRoom::OfThread()), _Code(ComparedForm(code, 4)), _System(system) {
    _Room.Numbers.Clear();
    _Room.OptionTimes.clear();
  }

  void Visit(const datacard::EntryTable& table) {
    // A sequence of MODAPTS ends in a digit by nature; it is no code with a number behind it.
    const bool with_number = !(_System == "MODAPTS" && IsSequence(_Code));
    table.Index().FindCandidates(_Code, with_number, _Room.Candidates);
    for (const std::uint32_t position : _Room.Candidates) {
      const Entry& entry = table.Records()[position];
      if (!entry._Pattern.IsEmpty()) {
        MatchPattern(entry, position, table.Index().PatternAt(position));
      } else if (entry._Code.Bytes() == _Code) {
        TakeOver(entry, position, entry._Time.Bytes());
      }
      if (with_number) MatchNumberBehind(entry, position);
    }
  }

  CodeTime Finish();

 private:
  void MatchPattern(const Entry& entry, std::size_t position, const datacard::CodePattern& pattern);
  void MatchNumberBehind(const Entry& entry, std::size_t position);

  void TakeOver(const Entry& entry, std::size_t position, std::string_view formula) {
    _Formula = formula;
    _Position = position;
    _Entry = &entry;
  }

  std::string CompletedFormula() const;

  LookupRoom& _Room;
  std::string _Code;
  std::string_view _System;
  const Entry* _Entry = nullptr;  // the last that matched
  std::size_t _Position = 0;
  std::string _Formula;
};

void Lookup::MatchPattern(const Entry& entry, std::size_t position, const datacard::CodePattern& pattern) {
  if (!datacard::MatchesWhole(pattern, _Code, _System == "SAM", _Room.Matches)) return;
  _Room.Numbers.Take(pattern, _Room.Matches);
  if (_Room.OptionTimes.empty()) _Room.OptionTimes.resize(pattern.Size());
  const int option = IntegerOf(entry._OptionParID);
  if (!_Room.Numbers.Numbers().IsSet(option)) return;
  TakeOver(entry, position, entry._Time.Bytes());
  const auto place = static_cast<std::size_t>(std::max(option, 1)) - 1;
  if (place < _Room.OptionTimes.size()) _Room.OptionTimes[place] = entry._OptionTime.Bytes();
}

/// The bounds of the number are exclusive unless they are equal, which is how a single value is written.
void Lookup::MatchNumberBehind(const Entry& entry, std::size_t position) {
  const std::string_view code = _Code;
  const std::string_view entry_code = entry._Code.Bytes();
  if (code.size() == entry_code.size() || !code.starts_with(entry_code)) return;
  const std::string_view typed = code.substr(entry_code.size());
  const double number = kornumber::ReadReal(typed).value_or(0.0);
  if (number == 0.0) return;
  const int low = IntegerOf(entry._Par1Start);
  const int high = IntegerOf(entry._Par1End);
  if (number > low && number < high) {
    std::string formula(entry._Time.Bytes());
    const std::size_t first = formula.find('$');
    const std::size_t second = first == std::string::npos ? first : formula.find('$', first + 1);
    if (second != std::string::npos) formula.replace(first, second - first + 1, typed);
    TakeOver(entry, position, formula);
  } else if (number == low && number == high) {
    TakeOver(entry, position, entry._Time.Bytes());
  }
}

std::string Lookup::CompletedFormula() const {
  std::string formula = _Formula;
  for (const std::string_view option_time : _Room.OptionTimes) formula += option_time;
  // In a call "_" separates arguments in every locale.
  if (!formula.empty() && IsLetter(formula.front())) std::ranges::replace(formula, ',', '_');
  if (formula.find('$') == std::string::npos) return formula;
  return Substitute(formula, _Room.Numbers.Numbers());
}

CodeTime Lookup::Finish() {
  const auto position = _Entry == nullptr ? std::nullopt : std::optional(_Position);
  const std::string formula = CompletedFormula();
  if (formula == "0") return {position, "0.0"};
  int status = 0;  // a formula that fails gives the time 0
  double time = timevalue::TimeOfFormula(formula, _System, status);
  for (const SystemFactor& factor : SystemFactors) {
    const bool holds = factor.CodeID.empty() || (_Entry != nullptr && factor.CodeID == _Entry->_CodeID.Bytes());
    if (holds && factor.System == _System) time *= factor.Factor;
  }
  return {position, kornumber::PrintReal(time)};
}

}  // namespace

CodeTime LookUpCode(std::string_view code, const datacard::EntryTable* table, std::string_view system) {
  if (table == nullptr) return Lookup(code, system).Finish();
  LookupMemory& memory = LookupRoom::OfThread().Memory;
  memory.Enter(table->Number(), system, timevalue::DecimalCharacterInForce());
  if (const CodeTime* answer = memory.Find(code)) return *answer;
  Lookup lookup(code, system);
  lookup.Visit(*table);
  const CodeTime answer = lookup.Finish();
  memory.Remember(code, answer);
  return answer;
}

long OptionsOfCode(std::string_view code, const datacard::EntryTable* table, std::string_view system) {
  long options = 0;
  if (table == nullptr) return options;
  const std::string compared = ComparedForm(code, std::numeric_limits<int>::max());
  LookupRoom& room = LookupRoom::OfThread();
  table->Index().FindPatternCandidates(compared, room.Candidates);
  for (const std::uint32_t position : room.Candidates) {
    const Entry& entry = table->Records()[position];
    const datacard::CodePattern& pattern = table->Index().PatternAt(position);
    if (!datacard::MatchesWhole(pattern, compared, system == "SAM", room.Matches)) continue;
    room.Numbers.Take(pattern, room.Matches);
    if (room.Numbers.Numbers().IsSet(IntegerOf(entry._OptionParID))) options |= IntegerOf(entry._OptionID);
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
