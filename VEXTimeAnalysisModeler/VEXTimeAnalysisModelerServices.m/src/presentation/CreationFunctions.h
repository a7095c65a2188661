// How the platform comes from an object to an interface that a class of this module answers for.
#pragma once

#include "platform/base/KORBaseUnknown.h"

namespace presentation {

// Each gives the interface of its name for `object`, with a reference that the caller releases; null if the class does
// not answer for it.

// The class itself answers.
void* CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify(KORBaseUnknown& object);
void* CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate(KORBaseUnknown& object);
void* CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement(KORBaseUnknown& object);
void* CreateBOAKORIIconVEXSTMTimeAnalysisIcon(KORBaseUnknown& object);
void* CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr(KORBaseUnknown& object);

// A forwarder answers. Those of one object share one extension.
void* CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);
void* CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);
void* CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object);

}  // namespace presentation
