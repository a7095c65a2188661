// The change of a template carried up.
#include "tools/impact/Propagation.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "VEXSTTApplicativeContainerServices.h"
#include "platform/base/KORStatus.h"
#include "tools/analysis/RowFormula.h"
#include "tools/impact/ImpactMessages.h"

namespace tool {

namespace {

using Parameter = VEXTimeAnalysisFormulaParameter;

constexpr std::size_t NoAnalysis = AnalysisFolder::NoAnalysis;

KORUnicodeString TextOf(std::string_view text) {
  return KORUnicodeString(text);
}

FilePlace PlaceOf(const FolderAnalysis& analysis, std::size_t row) {
  const AnalysisFile& file = analysis.Member->File;
  return {file.GetPath(), file.GetRows()[row].Line};
}

// ------------------------------------------------------------------------------------------------- Bounds

// Counts the formula parameters that rows carry once the change has come up. They come up by every way there is, so
// that their number may grow twofold with each level.
class CarriedCount {
 public:
  CarriedCount(const FolderAnalyses& analyses, std::size_t changed) : _Analyses(analyses) {
    _OfAnalysis.assign(analyses.size(), NotTouched);
    std::size_t& count = _OfAnalysis[changed] = 0;
    for (std::size_t row = 0; row < analyses[changed].Reused.size(); ++row) {
      count += ParametersOf(analyses[changed], row).size();
    }
  }

  void Add(std::size_t position) {
    const FolderAnalysis& analysis = _Analyses[position];
    const KORUnicodeString identifier = TextOf(analysis.Member->Identifier);
    std::size_t count = 0;
    for (std::size_t row = 0; row < analysis.Reused.size(); ++row) {
      const KORStoredParameters parameters = ParametersOf(analysis, row);
      const std::size_t reused = analysis.Reused[row];
      if (reused == NoAnalysis || _OfAnalysis[reused] == NotTouched) {
        count += parameters.size();
        continue;
      }
      const auto is_own = [&identifier](const auto& one) { return one && one->_OwnerPLMId == identifier; };
      const auto own = std::count_if(parameters.begin(), parameters.end(), is_own);
      count += _OfAnalysis[reused] + static_cast<std::size_t>(own);
      Check(analysis, row, _OfAnalysis[reused]);
    }
    _OfAnalysis[position] = count;
  }

 private:
  static constexpr std::size_t NotTouched = static_cast<std::size_t>(-1);

  static KORStoredParameters ParametersOf(const FolderAnalysis& analysis, std::size_t row) {
    VEXTimeAnalysisLineData line;
    (void)analysis.Built.Analysis->GetLine(static_cast<int>(row) + 1, line);
    const auto stored = line.GetContent().Parameters;
    return stored == nullptr ? KORStoredParameters() : *stored;
  }

  void Check(const FolderAnalysis& analysis, std::size_t row, std::size_t carried) {
    if (carried > AnalysisBuilder::MostCarriedOfRow) {
      throw CarriesTooMuch(PlaceOf(analysis, row), "one row", AnalysisBuilder::MostCarriedOfRow);
    }
    _OfRun += carried;
    if (_OfRun > AnalysisBuilder::MostCarriedOfRun) {
      throw CarriesTooMuch(PlaceOf(analysis, row), "all rows of a run", AnalysisBuilder::MostCarriedOfRun);
    }
  }

  const FolderAnalyses& _Analyses;
  std::vector<std::size_t> _OfAnalysis;
  std::size_t _OfRun = 0;
};

// ------------------------------------------------------------------------------------------------- The library

void CarryUp(const FolderAnalysis& changed) {
  const AnalysisFolder::Member& member = *changed.Member;
  const KORBaseUnknown_var found = VEXSTMTimeAnalysisDlgServices::GetTAFromPLMExternalID(TextOf(member.Identifier));
  if (found.IsNull()) throw PropagationFails(member.File.GetPath());
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused;
  KORListValKORBaseUnknown_var all_analyses;
  const long status = VEXSTTApplicativeContainerServices::UpdateModificationsTOAllImpactedTimeAnalysis(
      found, bag, unused, all_analyses);
  if (Failed(status)) throw PropagationFails(member.File.GetPath());
}

void HandOn(const FolderAnalysis& from, const FolderAnalysis& to) {
  KORHashObject* nobody_further = nullptr;
  KORListPtrKORIPLMComponent components;
  (void)VEXSTTApplicativeContainerServices::UpdateTemplateToImapctedTA(
      KORBaseUnknown_var(from.Built.Analysis), KORBaseUnknown_var(to.Built.Analysis), nobody_further, components);
  for (KORIPLMComponent* const component : components) component->Release();
}

// ------------------------------------------------------------------------------------------------- Rows

// Puts back what files say of rows and the library leaves out.
class RowsOfFiles {
 public:
  RowsOfFiles(FolderAnalyses& analyses, std::size_t changed, const std::vector<ClimbStep>& steps,
              VEXSTMTimeAnalysisDlgServices& services)
      : _Analyses(analyses), _Steps(steps), _Services(services), _Users(analyses.size()) {
    _IsHandedOnTo.assign(analyses.size(), false);
    _IsTouched.assign(analyses.size(), false);
    _IsTouched[changed] = true;
    for (const ClimbStep& step : steps) _IsTouched[step.Analysis] = true;
    for (const ClimbStep& step : steps) NoteUses(step.Analysis);
  }

