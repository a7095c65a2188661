// Containers of features, and the features in them.
#pragma once

#include <memory>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORSequence.h"
#include "platform/base/KORUnicodeString.h"

/// Holds features.
class KORIContainer : public KORInterface<KORIContainer> {
 public:
  static constexpr const char* InterfaceName = "KORIContainer";

  /// A new sequence, which is the caller's, of the members that are of the class (KORBaseUnknown::IsAKindOf) or offer
  /// the interface of features of that name (KORISpecObject, KORISpecAttrAccess); in the order in which they came in,
  /// each with a reference that the caller releases. Null on failure.
  virtual std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> ListMembers(const char* class_name) = 0;
};
using KORIContainer_var = KORHandle<KORIContainer>;

/// A feature.
class KORISpecObject : public KORInterface<KORISpecObject> {
 public:
  static constexpr const char* InterfaceName = "KORISpecObject";

  /// Name of the feature; of several in one container it may be the same, and it may be empty.
  virtual KORUnicodeString GetFeatureName() = 0;
};
using KORISpecObject_var = KORHandle<KORISpecObject>;

/// The attributes of a feature.
class KORISpecAttrAccess : public KORInterface<KORISpecAttrAccess> {
 public:
  static constexpr const char* InterfaceName = "KORISpecAttrAccess";

  /// A new list of the names, which is the caller's; null on failure.
  virtual std::unique_ptr<KORListValKORUnicodeString> ListAttributeNames() = 0;
};
using KORISpecAttrAccess_var = KORHandle<KORISpecAttrAccess>;
