// Whether a time analysis and those that it reuses are last revisions, asked one by one. Meaning and results as the
// members of VEXSTTProvider of the same purpose tell.
#pragma once

#include "VEXSTTProvider.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

bool IsLatest(const VEXITimeAnalysisRepReference_var& analysis);

long RevisionStatusFromDatabase(const VEXITimeAnalysisRepReference_var& analysis, VEXSTTProvider::TARevStatus& status);

/// As it is remembered on the analysis.
long RevisionStatus(const VEXITimeAnalysisRepReference_var& analysis, VEXSTTProvider::TARevStatus& status);

}  // namespace objects
