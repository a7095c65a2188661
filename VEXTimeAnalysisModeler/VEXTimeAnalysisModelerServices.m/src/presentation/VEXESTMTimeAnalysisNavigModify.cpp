// How the node of an analysis is drawn.
#include "presentation/VEXESTMTimeAnalysisNavigModify.h"

#include "VEXSTTProvider.h"
#include "objects/LockStatus.h"
#include "platform/services/KORGraphNode.h"
#include "platform/services/KORSextantInTreeEnabler.h"
#include "platform/system/KORJXMNavGenericServices.h"
#include "presentation/DisplayGate.h"
#include "presentation/ParentEditability.h"
#include "presentation/Registration.h"

namespace {

using LockStatus = VEXSTTProvider::TALockStatus;

// The marks for one kind of reservation, and where they stand on the icon.
struct LockMask {
  const char* ByMe;
  const char* ByOthers;
  int Across;
  int Down;
  int Flag;
};
constexpr LockMask ReferenceMask{"I_MaskLockByMeRef", "I_MaskNotLockByMeRef", 15, 8, 1};
constexpr LockMask InstanceMask{"I_MaskLockByMeInst", "I_MaskNotLockByMeInst", 9, 12, 1};

void AddMask(const KORIGraphNode_var& node, const LockMask& mask, LockStatus status) {
  if (status == VEXSTTProvider::TANotLocked) return;
  const char* const name = status == VEXSTTProvider::TALockByMe ? mask.ByMe : mask.ByOthers;
  (void)node->AddIconMask(KORGraphNode::isPixmapNameValid(name), mask.Across, mask.Down, mask.Flag);
}

// A reservation that can't be read is none.
void AddLockMasks(const KORIGraphNode_var& node, const KORBaseUnknown_var& object, const KORUnicodeString& user) {
  if (object.IsNull()) return;
  LockStatus status = VEXSTTProvider::TANotLocked;
  (void)objects::LockStatusOfReference(object, status, user);
  AddMask(node, ReferenceMask, status);
  status = VEXSTTProvider::TANotLocked;
  (void)objects::LockStatusOfInstance(object, status, user);
  AddMask(node, InstanceMask, status);
}

}  // namespace

const KORMetaClass* VEXESTMTimeAnalysisNavigModify::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXESTMTimeAnalysisNavigModify");
  return meta_object;
}

void VEXESTMTimeAnalysisNavigModify::UpdateNodeDisplay(KORNavigInstance* instance) {
  if (!presentation::IsNodeDisplayed()) return;
  const KORIGraphNode_var node(GetImpl(0));
  if (node.IsNull()) return;
  const char* const icon =
      presentation::IsParentOperationEditable(node) ? "I_VEXSTTStopWatch" : "I_VEXSTTStopWatchLocked";
  if (instance == nullptr) return;
  const KORBaseUnknown_var object = instance->GetReference();
  if (!object.IsNull()) (void)KORSextantInTreeEnabler::NodeIconDisplay(object, node.Get(), icon);
  KORUnicodeString user;
  (void)KORJXMNavGenericServices::GetCurrentUserId(user);
  AddLockMasks(node, object, user);
  (void)node->RefreshNodeImage(0);
  (void)node->RefreshNodeText(0);
}
