// The identifiers under which the lines of analyses know other analyses, after those have got new ones.
#include "objects/IdentifierRepair.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "calculation/LineKeys.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

namespace {

using calculation::CodeKey;
using calculation::ExternalIdKey;
using calculation::FormulaParameterKey;
using calculation::TimeAnalysisKey;

// A line with this code takes no part in any total; it keeps the code.
constexpr const char* OutsideCode = "*";

// The walk down from an analysis, depth first, on a work list of its own: the depth of reuse has no bound.
class WalkDown {
 public:
  explicit WalkDown(IdentifierChanges changes) : _Changes(changes) {}

  void Run(const KORBaseUnknown_var& analysis) {
    Enter(analysis);
    while (!_Levels.empty()) {
      Level& level = _Levels.back();
      if (level.Row == level.RowCount) {
        _Way.erase(level.Analysis);
        _Levels.pop_back();
      } else {
        Enter(TakeRow(++level.Row, *level.Lines));
      }
    }
  }

 private:
  struct Level {
    const KORBaseUnknown* Analysis;
    VEXITimeAnalysisLines_var Lines;
    int RowCount;
    int Row;  // that was taken last, from 1
  };

  void Enter(const KORBaseUnknown_var& analysis) {
    if (VEXITimeAnalysisRepReference_var(analysis).IsNull()) return;
    const VEXITimeAnalysisLines_var lines = analysis;
    if (lines.IsNull() || !_Way.insert(analysis.Get()).second) return;
    int count = 0;
    (void)lines->GetLineCount(count);
    _Levels.push_back({analysis.Get(), lines, count, 0});
  }

  // Lists the change of a row and writes it. What the row reuses, to be entered; null if it is not listed.
  KORBaseUnknown_var TakeRow(int row, VEXITimeAnalysisLines& lines) {
    VEXTimeAnalysisLineData line;
    (void)lines.GetLine(row, line);
    KORBaseUnknown_var reused;
    KORUnicodeString code;
    (void)line.GetValue(TimeAnalysisKey, reused);
    (void)line.GetValue(CodeKey, code);
    const VEXITimeAnalysisProperties_var properties = reused;
    if (properties.IsNull()) return NULL_var;
    KORUnicodeString current;
    (void)properties->GetValue(ExternalIdKey, current);
    _Changes.Old.Append(code == OutsideCode ? current : code);
    _Changes.New.Append(current);
    if (current != code) {
      if (code != OutsideCode) (void)line.SetValue(CodeKey, current);
      (void)lines.SetLine(row, line);
    }
    return reused;
  }

  IdentifierChanges _Changes;
  std::vector<Level> _Levels;
  std::unordered_set<const KORBaseUnknown*> _Way;
};

// The changes by old identifier.
class NewIdentifiers {
 public:
  explicit NewIdentifiers(const IdentifierChanges& changes) : _Changes(changes) {
    int position = 0;
    for (const KORUnicodeString& old : changes.Old) _Positions.try_emplace(old.Bytes(), ++position);
  }

  // The present owner for the one that a parameter names.
  const KORUnicodeString& OwnerFor(const KORUnicodeString& owner, const KORUnicodeString& own_identifier) const {
    const auto found = _Positions.find(owner.Bytes());
    if (found == _Positions.end()) return own_identifier;
    return found->second <= _Changes.New.Size() ? _Changes.New[found->second] : owner;
  }

 private:
  const IdentifierChanges& _Changes;
  std::unordered_map<std::string_view, int> _Positions;  // the first one of each
};

// True if an owner was changed.
bool RepairOwnersIn(const KORRawCollPV& parameters, const NewIdentifiers& identifiers,
                    const KORUnicodeString& own_identifier) {
  bool is_changed = false;
  for (void* const entry : parameters) {
    auto* const parameter = static_cast<VEXTimeAnalysisFormulaParameter*>(entry);
    if (parameter == nullptr) continue;
    const KORUnicodeString& owner = identifiers.OwnerFor(parameter->_OwnerPLMId, own_identifier);
    if (owner == parameter->_OwnerPLMId) continue;
    parameter->_OwnerPLMId = owner;
    is_changed = true;
  }
  return is_changed;
}

}  // namespace

long ListIdentifierChanges(const KORBaseUnknown_var& analysis, IdentifierChanges changes) {
  if (VEXITimeAnalysisRepReference_var(analysis).IsNull()) return E_FAIL;
  WalkDown(changes).Run(analysis);
  return S_OK;
}

long RepairOwners(const KORBaseUnknown_var& analysis, const IdentifierChanges& changes) {
  const VEXITimeAnalysisRepReference_var attributes = analysis;
  if (attributes.IsNull()) return E_FAIL;
  KORUnicodeString own_identifier;
  (void)attributes->GetValue(ExternalIdKey, own_identifier);
  const VEXITimeAnalysisLines_var lines = analysis;
  if (lines.IsNull()) return S_OK;
  const NewIdentifiers identifiers(changes);
  int count = 0;
  (void)lines->GetLineCount(count);
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    (void)lines->GetLine(row, line);
    KORRawCollPV parameters;
    (void)line.GetValue(FormulaParameterKey, parameters);
    if (RepairOwnersIn(parameters, identifiers, own_identifier)) {
      (void)line.SetValue(FormulaParameterKey, parameters);
      (void)lines->SetLine(row, line);
    }
    (void)line.ClearFormulaAndParamters();
  }
  return S_OK;
}

}  // namespace objects
