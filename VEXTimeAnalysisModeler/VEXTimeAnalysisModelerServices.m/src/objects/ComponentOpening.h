// Components opened in the session.
#pragma once

#include "platform/model/KORPLMComponent.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

/// As VEXSTTProvider::GetTARepRefFromPLMComponent.
long OpenAnalysis(KORIPLMComponent* component, VEXITimeAnalysisRepReference_var& analysis);

}  // namespace objects
