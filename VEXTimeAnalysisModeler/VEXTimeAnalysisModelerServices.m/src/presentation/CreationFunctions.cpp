// How the platform comes from an object to an interface that a class of this module answers for.
#include "presentation/CreationFunctions.h"

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORTie.h"
#include "platform/services/KORNodeForwarders.h"
#include "presentation/VEXESTMTimeAnalysisNavigModify.h"
#include "presentation/VEXESTMTimeAnalysisNavigObjectModify.h"
#include "presentation/VEXESTMTimeAnalysisNavigate.h"
#include "presentation/VEXESTMTimeAnalysisRepUIManagement.h"
#include "presentation/VEXETimeAnalysisSessionServicesMgr.h"
#include "presentation/VEXSTMTimeAnalysisIcon.h"

namespace presentation {

void* CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify(KORBaseUnknown& object) {
  return KORFillDictionary::ToCreateBOA<KORINavigateObjectModify, VEXESTMTimeAnalysisNavigObjectModify>(object);
}

void* CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate(KORBaseUnknown& object) {
  return KORFillDictionary::ToCreateBOA<KORINavigateObject, VEXESTMTimeAnalysisNavigate>(object);
}

void* CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement(KORBaseUnknown& object) {
  return KORFillDictionary::ToCreateBOA<KORIPLMRepUIManagement, VEXESTMTimeAnalysisRepUIManagement>(object);
}

void* CreateBOAKORIIconVEXSTMTimeAnalysisIcon(KORBaseUnknown& object) {
  return KORFillDictionary::ToCreateBOA<KORIIcon, VEXSTMTimeAnalysisIcon>(object);
}

void* CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr(KORBaseUnknown& object) {
  return KORFillDictionary::ToCreateBOA<VEXITimeAnalysisSessionServicesMgr, VEXETimeAnalysisSessionServicesMgr>(object);
}

void* CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object) {
  return Tie_Construct<TIEKORINavigElement<VEXESTMTimeAnalysisNavigModify>>(object);
}

void* CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object) {
  return Tie_Construct<TIEKORINavigModify<VEXESTMTimeAnalysisNavigModify>>(object);
}

void* CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify(KORBaseUnknown& object) {
  return Tie_Construct<TIEKORINavigNodeCtrl<VEXESTMTimeAnalysisNavigModify>>(object);
}

}  // namespace presentation
