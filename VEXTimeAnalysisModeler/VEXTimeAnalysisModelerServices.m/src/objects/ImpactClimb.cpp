// The ways up from an analysis to those that reuse it, and in which order analyses are brought up to date on them.
#include "objects/ImpactClimb.h"

#include <algorithm>
#include <utility>

namespace objects {

namespace {

const KORRawCollPV* ReusedInOf(const KORHashObject& reuses, const KORBaseUnknown* analysis) {
  return static_cast<const KORRawCollPV*>(reuses.Get(analysis));
}

// How many entries in a row, the one at the position among them, are the same: the lines of one analysis that reuse one
// other stand together.
std::size_t CountSame(const KORRawCollPV& reused_in, int position) {
  int first = position;
  int last = position;
  while (first > 1 && reused_in[first - 1] == reused_in[position]) --first;
  while (last < reused_in.Size() && reused_in[last + 1] == reused_in[position]) ++last;
  return static_cast<std::size_t>(last - first) + 1;
}

// A walk over everything above an analysis that enters each analysis once.
class EachAnalysisOnce {
 public:
  EachAnalysisOnce(const KORHashObject& reuses, KORBaseUnknown* changed) : _Reuses(reuses) { Enter(changed); }

  ImpactOrder Run() {
    while (!_Open.empty()) {
      ImpactLevel& level = _Open.back();
      if (level.IsDone()) {
        _Order.Analyses.push_back(level.Analysis);
        _Open.pop_back();
      } else {
        KORBaseUnknown* const below = level.Analysis;
        KORBaseUnknown* const impacted = level.Take();
        if (Enter(impacted)) _Order.FirstSteps.push_back({below, impacted});
      }
    }
    _Order.Analyses.pop_back();  // where the walk began
    std::reverse(_Order.Analyses.begin(), _Order.Analyses.end());
    return std::move(_Order);
  }

 private:
  bool Enter(KORBaseUnknown* analysis) {
    if (analysis == nullptr || !_Entered.insert(analysis).second) return false;
    const KORRawCollPV* const reused_in = ReusedInOf(_Reuses, analysis);
    if (reused_in != nullptr) _Order.ReuseCount += static_cast<std::size_t>(reused_in->Size());
    _Open.push_back({analysis, reused_in});
    return true;
  }

  const KORHashObject& _Reuses;
  std::unordered_set<const KORBaseUnknown*> _Entered;
  std::vector<ImpactLevel> _Open;
  ImpactOrder _Order;
};

}  // namespace

ImpactClimb::ImpactClimb(const KORHashObject& reuses, const std::vector<KORBaseUnknown*>& way)
    : _Reuses(reuses), _Way(way.begin(), way.end()) {
  Enter(way.back());
}

void ImpactClimb::Enter(KORBaseUnknown* analysis) {
  _Way.insert(analysis);
  _Levels.push_back({analysis, ReusedInOf(_Reuses, analysis)});
}

std::optional<ImpactStep> ImpactClimb::Next() {
  while (!_Levels.empty()) {
    ImpactLevel& level = _Levels.back();
    if (level.IsDone()) {
      _Way.erase(level.Analysis);
      _Levels.pop_back();
      continue;
    }
    KORBaseUnknown* const impacted = level.Take();
    ++_Cost;
    if (impacted == nullptr || _Way.contains(impacted)) continue;
    _Cost += CountSame(*level.ReusedIn, level.Position);
    const ImpactStep step{level.Analysis, impacted};
    Enter(impacted);
    return step;
  }
  return std::nullopt;
}

ImpactOrder OrderOfImpact(const KORHashObject& reuses, KORBaseUnknown* changed) {
  return EachAnalysisOnce(reuses, changed).Run();
}

bool HasManyWays(const KORHashObject& reuses, KORBaseUnknown* changed) {
  const std::size_t limit = std::max(SmallCost, RepeatedCost * OrderOfImpact(reuses, changed).ReuseCount);
  ImpactClimb climb(reuses, {changed});
  while (climb.GetCost() <= limit) {
    if (!climb.Next()) return false;
  }
  return true;
}

}  // namespace objects
