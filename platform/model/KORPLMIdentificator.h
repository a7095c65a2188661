// The identificators of the model.
#pragma once

#include <mutex>

#include "platform/base/KORExport.h"
#include "platform/model/KORPLMComponent.h"

/// Knows its object as long as that lives, without keeping it alive. Safe across threads; what it finds serves the
/// thread of its session.
class KORPLATFORM_API KORPLMIdentificator final : public KORImplements<KORIAdpPLMIdentificator> {
 public:
  explicit KORPLMIdentificator(KORBaseUnknown& object) : _Object(&object) {}

  /// Two identificators of one object are one object.
  long IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) override;

  /// The object; null once its last reference has gone.
  KORBaseUnknown_var FindObject() const;
  /// Called by the object at its end.
  void ForgetObject();

 private:
  mutable std::mutex _Mutex;  // guards the pointer: the object doesn't end between being found and being counted
  KORBaseUnknown* _Object;
};
