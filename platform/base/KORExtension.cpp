// Extensions and the registry by which they are found.
#include "platform/base/KORExtension.h"

#include <memory>
#include <mutex>
#include <string_view>

#include "platform/base/KORAttachedExtensions.h"
#include "platform/base/KORHandle.h"

unsigned long KORExtension::AddRef() const noexcept {
  return _Kind == ENUMTypeOfClass::DataExtension ? _Extended->AddRef() : KORBaseUnknown::AddRef();
}

unsigned long KORExtension::Release() const noexcept {
  return _Kind == ENUMTypeOfClass::DataExtension ? _Extended->Release() : KORBaseUnknown::Release();
}

KORBaseUnknown* KORExtension::GetImpl(int reserved) {
  return _Extended == nullptr ? this : _Extended->GetImpl(reserved);
}

KORExtension::~KORExtension() {
  if (_Kind == ENUMTypeOfClass::CodeExtension) _Extended->Release();
}

KORAttachedExtensions::~KORAttachedExtensions() {
  while (!_Entries.empty()) {
    const KORExtension* const last = _Entries.back().Extension;
    _Entries.pop_back();
    delete last;  // at once: to release it could leave it until the object is gone
  }
}

KORExtension* KORAttachedExtensions::Find(std::string_view class_name) const {
  for (const Entry& entry : _Entries) {
    if (entry.ClassName == class_name) return entry.Extension;
  }
  return nullptr;
}

KORExtensionRegistry& KORExtensionRegistry::OfProcess() {
  // Never destroyed: modules take their entries away when they are unloaded, in no known order.
  static KORExtensionRegistry* const registry = new KORExtensionRegistry;
  return *registry;
}

bool KORExtensionRegistry::Add(const std::string& component, const KORUuid& interface_id, KORCreationFunction create) {
  const std::unique_lock lock(_Mutex);
  return _Functions[component].try_emplace(interface_id.Bytes, create).second;
}

void KORExtensionRegistry::Remove(const std::string& component, const KORUuid& interface_id) {
  const std::unique_lock lock(_Mutex);
  _Functions[component].erase(interface_id.Bytes);
}

KORCreationFunction KORExtensionRegistry::FindFunction(const KORBaseUnknown& object, const KORUuid& interface_id) {
  const char* const component = object.GetComponentName();
  if (*component == '\0') return nullptr;
  const std::shared_lock lock(_Mutex);
  const auto functions = _Functions.find(std::string_view(component));
  if (functions == _Functions.end()) return nullptr;
  const auto function = functions->second.find(interface_id.Bytes);
  return function == functions->second.end() ? nullptr : function->second;
}

void* KORExtensionRegistry::FindInterface(KORBaseUnknown& object, const KORUuid& interface_id) {
  const KORCreationFunction create = FindFunction(object, interface_id);
  return create == nullptr ? nullptr : create(object);
}

KORExtension* KORExtensionRegistry::FindAttached(const KORBaseUnknown& object, const char* class_name) {
  const std::shared_lock lock(_Mutex);
  return object._Extensions == nullptr ? nullptr : object._Extensions->Find(class_name);
}

KORExtension& KORExtensionRegistry::Attach(KORBaseUnknown& object, const char* class_name, Maker make) {
  if (KORExtension* const attached = FindAttached(object, class_name); attached != nullptr) return *attached;
  // Made outside the lock, as it may use the registry itself; if another thread was faster, its extension counts.
  KORHandle<KORExtension> made = KORHandle<KORExtension>::Adopt(make());
  const std::unique_lock lock(_Mutex);
  if (object._Extensions == nullptr) object._Extensions = std::make_unique<KORAttachedExtensions>();
  if (KORExtension* const attached = object._Extensions->Find(class_name); attached != nullptr) {
    return *attached;
  }
  KORExtension* const extension = made.Get();
  extension->KORBaseUnknown::AddRef();
  object._Extensions->Add(class_name, extension);
  made = nullptr;
  extension->_Extended = &object;
  extension->_Kind = ENUMTypeOfClass::DataExtension;
  return *extension;
}

KORExtension* KORExtensionRegistry::BindNew(KORBaseUnknown& object, Maker make) {
  KORExtension* const extension = make();
  extension->_Extended = &object;
  extension->_Kind = ENUMTypeOfClass::CodeExtension;
  object.AddRef();
  return extension;
}

void* KORExtensionRegistry::OwnInterface(KORBaseUnknown& answering, const KORUuid& interface_id) {
  void* const found = answering.FindInterface(interface_id);
  if (found != nullptr) answering.AddRef();
  return found;
}

KORExtensionRegistration::KORExtensionRegistration(const char* component, const KORUuid& interface_id,
                                                   KORCreationFunction create)
    : _Component(component),
      _Interface(interface_id),
      _Registered(KORExtensionRegistry::OfProcess().Add(component, interface_id, create)) {
}

KORExtensionRegistration::~KORExtensionRegistration() {
  if (_Registered) KORExtensionRegistry::OfProcess().Remove(_Component, _Interface);
}
