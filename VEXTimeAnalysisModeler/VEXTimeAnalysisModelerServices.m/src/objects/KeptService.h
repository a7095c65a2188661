// A service that is fetched on first use and kept for the process.
#pragma once

#include <mutex>
#include <utility>

#include "HandedOut.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"

namespace objects {

/// Keeps a service between calls. Safe across threads; of several calls at once one fetches it.
template <class Service>
class KeptService {
 public:
  using Fetch = HandedOut<Service> (*)();

  explicit KeptService(Fetch fetch) : _Fetch(fetch) {}

  /// service  [out] with a reference that the caller releases; null on failure
  /// The status of asking the service for its interface. E_FAIL if it is not given, and if fetching it fails or gives
  /// none: the next call tries again.
  long Get(Service*& service) {
    service = nullptr;
    const KORHandle<Service> kept = FetchOnce();
    if (kept.IsNull()) return E_FAIL;
    const HandedOut<Service> asked = Query<Service>(kept);
    return asked.IsGiven() ? asked.HandOn(service) : E_FAIL;
  }

  /// Releases the service; the next call of Get fetches a new one.
  void LetGo() {
    KORHandle<Service> released;
    const std::lock_guard lock(_Mutex);
    std::swap(released, _Service);
  }

 private:
  KORHandle<Service> FetchOnce() {
    const std::lock_guard lock(_Mutex);
    if (_Service.IsNull()) {
      const HandedOut<Service> fetched = _Fetch();
      if (fetched.IsGiven()) _Service = fetched.Get();
    }
    return _Service;
  }

  const Fetch _Fetch;
  std::mutex _Mutex;  // guards the service
  KORHandle<Service> _Service;
};

}  // namespace objects
