// What is fetched once for the process: the factory of time analyses and the table of kept components.
#pragma once

#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"

namespace objects {

/// As VEXSTTProvider::GetRepRefFactory and VEXSTTProvider::GetSessionServicesMgr. Safe across threads.
long GetRepRefFactory(PLMIRepresentationReferenceFactory*& factory);
long GetSessionServicesMgr(VEXITimeAnalysisSessionServicesMgr*& manager);

/// Lets go of the factory, so that the next call fetches a new one.
void LetGoOfRepRefFactory();

}  // namespace objects
