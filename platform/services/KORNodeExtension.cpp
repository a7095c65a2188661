// The behaviour of nodes in the tree.
#include "platform/services/KORNodeExtension.h"

#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNodeForwarders.h"
#include "platform/system/KORPerform.h"

const char* const KORPlainNode = "KORPlain_node";

namespace {

// Ahead of the initialisers of the program, so that these can make trees.
[[gnu::init_priority(101)]] const KORExtensionRegistration PlainElement(
    KORPlainNode, KORINavigElement::ClassId(), &Tie_Construct<TIEKORINavigElement<KORNodeExtension>>);
[[gnu::init_priority(101)]] const KORExtensionRegistration PlainModify(
    KORPlainNode, KORINavigModify::ClassId(), &Tie_Construct<TIEKORINavigModify<KORNodeExtension>>);
[[gnu::init_priority(101)]] const KORExtensionRegistration PlainNodeCtrl(
    KORPlainNode, KORINavigNodeCtrl::ClassId(), &Tie_Construct<TIEKORINavigNodeCtrl<KORNodeExtension>>);

}  // namespace

const KORMetaClass* KORNodeExtension::MetaObject() {
  static const KORMetaClass description{"KORNodeExtension", KORUuid::OfName("KORNodeExtension"),
                                        KORBaseUnknown::MetaObject(), ENUMTypeOfClass::DataExtension};
  return &description;
}

void KORNodeExtension::Update() {
  UpdateNodeDisplay(GetAssociatedInstance());
}

KORNavigInstance* KORNodeExtension::GetAssociatedInstance() {
  return KORGive("GetAssociatedInstance", [this] { return _CutOff ? nullptr : _Instance.Get(); });
}

void KORNodeExtension::PutAssociatedInstance(KORNavigInstance* instance) {
  _Instance = KORHandle<KORNavigInstance>(instance);
}

void KORNodeExtension::Remove() {
  _Instance = NULL_var;
  _CutOff = false;
  _Marked = 0;
  _Selected = 0;
}
