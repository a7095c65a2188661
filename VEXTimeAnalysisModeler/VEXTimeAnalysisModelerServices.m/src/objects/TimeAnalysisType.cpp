// How the platform knows time analyses: by a representation type, which has a factory, and by a knowledge type.
#include "objects/TimeAnalysisType.h"

#include "platform/services/KORCkePLMNavPublicServices.h"

namespace objects {

HandedOut<PLMIRepresentationReferenceFactory> FetchAnalysisFactory() {
  return HandedOutUntyped<PLMIRepresentationReferenceFactory>([](void** out) {
    return GetRepresentationReferenceFactory("TimeAnalysis", out, PLMIRepresentationReferenceFactory::ClassId());
  });
}

long RetrieveAnalysisType(KORIType_var& type) {
  return KORCkePLMNavPublicServices::RetrieveKnowledgeType("VEXTimeAnalysisRepReference", type);
}

}  // namespace objects
