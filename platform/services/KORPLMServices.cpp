// Opens components in the session.
#include "platform/services/KORPLMServices.h"

#include <algorithm>

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

namespace {

class OpenService final : public KORImplements<KORIPLMOpen> {
 public:
  long OpenComponents(const KORListPtrKORIPLMComponent& components, const KORListPtrKORIPLMComponent& components2,
                      const KORJXMNavOpenParameters& parameters, const KORListValKORUnicodeString& names,
                      const KORUnicodeString& text, KORListValKORBaseUnknown_var& objects, int flag1,
                      int flag2) override;
};

long OpenService::OpenComponents(const KORListPtrKORIPLMComponent& components,
                                 const KORListPtrKORIPLMComponent& /*components2*/,
                                 const KORJXMNavOpenParameters& /*parameters*/,
                                 const KORListValKORUnicodeString& /*names*/, const KORUnicodeString& /*text*/,
                                 KORListValKORBaseUnknown_var& objects, int /*flag1*/, int /*flag2*/) {
  objects.RemoveAll();
  return KORPerform("OpenComponents", [&] {
    if (std::find(components.begin(), components.end(), nullptr) != components.end()) return E_INVALIDARG;
    for (KORIPLMComponent* const component : components)
      KOROpenedComponents::Current().AppendOpened(component, objects);
    return S_OK;
  });
}

}  // namespace

long KORPLMServices::GetOpenServices(KORIPLMOpen*& open) {
  return KORHandOut("GetOpenServices", KORHandle<OpenService>::Adopt(new OpenService), open);
}

KOROpenedComponents& KOROpenedComponents::Current() {
  return KORSession::Current().GetPart<KOROpenedComponents>();
}

void KOROpenedComponents::SetOpened(const KORIPLMComponent_var& component,
                                    const KORListValKORBaseUnknown_var& objects) {
  _Opened.insert_or_assign(component->GetImpl(0), std::pair(component, objects));
}

void KOROpenedComponents::AppendOpened(KORIPLMComponent* component, KORListValKORBaseUnknown_var& objects) const {
  const auto known = _Opened.find(component->GetImpl(0));
  if (known == _Opened.end()) {
    objects.Append(KORBaseUnknown_var(component));
  } else {
    objects.Append(known->second.second);
  }
}
