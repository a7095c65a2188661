// Loads the applicative containers of components.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/model/KORPLMComponent.h"

struct KORPLATFORM_API KORPLMApplicativeContainerServices {
  /// Gives the container of a type that a component holds.
  ///
  /// out   [out] the interface of it that is asked for, with a reference that the caller releases; null on failure
  /// type  "KORFeatCont"
  /// S_OK; E_INVALIDARG for a null argument; E_FAIL if the component holds none of that type; E_NOINTERFACE if it
  /// doesn't offer the interface.
  static long Retrieve(void** out, KORIPLMComponent* component, const KORUuid& interface_id, const char* type);
};
