// The plain climb to all that reuse an analysis, and the plain repair of identifiers.
#include "ImpactOracle.h"

#include <algorithm>
#include <deque>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/services/KOROmbLifeCycleRootsBag.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace oracle {

namespace {

// The analyses between the start of a climb or descent and the one under work, both included.
using Way = std::vector<KORBaseUnknown_var>;

bool IsOn(const Way& way, const KORBaseUnknown_var& analysis) {
  return std::find(way.begin(), way.end(), analysis) != way.end();
}

KORBaseUnknown_var ReusedAnalysisOf(const VEXTimeAnalysisLineData& line) {
  KORBaseUnknown_var reused;
  (void)line.GetValue("TimeAnalysis", reused);
  return reused;
}

KORRawCollPV ParametersOf(const VEXTimeAnalysisLineData& line) {
  KORRawCollPV parameters;
  (void)line.GetValue("FormulaParameter", parameters);
  return parameters;
}

int LineCountOf(const VEXITimeAnalysisLines_var& lines) {
  int count = 0;
  (void)lines->GetLineCount(count);
  return count;
}

const Reused* Find(const Reuses& reuses, const KORBaseUnknown_var& analysis) {
  for (const Reused& entry : reuses) {
    if (entry.analysis == analysis) return &entry;
  }
  return nullptr;
}

// Asks an analysis for itself; a status.
long QueryBase(const KORBaseUnknown_var& analysis) {
  void* base = nullptr;
  const long status = analysis->QueryInterface(KORBaseUnknown::ClassId(), &base);
  if (base != nullptr) static_cast<KORBaseUnknown*>(base)->Release();
  return status;
}

void AppendReuse(Reuses& reuses, const KORBaseUnknown_var& reused, const KORBaseUnknown_var& reusing) {
  if (Find(reuses, reused) == nullptr) reuses.push_back({reused, {}});
  for (Reused& entry : reuses) {
    if (entry.analysis == reused) entry.reusing.push_back(reusing);
  }
}

// The reuses, with the status of the last query; `status` keeps what it was if there is no reuse.
Reuses BuildReuses(const KORListValKORBaseUnknown_var& analyses, long& status) {
  Reuses reuses;
  for (const KORBaseUnknown_var& analysis : analyses) {
    const VEXITimeAnalysisRepReference_var reference(analysis);
    const VEXITimeAnalysisLines_var lines(analysis);
    if (reference.IsNull() || lines.IsNull()) continue;
    const int count = LineCountOf(lines);
    for (int row = 1; row <= count; ++row) {
      VEXTimeAnalysisLineData line;
      (void)lines->GetLine(row, line);
      const KORBaseUnknown_var reused = ReusedAnalysisOf(line);
      if (!reused.IsNull()) {
        status = QueryBase(analysis);
        AppendReuse(reuses, reused, analysis);
      }
      (void)line.ClearFormulaAndParamters();
    }
  }
  return reuses;
}

// ---- The climb ------------------------------------------------------------------------------------------------------

class Climber {
 public:
  Climber(const Reuses* reuses, Climb& climb) : _Reuses(reuses), _Climb(climb) {}

  void Visit(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted);
  void Start(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted) {
    _Way = {changed, impacted};
    Visit(changed, impacted);
  }

 private:
  bool UpdateRow(int row, const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted,
                 const VEXITimeAnalysisLines_var& lines);
  void RewriteRow(VEXTimeAnalysisLineData& line, const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted);
  void ClimbOn(const KORBaseUnknown_var& impacted);
  void Count(int parameters) {
    _Climb.parameters += static_cast<std::size_t>(parameters);
    if (_Climb.parameters > _Climb.most_parameters) _Climb.given_up = true;
  }

