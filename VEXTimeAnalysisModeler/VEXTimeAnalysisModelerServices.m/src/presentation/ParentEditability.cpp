// Whether the operation above the node of an analysis may be changed.
#include "presentation/ParentEditability.h"

#include "HandedOut.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/model/KORIPLMNavOccurrence.h"
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

KORIPLMNavInstance_var InstanceOf(const KORIPLMNavOccurrence_var& occurrence) {
  if (occurrence.IsNull()) return NULL_var;
  return HandedOut<KORIPLMNavInstance>(
             [&occurrence](KORIPLMNavInstance*& instance) { return occurrence->GetRelatedInstance(instance); })
      .Get();
}

bool IsEditable(const KORIPLMNavReference_var& operation) {
  KORListValKORBaseUnknown_var operations;
  operations.Append(operation);
  KORListValKORBoolean editable;  // not read: what counts is whether the platform can tell
  return Succeeded(KORPLMEditabilityServices::GetEditabilityStatus(operations, editable, nullptr));
}

}  // namespace

bool IsParentOperationEditable(const KORIGraphNode_var& node) {
  const KORIPLMNavInstance_var instance = InstanceOf(ObjectOfLastParent(node));
  if (instance.IsNull()) return IsEditable(NULL_var);
  const HandedOut<KORIPLMNavReference> operation(
      [&instance](KORIPLMNavReference*& reference) { return instance->GetInstanceReference(reference); });
  return !operation.Get().IsNull() && IsEditable(operation.Get());
}

}  // namespace presentation
