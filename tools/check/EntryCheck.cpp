// One entry of a catalogue put through the lookup.
#include "tools/check/EntryCheck.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>

#include "tools/LookupForm.h"
#include "tools/LookupFormula.h"
#include "tools/NumberText.h"
#include "tools/PatternMatch.h"
#include "tools/PatternText.h"
#include "tools/check/PatternFlaws.h"
#include "tools/check/SampleCodes.h"

namespace tool {

namespace {

constexpr std::size_t MostRounds = 2000;
constexpr std::size_t LeastRounds = 24;

std::optional<int> WholeNumber(const KORUnicodeString& text) {
  const std::string_view bytes = text.Bytes();
  int number = 0;
  const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
  if (error != std::errc() || end != bytes.data() + bytes.size()) return std::nullopt;
  return number;
}

bool IsParameter(const PatternToken& token) {
  return token.Kind == PatternKind::Integer || token.Kind == PatternKind::Real;
}

bool TakesPart(const PatternToken& token) {
  return IsParameter(token) || token.Kind == PatternKind::Literal || token.Kind == PatternKind::EmptyLiteral;
}

// The formula with its first pair of "$", and what stands between, replaced by a number.
std::string WithNumber(const std::string& formula, const std::string& number) {
  const std::size_t first = formula.find('$');
  if (first == std::string::npos) return formula;
  const std::size_t second = formula.find('$', first + 1);
  if (second == std::string::npos) return formula;
  return formula.substr(0, first) + number + formula.substr(second + 1);
}

// Position of the token that stands for the entry's option; the first one unless told.
std::size_t OptionPosition(const VEXSTMDataCardEntriesScan& entry) {
  return static_cast<std::size_t>(std::max(0, WholeNumber(entry._OptionParID).value_or(0)));
}

}  // namespace

// Codes that a pattern accepted so far, token by token and entry by entry.
struct EntryCheck::SampleTally {
  explicit SampleTally(std::size_t token_count) : Taken(token_count) {}

  std::vector<bool> Taken;  // by token: whether it took part in any match
  std::string Refused;      // the first code that was not accepted
  bool Matched = false;     // some code was accepted
  bool Selected = false;    // and the token that stands for the option took part
  bool Answered = false;    // and this entry gave the answer
  std::string OtherCode;    // the first code that another entry answered, and that entry
  int OtherEntry = -1;
  bool FormulaTold = false;  // that the formula fails
};

bool EntryCheck::AllTaken(const std::vector<PatternToken>& tokens, const SampleTally& tally) {
  for (std::size_t token = 0; token < tokens.size(); ++token) {
    if (TakesPart(tokens[token]) && !tally.Taken[token]) return false;
  }
  return true;
}

EntryCheck::EntryCheck(VEXSTMTimeAnalysisDlgServices& service)
    : _Service(service), _PartsWithPlus(service.GetSubsystem() == KORUnicodeString("SAM")) {
}

std::vector<LineFlaw> EntryCheck::Check(int index, const EntryFields& fields) {
  _Fields = &fields;
  _Flaws.clear();
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  if (entry._CodeID.IsEmpty() || entry._Code.IsEmpty()) return {};  // told by its fields; no lookup reaches it
  if (fields.Lines.contains("TIME") && entry._Time.IsEmpty()) {
    Add("TIME", findingkind::Missing, "TIME is empty; write 0 for no time");
  }
  CheckOption(index);
  CheckReferences(index);
  entry._Pattern.IsEmpty() ? CheckCode(index) : CheckPattern(index);
  CheckNumber(index);
  CheckExample(index);
  return std::move(_Flaws);
}

void EntryCheck::Add(const char* field, const char* kind, const std::string& text) {
  _Flaws.push_back({_Fields->LineOf(field), {kind, text}});
}

// The entry (from 0) that gives the answer to a code; -1 if none does.
int EntryCheck::AnsweringEntry(const std::string& code) {
  IsKnownCode(_Service, code);
  return _Service.GetCodeIndex();
}

void EntryCheck::CheckPattern(int index) {
  const std::vector<PatternToken> tokens = ReadPatternText(_Service.GetDCEntry(index)->_Pattern.Bytes());
  for (const Flaw& flaw : FindPatternFlaws(tokens, _PartsWithPlus)) Add("PATTERN", flaw.Kind, flaw.Text);
  if (tokens.size() > static_cast<std::size_t>(LookupArrayLength)) {
    Add("PATTERN", findingkind::Pattern,
        std::to_string(tokens.size()) + " tokens; lookups keep " + std::to_string(LookupArrayLength));
    return;
  }
  CheckSamples(index);
}

// Tries the pattern with codes built from it, and the formula with what they give.
void EntryCheck::CheckSamples(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  const std::vector<PatternToken> tokens = ReadPatternText(entry._Pattern.Bytes());
  const MatchablePattern pattern(_Service, entry._Pattern.Bytes());
  SampleCodes samples(tokens, _PartsWithPlus);
  SampleTally tally(tokens.size());
  const std::size_t least = std::max(LeastRounds, samples.RoundsInTurn());
  for (std::size_t round = 0; round < MostRounds; ++round) {
    if (round >= least && tally.Answered && AllTaken(tokens, tally)) break;
    const std::string code = samples.Build(round);
    const PatternMatch match = pattern.Match(code);
    if (match.Matches) {
      TakeMatch(index, code, match, tally);
    } else if (tally.Refused.empty()) {
      tally.Refused = code;
    }
  }
  TellWhatIsNeverReached(index, tokens, tally);
}

// Counts a code that the pattern accepts; if the token of the option took part, the lookup takes the entry over.
void EntryCheck::TakeMatch(int index, const std::string& code, const PatternMatch& match, SampleTally& tally) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  tally.Matched = true;
  for (std::size_t token = 0; token < tally.Taken.size(); ++token) {
    if (match.Flags[token] != 0) tally.Taken[token] = true;
  }
  const std::size_t option = OptionPosition(entry);
  if (option >= match.Flags.size() || match.Flags[option] == 0) return;
  tally.Selected = true;
  const int answering = AnsweringEntry(code);
  tally.Answered = tally.Answered || answering == index;
  if (answering != index && tally.OtherEntry < 0) {
    tally.OtherEntry = answering;
    tally.OtherCode = code;
  }
  if (tally.FormulaTold) return;
  const std::string formula = std::string(entry._Time.Bytes()) + std::string(entry._OptionTime.Bytes());
  tally.FormulaTold = CheckFormula(formula, match.Values.data(), match.Flags.data(), code);
}

