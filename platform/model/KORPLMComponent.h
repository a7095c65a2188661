// Components of the product structure and the identificators that outlive them.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"

/// Names an object of the product structure. It outlives the object and resolves to nothing then
/// (KORIPLMSpace::ResolveComponent).
class KORIAdpPLMIdentificator : public KORInterface<KORIAdpPLMIdentificator> {
 public:
  static constexpr const char* InterfaceName = "KORIAdpPLMIdentificator";

  /// same  [out] 1 if both identify the same object, also after its end; else 0, and 0 for null
  /// S_OK; E_INVALIDARG for null.
  virtual long IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) = 0;
};
using KORIAdpPLMIdentificator_var = KORHandle<KORIAdpPLMIdentificator>;

/// An object of the product structure.
class KORIPLMComponent : public KORInterface<KORIPLMComponent> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMComponent";

  /// The identificator of the object, with a reference that the caller releases: the same one as long as the object
  /// lives; null on failure. S_OK.
  virtual long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) = 0;
};
using KORIPLMComponent_var = KORHandle<KORIPLMComponent>;

using KORListPtrKORIPLMComponent = KORList<KORIPLMComponent*>;
using KORListPtrKORIAdpPLMIdentificator = KORList<KORIAdpPLMIdentificator*>;
