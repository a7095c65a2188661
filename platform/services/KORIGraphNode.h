// A node of the tree, as the tree draws it.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// The parents of a node and what it shows. One node serves one thread at a time.
class KORIGraphNode : public KORInterface<KORIGraphNode> {
 public:
  static constexpr const char* InterfaceName = "KORIGraphNode";

  /// How many parents the node has.
  virtual int GetParentCount() = 0;
  /// A parent, with no reference added.
  ///
  /// position  from 1
  /// Null outside 1 to GetParentCount().
  virtual KORIGraphNode* GetParentNode(int position) = 0;
  /// The object that the node is, with a reference that the caller releases; extensions of nodes extend it. Null on
  /// failure.
  virtual KORBaseUnknown* GetNodeObject() = 0;

  /// Gives the node an icon, in place of the one before and without its masks. It is the way on which
  /// KORSextantInTreeEnabler::NodeIconDisplay goes. S_OK.
  virtual long SetIcon(const KORUnicodeString& name) = 0;
  /// Puts a mask on the node's icon, on top of those that are there; an equal one that is there stays the only one.
  /// S_OK.
  ///
  /// across, down  where the mask stands on the icon
  virtual long AddIconMask(const KORUnicodeString& name, int across, int down, int flag) = 0;

  /// The first of the two finishing calls; the argument is passed as 0. S_OK.
  virtual long RefreshNodeImage(int reserved) = 0;
  /// The second one.
  virtual long RefreshNodeText(int reserved) = 0;
};
using KORIGraphNode_var = KORHandle<KORIGraphNode>;
