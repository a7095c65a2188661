// What the node of an analysis is called, and what stands below it.
#pragma once

#include "platform/base/KORExtension.h"
#include "platform/services/KORINavigateObject.h"

/// Extends time analyses and their representation instances.
class VEXESTMTimeAnalysisNavigate final : public KORExtension, public KORImplements<KORINavigateObject> {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// One name, the alias of the analysis, also for an instance of it. Null if there is none to ask for its alias, and
  /// while the session is captured or replayed (see DisplayGate.h).
  KORListValKORUnicodeString* GetNodeNames() override;
  /// Null: nothing stands below an analysis.
  KORListValKORBaseUnknown_var* GetChildObjects() override;
};
