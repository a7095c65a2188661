// A node of the tree that is drawn nowhere and remembers what it was told to show.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/services/KORIGraphNode.h"

/// A node of a component of its own, by which its extensions are found. It keeps its parents alive. One node serves one
/// thread at a time.
class KORPLATFORM_API KORGraphNode final : public KORImplements<KORIGraphNode> {
 public:
  /// A mask, with the numbers of KORIGraphNode::AddIconMask.
  struct Mask {
    KORUnicodeString Name;
    int Across = 0;
    int Down = 0;
    int Flag = 0;

    friend bool operator==(const Mask&, const Mask&) = default;
  };

  /// component  as "PCCMemVEXTimeAnalysisRepInstance_node"; empty for a node without extensions
  explicit KORGraphNode(std::string component) : _Component(std::move(component)) {}
  KORGraphNode(const KORGraphNode&) = delete;
  KORGraphNode& operator=(const KORGraphNode&) = delete;
  ~KORGraphNode() override = default;

  /// A usable image name for the given one: the image that stands for it in the current session (ReplacePixmap), else
  /// the name itself.
  static KORUnicodeString isPixmapNameValid(const KORUnicodeString& name);
  /// Has another image stand for the one of that name in the current session.
  static void ReplacePixmap(const KORUnicodeString& name, const KORUnicodeString& by);

  const char* GetComponentName() const override { return _Component.c_str(); }

  /// Adds a parent behind the others. A node is not to be among its own ancestors.
  void AddParent(const KORIGraphNode_var& parent) { _Parents.push_back(parent); }

  int GetParentCount() override;
  KORIGraphNode* GetParentNode(int position) override;
  KORBaseUnknown* GetNodeObject() override;
  long SetIcon(const KORUnicodeString& name) override;
  long AddIconMask(const KORUnicodeString& name, int across, int down, int flag) override;
  long RefreshNodeImage(int reserved) override;
  long RefreshNodeText(int reserved) override;

  /// The icon that the node shows; empty for none.
  const KORUnicodeString& GetIcon() const { return _Icon; }
  /// The masks on the icon, the lowest one first.
  const std::vector<Mask>& GetMasks() const { return _Masks; }
  /// The text that the node shows, and another one instead.
  const KORUnicodeString& GetText() const { return _Text; }
  void SetText(const KORUnicodeString& text) { _Text = text; }

  /// What the node was told, call by call, as `AddIconMask("I_MaskLockByMeRef", 15, 8, 1)`: all of it since it was made
  /// or told to forget.
  const std::vector<std::string>& GetCalls() const { return _Calls; }
  void ForgetCalls() { _Calls.clear(); }

 private:
  const std::string _Component;
  std::vector<KORIGraphNode_var> _Parents;
  KORUnicodeString _Icon;
  std::vector<Mask> _Masks;
  KORUnicodeString _Text;
  std::vector<std::string> _Calls;
};
