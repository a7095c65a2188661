// What the tree asks of its nodes.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

class KORNavigInstance;

/// A node as an element of the tree: the tree tells it what the user did, once it is done, and asks it for what belongs
/// to it. Pointers that it gives come with no reference.
class KORINavigElement : public KORInterface<KORINavigElement> {
 public:
  static constexpr const char* InterfaceName = "KORINavigElement";

  /// The node was selected.
  virtual void ProcessAfterSelect() = 0;
  /// The node was added to a selection.
  virtual void ProcessAfterExtSelect() = 0;
  /// An action was run on the node.
  virtual void ProcessAfterAction() = 0;
  /// The node was expanded.
  virtual void ProcessAfterExpand() = 0;
  /// A method of that name was run on the node.
  virtual void ProcessAfterMethod(const KORUnicodeString& method) = 0;

  /// What holds the node; null if nothing does.
  virtual KORBaseUnknown* GetFatherContainer() = 0;
  /// Brings what the node shows up to date.
  virtual void Update() = 0;
  /// What controls the node; null if nothing does.
  virtual KORBaseUnknown* GetController() = 0;
  /// What the node stands for; null if it stands for nothing, or is cut off from it (KORINavigNodeCtrl).
  virtual KORNavigInstance* GetAssociatedInstance() = 0;
  /// The node stands for nothing from now on; it is neither marked nor selected, nor cut off.
  virtual void Remove() = 0;
  /// Marks the node (1) or takes the mark away (0), and tells which.
  virtual void SetMarked(int marked) = 0;
  virtual int GetMarked() = 0;
};
using KORINavigElement_var = KORHandle<KORINavigElement>;

/// What a node shows.
class KORINavigModify : public KORInterface<KORINavigModify> {
 public:
  static constexpr const char* InterfaceName = "KORINavigModify";

  /// Sets icon and masks of the node anew.
  ///
  /// instance  what the node stands for; null leaves the node as it is
  virtual void UpdateNodeDisplay(KORNavigInstance* instance) = 0;
  /// text  [in, out] the short help for the node
  virtual void ModifyShortHelp(KORUnicodeString& text) = 0;
  /// Selects the node (1) or not (0), and tells which.
  virtual void Select(int selected) = 0;
  virtual int IsSelected() = 0;
};
using KORINavigModify_var = KORHandle<KORINavigModify>;

/// How the tree holds a node.
class KORINavigNodeCtrl : public KORInterface<KORINavigNodeCtrl> {
 public:
  static constexpr const char* InterfaceName = "KORINavigNodeCtrl";

  /// Cuts the node off from what it stands for, and joins it again.
  virtual void Dereference() = 0;
  virtual void Undereference() = 0;
  /// What the node stands for from now on, which it keeps alive; null for nothing.
  virtual void PutAssociatedInstance(KORNavigInstance* instance) = 0;
  /// 0: the tree decides what is expanded.
  virtual int GetExpansionMode() = 0;
};
using KORINavigNodeCtrl_var = KORHandle<KORINavigNodeCtrl>;
