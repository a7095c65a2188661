// A tree of nodes, as the host shows it.
#pragma once

#include <vector>

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/services/KORGraphNode.h"

/// Makes the nodes of model objects, and has the extensions of objects and nodes say what they show.
///
/// The node of an object belongs to the object's component with "_node" behind its name; that of an object without a
/// component is a plain one (KORPlainNode). One tree serves one thread at a time.
class KORPLATFORM_API KORNavigTree {
 public:
  using Node_var = KORHandle<KORGraphNode>;

  KORNavigTree() = default;
  KORNavigTree(const KORNavigTree&) = delete;
  KORNavigTree& operator=(const KORNavigTree&) = delete;

  /// Adds the node of an object, which is not null, below others. It shows nothing until it is refreshed.
  Node_var AddNode(const KORBaseUnknown_var& object, const std::vector<Node_var>& parents = {});

  /// Has all nodes show their text, their icon and their masks, in the order in which they were added.
  ///
  /// The text is the first of KORINavigateObject::GetNodeNames: empty for an empty list and for an object that has no
  /// names, and left as it was where there is no list. Icon and masks: KORINavigElement::Update. A node without an
  /// extension is left as it is.
  void Refresh();

 private:
  std::vector<Node_var> _Nodes;
};
