// The ways from the interfaces of a node to its extension, operation by operation.
#pragma once

#include "platform/base/KORTie.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNodeExtension.h"

/// The forwarder of a node's KORINavigElement. `Extension` derives from KORNodeExtension; each operation is passed on
/// to the one of its name, here and in the other two.
template <class Extension>
class TIEKORINavigElement final : public KORTie<KORINavigElement, Extension> {
 public:
  void ProcessAfterSelect() override { this->Linked().ProcessAfterSelect(); }
  void ProcessAfterExtSelect() override { this->Linked().ProcessAfterExtSelect(); }
  void ProcessAfterAction() override { this->Linked().ProcessAfterAction(); }
  void ProcessAfterExpand() override { this->Linked().ProcessAfterExpand(); }
  void ProcessAfterMethod(const KORUnicodeString& method) override { this->Linked().ProcessAfterMethod(method); }
  KORBaseUnknown* GetFatherContainer() override { return this->Linked().GetFatherContainer(); }
  void Update() override { this->Linked().Update(); }
  KORBaseUnknown* GetController() override { return this->Linked().GetController(); }
  KORNavigInstance* GetAssociatedInstance() override { return this->Linked().GetAssociatedInstance(); }
  void Remove() override { this->Linked().Remove(); }
  void SetMarked(int marked) override { this->Linked().SetMarked(marked); }
  int GetMarked() override { return this->Linked().GetMarked(); }
};

/// That of its KORINavigModify.
template <class Extension>
class TIEKORINavigModify final : public KORTie<KORINavigModify, Extension> {
 public:
  void UpdateNodeDisplay(KORNavigInstance* instance) override { this->Linked().UpdateNodeDisplay(instance); }
  void ModifyShortHelp(KORUnicodeString& text) override { this->Linked().ModifyShortHelp(text); }
  void Select(int selected) override { this->Linked().Select(selected); }
  int IsSelected() override { return this->Linked().IsSelected(); }
};

/// That of its KORINavigNodeCtrl.
template <class Extension>
class TIEKORINavigNodeCtrl final : public KORTie<KORINavigNodeCtrl, Extension> {
 public:
  void Dereference() override { this->Linked().Dereference(); }
  void Undereference() override { this->Linked().Undereference(); }
  void PutAssociatedInstance(KORNavigInstance* instance) override { this->Linked().PutAssociatedInstance(instance); }
  int GetExpansionMode() override { return this->Linked().GetExpansionMode(); }
};