void EntryCheck::TellWhatIsNeverReached(int index, const std::vector<PatternToken>& tokens, const SampleTally& tally) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  if (!tally.Matched) {
    Add("PATTERN", findingkind::Never, "no code matches; \"" + tally.Refused + "\", for one, is not accepted");
    return;
  }
  if (!tally.Selected) {
    const std::string position = "the entry is never taken, since position " + std::to_string(OptionPosition(entry));
    entry._OptionParID.IsEmpty()
        ? Add("PATTERN", findingkind::Never, position + ", where an entry without PAR_ID begins, never takes part")
        : Add("OPTION", findingkind::Never, position + " (PAR_ID) never takes part");
  } else if (!tally.Answered && tally.OtherEntry >= 0) {
    Add("PATTERN", findingkind::Duplicate,
        "never answers: \"" + tally.OtherCode + "\", for one, is answered by " + EntryName(_Service, tally.OtherEntry));
  }
  for (std::size_t token = 0; token < tokens.size(); ++token) {
    if (!TakesPart(tokens[token]) || tally.Taken[token]) continue;
    Add("PATTERN", findingkind::Never,
        tokens[token].Source + " at position " + std::to_string(token) + " never takes part" +
            (tally.Refused.empty() ? "" : "; \"" + tally.Refused + "\", for one, is not accepted"));
  }
}

// An entry without pattern answers its code as it stands.
void EntryCheck::CheckCode(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  const std::string code(entry._Code.Bytes());
  const std::string form = LookupForm(code);
  const bool numbered = !entry._Par1Start.IsEmpty() || !entry._Par1End.IsEmpty();
  if (form != code) {
    Add("CODE", findingkind::Never, "codes are compared in upper case and without blanks; write " + form);
    return;
  }
  const int answering = AnsweringEntry(code);
  if (answering < 0) {
    Add("CODE", findingkind::Never,
        "a lookup of the code does not find it; short codes that begin with M and end in A, "
        "B or C are looked up with a 1 behind them");
  } else if (answering != index && !numbered) {
    Add("CODE", findingkind::Duplicate, "the code is answered by " + EntryName(_Service, answering));
  }
  if (numbered && entry._Time.SearchSubString(KORUnicodeString("$")) >= 0) return;  // the code needs its number
  CheckFormula(std::string(entry._Time.Bytes()), nullptr, nullptr, code);
}

// The number behind the code: strictly between its bounds, or equal to both.
void EntryCheck::CheckNumber(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  if (entry._Par1Start.IsEmpty() && entry._Par1End.IsEmpty()) return;
  const auto lower = WholeNumber(entry._Par1Start);
  const auto upper = WholeNumber(entry._Par1End);
  if (!lower || !upper) {
    Add(lower ? "PAR_1_END" : "PAR_1_START", findingkind::Range,
        std::string(lower ? "PAR_1_END" : "PAR_1_START") + " is no whole number");
    return;
  }
  if (*lower == 0 && *upper == 0) return;  // no number
  if (*lower > *upper) {
    Add("PAR_1_START", findingkind::Range, "PAR_1_START is above PAR_1_END; no number lies between");
    return;
  }
  double number = *lower == *upper ? *lower : *lower + 1;
  if (*lower + 1 == *upper) number = *lower + 0.5;
  if (number == 0.0) number = 0.5;  // a 0 behind the code counts as none
  const std::string text = NumberText(number);
  const std::string time(entry._Time.Bytes());
  CheckFormula(*lower == *upper ? time : WithNumber(time, text), nullptr, nullptr,
               std::string(entry._Code.Bytes()) + text);
}

