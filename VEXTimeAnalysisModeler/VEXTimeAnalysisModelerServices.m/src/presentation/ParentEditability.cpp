// Whether the operation above the node of an analysis may be changed.
#include "presentation/ParentEditability.h"

#include "objects/OperationWalk.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNavigInstance.h"
#include "platform/services/KORPLMEditabilityServices.h"

namespace presentation {

namespace {

// What the last parent of the node stands for; null where a link of the way is missing.
KORBaseUnknown_var ObjectOfLastParent(const KORIGraphNode_var& node) {
  KORIGraphNode* const parent = node->GetParentNode(node->GetParentCount());
  if (parent == nullptr) return NULL_var;
  const KORINavigElement_var element = KORBaseUnknown_var::Adopt(parent->GetNodeObject());
  if (element.IsNull()) return NULL_var;
  const KORNavigInstance* const instance = element->GetAssociatedInstance();
  return instance == nullptr ? NULL_var : instance->GetReference();
}

bool IsEditable(const KORIPLMNavReference_var& operation) {
  KORListValKORBaseUnknown_var operations;
  operations.Append(operation);
  KORListValKORBoolean editable;  // not read: what counts is whether the platform can tell
  return Succeeded(KORPLMEditabilityServices::GetEditabilityStatus(operations, editable, nullptr));
}

}  // namespace

bool IsParentOperationEditable(const KORIGraphNode_var& node) {
  const KORIPLMNavOccurrence_var occurrence = ObjectOfLastParent(node);
  if (occurrence.IsNull()) return IsEditable(NULL_var);
  const KORIPLMNavInstance_var instance = objects::InstanceOf(occurrence).Get();
  if (instance.IsNull()) return IsEditable(NULL_var);
  const KORIPLMNavReference_var operation = objects::OperationOf(instance).Get();
  return !operation.IsNull() && IsEditable(operation);
}

}  // namespace presentation
