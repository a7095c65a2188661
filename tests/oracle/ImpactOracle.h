// The plain climb from a changed analysis to all that reuse it, and the plain repair of identifiers, step by step and
// without any shortcut. It is the yardstick for both. It recurses once per level, goes every way there is, and reads
// all lines of an analysis again for each line that reuses it, so it suits small graphs only.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/VEXTimeAnalysisLineData.h"

namespace oracle {

/// An analysis, and those that reuse it: one entry for each line that does, in the order of discovery.
struct Reused {
  KORBaseUnknown_var analysis;
  std::vector<KORBaseUnknown_var> reusing;
};

/// Who reuses what; searched from the front.
using Reuses = std::vector<Reused>;

/// Reads the reuses off the lines of analyses. An object that offers no attributes or no lines is passed over.
Reuses ReusesOf(const KORListValKORBaseUnknown_var& analyses);

/// A climb, and what came of it.
struct Climb {
  std::size_t most_parameters = 1'000'000;  // read or written on the way; beyond these the climb is given up
  std::size_t most_visits = 1'000'000;      // the same for the analyses met

  bool given_up = false;
  std::size_t parameters = 0;
  std::size_t visits = 0;
  std::vector<KORIPLMComponent_var> components;  // one for each line rewritten, in the order of rewriting
};

/// Brings an analysis up to date with one that it reuses, then all above it; an analysis that is on the current way up
/// is not visited again. Does nothing for null.
///
/// reuses  null: nobody is climbed to
/// Always S_OK. Raises the null-handle error of the platform where a call goes through a null handle.
long UpdateTemplateToImpacted(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted,
                              const Reuses* reuses, Climb& climb);

/// What an update of everything above an analysis gave beside what it changed.
struct ImpactOutcome {
  long status = 0;
  bool saves = false;  // the components of the climb are saved
};

/// Brings everything above an analysis up to date.
///
/// all_analyses  [in, out] filled with all analyses of the current session if it is empty; else nothing is done
ImpactOutcome UpdateAllImpacted(const KORBaseUnknown_var& changed, KORListValKORBaseUnknown_var& all_analyses,
                                Climb& climb);

/// The parameters of a line that have an owner, in their order, null entries left out.
KORRawCollPV GetOwnParametersOnLine(const VEXTimeAnalysisLineData& line, const KORUnicodeString& identifier);

/// Lists what the lines below an analysis take identifiers for and what those are, and repairs the codes; an analysis
/// that is on the current way down is listed and not entered.
long GetOldAndNewIdentifiers(const KORBaseUnknown_var& analysis, KORListValKORUnicodeString& old_identifiers,
                             KORListValKORUnicodeString& new_identifiers);

/// Repairs the owners of the parameters in one analysis. A position beyond the new list stands for no change.
long UpdateIdentifiers(const KORBaseUnknown_var& analysis, const KORListValKORUnicodeString& old_identifiers,
                       const KORListValKORUnicodeString& new_identifiers);

}  // namespace oracle
