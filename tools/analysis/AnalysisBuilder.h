// Rows of a text file become the lines of an analysis, which is computed then.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"
#include "tools/analysis/AnalysisFile.h"
#include "tools/analysis/CodeBook.h"

namespace tool {

/// What became of a row.
enum class RowState {
  Counted,  // it has a time, which counts in the totals
  Outside,  // its code is "*": it takes no part in any total
  Text,     // it has a description and nothing else
  Flawed    // it has no time, or one not to be relied on, for a reason that was told
};

struct BuiltAnalysis {
  KORHandle<VEXTimeAnalysisRepReference> Analysis;
  std::vector<RowState> Rows;  // in the order of the lines
  std::size_t FlawedRows = 0;
  bool IsComplete = true;    // no row is flawed, and the file was read to its end
  bool HasFormulas = false;  // its own or carried up
  std::vector<PlacedFailure> Problems;
  std::vector<PlacedFailure> OutOfDate;  // recorded times of rows that are not those of what they reuse
};

/// What a row reuses; null where it reuses nothing, or nothing that is there.
using ReusedAnalyses = std::vector<const BuiltAnalysis*>;

class AnalysisBuilder {
 public:
  /// system  of analyses that name none; empty: they need one. All have to outlive the builder.
  AnalysisBuilder(CodeBook& codes, VEXSTMTimeAnalysisDlgServices& services, std::string system)
      : _Codes(codes), _Services(services), _System(std::move(system)) {}

  /// Makes the analysis in the model of the current session, and computes it. Every row of the file is one line, and
  /// those without a time count as nothing. `reused` has one entry for each row; its analyses are computed already.
  BuiltAnalysis Build(const AnalysisFile& file, const std::string& identifier, const ReusedAnalyses& reused);

  /// Formula parameters that one row, and all rows of a run together, carry up at most.
  static constexpr std::size_t MostCarriedOfRow = 1000;
  static constexpr std::size_t MostCarriedOfRun = 1'000'000;

 private:
  std::vector<VEXTimeAnalysisFormulaParameter> TakeCarried(const FilePlace& place, const BuiltAnalysis*& reused,
                                                           std::vector<PlacedFailure>& problems);
  void CheckTime(const FilePlace& place, int row, const std::optional<PlacedFailure>& code_problem,
                 BuiltAnalysis& built) const;
  void CompareWithReused(const AnalysisFile& file, int row, const BuiltAnalysis& reused, BuiltAnalysis& built) const;

  CodeBook& _Codes;
  VEXSTMTimeAnalysisDlgServices& _Services;
  std::string _System;
  std::size_t _CarriedParameters = 0;
};

/// The formula parameters that a row carries up from the analysis that it reuses: those of all lines, line by line. Of
/// a formula that stands there more than once the first is the one that counts, and the others are left out.
std::vector<VEXTimeAnalysisFormulaParameter> CarriedParameters(const BuiltAnalysis& reused);

/// Key of a line under which the time of a time type stands; empty for what is no time type.
std::string_view TimeKeyOf(std::string_view time_type);

}  // namespace tool
