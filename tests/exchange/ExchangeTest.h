// What the tests of the exchange share: items, short ways to write them in and to read them out, and the content of an
// analysis as plain texts.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "VEXTADataIO.h"
#include "platform/model/KORValueText.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace exchangetest {

using TextList = std::vector<std::string>;

/// A cell in the form that is read.
inline std::string Cell(const std::string& row, const std::string& column, const std::string& value,
                        const std::string& type = "8") {
  return "LineData:et_linedata:" + row + ":" + column + ":" + type + ":" + value;
}
inline std::string Cell(int row, int column, const std::string& value) {
  return Cell(std::to_string(row), std::to_string(column), value);
}

/// A header item, which names the next column.
inline std::string Header(const std::string& key) {
  return Cell("0", "0", key);
}

/// Writes items into the analysis that is given; its identifier plays no part. Returns the status.
inline long WriteIn(const TextList& items, KORBaseUnknown* analysis) {
  KORListValKORUnicodeString list = support::ListOf(items);
  return VEXTADataIO::SetAnalysisData("no analysis", list, analysis);
}
template <class Object>
long WriteIn(const TextList& items, const KORHandle<Object>& analysis) {
  return WriteIn(items, analysis->GetImpl(0));
}

struct Exchanged {
  long status;
  TextList items;
};

/// Reads the analysis that is given out into a list that holds `before`.
template <class Object>
Exchanged ReadOut(const KORHandle<Object>& analysis, const TextList& before = {}) {
  KORListValKORUnicodeString list = support::ListOf(before);
  const long status = VEXTADataIO::GetAnalysisData("no analysis", list, analysis->GetImpl(0));
  return {status, support::Texts(list)};
}

/// A value as a text that shows its type: 'text', 2.0, 2, true or false, <identifier of an analysis>.
inline std::string Shown(const KORKeyedValues::View& value) {
  const std::string text = support::Text(KORTextOfValue(value, KORBooleanWords));
  if (std::holds_alternative<std::string_view>(value)) return "'" + text + "'";
  if (std::holds_alternative<KORBaseUnknown_var>(value)) return "<" + text + ">";
  if (const auto* const truth = std::get_if<unsigned char>(&value))
    return *truth == 1 ? "true" : *truth == 0 ? "false" : "neither";
  const bool is_whole_real = std::holds_alternative<double>(value) && text.find_first_of(".en") == std::string::npos;
  return is_whole_real ? text + ".0" : text;
}

/// Values as "KEY=VALUE", in their order. The identifier of an analysis is left out.
inline TextList Shown(const std::string& before, const KORKeyedValues& values) {
  TextList content;
  values.ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
    if (key != "PLM_ExternalID") content.push_back(before + std::string(key) + "=" + Shown(value));
  });
  return content;
}

/// The attributes of an analysis, each as "NAME=VALUE".
inline TextList AttributesOf(const VEXTimeAnalysisRepReference& analysis) {
  return Shown("", analysis.GetAttributes());
}

/// The values of the lines of an analysis, each as "ROW KEY=VALUE".
inline TextList LinesOf(VEXTimeAnalysisRepReference& analysis) {
  TextList content;
  VEXTimeAnalysisLineData line;
  for (int row = 1; analysis.GetLine(row, line) == S_OK; ++row) {
    const TextList values = Shown(std::to_string(row) + " ", line.GetContent().Values);
    content.insert(content.end(), values.begin(), values.end());
  }
  return content;
}

inline int LineCount(VEXTimeAnalysisRepReference& analysis) {
  int count = -1;
  (void)analysis.GetLineCount(count);
  return count;
}

/// A new analysis without an identifier, so that reading it out has nothing to tell in the trace.
inline support::TimeAnalysis_var NewAnalysis(const std::vector<support::Line>& lines = {}) {
  auto analysis = support::TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference);
  support::AppendLines(*analysis, lines);
  return analysis;
}

/// One with an attribute and a line, to be filled anew.
inline support::TimeAnalysis_var OldAnalysis() {
  const support::TimeAnalysis_var analysis = NewAnalysis({support::Line("OLD")});
  (void)analysis->SetValue("Note", KORUnicodeString("old"));
  return analysis;
}

/// One list behind the other.
inline TextList Joined(TextList first, const TextList& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace exchangetest
