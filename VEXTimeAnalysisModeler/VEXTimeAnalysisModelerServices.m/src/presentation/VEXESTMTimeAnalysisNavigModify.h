// How the node of an analysis is drawn: its icon, and the marks on it for who has reserved the analysis.
#pragma once

#include "platform/services/KORNodeExtension.h"

/// Extends the nodes of time analyses and of their representation instances, with KORINavigElement, KORINavigModify and
/// KORINavigNodeCtrl. What a node keeps is kept by its base.
class VEXESTMTimeAnalysisNavigModify final : public KORNodeExtension {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// Draws the node: the stopwatch, locked if the operation above cannot be changed; a mask if the analysis is
  /// reserved, and one if its instance is. Revisions show nowhere.
  ///
  /// instance  what the node stands for; null draws nothing. For an analysis itself there is no mask: both
  ///           reservations are asked for with the instance.
  ///
  /// Nothing is drawn while the session is captured or replayed (see DisplayGate.h), or where the extended object is no
  /// KORIGraphNode.
  void UpdateNodeDisplay(KORNavigInstance* instance) override;
};
