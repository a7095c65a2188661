// How the user interface deals with analyses.
#pragma once

#include "platform/services/KORIPLMRepUIManagement.h"

/// Extends time analyses and their representation instances.
class VEXESTMTimeAnalysisRepUIManagement final : public KORPLMRepUIManagementAdapter {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// Mode 1. S_OK.
  long GetRepUIMode(int& mode) override;
};
