// Components collected to be saved together.
#include "objects/ComponentsToSave.h"

#include "platform/services/KORAdpProtectedSaver.h"

namespace objects {

void AppendComponent(const KORBaseUnknown_var& object, KORListPtrKORIPLMComponent& components) {
  void* component = nullptr;
  (void)object->QueryInterface(KORIPLMComponent::ClassId(), &component);
  if (component != nullptr) components.Append(static_cast<KORIPLMComponent*>(component));
}

ComponentsToSave::~ComponentsToSave() {
  for (KORIPLMComponent* const component : _List) component->Release();
}

void ComponentsToSave::Save() const {
  (void)KORAdpProtectedSaver(_List, nullptr).Save();
}

}  // namespace objects
