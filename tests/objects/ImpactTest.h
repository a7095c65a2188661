// What the tests of analyses that reuse each other share: what is saved in a session, the table of reuses, and the
// climb from a changed analysis in one step.
//
//   const auto grip = NewTemplate("Grip", 10.0, 2.5);
//   const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
//   EXPECT_EQ(Propagate(grip), "S_OK");
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "VEXSTTApplicativeContainerServices.h"
#include "platform/base/KORError.h"
#include "platform/services/KORAdpProtectedSaver.h"
#include "tests/objects/ObjectsTest.h"

namespace objectstest {

// ---- Analyses ----

/// An analysis whose totals stand as if it had been calculated.
///
/// total, setup  of "TotalCalculated" and "TRGCalculated", in TMU
inline TimeAnalysis_var NewTemplate(std::string_view identifier, double total, double setup = 0.0,
                                    const std::vector<Line>& lines = {}) {
  const TimeAnalysis_var analysis = NewAnalysis(identifier, lines);
  (void)analysis->SetValue("TotalCalculated", total);
  (void)analysis->SetValue("TRGCalculated", setup);
  return analysis;
}

/// A line of the time type "TTB" that reuses an analysis and has no times yet.
inline Line ReusingLine(std::string_view code, const KORBaseUnknown_var& analysis) {
  return Line(code).Timed("TTB", 0.0).Reuses(analysis);
}

/// Owner and row of each parameter of a row, as "Grip/2"; "null" for a null entry.
inline std::vector<std::string> OwnersOn(VEXITimeAnalysisLines& table, int row) {
  VEXTimeAnalysisLineData line;
  (void)table.GetLine(row, line);
  std::vector<std::string> owners;
  KORRawCollPV parameters;
  (void)line.GetValue("FormulaParameter", parameters);
  for (const void* const entry : parameters) {
    const auto* const parameter = static_cast<const VEXTimeAnalysisFormulaParameter*>(entry);
    owners.emplace_back("null");
    if (parameter == nullptr) continue;
    owners.back() = std::string(parameter->_OwnerPLMId.Bytes()) + "/" + std::string(parameter->_OwnerRow.Bytes());
  }
  return owners;
}

// ---- Components ----

inline std::vector<std::string> NamesOf(const KORListPtrKORIPLMComponent& components) {
  std::vector<std::string> names;
  for (KORIPLMComponent* const component : components) names.push_back(NameOf(KORBaseUnknown_var(component)));
  return names;
}

/// The names of components whose references are the caller's; gives these references back.
inline std::vector<std::string> TakeNames(KORListPtrKORIPLMComponent& components) {
  std::vector<std::string> names = NamesOf(components);
  for (KORIPLMComponent* const component : components) component->Release();
  components.RemoveAll();
  return names;
}

/// What is saved in the current session as long as this object lives: the names of each saving.
class SaveLog {
 public:
  SaveLog() {
    KORSaveObserver::Current().Set(
        [this](const KORListPtrKORIPLMComponent& components) { _Saves.push_back(NamesOf(components)); });
  }
  SaveLog(const SaveLog&) = delete;
  SaveLog& operator=(const SaveLog&) = delete;
  ~SaveLog() { KORSaveObserver::Current().Set(nullptr); }

  const std::vector<std::vector<std::string>>& Saves() const { return _Saves; }
  void Clear() { _Saves.clear(); }

 private:
  std::vector<std::vector<std::string>> _Saves;
};

// ---- The climb ----

/// Who reuses what. Owns its lists; the analyses are to live longer.
class ReuseIndex {
 public:
  ReuseIndex() = default;
  /// The reuses on all lines of the analyses, in their order.
  explicit ReuseIndex(const KORListValKORBaseUnknown_var& analyses) {
    for (const KORBaseUnknown_var& analysis : analyses) AddLinesOf(analysis);
  }
  ReuseIndex(const ReuseIndex&) = delete;
  ReuseIndex& operator=(const ReuseIndex&) = delete;
  ~ReuseIndex() = default;

  ReuseIndex& Add(const KORBaseUnknown_var& reused, const KORBaseUnknown_var& reusing) {
    auto* list = static_cast<KORRawCollPV*>(_Table.Get(reused.Get()));
    if (list == nullptr) _Table.Put(reused.Get(), list = &_Lists.emplace_back());
    list->Append(reusing.Get());
    return *this;
  }

  KORHashObject*& Table() { return _Pointer; }

 private:
  void AddLinesOf(const KORBaseUnknown_var& analysis) {
    const VEXITimeAnalysisLines_var table(analysis);
    if (table.IsNull() || VEXITimeAnalysisRepReference_var(analysis).IsNull()) return;
    int count = 0;
    (void)table->GetLineCount(count);
    for (int row = 1; row <= count; ++row) {
      const KORBaseUnknown_var reused = VEXSTMTimeAnalysisDlgServices::GetReusedTAOfRow(row, analysis);
      if (!reused.IsNull()) Add(reused, analysis);
    }
  }

  std::deque<KORRawCollPV> _Lists;
  KORHashObject _Table{200};
  KORHashObject* _Pointer = &_Table;
};

/// The name of what an operation gives: of its status, or "raised" for the null-handle error.
template <class Operation>
std::string OutcomeOf(const Operation& operation) {
  try {
    return StatusName(operation());
  } catch (const KORError&) {
    return "raised";
  }
}

/// Brings everything above an analysis up to date, in the current session.
inline std::string Propagate(const KORBaseUnknown_var& changed) {
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused, all_analyses;
  return OutcomeOf([&] {
    return VEXSTTApplicativeContainerServices::UpdateModificationsTOAllImpactedTimeAnalysis(changed, bag, unused,
                                                                                            all_analyses);
  });
}

/// What a climb gave: its outcome, and the names of the components that it collected.
struct ClimbResult {
  std::string outcome;
  std::vector<std::string> components;
};

inline ClimbResult ClimbFrom(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted,
                             KORHashObject*& reuses) {
  KORListPtrKORIPLMComponent components;
  const std::string outcome = OutcomeOf([&] {
    return VEXSTTApplicativeContainerServices::UpdateTemplateToImapctedTA(changed, impacted, reuses, components);
  });
  return {outcome, TakeNames(components)};
}

}  // namespace objectstest
