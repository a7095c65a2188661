// What is selected with the node of an analysis.
#pragma once

#include "platform/base/KORExtension.h"
#include "platform/services/KORINavigateObject.h"

/// Extends time analyses and their representation instances.
class VEXESTMTimeAnalysisNavigObjectModify final : public KORExtension, public KORImplements<KORINavigateObjectModify> {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// A path on the extended object; `is_path` is 1.
  KORPathElement* GetObjectPath(unsigned char& is_path) override;
};
