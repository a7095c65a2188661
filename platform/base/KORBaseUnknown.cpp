// The reference-counted base of every platform object.
#include "platform/base/KORBaseUnknown.h"

#include <vector>

#include "platform/base/KORAttachedExtensions.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORStatus.h"

namespace {

std::atomic<long> live_objects{0};

}  // namespace

KORBaseUnknown::KORBaseUnknown() noexcept {
  live_objects.fetch_add(1, std::memory_order_relaxed);
}

KORBaseUnknown::KORBaseUnknown(const KORBaseUnknown& /*other*/) noexcept : KORBaseUnknown() {
}

KORBaseUnknown::~KORBaseUnknown() {
  live_objects.fetch_sub(1, std::memory_order_relaxed);
}

long KORBaseUnknown::CountLiveObjects() noexcept {
  return live_objects.load(std::memory_order_relaxed);
}

unsigned long KORBaseUnknown::AddRef() const noexcept {
  return _References.fetch_add(1, std::memory_order_relaxed) + 1;
}

unsigned long KORBaseUnknown::Release() const noexcept {
  const unsigned long before = _References.fetch_sub(1, std::memory_order_acq_rel);
  if (before == 1) EndLife();
  return before - 1;
}

void KORBaseUnknown::EndLife() const noexcept {
  thread_local std::vector<const KORBaseUnknown*> ending;  // the object being destroyed, and those that follow
  ending.push_back(this);
  if (ending.size() > 1) return;
  for (std::size_t index = 0; index < ending.size(); ++index) ending[index]->Destroy();
  ending.clear();
}

void KORBaseUnknown::Destroy() const noexcept {
  // The extensions go first, while the object is whole; what they count on it meanwhile must not end it again.
  _References.store(1, std::memory_order_relaxed);
  _Extensions.reset();
  delete this;
}

long KORBaseUnknown::QueryInterface(const KORUuid& interface_id, void** out) {
  if (out == nullptr) return E_INVALIDARG;
  KORBaseUnknown* const object = GetImpl(0);
  *out = object->FindInterface(interface_id);
  if (*out != nullptr) {
    object->AddRef();
    return S_OK;
  }
  *out = KORExtensionRegistry::OfProcess().FindInterface(*object, interface_id);
  return *out == nullptr ? E_NOINTERFACE : S_OK;
}

void* KORBaseUnknown::FindInterface(const KORUuid& interface_id) {
  return interface_id == ClassId() ? this : nullptr;
}

const KORMetaClass* KORBaseUnknown::MetaObject() {
  static constexpr KORMetaClass Description{"KORBaseUnknown", {}, nullptr};
  return &Description;
}
