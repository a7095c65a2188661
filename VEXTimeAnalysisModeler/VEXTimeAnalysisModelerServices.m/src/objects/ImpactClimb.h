// The ways up from an analysis to those that reuse it, and in which order analyses are brought up to date on them.
#pragma once

#include <cstddef>
#include <optional>
#include <unordered_set>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHashObject.h"
#include "platform/base/KORList.h"

namespace objects {

/// A step up: from an analysis to one that reuses it.
struct ImpactStep {
  KORBaseUnknown* Changed;
  KORBaseUnknown* Impacted;
};

/// An analysis on a way up, and how far those that reuse it were gone through.
struct ImpactLevel {
  KORBaseUnknown* Analysis;
  const KORRawCollPV* ReusedIn;  // null: nowhere
  int Position = 0;              // of the last entry that was taken, from 1

  bool IsDone() const { return ReusedIn == nullptr || Position == ReusedIn->Size(); }
  /// The next entry; may be null.
  KORBaseUnknown* Take() { return static_cast<KORBaseUnknown*>((*ReusedIn)[++Position]); }
};

/// The steps of a climb along every way up, depth first: all above an analysis comes ahead of the next analysis that
/// reuses the same one. An analysis that is on the way to where the climb stands is not climbed to again.
///
/// The objects are kept alive by the caller, and the table of reuses stays as it is meanwhile.
class ImpactClimb {
 public:
  /// reuses  by implementation of the reused analysis a list (KORRawCollPV) of those that reuse it
  /// way     the analyses from which the climb starts, the last of them being where it stands; none is null
  ImpactClimb(const KORHashObject& reuses, const std::vector<KORBaseUnknown*>& way);

  /// The next step; nothing at the end.
  std::optional<ImpactStep> Next();

  /// What the climb took so far: one for each reuse that was looked at, and one for each line that reuses the analysis
  /// of a step.
  std::size_t GetCost() const { return _Cost; }

 private:
  void Enter(KORBaseUnknown* analysis);

  const KORHashObject& _Reuses;
  std::vector<ImpactLevel> _Levels;
  std::unordered_set<const KORBaseUnknown*> _Way;
  std::size_t _Cost = 0;
};

/// What is above an analysis, each analysis once.
struct ImpactOrder {
  std::vector<ImpactStep> FirstSteps;     // the climb's first step to each, in their order
  std::vector<KORBaseUnknown*> Analyses;  // each behind all that it reuses; in a circle of reuses behind those that
                                          // come before it on the climb
  std::size_t ReuseCount = 0;             // lines that reuse the analysis or one above it
};
/// `changed` is not null.
ImpactOrder OrderOfImpact(const KORHashObject& reuses, KORBaseUnknown* changed);

/// Whether the climb from an analysis would visit lines again and again: it costs more than RepeatedCost for each reuse
/// above the analysis, and more than SmallCost in all. The answer itself costs no more than that.
bool HasManyWays(const KORHashObject& reuses, KORBaseUnknown* changed);
inline constexpr std::size_t RepeatedCost = 4;
inline constexpr std::size_t SmallCost = 1000;

}  // namespace objects