  void PutBack() {
    for (const ClimbStep& step : _Steps) {
      const FolderAnalysis& analysis = _Analyses[step.Analysis];
      if (!analysis.Built.IsComplete) continue;
      const bool is_changed = PutBackRows(analysis);
      if (is_changed) _Services.CalculateAnalyzedTimeBG(KORBaseUnknown_var(analysis.Built.Analysis));
      if (!is_changed && !_IsHandedOnTo[step.Analysis]) continue;
      for (const std::size_t user : _Users[step.Analysis]) {
        HandOn(analysis, _Analyses[user]);
        _IsHandedOnTo[user] = true;
      }
    }
  }

 private:
  bool IsTouched(std::size_t reused) const { return reused != NoAnalysis && _IsTouched[reused]; }

  void NoteUses(std::size_t user) {
    for (const std::size_t reused : _Analyses[user].Reused) {
      if (!IsTouched(reused)) continue;
      std::vector<std::size_t>& users = _Users[reused];
      if (users.empty() || users.back() != user) users.push_back(user);
    }
  }

  bool PutBackRows(const FolderAnalysis& analysis) {
    bool any = false;
    for (std::size_t row = 0; row < analysis.Reused.size(); ++row) {
      if (!IsTouched(analysis.Reused[row])) continue;
      VEXTimeAnalysisLineData line;
      (void)analysis.Built.Analysis->GetLine(static_cast<int>(row) + 1, line);
      const bool has_formula = line.GetContent().Parameters != nullptr && !line.GetContent().Parameters->empty();
      const bool is_changed = has_formula ? PutBackValues(analysis, row, line) : PutBackFrequencyAndType(line);
      if (is_changed) (void)analysis.Built.Analysis->SetLine(static_cast<int>(row) + 1, line);
      any = any || is_changed;
    }
    return any;
  }

  // The time taken over stands as human time, and as the total.
  static bool PutBackFrequencyAndType(VEXTimeAnalysisLineData& line) {
    KORUnicodeString time_type;
    double time = 0.0;
    double frequency = 1.0;
    (void)line.GetValue("TimeType", time_type);
    (void)line.GetValue("TTBTime", time);
    (void)line.GetValue("Factor", frequency);
    const std::string_view key = TimeKeyOf(time_type.Bytes());
    if (key == "TTBTime" && frequency == 1.0) return false;
    line.SetValue(KORString(key), time);
    line.SetValue("TotalTime", time * frequency);
    return true;
  }

  // Values of the row in place of those that its formulas brought up with them.
  bool PutBackValues(const FolderAnalysis& analysis, std::size_t row, VEXTimeAnalysisLineData& line) const {
    const AnalysisFile& file = analysis.Member->File;
    const AnalysisRow& file_row = file.GetRows()[row];
    const FormulaCells cells{file.Cell(file_row, Column::Signature), file.Cell(file_row, Column::Body),
                             file.Cell(file_row, Column::Values)};
    if (cells.Values.empty()) return false;
    const FormulaOwner owner{TextOf(analysis.Member->Identifier), static_cast<int>(row) + 1};
    const RowFormula formula =
        ReadRowFormula(PlaceOf(analysis, row), cells, owner, CarriedParameters(_Analyses[analysis.Reused[row]].Built));
    if (!formula.ChangesCarried) return false;
    SetFormulaParameters(formula.Parameters, line);
    return true;
  }

  FolderAnalyses& _Analyses;
  const std::vector<ClimbStep>& _Steps;
  VEXSTMTimeAnalysisDlgServices& _Services;
  std::vector<bool> _IsTouched;
  std::vector<bool> _IsHandedOnTo;
  std::vector<std::vector<std::size_t>> _Users;  // by analysis: those touched that reuse it
};

}  // namespace

void PropagateChange(FolderAnalyses& analyses, std::size_t changed, const std::vector<ClimbStep>& steps,
                     VEXSTMTimeAnalysisDlgServices& services) {
  CarriedCount count(analyses, changed);
  for (const ClimbStep& step : steps) count.Add(step.Analysis);
  CarryUp(analyses[changed]);
  RowsOfFiles(analyses, changed, steps, services).PutBack();
}

}  // namespace tool
