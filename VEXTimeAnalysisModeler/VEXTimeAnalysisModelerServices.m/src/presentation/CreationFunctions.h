// How the platform comes from an object to an interface that a class of this module answers for.
#pragma once

#include "platform/base/KORBaseUnknown.h"

namespace presentation {

/// Each gives the interface of its name for `object`, with a reference that the caller releases; null if the class does
/// not answer for it. With BOA in its name the class answers itself, with TIE a forwarder does; the forwarders of one
/// object share one extension. Safe across threads.
void* CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify(KORBaseUnknown& object);
void* CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate(KORBaseUnknown& object);
void* CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement(KORBaseUnknown& object);
void* CreateBOAKORIIconVEXSTMTimeAnalysisIcon(KORBaseUnknown& object);
void* CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr(KORBaseUnknown& object);

void* CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);
void* CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);
void* CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);

}  // namespace presentation
