// By what the platform knows an object when it is not there.
#pragma once

#include "HandedOut.h"
#include "platform/base/KORHandle.h"
#include "platform/model/KORPLMComponent.h"

namespace objects {

/// The identificator of an object; a failure for null and for one that is no component.
inline HandedOut<KORIAdpPLMIdentificator> IdentificatorOf(const KORIPLMComponent_var& component) {
  return HandedOut<KORIAdpPLMIdentificator>([&component](KORIAdpPLMIdentificator*& out) {
    return component.IsNull() ? E_NOINTERFACE : component->GetPLMIdentificator(out);
  });
}

}  // namespace objects
