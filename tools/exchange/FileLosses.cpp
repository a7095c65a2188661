// What a file of calc cannot hold of an analysis.
//
// A file tells what calc starts from. Values that are not set count as those that say the same: a text as an empty one,
// a frequency as 1, a time as none. A negative frequency is a mark for none of its own, a negative time one for none.
#include "tools/exchange/FileLosses.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tool {

namespace {

using View = KORKeyedValues::View;

constexpr std::array<std::string_view, 4> Properties{"PLM_ExternalID", "V_Name", "V_description", "V_Subsystem"};
constexpr std::array<std::string_view, 10> Totals{"TTBCalculated",   "TTUCalculated", "TWCalculated",  "TRGCalculated",
                                                  "TotalCalculated", "V_HumanTime",   "V_MachineTime", "V_WaitingTime",
                                                  "V_SetupTime",     "V_TotalTime"};
constexpr std::array<std::string_view, 7> TextColumns{"Code",           "Description", "TimeType",      "FactorString",
                                                      "AddDescription", "ValueAdded",  "FormulaPicture"};
constexpr std::array<std::string_view, 4> TimeKeys{"TTBTime", "TTUTime", "TWTime", "TRGTime"};

template <class Names>
bool Has(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// False for values that mean none: empty and blank texts, 0, negative numbers, no, no analysis.
bool SaysSomething(const View& value) {
  if (const auto* const text = std::get_if<std::string_view>(&value)) return !Trimmed(*text).empty();
  if (const auto* const number = std::get_if<double>(&value)) return !(*number <= 0.0);
  if (const auto* const number = std::get_if<int>(&value)) return *number != 0;
  if (const auto* const truth = std::get_if<unsigned char>(&value)) return *truth != 0;
  return !std::get<KORBaseUnknown_var>(value).IsNull();
}

bool MeanSame(const std::optional<View>& left, const std::optional<View>& right) {
  if (!left) return !right || !SaysSomething(*right);
  if (!right) return !SaysSomething(*left);
  return IsSameValue(*left, *right) || (!SaysSomething(*left) && !SaysSomething(*right));
}

// A text is not the same as none where blanks are kept.
bool AreSameTexts(const std::optional<View>& left, const std::optional<View>& right) {
  const View empty{std::string_view()};
  return IsSameValue(left.value_or(empty), right.value_or(empty));
}

bool AreSameFrequencies(const std::optional<View>& left, const std::optional<View>& right) {
  const auto effective = [](const std::optional<View>& value) -> View {
    const double* const number = value ? std::get_if<double>(&*value) : nullptr;
    if (value && number == nullptr) return *value;
    return number == nullptr || *number < 0.0 ? View(1.0) : View(*number);
  };
  return IsSameValue(effective(left), effective(right));
}

bool HaveSameFormulas(VEXTimeAnalysisRepReference& left, int left_row, VEXTimeAnalysisRepReference& right,
                      int right_row) {
  const auto stored = [](VEXTimeAnalysisRepReference& analysis, int row) {
    VEXTimeAnalysisLineData line;
    (void)analysis.GetLine(row, line);
    const auto parameters = line.GetContent().Parameters;
    return parameters == nullptr ? KORStoredParameters() : *parameters;
  };
  using Stored = KORStoredParameters::value_type;
  return std::ranges::equal(stored(left, left_row), stored(right, right_row), [](const Stored& one, const Stored& two) {
    return one && two ? one->HasSameValues(*two) : !one && !two;
  });
}

class Comparison {
 public:
  Comparison(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread, const std::vector<int>& rows,
             ExchangeVocabulary& vocabulary)
      : _Written(written), _Reread(reread), _Rows(rows), _Vocabulary(vocabulary) {}

  FileComparison Compare() {
    CompareAttributes();
    CompareRows();
    return std::move(_Found);
  }

 private:
  void CompareAttributes() {
    const KORKeyedValues& reread = _Reread.GetAttributes();
    _Written.GetAttributes().ForEach([&](std::string_view name, const View& value) {
      const std::optional<View> other = reread.Look(name);
      if (Has(Properties, name)) {
        if (!AreSameTexts(value, other)) Add(0, name, value, other);
      } else if (Has(Totals, name)) {
        if (!MeanSame(value, other)) _Found.Computed.emplace(name);
      } else if (SaysSomething(value) && !IsHeldByProperty(name, value)) {
        _Found.Attributes.emplace(name);
      }
    });
  }

  // True if a property has the same name in the exchange, and the same value.
  bool IsHeldByProperty(std::string_view name, const View& value) {
    const std::string& key = _Vocabulary.OfAttribute(name).Key;
    return std::any_of(Properties.begin(), Properties.end(), [&](std::string_view property) {
      const std::optional<View> held = _Written.GetAttributes().Look(property);
      return held && !key.empty() && _Vocabulary.OfAttribute(property).Key == key && IsSameValue(*held, value);
    });
  }

  void CompareRows() {
    const auto is_in_file = [this](int row) { return std::binary_search(_Rows.begin(), _Rows.end(), row); };
    for (int row = 1, count = CountLines(_Written); row <= count; ++row) {
      if (!is_in_file(row)) _Found.Losses.push_back({row, "RowNum", "", LossCause::LineMissing, ""});
    }
    const int reread_count = CountLines(_Reread);
    for (std::size_t index = 0; index < _Rows.size(); ++index) {
      const int file_row = static_cast<int>(index) + 1;
      if (file_row > reread_count) {
        _Found.Losses.push_back({_Rows[index], "RowNum", "", LossCause::LineMissing, ""});
      } else {
        CompareRow(_Rows[index], file_row);
      }
    }
  }

  void CompareRow(int row, int file_row) {
    const KORKeyedValues reread = ValuesOfLine(_Reread, file_row);
    const KORKeyedValues written = ValuesOfLine(_Written, row);
    const bool is_text = IsTextLine(_Written, row);
    KORUnicodeString time_type;
    (void)written.Get("TimeType", time_type);
    const std::string_view known_key = TimeKeyOf(time_type.Bytes());
    const std::string_view own_time = known_key.empty() ? TimeKeys.front() : known_key;
    const bool is_reuse = MeansAnalysis(written.Look("TimeAnalysis"));
    written.ForEach([&](std::string_view key, const View& value) {
      const std::optional<View> other = reread.Look(key);
      if (Has(TextColumns, key)) {
        CompareText(row, key, value, other, is_text);
      } else if (key == "Factor") {
        if (is_text ? MeanSame(value, other) : AreSameFrequencies(value, other)) return;
        is_text ? LeaveOut(key) : Add(row, key, value, other);
      } else if (MeanSame(value, other) || key == KORFormulaParameterKey) {
        return;
      } else if (key == "TimeAnalysis" || (key == own_time && !is_reuse)) {
        Add(row, key, value, other);
      } else if (key == "TotalTime" || key == own_time || key == "FrequencyString") {
        _Found.ComputedRows.insert(row);
      } else if (key == "RowNum") {
        if (row == file_row) Add(row, key, value, other);
      } else {
        LeaveOut(key);
      }
    });
    CompareGained(row, written, reread, is_text);
    if (!HaveSameFormulas(_Written, row, _Reread, file_row)) {
      _Found.Losses.push_back(
          {row, KORFormulaParameterKey, ParameterNamesOfLine(_Written, row), LossCause::Changed, ""});
    }
  }

  static bool MeansAnalysis(const std::optional<View>& value) {
    return value && TypeOf(*value) == ExchangeType::Analysis && SaysSomething(*value);
  }

  void CompareText(int row, std::string_view key, const View& value, const std::optional<View>& other, bool is_text) {
    if (AreSameTexts(value, other)) return;
    const bool has_nothing = AreSameTexts(value, std::nullopt);
    if (has_nothing && (key == "FactorString" || key == "Description")) return;
    const bool has_no_effect = is_text && (key == "TimeType" || key == "FactorString");
    has_no_effect ? LeaveOut(key) : Add(row, key, value, other);
  }

  // What a row of a file has, and the line has not.
  void CompareGained(int row, const KORKeyedValues& written, const KORKeyedValues& reread, bool is_text) {
    if (is_text) return;
    for (const std::string_view key : {"Code", "TimeType"}) {
      const std::optional<View> gained = reread.Look(key);
      if (!written.Look(key) && gained && SaysSomething(*gained)) Add(row, key, View(std::string_view()), gained);
    }
  }

  void LeaveOut(std::string_view key) { _Found.Keys.emplace(key); }

  void Add(int row, std::string_view name, const View& value, const std::optional<View>& reread) {
    _Found.Losses.push_back({row, std::string(name), TextOfValue(value), LossCause::Changed,
                             reread ? TextOfValue(*reread) : std::string()});
  }

  VEXTimeAnalysisRepReference& _Written;
  VEXTimeAnalysisRepReference& _Reread;
  const std::vector<int>& _Rows;
  ExchangeVocabulary& _Vocabulary;
  FileComparison _Found;
};

}  // namespace

FileComparison CompareWithFile(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread,
                               const std::vector<int>& rows, ExchangeVocabulary& vocabulary) {
  return Comparison(written, reread, rows, vocabulary).Compare();
}

}  // namespace tool
