// The behaviour of nodes in the tree.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/services/KORNavigInstance.h"

/// Base of the extensions of nodes, with state: what the operations of KORINavigElement, KORINavigModify and
/// KORINavigNodeCtrl of that name tell, to which forwarders lead (KORNodeForwarders.h). As it stands it is the
/// behaviour of nodes of the component KORPlainNode, which show nothing by themselves. One node serves one thread at a
/// time.
class KORPLATFORM_API KORNodeExtension : public KORExtension {
 public:
  KORNodeExtension() = default;
  KORNodeExtension(const KORNodeExtension&) = delete;
  KORNodeExtension& operator=(const KORNodeExtension&) = delete;
  ~KORNodeExtension() override = default;

  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// Has the node shown as its instance wants it (UpdateNodeDisplay).
  virtual void Update();
  virtual void ProcessAfterSelect() {}
  virtual void ProcessAfterExtSelect() {}
  virtual void ProcessAfterAction() {}
  virtual void ProcessAfterExpand() {}
  virtual void ProcessAfterMethod(const KORUnicodeString& /*method*/) {}
  virtual KORNavigInstance* GetAssociatedInstance();
  virtual void SetMarked(int marked) { _Marked = marked; }
  virtual int GetMarked() { return _Marked; }
  virtual void Dereference() { _CutOff = true; }
  virtual void Undereference() { _CutOff = false; }
  virtual void PutAssociatedInstance(KORNavigInstance* instance);
  virtual int GetExpansionMode() { return 0; }
  virtual void UpdateNodeDisplay(KORNavigInstance* /*instance*/) {}
  virtual void ModifyShortHelp(KORUnicodeString& /*text*/) {}
  virtual void Select(int selected) { _Selected = selected; }
  virtual int IsSelected() { return _Selected; }
  virtual void Remove();
  virtual KORBaseUnknown* GetFatherContainer() { return nullptr; }
  virtual KORBaseUnknown* GetController() { return nullptr; }

 private:
  KORHandle<KORNavigInstance> _Instance;
  int _Marked = 0;
  int _Selected = 0;
  bool _CutOff = false;
};

/// Component of the nodes of objects that have no component of their own. Who names it is linked with its extension,
/// also from a static library.
KORPLATFORM_API extern const char* const KORPlainNode;
