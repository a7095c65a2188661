// How the platform knows time analyses: by a representation type, which has a factory, and by a knowledge type.
#pragma once

#include "HandedOut.h"
#include "platform/services/KORIType.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"

namespace objects {

/// As GetRepresentationReferenceFactory and KORCkePLMNavPublicServices::RetrieveKnowledgeType.
HandedOut<PLMIRepresentationReferenceFactory> FetchAnalysisFactory();
long RetrieveAnalysisType(KORIType_var& type);

}  // namespace objects
