// One row of a text file becomes one line of an analysis.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/AnalysisMessages.h"
#include "tools/analysis/RowFormula.h"

namespace tool {

/// What rows of one file share.
struct RowSurroundings {
  const AnalysisFile& File;
  const std::string& Identifier;
  const std::string& System;  // of rows that name none
  CodeBook& Codes;
  VEXSTMTimeAnalysisDlgServices& Services;
};

class AnalysisRowBuilder {
 public:
  /// row_number  from 1. All have to outlive the object.
  AnalysisRowBuilder(const RowSurroundings& surroundings, int row_number, std::vector<PlacedFailure>& problems);

  /// Fills `line`. `carried` are the formula parameters of the reused analysis.
  RowState Build(const BuiltAnalysis* reused, std::vector<VEXTimeAnalysisFormulaParameter> carried,
                 VEXTimeAnalysisLineData& line);

  /// True if the line's time is that of the reused analysis and its formulas alone, as they stand there.
  bool TakesReusedTimeAsItIs() const { return _TakesReusedTimeAsItIs; }

  /// What is wrong with the code of a row whose formula may give a time instead; nothing if nothing is.
  const std::optional<PlacedFailure>& GetCodeProblem() const { return _CodeProblem; }

  /// Told if the recorded time of the row is not the present one of the analysis that it reuses.
  const std::optional<PlacedFailure>& GetOutOfDate() const { return _OutOfDate; }

 private:
  std::string_view Cell(Column column) const { return _Surroundings.File.Cell(_Row, column); }
  bool IsText() const;
  void Flaw(const PlacedFailure& failure);
  void ReadFrequency();
  void TakeReused(const BuiltAnalysis* reused);
  void TakeRecorded(bool is_comparable);
  void TakeEnteredTime();
  void TakeCode();
  void ReadTimeType();
  void ReadFormula(std::vector<VEXTimeAnalysisFormulaParameter> carried);
  void WriteTexts(VEXTimeAnalysisLineData& line) const;
  void WriteTimes(VEXTimeAnalysisLineData& line);

  const RowSurroundings& _Surroundings;
  const AnalysisRow& _Row;
  int _RowNumber;
  FilePlace _Place;
  std::vector<PlacedFailure>& _Problems;
  bool _Flawed = false;      // it has no time
  bool _IsTooShort = false;  // something is missing from its time
  std::string _Code;
  std::string _Description;
  std::string _TimeType;
  std::string _ValueAdded;
  std::optional<double> _Frequency = 1.0;  // none if it cannot be read
  std::optional<double> _Seconds;
  KORBaseUnknown_var _Reused;
  RowFormula _Formula;
  bool _TakesReusedTimeAsItIs = false;
  std::optional<PlacedFailure> _CodeProblem;
  std::optional<PlacedFailure> _OutOfDate;
};

/// The time that a row takes over from a reused analysis: its total with its setup time counted on top, in seconds.
double TimeTakenOver(const BuiltAnalysis& reused, const VEXSTMTimeAnalysisDlgServices& services);

}  // namespace tool
