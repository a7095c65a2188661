// The change of an analysis carried to all analyses above it. Meaning and results as the members of
// VEXSTTApplicativeContainerServices of the same purpose tell.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORHashObject.h"
#include "platform/base/KORObjectLists.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/services/KOROmbLifeCycleRootsBag.h"

namespace objects {

/// As UpdateModificationsTOAllImpactedTimeAnalysis.
long UpdateAllAbove(const KORBaseUnknown_var& changed, KOROmbLifeCycleRootsBag& bag,
                    KORListValKORBaseUnknown_var& all_analyses);

/// As UpdateTemplateToImapctedTA. `reuses` may be null: nobody is climbed to.
void UpdateAndClimb(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted, const KORHashObject* reuses,
                    KORListPtrKORIPLMComponent& components);

/// The two ways in which everything above an analysis is brought up to date: by the steps of the climb, which visits an
/// analysis on every way that leads to it, and by the climb's first step to each analysis, and then once more for each,
/// behind all that it reuses. They leave the same lines and totals unless a way leads back to an analysis on it, a
/// formula parameter of a changed analysis bears the identifier of one that reuses it, or a formula comes to a line at
/// one visit and is gone from it at a later one. `changed` is not null.
void UpdateOnEveryWay(const KORBaseUnknown_var& changed, const KORHashObject& reuses,
                      KORListPtrKORIPLMComponent& components);
void UpdateEachOnce(const KORBaseUnknown_var& changed, const KORHashObject& reuses,
                    KORListPtrKORIPLMComponent& components);

}  // namespace objects
