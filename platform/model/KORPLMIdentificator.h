// The identificators of the model.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/model/KORPLMComponent.h"

/// Knows its object as long as that lives, without keeping it alive; serves the thread of the object.
class KORPLATFORM_API KORPLMIdentificator final : public KORImplements<KORIAdpPLMIdentificator> {
 public:
  explicit KORPLMIdentificator(KORBaseUnknown& object) : _Object(&object) {}

  /// Two identificators of one object are one object.
  long IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) override;

  /// The object; null once its last reference has gone.
  KORBaseUnknown_var FindObject() const;
  /// Called by the object at its end.
  void ForgetObject() { _Object = nullptr; }

 private:
  KORBaseUnknown* _Object;
};
