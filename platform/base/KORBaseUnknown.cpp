// The reference-counted base of every platform object.
#include "platform/base/KORBaseUnknown.h"

#include <limits>
#include <vector>

#include "platform/base/KORAttachedExtensions.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORStatus.h"

namespace {

std::atomic<long> live_objects{0};

// The count of an object whose last reference has gone: whatever is counted on it from then on neither ends it again
// nor brings it back.
constexpr unsigned long EndedReferences = std::numeric_limits<unsigned long>::max() / 2;

// The objects that follow the one being destroyed on this thread; null while none is. The list lives as long as the
// outermost destruction, so that objects may also end when the thread or the process does.
thread_local std::vector<const KORBaseUnknown*>* following = nullptr;

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

bool KORBaseUnknown::TryAddRef() const noexcept {
  unsigned long references = _References.load(std::memory_order_relaxed);
  do {
    if (references == 0 || references >= EndedReferences / 2) return false;
  } while (!_References.compare_exchange_weak(references, references + 1, std::memory_order_relaxed));
  return true;
}

void KORBaseUnknown::EndLife() const noexcept {
  _References.store(EndedReferences, std::memory_order_relaxed);
  if (following != nullptr) {
    following->push_back(this);
    return;
  }
  std::vector<const KORBaseUnknown*> ending;
  following = &ending;
  Destroy();
  for (std::size_t index = 0; index < ending.size(); ++index) ending[index]->Destroy();
  following = nullptr;
}

void KORBaseUnknown::Destroy() const noexcept {
  _Extensions.reset();  // first, while the object is whole
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
  static constexpr KORMetaClass Description{"KORBaseUnknown", KORUuid::OfName("KORBaseUnknown"), nullptr};
  return &Description;
}
