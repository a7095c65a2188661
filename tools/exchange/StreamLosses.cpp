// What a stream cannot hold of an analysis.
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "tools/exchange/Losses.h"
#include "tools/exchange/StreamText.h"

namespace tool {

namespace {

using View = KORKeyedValues::View;

// An object that is null says as little as one that is not there.
bool SaysNothing(const View& value) {
  const auto* const object = std::get_if<KORBaseUnknown_var>(&value);
  return object != nullptr && object->IsNull();
}

class StreamComparison {
 public:
  StreamComparison(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread,
                   ExchangeVocabulary& vocabulary)
      : _Written(written), _Reread(reread), _Vocabulary(vocabulary) {}

  std::vector<Loss> Compare() {
    CompareAttributes();
    const int reread_count = CountLines(_Reread);
    for (int row = 1, count = CountLines(_Written); row <= count; ++row) {
      if (row > reread_count) {
        Add(row, "RowNum", "", LossCause::LineMissing);
      } else {
        CompareLine(row);
      }
    }
    return std::move(_Losses);
  }

 private:
  void CompareAttributes() {
    const KORKeyedValues& written = _Written.GetAttributes();
    const KORKeyedValues& reread = _Reread.GetAttributes();
    written.ForEach([&](std::string_view name, const View& value) {
      if (name == "PLM_ExternalID") return;  // by which the stream is called
      const std::optional<View> other = reread.Look(name);
      if (!other || !IsSameValue(value, *other)) AddAttribute(name, value, other);
    });
    reread.ForEach([&](std::string_view name, const View& value) {
      if (name == "PLM_ExternalID" || written.Look(name) || HasTwin(name)) return;
      Add(0, name, "", LossCause::Changed, TextOfValue(value));
    });
  }

  // True if the analysis has another attribute that the exchange calls the same: both have one value then.
  bool HasTwin(std::string_view name) { return FirstTwin(name).has_value(); }

  std::optional<std::string_view> FirstTwin(std::string_view name) {
    const std::string& key = _Vocabulary.OfAttribute(name).Key;
    std::optional<std::string_view> found;
    if (key.empty()) return found;
    _Written.GetAttributes().ForEach([&](std::string_view other, const View& /*value*/) {
      if (!found && other != name && _Vocabulary.OfAttribute(other).Key == key) found = other;
    });
    return found;
  }

  void AddAttribute(std::string_view name, const View& value, const std::optional<View>& reread) {
    const ExchangeName& known = _Vocabulary.OfAttribute(name);
    if (known.Type == ExchangeType::None) {
      return Add(0, name, TextOfValue(value), FollowsFromOthers(name) ? LossCause::SecondsDiffer : LossCause::NoName);
    }
    const std::optional<std::string_view> twin = FirstTwin(name);
    const bool other_is_carried = twin && FitsIntoStream(TextOfValue(value));
    if (other_is_carried && known.Type == TypeOf(value)) {
      return Add(0, name, TextOfValue(value), LossCause::OtherNameCarried, std::string(*twin));
    }
    AddValue(0, name, value, known, reread);
  }

  void CompareLine(int row) {
    const KORKeyedValues written = ValuesOfLine(_Written, row);
    const KORKeyedValues reread = ValuesOfLine(_Reread, row);
    const std::string parameters = ParameterNamesOfLine(_Written, row);
    written.ForEach([&](std::string_view key, const View& value) {
      const std::optional<View> other = reread.Look(key);
      if (SaysNothing(value) || (other && IsSameValue(value, *other))) return;
      const ExchangeName& known = _Vocabulary.OfLineKey(key);
      if (known.Type == ExchangeType::None) {
        const bool told_with_formula = FollowsFromOthers(key) && !parameters.empty();
        return told_with_formula ? void() : Add(row, key, TextOfValue(value), LossCause::NoName);
      }
      if (key == "RowNum") return Add(row, key, TextOfValue(value), LossCause::RowNumber, std::to_string(row));
      AddValue(row, key, value, known, other);
    });
    reread.ForEach([&](std::string_view key, const View& value) {
      if (written.Look(key)) return;
      Add(row, key, "", key == "RowNum" ? LossCause::RowNumber : LossCause::Changed, TextOfValue(value));
    });
    if (!parameters.empty()) Add(row, KORFormulaParameterKey, parameters, LossCause::Formula);
  }

  void AddValue(int row, std::string_view name, const View& value, const ExchangeName& known,
                const std::optional<View>& reread) {
    const std::string text = TextOfValue(value);
    if (const std::string_view separator = SeparatorIn(text); !separator.empty()) {
      return Add(row, name, text, LossCause::Separator, std::string(separator));
    }
    if (TypeOf(value) != known.Type) {
      return Add(row, name, text, LossCause::OtherType, std::string(WordsOf(known.Type)));
    }
    Add(row, name, text, LossCause::Changed, reread ? TextOfValue(*reread) : "");
  }

  void Add(int row, std::string_view name, std::string value, LossCause cause, std::string detail = "") {
    _Losses.push_back({row, std::string(name), std::move(value), cause, std::move(detail)});
  }

  VEXTimeAnalysisRepReference& _Written;
  VEXTimeAnalysisRepReference& _Reread;
  ExchangeVocabulary& _Vocabulary;
  std::vector<Loss> _Losses;
};

}  // namespace

bool IsSameValue(const View& left, const View& right) {
  if (left.index() != right.index()) return false;
  if (const auto* const truth = std::get_if<unsigned char>(&left)) {
    return (*truth != 0) == (std::get<unsigned char>(right) != 0);
  }
  if (const auto* const number = std::get_if<double>(&left)) {
    const double other = std::get<double>(right);
    if (std::isnan(*number) && std::isnan(other)) return std::signbit(*number) == std::signbit(other);
    return std::bit_cast<std::uint64_t>(*number) == std::bit_cast<std::uint64_t>(other);
  }
  const bool is_object = std::holds_alternative<KORBaseUnknown_var>(left);
  return is_object ? TextOfValue(left) == TextOfValue(right) : left == right;
}

std::string ParameterNamesOfLine(VEXTimeAnalysisRepReference& analysis, int row) {
  VEXTimeAnalysisLineData line;
  (void)analysis.GetLine(row, line);
  const auto stored = line.GetContent().Parameters;
  std::string names;
  if (stored == nullptr) return names;
  for (const std::optional<VEXTimeAnalysisFormulaParameter>& parameter : *stored) {
    if (!names.empty()) names += ", ";
    names += parameter ? std::string(parameter->_ParameterName.Bytes()) : "nothing";
  }
  return names;
}

std::vector<Loss> LossesOfStream(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread,
                                 ExchangeVocabulary& vocabulary) {
  return StreamComparison(written, reread, vocabulary).Compare();
}

}  // namespace tool
