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

  // A row of the analysis, and what of it stands where in the file.
  struct Row {
    int Number;
    int InFile;
    bool IsText;
    bool IsReuse;
    std::string_view OwnTime;  // key under which its time stands
  };

  Row RowOf(int number, int in_file) {
    const KORKeyedValues values = ValuesOfLine(_Written, number);
    KORUnicodeString time_type;
    (void)values.Get("TimeType", time_type);
    const std::string_view key = TimeKeyOf(time_type.Bytes());
    return {number, in_file, IsTextLine(_Written, number), MeansAnalysis(values.Look("TimeAnalysis")),
            key.empty() ? TimeKeys.front() : key};
  }

  void CompareRow(int number, int in_file) {
    const Row row = RowOf(number, in_file);
    const KORKeyedValues written = ValuesOfLine(_Written, number);
    const KORKeyedValues reread = ValuesOfLine(_Reread, in_file);
    written.ForEach([&](std::string_view key, const View& value) { CompareValue(row, key, value, reread.Look(key)); });
    CompareGained(row, written, reread);
    if (HaveSameFormulas(_Written, number, _Reread, in_file)) return;
    _Found.Losses.push_back(
        {number, KORFormulaParameterKey, ParameterNamesOfLine(_Written, number), LossCause::Changed, ""});
  }

  void CompareValue(const Row& row, std::string_view key, const View& value, const std::optional<View>& other) {
    if (Has(TextColumns, key)) return CompareText(row, key, value, other);
    if (key == "Factor") return CompareFrequency(row, value, other);
    if (MeanSame(value, other)) return;
    if (key == "TimeAnalysis" || (key == row.OwnTime && !row.IsReuse)) {
      Add(row.Number, key, value, other);
    } else if (key == "TotalTime" || key == row.OwnTime || key == "FrequencyString") {
      _Found.ComputedRows.insert(row.Number);
    } else if (key == "RowNum") {
      if (row.Number == row.InFile) Add(row.Number, key, value, other);
    } else {
      LeaveOut(key);
    }
  }

  // A row that is nothing but texts has no frequency, and needs none.
  void CompareFrequency(const Row& row, const View& value, const std::optional<View>& other) {
    if (row.IsText) {
      if (!MeanSame(value, other)) LeaveOut("Factor");
    } else if (!AreSameFrequencies(value, other)) {
      Add(row.Number, "Factor", value, other);
    }
  }

  static bool MeansAnalysis(const std::optional<View>& value) {
    return value && TypeOf(*value) == ExchangeType::Analysis && SaysSomething(*value);
  }

  void CompareText(const Row& row, std::string_view key, const View& value, const std::optional<View>& other) {
    if (AreSameTexts(value, other)) return;
    const bool has_nothing = AreSameTexts(value, std::nullopt);
    if (has_nothing && (key == "FactorString" || key == "Description")) return;
    const bool has_no_effect = row.IsText && (key == "TimeType" || key == "FactorString");
    has_no_effect ? LeaveOut(key) : Add(row.Number, key, value, other);
  }

  // What a row of a file has, and the line has not.
  void CompareGained(const Row& row, const KORKeyedValues& written, const KORKeyedValues& reread) {
    if (row.IsText) return;
    for (const std::string_view key : {"Code", "TimeType"}) {
      const std::optional<View> gained = reread.Look(key);
      if (!written.Look(key) && gained && SaysSomething(*gained)) {
        Add(row.Number, key, View(std::string_view()), gained);
      }
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
