// Whether the time analyses of many operations are last revisions: by a single query, and by what is remembered on
// them. Meaning and results of the first two as the members of VEXSTTProvider of the same purpose tell.
//
// The answers of the one query come back through two tables, both with the implementation of an object as key:
//
//   status table      analysis -> pointer to an int on the heap, a TARevStatus that starts at TARevUnknown
//   identifier table  identificator -> implementation of the analysis that it identifies
//
// and a list of the identificators that were asked about, each with a reference. An identificator stands in the list if
// it stands in the table.
#pragma once

#include "platform/base/KORHashObject.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/services/KORAdpVersioning.h"

namespace objects {

long InstancesWithStatusByOneQuery(const KORListValKORBaseUnknown_var& occurrences,
                                   KORListValKORBaseUnknown_var& instances, KORRawCollint& statuses);
long InstancesWithRememberedStatus(const KORListValKORBaseUnknown_var& occurrences,
                                   KORListValKORBaseUnknown_var& instances, KORRawCollint& statuses);

/// Enters the analyses of representation instances, and those that these reuse directly, into the tables and the list,
/// each once. The cells and the references become the caller's. Nothing happens if a table is null.
void BuildTAsHashWithListOfPLMIdentificators(KORListValKORBaseUnknown_var& instances, KORHashObject*& statuses,
                                             KORHashObject*& identifiers,
                                             KORListPtrKORIAdpPLMIdentificator& identificators);

/// Writes what the database told into the cells of the status table, and then TARevReusedNotLatest into those of last
/// revisions that reuse an analysis with TARevNotLatest; an analysis that is not in the table does not count. Of
/// several identificators of one object the first in the list counts; information on other objects is passed over.
///
/// The status of the last element that was asked for; S_OK if there is no information; E_FAIL if a table is null.
long SetRevisionStatusToTA_InHash(const KORListPtrKORIAdpPLMIdentificator& identificators,
                                  KORListValKORAdpVersioningInfo& infos, KORHashObject*& statuses,
                                  KORHashObject*& identifiers);

/// Gives back the references of the list and empties it. A null entry ends the process.
void ReleaseIdentificators(KORListPtrKORIAdpPLMIdentificator& identificators);

}  // namespace objects
