// Which analyses an analysis reuses.
#include "calculation/ReuseTree.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "calculation/LineKeys.h"
#include "calculation/LineTime.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace calculation {

namespace {

KORBaseUnknown_var ReusedAnalysisOf(const VEXTimeAnalysisLineData& line) {
  KORBaseUnknown_var reused;
  (void)line.GetValue(TimeAnalysisKey, reused);
  return reused;
}

// The walk downward, depth first, on a work list of its own: the depth of reuse has no bound.
//
// An analysis is entered once. To enter it again would add nothing: all that can be reached from it is in the tables
// by then, or is above it on the way down and about to be finished. The order of the tables is that of the full walk.
class Walk {
 public:
  explicit Walk(ReuseTables tables) : _Tables(tables) {
    for (const KORUnicodeString& identifier : tables.Identifiers) _Known.emplace(identifier.Bytes());
  }

  void Run(const KORBaseUnknown_var& analysis) {
    Enter(analysis);
    while (!_Open.empty()) {
      Level& level = _Open.back();
      if (level.Last == level.Reused.Size()) {
        _Open.pop_back();
      } else {
        Enter(KORBaseUnknown_var(level.Reused[++level.Last]));
      }
    }
  }

 private:
  struct Level {
    KORListValKORBaseUnknown_var Reused;
    int Last = 0;  // position of the one that was entered last
  };

  void Enter(const KORBaseUnknown_var& analysis) {
    if (VEXITimeAnalysisRepReference_var(analysis).IsNull()) return;
    if (!_Entered.insert(analysis->GetImpl(0)).second) return;
    KORUnicodeString identifier;
    (void)VEXITimeAnalysisProperties_var(analysis)->GetValue(ExternalIdKey, identifier);
    if (_Known.emplace(identifier.Bytes()).second) {
      _Tables.Identifiers.Append(identifier);
      _Tables.Values.Append(0.0);
      _Tables.Analyses.Append(analysis);
    }
    _Open.push_back({ReusedAnalysesOf(analysis)});
  }

  ReuseTables _Tables;
  std::unordered_set<std::string> _Known;
  std::unordered_set<const KORBaseUnknown*> _Entered;
  std::vector<Level> _Open;
};

}  // namespace

KORListValKORBaseUnknown_var ReusedAnalysesOf(const VEXITimeAnalysisLines_var& lines) {
  int count = 0;
  (void)lines->GetLineCount(count);
  KORRawCollPV records;
  (void)lines->GetLines(1, count, records);
  KORListValKORBaseUnknown_var reused;
  for (const void* const record : records) {
    if (record == nullptr) continue;
    const KORBaseUnknown_var one = ReusedAnalysisOf(*static_cast<const VEXTimeAnalysisLineData*>(record));
    if (!one.IsNull()) reused.Append(one);
  }
  ReleaseLines(records);
  return reused;
}

KORBaseUnknown_var ReusedAnalysisOfRow(int row, const KORBaseUnknown_var& analysis) {
  const VEXITimeAnalysisLines_var lines = analysis;
  if (lines.IsNull()) return NULL_var;
  VEXTimeAnalysisLineData line;
  (void)lines->GetLine(row, line);
  return ReusedAnalysisOf(line);
}

bool HasReusedLine(const KORBaseUnknown_var& analysis) {
  if (VEXITimeAnalysisRepReference_var(analysis).IsNull()) return false;
  const VEXITimeAnalysisLines_var lines = analysis;
  if (lines.IsNull()) return false;
  int count = 0;
  (void)lines->GetLineCount(count);
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    (void)lines->GetLine(row, line);
    if (!ReusedAnalysisOf(line).IsNull()) return true;
  }
  return false;
}

KORUnicodeString IdentifierOf(KORBaseUnknown* analysis) {
  KORUnicodeString identifier;
  const VEXITimeAnalysisProperties_var properties(analysis);
  if (!properties.IsNull()) (void)properties->GetValue(ExternalIdKey, identifier);
  return identifier;
}

void ListAllReused(const KORBaseUnknown_var& analysis, ReuseTables tables) {
  Walk(tables).Run(analysis);
}

}  // namespace calculation
