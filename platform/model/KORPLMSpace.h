// The space in which identificators resolve.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/model/KORPLMComponent.h"

class KORIPLMSpace : public KORInterface<KORIPLMSpace> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMSpace";

  /// Gives the object that an identificator names, as long as it lives.
  ///
  /// interface_id  the interface of the object that is wanted, as KORBaseUnknown::ClassId()
  /// out           [out] pointer to that interface with a reference, which the caller releases; null on failure
  /// S_OK; E_FAIL if the object is gone; E_NOINTERFACE if it doesn't offer the interface; E_INVALIDARG for a null
  /// argument and for an identificator that is not of the model.
  virtual long ResolveComponent(KORIAdpPLMIdentificator* identificator, const KORUuid& interface_id, void** out) = 0;
};
using KORIPLMSpace_var = KORHandle<KORIPLMSpace>;

struct KORPLATFORM_API KORPLMSpaceServices {
  enum Space { Kor3DSpace };

  /// space     [out] the space, with a reference that the caller releases; null on failure
  /// category  passed as 0
  /// S_OK.
  static long GetResolutionSpace(KORIPLMSpace*& space, int category, Space kind);
};