  const Reuses* _Reuses;
  Climb& _Climb;
  Way _Way;
  VEXSTMTimeAnalysisDlgServices _Services;
};

void Climber::Visit(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted) {
  if (++_Climb.visits > _Climb.most_visits) _Climb.given_up = true;
  if (_Climb.given_up) return;
  const VEXITimeAnalysisLines_var lines(impacted);
  if (!lines.IsNull()) {
    bool is_changed = false;
    const int count = LineCountOf(lines);
    for (int row = 1; row <= count; ++row) {
      if (UpdateRow(row, changed, impacted, lines)) is_changed = true;
    }
    if (is_changed) (void)_Services.CalculateAnalyzedTimeBG(impacted);
  }
  ClimbOn(impacted);
}

// True if the row reuses the changed analysis.
bool Climber::UpdateRow(int row, const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted,
                        const VEXITimeAnalysisLines_var& lines) {
  VEXTimeAnalysisLineData line;
  (void)lines->GetLine(row, line);
  Count(ParametersOf(line).Size());
  const bool reuses_it = ReusedAnalysisOf(line) == changed;
  if (reuses_it) {
    RewriteRow(line, changed, impacted);
    (void)lines->SetLine(row, line);
    const KORIPLMComponent_var component(impacted);
    if (!component.IsNull()) _Climb.components.push_back(component);
  }
  (void)line.ClearFormulaAndParamters();
  return reuses_it;
}

void Climber::RewriteRow(VEXTimeAnalysisLineData& line, const KORBaseUnknown_var& changed,
                         const KORBaseUnknown_var& impacted) {
  // They own the parameters until the line takes them over.
  std::deque<VEXTimeAnalysisLineData> changed_lines;
  KORRawCollPV parameters;
  const VEXITimeAnalysisLines_var table(changed);
  const VEXITimeAnalysisRepReference_var attributes(changed);
  const int count = LineCountOf(table);
  for (int row = 1; row <= count; ++row) {
    VEXTimeAnalysisLineData& changed_line = changed_lines.emplace_back();
    (void)table->GetLine(row, changed_line);
    const KORRawCollPV found = ParametersOf(changed_line);
    if (found.Size() != 0) parameters.Append(found);
  }
  KORUnicodeString identifier;
  (void)VEXITimeAnalysisProperties_var(impacted)->GetValue("PLM_ExternalID", identifier);
  parameters.Append(GetOwnParametersOnLine(line, identifier));
  Count(parameters.Size());
  (void)line.SetValue("FormulaParameter", parameters);

  double total = 0.0;
  double setup = 0.0;
  (void)attributes->GetValue("TotalCalculated", total);
  (void)attributes->GetValue("TRGCalculated", setup);
  const double seconds = _Services.UnitConvertor(total + setup, 0, 6);
  (void)line.SetValue("TTBTime", seconds);
  (void)line.SetValue("TotalTime", seconds);
}

void Climber::ClimbOn(const KORBaseUnknown_var& impacted) {
  const Reused* const entry = _Reuses == nullptr ? nullptr : Find(*_Reuses, impacted);
  if (entry == nullptr) return;
  for (const KORBaseUnknown_var& next : entry->reusing) {
    if (IsOn(_Way, next)) continue;
    _Way.push_back(next);
    Visit(impacted, next);
    _Way.pop_back();
  }
}

}  // namespace

Reuses ReusesOf(const KORListValKORBaseUnknown_var& analyses) {
  long status = S_OK;
  return BuildReuses(analyses, status);
}

KORRawCollPV GetOwnParametersOnLine(const VEXTimeAnalysisLineData& line, const KORUnicodeString& identifier) {
  KORRawCollPV own;
  for (void* const entry : ParametersOf(line)) {
    const auto* const parameter = static_cast<const VEXTimeAnalysisFormulaParameter*>(entry);
    if (parameter != nullptr && parameter->_OwnerPLMId == identifier) own.Append(entry);
  }
  return own;
}

long UpdateTemplateToImpacted(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted,
                              const Reuses* reuses, Climb& climb) {
  if (changed.IsNull() || impacted.IsNull()) return S_OK;
  Climber(reuses, climb).Start(changed, impacted);
  return S_OK;
}

ImpactOutcome UpdateAllImpacted(const KORBaseUnknown_var& changed, KORListValKORBaseUnknown_var& all_analyses,
                                Climb& climb) {
  ImpactOutcome outcome{S_OK, false};
  Reuses reuses;
  KOROmbLifeCycleRootsBag bag;
  if (all_analyses.Size() == 0) {
    outcome.status = VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(all_analyses, bag);
    reuses = BuildReuses(all_analyses, outcome.status);
  }
  const Reused* const entry = changed.IsNull() ? nullptr : Find(reuses, changed);
  if (entry == nullptr) return {S_OK, false};
  for (const KORBaseUnknown_var& reusing : entry->reusing) {
    // Where the analysis reuses itself, it is on the way already.
    const VEXITimeAnalysisRepReference_var reference(reusing);
    if (!reference.IsNull() && reusing != changed) (void)UpdateTemplateToImpacted(changed, reusing, &reuses, climb);
  }
  outcome.saves = true;
  return outcome;
}

// ---- The repair of identifiers --------------------------------------------------------------------------------------

