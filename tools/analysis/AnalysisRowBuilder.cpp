// One row of a text file becomes one line of an analysis.
#include "tools/analysis/AnalysisRowBuilder.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

#include "tools/CodeLookup.h"
#include "tools/NumberText.h"
#include "tools/Systems.h"
#include "tools/analysis/AnalysisNumber.h"

namespace tool {

namespace {

constexpr std::string_view OutsideTotals = "*";
// The calculation passes lines without a code over; a blank is the code of those that have none but count.
constexpr std::string_view NoCode = " ";

// Columns that a row with nothing but a text leaves empty.
constexpr std::array TimeColumns{Column::Code,    Column::Frequency, Column::TimeType, Column::Time,
                                 Column::Seconds, Column::System,    Column::Reuse,    Column::Signature,
                                 Column::Body,    Column::Values,    Column::Recorded};

struct TimeTypeName {
  std::string_view Written;  // in capital letters
  std::string_view TimeType;
  std::string_view Key;
};
constexpr std::array TimeTypeNames{TimeTypeName{"TTB", "TTB", "TTBTime"},     TimeTypeName{"TTU", "TTU", "TTUTime"},
                                   TimeTypeName{"TW", "TW", "TWTime"},        TimeTypeName{"TRG", "TRG", "TRGTime"},
                                   TimeTypeName{"T**", "T**", "TTBTime"},     TimeTypeName{"HUMAN", "TTB", "TTBTime"},
                                   TimeTypeName{"MACHINE", "TTU", "TTUTime"}, TimeTypeName{"WAITING", "TW", "TWTime"},
                                   TimeTypeName{"SETUP", "TRG", "TRGTime"}};

const TimeTypeName* FindTimeType(std::string_view text) {
  std::string capital(text);
  std::transform(capital.begin(), capital.end(), capital.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  const auto known = std::find_if(TimeTypeNames.begin(), TimeTypeNames.end(),
                                  [&capital](const TimeTypeName& name) { return name.Written == capital; });
  return known == TimeTypeNames.end() ? nullptr : &*known;
}

void SetText(VEXTimeAnalysisLineData& line, std::string_view key, std::string_view text) {
  if (!text.empty()) line.SetValue(KORString(key), KORUnicodeString(text));
}

std::string PropertyOf(const KORHandle<VEXTimeAnalysisRepReference>& analysis, const char* key) {
  KORUnicodeString value;
  analysis->GetValue(key, value);
  return std::string(value.Bytes());
}

}  // namespace

std::string_view TimeKeyOf(std::string_view time_type) {
  const TimeTypeName* const name = FindTimeType(time_type);
  return name == nullptr ? std::string_view() : name->Key;
}

double TimeTakenOver(const BuiltAnalysis& reused, const VEXSTMTimeAnalysisDlgServices& services) {
  double total = 0.0;
  double setup = 0.0;
  reused.Analysis->GetValue("TotalCalculated", total);
  reused.Analysis->GetValue("TRGCalculated", setup);
  return TimeInUnit(services, total + setup, DisplayUnit::Seconds);
}

AnalysisRowBuilder::AnalysisRowBuilder(const RowSurroundings& surroundings, int row_number,
                                       std::vector<PlacedFailure>& problems)
    : _Surroundings(surroundings),
      _Row(surroundings.File.GetRows()[static_cast<std::size_t>(row_number) - 1]),
      _RowNumber(row_number),
      _Place{surroundings.File.GetPath(), _Row.Line},
      _Problems(problems) {
}

void AnalysisRowBuilder::Flaw(const PlacedFailure& failure) {
  _Problems.push_back(failure);
  _Flawed = true;
}

bool AnalysisRowBuilder::IsText() const {
  return std::all_of(TimeColumns.begin(), TimeColumns.end(), [this](Column column) { return Cell(column).empty(); });
}

void AnalysisRowBuilder::ReadFrequency() {
  const std::string_view text = Cell(Column::Frequency);
  if (text.empty()) return;
  const auto number = ReadFiniteNumber(text);
  _Frequency = number && *number >= 0.0 ? number : std::nullopt;
  if (!_Frequency) Flaw(FrequencyNoNumber(_Place, text));
}

void AnalysisRowBuilder::TakeReused(const BuiltAnalysis* reused) {
  if (!_Code.empty() && _Code != OutsideTotals) Flaw(CodeBesideReuse(_Place, _Code));
  if (!Cell(Column::Time).empty() || !Cell(Column::Seconds).empty()) Flaw(TimeBesideReuse(_Place));
  if (reused == nullptr) {
    _Flawed = true;  // which was told where reuse is followed
    return;
  }
  if (_Code != OutsideTotals) _Code = PropertyOf(reused->Analysis, "PLM_ExternalID");
  if (_Description.empty()) _Description = PropertyOf(reused->Analysis, "V_Name");
  _Reused = reused->Analysis;
  _Seconds = TimeTakenOver(*reused, _Surroundings.Services);
  TakeRecorded(reused->IsComplete);
  if (reused->IsComplete) return;
  _Problems.push_back(ReusedAnalysisIncomplete(_Place, Cell(Column::Reuse)));
  _IsTooShort = true;
}

// A recorded time counts until another one is taken over. is_comparable: the present time is one to rely on.
void AnalysisRowBuilder::TakeRecorded(bool is_comparable) {
  const std::string_view cell = Cell(Column::Recorded);
  if (cell.empty()) return;
  const auto number = ReadFiniteNumber(cell);
  if (!number || *number < 0.0) return Flaw(TimeNoNumber(_Place, "recorded", cell));
  if (is_comparable && *number != *_Seconds) {
    _OutOfDate = RecordedOutOfDate(_Place, Cell(Column::Reuse), cell, PlainNumberText(*_Seconds));
  }
  _Seconds = *number;
}

void AnalysisRowBuilder::TakeEnteredTime() {
  const std::string_view tmu = Cell(Column::Time);
  const std::string_view seconds = Cell(Column::Seconds);
  if (_Code.empty()) _Code = NoCode;
  if (!tmu.empty() && !seconds.empty()) return Flaw(TwoTimes(_Place));
  const auto number = ReadFiniteNumber(tmu.empty() ? seconds : tmu);
  if (!number || *number < 0.0) {
    return Flaw(tmu.empty() ? TimeNoNumber(_Place, "seconds", seconds) : TimeNoNumber(_Place, "time", tmu));
  }
  _Seconds = tmu.empty() ? *number : *number / _Surroundings.Services.ConvertFromSecToTmu(1.0);
}

void AnalysisRowBuilder::TakeCode() {
  const std::string_view cell = Cell(Column::System);
  const std::string system(cell.empty() ? _Surroundings.System : cell);
  const bool needed = !_Formula.HasOwnTime;  // with a time of its own a row may have a code of its own, too
  if (!system.empty() && !IsSystem(system)) return Flaw(UnknownSystemInFile(_Place, system));
  if (system.empty()) return needed ? Flaw(NoSystem(_Place, _Code)) : void();
  const CodeEntry& entry = _Surroundings.Codes.Find(system, _Code);
  _Seconds = entry.Seconds;
  if (entry.Problem && needed) Flaw(At(_Place, *entry.Problem));
  if (entry.Problem && !needed) _CodeProblem = At(_Place, *entry.Problem);
  if (!entry.Seconds && needed) _Flawed = true;
  if (_Description.empty()) _Description = entry.Description;
  if (_TimeType.empty()) _TimeType = entry.TimeType;
  if (_ValueAdded.empty()) _ValueAdded = entry.ValueAdded;
}

void AnalysisRowBuilder::ReadTimeType() {
  if (_TimeType.empty()) _TimeType = "TTB";
  const TimeTypeName* const name = FindTimeType(_TimeType);
  if (name == nullptr) return Flaw(UnknownTimeType(_Place, _TimeType));
  _TimeType = name->TimeType;
}

void AnalysisRowBuilder::ReadFormula(std::vector<VEXTimeAnalysisFormulaParameter> carried) {
  const FormulaCells cells{Cell(Column::Signature), Cell(Column::Body), Cell(Column::Values)};
  const FormulaOwner owner{KORUnicodeString(std::string_view(_Surroundings.Identifier)), _RowNumber};
  const std::size_t carried_count = carried.size();
  _Formula = ReadRowFormula(_Place, cells, owner, std::move(carried));
  for (const PlacedFailure& problem : _Formula.Problems) Flaw(problem);
  _TakesReusedTimeAsItIs = carried_count > 0 && carried_count == _Formula.Parameters.size() && !_Formula.ChangesCarried;
}

void AnalysisRowBuilder::WriteTexts(VEXTimeAnalysisLineData& line) const {
  line.SetValue("RowNum", _RowNumber);
  SetText(line, "Code", _Code);
  SetText(line, "Description", _Description);
  SetText(line, "AddDescription", Cell(Column::AdditionalDescription));
  SetText(line, "ValueAdded", _ValueAdded);
  SetText(line, "FormulaPicture", Cell(Column::Picture));
  if (IsText()) return;
  SetText(line, "TimeType", _TimeType);
  SetText(line, "FactorString", Cell(Column::Frequency));
  if (_Frequency) line.SetValue("Factor", *_Frequency);
  if (!_Reused.IsNull()) line.SetValue("TimeAnalysis", _Reused);
}

// A row with a flaw keeps its texts and has no time.
void AnalysisRowBuilder::WriteTimes(VEXTimeAnalysisLineData& line) {
  if (_Flawed) return;
  if (_Seconds && !std::isfinite(*_Seconds * *_Frequency)) return Flaw(TimeNotFinite(_Place));
  if (_Seconds) {
    line.SetValue(KORString(TimeKeyOf(_TimeType)), *_Seconds);
    // What a formula leaves open is taken from this key, whatever the time type.
    if (!_Formula.Parameters.empty() && _Reused.IsNull()) line.SetValue("TTBTime", *_Seconds);
    line.SetValue("TotalTime", *_Seconds * *_Frequency);
  }
  if (_Formula.Parameters.empty()) return;
  SetFormulaParameters(_Formula.Parameters, line);
}

RowState AnalysisRowBuilder::Build(const BuiltAnalysis* reused, std::vector<VEXTimeAnalysisFormulaParameter> carried,
                                   VEXTimeAnalysisLineData& line) {
  _Code = Cell(Column::Code);
  _Description = Cell(Column::Description);
  _TimeType = Cell(Column::TimeType);
  _ValueAdded = Cell(Column::ValueAdded);
  if (IsText()) {
    WriteTexts(line);
    return RowState::Text;
  }
  const bool outside = _Code == OutsideTotals;
  _Flawed = _Row.HasSurplus;  // which was told where the file was read
  if (Cell(Column::Reuse).empty() && !Cell(Column::Recorded).empty()) Flaw(RecordedWithoutReuse(_Place));
  ReadFrequency();
  ReadFormula(std::move(carried));
  if (!Cell(Column::Reuse).empty()) {
    TakeReused(reused);
  } else if (!Cell(Column::Time).empty() || !Cell(Column::Seconds).empty()) {
    TakeEnteredTime();
  } else if (!_Code.empty() && !outside) {
    TakeCode();
  }
  ReadTimeType();
  const bool nothing = !_Flawed && !_Seconds && !_Formula.HasOwnTime && !outside;
  if (nothing) Flaw(RowWithoutTime(_Place));
  if (_Code.empty()) _Code = NoCode;
  WriteTexts(line);
  WriteTimes(line);
  if (_Flawed || _IsTooShort) return RowState::Flawed;
  return outside ? RowState::Outside : RowState::Counted;
}

}  // namespace tool
