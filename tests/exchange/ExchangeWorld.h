// A session with analyses that reuse each other, one of which is to be read out or filled. Two worlds of one seed are
// alike, so that two operations can do the same to them and what becomes of them can be compared.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/RandomContent.h"
#include "tests/support/AnalysisBuilder.h"

namespace exchangetest {

/// A value with its type, for a key that is set.
template <class Holder>
std::string DescribeType(Holder& holder, const char* key) {
  if (support::Read<KORUnicodeString>(holder, key)) return "text";
  if (support::Read<double>(holder, key)) return "real";
  if (support::Read<int>(holder, key)) return "integer";
  if (const auto flag = support::Read<unsigned char>(holder, key)) return "boolean " + std::to_string(*flag);
  return "object";
}

template <class Holder>
std::string DescribeTypes(Holder& holder, const KORListValKORUnicodeString& names) {
  std::string text;
  for (const KORUnicodeString& name : names) text += DescribeType(holder, name.ConvertToChar()) + " ";
  return text + "\n";
}

/// Everything in an analysis, with all digits and with the types.
inline std::string DescribeWithTypes(VEXTimeAnalysisRepReference& analysis) {
  KORListValKORUnicodeString names, values;
  (void)analysis.GetAllValues(names, values);
  std::string text = support::DescribeAnalysis(analysis) + "types " + DescribeTypes(analysis, names);
  int count = 0;
  (void)analysis.GetLineCount(count);
  for (int row = 1; row <= count; ++row) {
    (void)analysis.GetLineAttributes(row, names, values);
    VEXTimeAnalysisLineData line;
    (void)analysis.GetLine(row, line);
    text += "types of row " + std::to_string(row) + " " + DescribeTypes(line, names);
  }
  return text;
}

/// The identifiers in a world: two analyses share one, one has none, one has a letter beyond ASCII, one a ":".
inline const std::vector<std::string>& IdentifiersOfWorld() {
  static const std::vector<std::string> identifiers{"A1", "A2", "Target", "A1", "", "Prüfen", "A:1"};
  return identifiers;
}

class ExchangeWorld {
 public:
  /// place  the place of the target among the identifiers; the other analyses hold little
  explicit ExchangeWorld(unsigned seed, const RandomContentOptions& options = {}, std::size_t place = 2)
      : _Place(place) {
    RandomContentOptions little = options;
    little.most_lines = 2;
    little.present_in = 30;
    RandomContent content(seed, options);
    RandomContent little_content(seed, little);
    const KORSession::Scope inside(_Session);
    for (const std::string& identifier : IdentifiersOfWorld()) {
      _Objects.emplace_back(KORModel::Current().CreateTimeAnalysis(KORUnicodeString(identifier)));
    }
    AddStrangers();
    for (const support::TimeAnalysis_var& analysis : KORModel::Current().GetTimeAnalyses()) {
      const bool is_target = analysis == Target();
      (is_target ? content : little_content).SetAttributes(*analysis);
      (is_target ? content : little_content).SetLines(*analysis, _Objects);
    }
  }
  ExchangeWorld(const ExchangeWorld&) = delete;
  ExchangeWorld& operator=(const ExchangeWorld&) = delete;

  KORSession& Session() { return _Session; }

  /// The analysis to work on.
  support::TimeAnalysis_var Target() {
    const KORSession::Scope inside(_Session);
    return KORModel::Current().GetTimeAnalyses()[_Place];
  }

  /// All analyses of the session, and which object each line reuses, since identifiers don't tell.
  std::string Describe() {
    const KORSession::Scope inside(_Session);
    std::string text;
    for (const support::TimeAnalysis_var& analysis : KORModel::Current().GetTimeAnalyses()) {
      text += "analysis\n" + DescribeWithTypes(*analysis);
      int count = 0;
      (void)analysis->GetLineCount(count);
      for (int row = 1; row <= count; ++row) {
        const auto reused = support::ReadLine<KORBaseUnknown_var>(*analysis, row, "TimeAnalysis");
        if (reused) text += "row " + std::to_string(row) + " reuses object " + PlaceOf(*reused) + "\n";
      }
    }
    return text;
  }

 private:
  // Objects beside the session that a line may hold under "TimeAnalysis": nothing, no analysis at all, an analysis that
  // doesn't show its attributes, one whose identifier is no text, one that the session doesn't know.
  void AddStrangers() {
    _Objects.emplace_back(NULL_var);
    _Objects.push_back(calculationtest::MakeBareObject());
    _Objects.emplace_back(
        calculationtest::MakeShellWithout<VEXITimeAnalysisRepReference>(support::MakeAnalysis("Hidden")));
    const support::TimeAnalysis_var numbered = support::MakeAnalysis("Numbered");
    (void)static_cast<VEXITimeAnalysisRepReference&>(*numbered).SetValue("PLM_ExternalID", 17);
    _Objects.emplace_back(numbered);
    _Objects.emplace_back(support::MakeAnalysis("Foreign"));
    _Objects.emplace_back(calculationtest::MakeShell(support::MakeAnalysis("Inside")));
  }

  std::string PlaceOf(const KORBaseUnknown_var& object) const {
    for (std::size_t index = 0; index < _Objects.size(); ++index) {
      if (_Objects[index] == object) return std::to_string(index);
    }
    return "that is none of this world";
  }

  KORSession _Session;
  std::size_t _Place;
  std::vector<KORBaseUnknown_var> _Objects;
};

}  // namespace exchangetest
