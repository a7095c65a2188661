// The identifiers under which the lines of analyses know other analyses, after those have got new ones. Meaning and
// results as the members of VEXSTTApplicativeContainerServices of the same purpose tell.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"

namespace objects {

/// Identifiers before and after, by position.
struct IdentifierChanges {
  KORListValKORUnicodeString& Old;
  KORListValKORUnicodeString& New;
};

/// As GetOldAndNewPLMIDs.
long ListIdentifierChanges(const KORBaseUnknown_var& analysis, IdentifierChanges changes);

/// As UpdatePLMIDsOfTimeAnalysisRepRef.
long RepairOwners(const KORBaseUnknown_var& analysis, const IdentifierChanges& changes);

}  // namespace objects
