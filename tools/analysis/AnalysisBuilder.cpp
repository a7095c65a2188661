// Rows of a text file become the lines of an analysis, which is computed then.
#include "tools/analysis/AnalysisBuilder.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "platform/model/KORModel.h"
#include "tools/CodeLookup.h"
#include "tools/NumberText.h"
#include "tools/analysis/AnalysisRowBuilder.h"

namespace tool {

namespace {

using Parameter = VEXTimeAnalysisFormulaParameter;

// Times are rounded to six decimals on the way from one analysis to another.
constexpr double EqualTimes = 2e-6;

KORUnicodeString TextOf(std::string_view text) {
  return KORUnicodeString(text);
}

// Counts a row of a computed analysis as flawed.
void Flaw(int row, const PlacedFailure& problem, BuiltAnalysis& built) {
  built.Problems.push_back(problem);
  built.Rows[static_cast<std::size_t>(row) - 1] = RowState::Flawed;
  ++built.FlawedRows;
}

bool HasFormula(VEXTimeAnalysisLineData& line) {
  KORRawCollPV parameters;
  line.GetValue(KORFormulaParameterKey, parameters);
  return parameters.Size() > 0;
}

}  // namespace

std::vector<Parameter> CarriedParameters(const BuiltAnalysis& reused) {
  std::vector<Parameter> carried;
  std::set<std::pair<KORUnicodeString, KORUnicodeString>> known;  // owner and row of each formula
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= static_cast<int>(reused.Rows.size()); ++row) {
    reused.Analysis->GetLine(row, line);
    KORRawCollPV parameters;
    line.GetValue(KORFormulaParameterKey, parameters);
    std::set<std::pair<KORUnicodeString, KORUnicodeString>> of_line;
    for (const void* entry : parameters) {
      const Parameter& parameter = *static_cast<const Parameter*>(entry);
      const std::pair formula(parameter._OwnerPLMId, parameter._OwnerRow);
      if (known.count(formula) != 0) continue;
      of_line.insert(formula);
      carried.push_back(parameter);
    }
    known.merge(of_line);
  }
  return carried;
}

// The formula parameters that a row carries up; where they are too many, the row reuses nothing.
std::vector<Parameter> AnalysisBuilder::TakeCarried(const FilePlace& place, const BuiltAnalysis*& reused,
                                                    std::vector<PlacedFailure>& problems) {
  if (reused == nullptr || !reused->HasFormulas) return {};
  std::vector<Parameter> carried = CarriedParameters(*reused);
  const bool fits_row = carried.size() <= MostCarriedOfRow;
  if (fits_row && _CarriedParameters + carried.size() <= MostCarriedOfRun) {
    _CarriedParameters += carried.size();
    return carried;
  }
  problems.push_back(fits_row ? TooManyCarriedParameters(place, "all rows of a run", MostCarriedOfRun)
                              : TooManyCarriedParameters(place, "one row", MostCarriedOfRow));
  reused = nullptr;
  return {};
}

BuiltAnalysis AnalysisBuilder::Build(const AnalysisFile& file, const std::string& identifier,
                                     const ReusedAnalyses& reused) {
  const std::string& system = file.GetSystem().empty() ? _System : file.GetSystem();
  BuiltAnalysis built;
  built.Problems = file.GetProblems();
  built.Analysis = KORModel::Current().CreateTimeAnalysis(TextOf(identifier));
  built.Analysis->SetValue("V_Name", TextOf(file.GetName()));
  built.Analysis->SetValue("V_description", TextOf(file.GetDescription()));
  built.Analysis->SetValue("V_Subsystem", TextOf(system));
  const RowSurroundings surroundings{file, identifier, system, _Codes, _Services};
  std::vector<int> to_compare;                              // rows whose time has to be that of the reused analysis
  std::vector<std::optional<PlacedFailure>> code_problems;  // by row: told only if no formula gives a time
  for (std::size_t index = 0; index < file.GetRows().size(); ++index) {
    const int row = static_cast<int>(index) + 1;
    const BuiltAnalysis* reused_by_row = reused[index];
    std::vector<Parameter> carried =
        TakeCarried({file.GetPath(), file.GetRows()[index].Line}, reused_by_row, built.Problems);
    AnalysisRowBuilder row_builder(surroundings, row, built.Problems);
    VEXTimeAnalysisLineData line;
    const RowState state = row_builder.Build(reused_by_row, std::move(carried), line);
    built.HasFormulas = built.HasFormulas || HasFormula(line);
    built.Analysis->SetLine(row, line);
    built.Rows.push_back(state);
    if (state == RowState::Flawed) ++built.FlawedRows;
    if (state == RowState::Counted && row_builder.TakesReusedTimeAsItIs()) to_compare.push_back(row);
    code_problems.push_back(row_builder.GetCodeProblem());
    if (row_builder.GetOutOfDate()) built.OutOfDate.push_back(*row_builder.GetOutOfDate());
  }
  _Services.CalculateAnalyzedTimeBG(KORBaseUnknown_var(built.Analysis));
  for (const int row : to_compare) CompareWithReused(file, row, *reused[static_cast<std::size_t>(row) - 1], built);
  for (std::size_t index = 0; index < built.Rows.size(); ++index) {
    if (built.Rows[index] != RowState::Counted) continue;
    const FilePlace place{file.GetPath(), file.GetRows()[index].Line};
    CheckTime(place, static_cast<int>(index) + 1, code_problems[index], built);
  }
  built.IsComplete = built.FlawedRows == 0 && file.IsWhole();
  return built;
}

// A formula may give no time, or one that no frequency and unit can carry.
void AnalysisBuilder::CheckTime(const FilePlace& place, int row, const std::optional<PlacedFailure>& code_problem,
                                BuiltAnalysis& built) const {
  VEXTimeAnalysisLineData line;
  built.Analysis->GetLine(row, line);
  double total = 0.0;
  line.GetValue("TotalTime", total);
  if (!std::isfinite(_Services.ConvertFromSecToTmu(total))) {
    Flaw(row, TimeNotFinite(place), built);
  } else if (total == 0.0 && code_problem) {
    Flaw(row, *code_problem, built);
  }
}

// The formulas of a reused analysis are evaluated anew for the row that reuses it, and may come to another time.
void AnalysisBuilder::CompareWithReused(const AnalysisFile& file, int row, const BuiltAnalysis& reused,
                                        BuiltAnalysis& built) const {
  VEXTimeAnalysisLineData line;
  built.Analysis->GetLine(row, line);
  KORUnicodeString time_type;
  double here = 0.0;
  line.GetValue("TimeType", time_type);
  line.GetValue(KORString(TimeKeyOf(time_type.Bytes())), here);
  double total = 0.0;
  reused.Analysis->GetValue("TotalCalculated", total);
  const double there = TimeInUnit(_Services, total, DisplayUnit::Seconds);
  if (std::fabs(here - there) <= EqualTimes * std::max(1.0, there)) return;
  const AnalysisRow& file_row = file.GetRows()[static_cast<std::size_t>(row) - 1];
  Flaw(row,
       CarriedTimeDiffers({file.GetPath(), file_row.Line}, file.Cell(file_row, Column::Reuse),
                          NumberText(VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(here, 6.0)), NumberText(there)),
       built);
}

}  // namespace tool
