// Analyses as lists.
#include "tools/exchange/ListWriter.h"

#include <functional>

#include "VEXTADataIO.h"
#include "tools/exchange/AnalysisStandIn.h"
#include "tools/exchange/Losses.h"

namespace tool {

namespace {

// An analysis without the names that the exchange has none for, which would each leave a line in the trace.
class NamedView : public AnalysisStandIn {
 public:
  NamedView(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary)
      : _Analysis(analysis), _Vocabulary(vocabulary) {}

  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    KORListValKORUnicodeString all_names, all_values;
    const long status = _Analysis.GetAllValues(all_names, all_values);
    Keep([this](std::string_view name) { return !_Vocabulary.OfAttribute(name).Key.empty(); }, all_names, all_values,
         names, values);
    return status;
  }

  long GetLineCount(int& count) override { return _Analysis.GetLineCount(count); }
  long GetLine(int row, VEXTimeAnalysisLineData& line) override { return _Analysis.GetLine(row, line); }

  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    KORListValKORUnicodeString all_names, all_values;
    const long status = _Analysis.GetLineAttributes(row, all_names, all_values);
    Keep([this](std::string_view key) { return !_Vocabulary.OfLineKey(key).Key.empty(); }, all_names, all_values, names,
         values);
    return status;
  }

 private:
  static void Keep(const std::function<bool(std::string_view)>& is_kept, const KORListValKORUnicodeString& all_names,
                   const KORListValKORUnicodeString& all_values, KORListValKORUnicodeString& names,
                   KORListValKORUnicodeString& values) {
    names.RemoveAll();
    values.RemoveAll();
    for (int position = 1; position <= all_names.Size(); ++position) {
      if (!is_kept(all_names[position].Bytes())) continue;
      names.Append(all_names[position]);
      values.Append(all_values[position]);
    }
  }

  VEXTimeAnalysisRepReference& _Analysis;
  ExchangeVocabulary& _Vocabulary;
};

bool IsLeftOut(std::string_view name, const ExchangeName& known) {
  return known.Key.empty() && !FollowsFromOthers(name);
}

}  // namespace

std::string ListOf(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary) {
  NamedView view(analysis, vocabulary);
  KORListValKORUnicodeString items;
  (void)VEXTADataIO::GetAnalysisData("", items, &view);
  std::string list;
  for (const KORUnicodeString& item : items) {
    list += item.Bytes();
    list += '\n';
  }
  return list;
}

UnnamedValues FindUnnamed(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary) {
  UnnamedValues unnamed;
  analysis.GetAttributes().ForEach([&](std::string_view name, const KORKeyedValues::View& /*value*/) {
    if (IsLeftOut(name, vocabulary.OfAttribute(name))) unnamed.Attributes.emplace(name);
  });
  for (int row = 1, count = CountLines(analysis); row <= count; ++row) {
    ValuesOfLine(analysis, row).ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
      if (IsLeftOut(key, vocabulary.OfLineKey(key))) unnamed.Keys.emplace(key);
      const auto* const object = std::get_if<KORBaseUnknown_var>(&value);
      if (object != nullptr && !object->IsNull()) unnamed.ReuseRows.insert(row);
    });
    if (!ParameterNamesOfLine(analysis, row).empty()) unnamed.FormulaRows.insert(row);
  }
  return unnamed;
}

}  // namespace tool
