// What the database is asked about the revisions of time analyses.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/services/KORAdpVersioning.h"

namespace objects {

/// Asks the database, once, what it knows of the objects of `identificators`. The status of its answer.
long AskForVersions(const KORListPtrKORIAdpPLMIdentificator& identificators, KORListValKORAdpVersioningInfo& infos);

/// Whether the information tells of a last major revision; false if it does not tell.
bool IsLastMajor(const KORAdpVersioningInfo& info);

}  // namespace objects