namespace {

class Collector {
 public:
  Collector(KORListValKORUnicodeString& old_identifiers, KORListValKORUnicodeString& new_identifiers)
      : _Old(old_identifiers), _New(new_identifiers) {}

  long Visit(const KORBaseUnknown_var& analysis);

 private:
  void VisitRow(int row, const VEXITimeAnalysisLines_var& lines);
  void Compare(int row, const VEXITimeAnalysisLines_var& lines, VEXTimeAnalysisLineData& line,
               const KORUnicodeString& present);

  KORListValKORUnicodeString& _Old;
  KORListValKORUnicodeString& _New;
  Way _Way;
};

long Collector::Visit(const KORBaseUnknown_var& analysis) {
  const VEXITimeAnalysisRepReference_var reference(analysis);
  if (reference.IsNull()) return E_FAIL;
  const VEXITimeAnalysisLines_var lines(analysis);
  if (lines.IsNull()) return S_OK;
  _Way.push_back(analysis);
  const int count = LineCountOf(lines);
  for (int row = 1; row <= count; ++row) VisitRow(row, lines);
  _Way.pop_back();
  return S_OK;
}

void Collector::VisitRow(int row, const VEXITimeAnalysisLines_var& lines) {
  VEXTimeAnalysisLineData line;
  (void)lines->GetLine(row, line);
  const KORBaseUnknown_var reused = ReusedAnalysisOf(line);
  if (reused.IsNull()) return;
  const VEXITimeAnalysisProperties_var properties(reused);
  if (!properties.IsNull()) {
    KORUnicodeString present;
    (void)properties->GetValue("PLM_ExternalID", present);
    Compare(row, lines, line, present);
    if (!IsOn(_Way, reused)) (void)Visit(reused);
  }
  (void)line.ClearFormulaAndParamters();
}

void Collector::Compare(int row, const VEXITimeAnalysisLines_var& lines, VEXTimeAnalysisLineData& line,
                        const KORUnicodeString& present) {
  KORUnicodeString code;
  (void)line.GetValue("Code", code);
  const bool takes_no_part = code == "*";
  _Old.Append(takes_no_part ? present : code);
  _New.Append(present);
  if (present == code) return;
  if (!takes_no_part) (void)line.SetValue("Code", present);
  (void)lines->SetLine(row, line);
}

// True if the owner of a parameter has changed.
bool UpdateOwner(VEXTimeAnalysisFormulaParameter& parameter, const KORUnicodeString& identifier,
                 const KORListValKORUnicodeString& old_identifiers, const KORListValKORUnicodeString& new_identifiers) {
  KORUnicodeString& owner = parameter._OwnerPLMId;
  const int position = old_identifiers.Locate(owner, 1);
  if (position == 0) {
    if (owner == identifier) return false;
    owner = identifier;
    return true;
  }
  if (position > new_identifiers.Size() || new_identifiers[position] == owner) return false;
  owner = new_identifiers[position];
  return true;
}

}  // namespace

long GetOldAndNewIdentifiers(const KORBaseUnknown_var& analysis, KORListValKORUnicodeString& old_identifiers,
                             KORListValKORUnicodeString& new_identifiers) {
  return Collector(old_identifiers, new_identifiers).Visit(analysis);
}

long UpdateIdentifiers(const KORBaseUnknown_var& analysis, const KORListValKORUnicodeString& old_identifiers,
                       const KORListValKORUnicodeString& new_identifiers) {
  const VEXITimeAnalysisRepReference_var reference(analysis);
  if (reference.IsNull()) return E_FAIL;
  KORUnicodeString identifier;
  (void)reference->GetValue("PLM_ExternalID", identifier);
  const VEXITimeAnalysisLines_var lines(analysis);
  if (lines.IsNull()) return S_OK;
  const int count = LineCountOf(lines);
  for (int row = 1; row <= count; ++row) {
    VEXTimeAnalysisLineData line;
    (void)lines->GetLine(row, line);
    const KORRawCollPV parameters = ParametersOf(line);
    bool is_changed = false;
    for (void* const entry : parameters) {
      auto* const parameter = static_cast<VEXTimeAnalysisFormulaParameter*>(entry);
      if (parameter == nullptr) continue;
      if (UpdateOwner(*parameter, identifier, old_identifiers, new_identifiers)) is_changed = true;
    }
    if (is_changed) {
      (void)line.SetValue("FormulaParameter", parameters);
      (void)lines->SetLine(row, line);
    }
    (void)line.ClearFormulaAndParamters();
  }
  return S_OK;
}

}  // namespace oracle
