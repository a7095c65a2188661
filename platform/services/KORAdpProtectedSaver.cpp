// Stores components.
#include "platform/services/KORAdpProtectedSaver.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORFindRepReference.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

long KORAdpProtectedSaver::Save() {
  KORSaveObserver::Current().Tell(_Components);
  return KORPerform("Save", [this] {
    if (_Components.Locate(nullptr) != 0) return E_INVALIDARG;
    for (KORIPLMComponent* const component : _Components) {
      KORRepReference* const reference = KORFindRepReference(component);
      if (reference != nullptr) reference->GetContent().IsInDatabase = true;
    }
    return S_OK;
  });
}

KORSaveObserver& KORSaveObserver::Current() {
  return KORSession::Current().GetPart<KORSaveObserver>();
}
