// Time analyses made, put under operations and taken away from there. Meaning and results as the members of
// VEXSTTProvider of the same purpose tell.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/model/KORIInstance.h"

namespace objects {

long MakeRepresentation(KORBaseUnknown_var& representation, const KORListValKORICkeParm_var& writable_attributes,
                        const KORListValKORICkeParm_var& creation_attributes, const KORIInstance_var& proxy);
long AttachRepresentation(const KORBaseUnknown_var& operation, const KORBaseUnknown_var& representation);
long DetachAnalysis(const KORBaseUnknown_var& operation);

}  // namespace objects