void EntryCheck::CheckOption(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  if (!_Fields->Lines.contains("OPTION")) return;
  if (entry._Pattern.IsEmpty()) {
    Add("OPTION", findingkind::Unread, "an option needs a pattern; the entry has none");
    return;
  }
  if (!entry._OptionParID.IsEmpty()) {
    const auto position = WholeNumber(entry._OptionParID);
    const auto count = ReadPatternText(entry._Pattern.Bytes()).size();
    if (!position || *position < 0 || static_cast<std::size_t>(*position) >= count) {
      Add("OPTION", findingkind::Range, "PAR_ID names no position of the pattern, which has " + std::to_string(count));
    }
  }
  if (!entry._OptionID.IsEmpty() && !WholeNumber(entry._OptionID)) {
    Add("OPTION", findingkind::Range, "OPTION_ID is no whole number");
  }
}

// "$n$" in the formula of an entry with a pattern has to name a parameter.
void EntryCheck::CheckReferences(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Service.GetDCEntry(index);
  if (entry._Pattern.IsEmpty()) return;
  const std::vector<PatternToken> tokens = ReadPatternText(entry._Pattern.Bytes());
  for (const auto& [field, text] : {std::pair("TIME", entry._Time), std::pair("OPTION", entry._OptionTime)}) {
    const std::string formula(text.Bytes());
    for (std::size_t open = formula.find('$'); open != std::string::npos;) {
      const std::size_t close = formula.find('$', open + 1);
      if (close == std::string::npos) {
        Add(field, findingkind::Formula, "a \"$\" of \"" + formula + "\" has no partner");
        break;
      }
      const std::string reference = formula.substr(open, close - open + 1);
      const auto position = WholeNumber(KORUnicodeString(std::string_view(formula).substr(open + 1, close - open - 1)));
      if (!position || *position < 0 || static_cast<std::size_t>(*position) >= tokens.size()) {
        Add(field, findingkind::Formula, reference + " names no position of the pattern");
      } else if (!IsParameter(tokens[static_cast<std::size_t>(*position)])) {
        Add(field, findingkind::Formula,
            reference + " names " + tokens[static_cast<std::size_t>(*position)].Source + ", which is no parameter");
      }
      open = formula.find('$', close + 1);
    }
  }
}

void EntryCheck::CheckExample(int index) {
  if (_Fields->Example.empty()) return;
  const CodeAnswer answer = LookUpCode(_Service, _Fields->Example);
  if (!answer.Found) {
    Add("EXAMPLE", findingkind::Example, "no entry accepts " + _Fields->Example);
    return;
  }
  if (answer.Entry != index) {
    Add("EXAMPLE", findingkind::Example, _Fields->Example + " is answered by " + EntryName(_Service, answer.Entry));
  }
  CheckExampleOptions(answer);
  if (_Fields->ExampleTime.empty()) return;
  double expected = 0.0;
  const bool number = Succeeded(KORUnicodeString(std::string_view(_Fields->ExampleTime)).ConvertToNum(expected));
  if (number && expected == answer.Tmu) return;
  Add("EXAMPLE", findingkind::Example,
      _Fields->Example + " has the time " + std::string(answer.Time.Bytes()) + ", EXAMPLE_TIME says " +
          _Fields->ExampleTime);
}

void EntryCheck::CheckExampleOptions(const CodeAnswer& answer) {
  const std::string& expected = _Fields->ExampleOptionId;
  if (expected.empty()) return;
  const auto number = WholeNumber(KORUnicodeString(std::string_view(expected)));
  if (number && *number == answer.OptionId) return;
  Add("EXAMPLE", findingkind::Example,
      _Fields->Example + " has the options " + std::to_string(answer.OptionId) + ", EXAMPLE_OPTION_ID says " +
          expected);
}

// Evaluates the formula as a lookup of the code does. True if it fails, which is then told.
bool EntryCheck::CheckFormula(const std::string& formula, const double* values, const int* flags,
                              const std::string& code) {
  std::string text = formula;
  if (!text.empty() && std::isalpha(static_cast<unsigned char>(text.front()))) {
    std::replace(text.begin(), text.end(), ',', '_');
  }
  static const std::vector<double> no_values(LookupArrayLength);
  static const std::vector<int> no_flags(LookupArrayLength);
  KORUnicodeString evaluated{std::string_view(text)};
  _Service.SubstParameterCode(evaluated, values == nullptr ? no_values.data() : values,
                              flags == nullptr ? no_flags.data() : flags);
  int status = 0;
  _Service.GetTimeFromFormula(evaluated, status);
  if (status == 0) return false;
  Add("TIME", findingkind::Formula,
      "\"" + std::string(evaluated.Bytes()) + "\", from \"" + formula + "\" for the code " + code +
          ", fails with status " + std::to_string(status));
  return true;
}

}  // namespace tool
