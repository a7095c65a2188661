// A tree of nodes, as the host shows it.
#include "platform/services/KORNavigTree.h"

#include <memory>
#include <string>

#include "platform/base/KORList.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORNavigInstance.h"
#include "platform/services/KORNodeExtension.h"

namespace {

std::string ComponentOfNode(const KORBaseUnknown_var& object) {
  const std::string component = object->GetComponentName();
  return component.empty() ? KORPlainNode : component + "_node";
}

void RefreshText(KORGraphNode& node, const KORBaseUnknown_var& object) {
  const KORINavigateObject_var names_of_object = object;
  if (names_of_object.IsNull()) return node.SetText({});
  const std::unique_ptr<const KORListValKORUnicodeString> names(names_of_object->GetNodeNames());
  if (names != nullptr) node.SetText(names->Size() == 0 ? KORUnicodeString() : (*names)[1]);
}

void RefreshNode(KORGraphNode& node) {
  const KORINavigElement_var element(&node);
  if (element.IsNull()) return;
  const KORNavigInstance* const instance = element->GetAssociatedInstance();
  RefreshText(node, instance == nullptr ? NULL_var : instance->GetReference());
  element->Update();
}

}  // namespace

KORNavigTree::Node_var KORNavigTree::AddNode(const KORBaseUnknown_var& object, const std::vector<Node_var>& parents) {
  const auto node = Node_var::Adopt(new KORGraphNode(ComponentOfNode(object)));
  for (const Node_var& parent : parents) node->AddParent(parent);
  const auto instance = KORHandle<KORNavigInstance>::Adopt(new KORNavigInstance(object));
  if (const KORINavigNodeCtrl_var control = node; !control.IsNull()) control->PutAssociatedInstance(instance.Get());
  _Nodes.push_back(node);
  return node;
}

void KORNavigTree::Refresh() {
  for (const Node_var& node : _Nodes) RefreshNode(*node);
}
