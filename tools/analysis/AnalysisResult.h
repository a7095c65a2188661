// What came out of an analysis, for those who write it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/CodeLookup.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/AnalysisFolder.h"

namespace tool {

struct ResultLine {
  std::size_t FileLine = 0;
  RowState State = RowState::Counted;
  std::string Code;
  std::string Description;
  std::string AdditionalDescription;
  std::string TimeType;
  std::string ValueAdded;
  std::string Reused;  // identifier of the reused analysis; empty for none
  std::string Picture;
  std::optional<double> Frequency;
  std::optional<double> Tmu;       // one occurrence; none if the row has no time
  std::optional<double> TotalTmu;  // by frequency; none if the row does not count
};

/// The totals of an analysis, in the order of TotalNames.
inline constexpr std::array<std::string_view, 5> TotalNames{"human", "machine", "waiting", "setup", "total"};
inline constexpr std::array<std::string_view, 5> TotalTimeTypes{"TTB", "TTU", "TW", "TRG", ""};

using TotalsOfAnalysis = std::array<double, TotalNames.size()>;

struct AnalysisResult {
  std::string Path;
  std::string Identifier;
  std::string Operation;  // the sub-folder that the file lies in; empty for none
  std::string Name;
  std::string Description;
  std::string System;
  std::vector<ResultLine> Lines;
  TotalsOfAnalysis TotalsTmu{};
  std::size_t FlawedRows = 0;
  bool IsComplete = true;
};

/// Reads the computed analysis back.
AnalysisResult ReadResult(const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                          const VEXSTMTimeAnalysisDlgServices& services);

/// The totals of a computed analysis, in TMU.
TotalsOfAnalysis ReadTotals(const BuiltAnalysis& built);

/// A unit in which calc writes times.
class ResultUnit {
 public:
  /// name  "tmu", "s", "min", "h" or "mod"; empty stands for "tmu"
  ResultUnit(const VEXSTMTimeAnalysisDlgServices& services, std::string_view name);

  std::string_view GetName() const { return _Name; }        // "tmu"
  std::string_view GetHeading() const { return _Heading; }  // "TMU"

  /// TMU in the unit, to six decimals, hours to eight.
  double Convert(double tmu) const;

 private:
  const VEXSTMTimeAnalysisDlgServices& _Services;
  std::string_view _Name;
  std::string_view _Heading;
  std::optional<DisplayUnit> _Unit;  // none for TMU
};

}  // namespace tool
