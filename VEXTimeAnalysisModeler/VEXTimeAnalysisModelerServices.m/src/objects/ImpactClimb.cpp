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
  explicit EachAnalysisOnce(const KORHashObject& reuses) : _Reuses(reuses) {}

  void Run(KORBaseUnknown* changed) {
    Enter(changed);
    while (!_Open.empty()) {
      ImpactLevel& level = _Open.back();
      if (level.IsDone()) {
        _Finished.push_back(level.Analysis);
        _Open.pop_back();
      } else {
        Enter(level.Take());
      }
    }
  }

  /// Each behind all that is above it; the analysis of the start is the last one.
  std::vector<KORBaseUnknown*>& Finished() { return _Finished; }
  /// Lines that reuse the analysis of the start or one above it.
  std::size_t GetReuseCount() const { return _ReuseCount; }

 private:
  void Enter(KORBaseUnknown* analysis) {
    if (analysis == nullptr || !_Entered.insert(analysis).second) return;
    const KORRawCollPV* const reused_in = ReusedInOf(_Reuses, analysis);
    if (reused_in != nullptr) _ReuseCount += static_cast<std::size_t>(reused_in->Size());
    _Open.push_back({analysis, reused_in});
  }

  const KORHashObject& _Reuses;
  std::unordered_set<const KORBaseUnknown*> _Entered;
  std::vector<ImpactLevel> _Open;
  std::vector<KORBaseUnknown*> _Finished;
  std::size_t _ReuseCount = 0;
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

bool HasManyWays(const KORHashObject& reuses, KORBaseUnknown* changed) {
  EachAnalysisOnce walk(reuses);
  walk.Run(changed);
  const std::size_t limit = std::max(SmallCost, RepeatedCost * walk.GetReuseCount());
  ImpactClimb climb(reuses, {changed});
  while (climb.GetCost() <= limit) {
    if (!climb.Next()) return false;
  }
  return true;
}

std::vector<KORBaseUnknown*> ImpactedInOrder(const KORHashObject& reuses, KORBaseUnknown* changed) {
  EachAnalysisOnce walk(reuses);
  walk.Run(changed);
  std::vector<KORBaseUnknown*>& finished = walk.Finished();
  finished.pop_back();
  std::reverse(finished.begin(), finished.end());
  return std::move(finished);
}

}  // namespace objects
