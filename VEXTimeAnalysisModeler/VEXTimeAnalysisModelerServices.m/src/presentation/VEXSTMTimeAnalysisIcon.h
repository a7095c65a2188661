// The icon of analyses.
#pragma once

#include "platform/services/KORIIcon.h"

/// Extends time analyses and their representation instances. One object serves one extended object for its life.
///
/// Threads: what is remembered is not guarded; an object serves one thread at a time.
class VEXSTMTimeAnalysisIcon final : public KORIconAdaptor {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// The icon of the analysis, also for an instance of it. A name that was given once, and is not empty, is remembered
  /// and given from then on, whatever is set later.
  ///
  /// name  [out] left as it was if an instance's analysis has no icon to ask for; what it held then counts as the name
  ///
  /// The status of the base for an analysis; for an instance that of its reference and, if that offers KORIIcon, of its
  /// icon; E_FAIL for any other object.
  long GetIconName(KORUnicodeString& name) override;

 private:
  long FetchIconName(KORUnicodeString& name);

  unsigned char _IconIsCached = 0;
  KORUnicodeString _IconName;
};
