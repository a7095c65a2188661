// The counted handle of every platform object.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORError.h"
#include "platform/base/KORStatus.h"

/// A counted handle: keeps its object alive, and may be null.
///
/// A handle is made from a handle of another interface by a cast, which gives a null handle if the object doesn't
/// offer the interface, and never fails otherwise. A handle of KORBaseUnknown holds the implementation object.
/// Calling through a null handle raises the null-handle error (ThrowErrorNullVar). Two handles are equal if they hold
/// the same object, by whichever interfaces, or nothing.
template <class Object>
class KORHandle {
 public:
  KORHandle() = default;
  KORHandle(std::nullptr_t) {}
  /// Casts the object, and takes a reference of its own; the caller keeps its own.
  template <class Other>
  explicit KORHandle(Other* object) : _Object(Cast(object)) {}
  template <class Other>
  KORHandle(const KORHandle<Other>& other) : _Object(Cast(other.Get())) {}
  KORHandle(const KORHandle& other) : _Object(other._Object) {
    if (_Object != nullptr) _Object->AddRef();
  }
  KORHandle(KORHandle&& other) noexcept : _Object(std::exchange(other._Object, nullptr)) {}
  KORHandle& operator=(KORHandle other) noexcept {
    std::swap(_Object, other._Object);
    return *this;
  }
  ~KORHandle() {
    if (_Object != nullptr) _Object->Release();
  }

  /// Takes over the reference that the caller holds.
  static KORHandle Adopt(Object* object) {
    KORHandle handle;
    handle._Object = object;
    return handle;
  }

  /// The object, with no reference added.
  Object* Get() const { return _Object; }
  bool IsNull() const { return _Object == nullptr; }

  Object* operator->() const {
    if (_Object == nullptr) ThrowErrorNullVar();
    return _Object;
  }
  Object& operator*() const { return *operator->(); }

 private:
  // The interface with a reference, or null.
  template <class Other>
  static Object* Cast(Other* object) {
    if (object == nullptr) return nullptr;
    if constexpr (std::is_same_v<Object, KORBaseUnknown>) {
      return WithReference(object->GetImpl(0));
    } else if constexpr (std::is_base_of_v<Object, Other>) {
      return WithReference<Object>(object);
    } else {
      static_assert(std::is_base_of_v<KORInterface<Object>, Object>, "only interfaces are cast to");
      void* found = nullptr;
      return Failed(object->QueryInterface(Object::ClassId(), &found)) ? nullptr : static_cast<Object*>(found);
    }
  }

  template <class Referred>
  static Referred* WithReference(Referred* object) {
    object->AddRef();
    return object;
  }

  Object* _Object = nullptr;
};

/// Compares the objects, not the interfaces.
template <class Left, class Right>
bool operator==(const KORHandle<Left>& left, const KORHandle<Right>& right) {
  if (left.IsNull() || right.IsNull()) return left.IsNull() == right.IsNull();
  return left->GetImpl(0) == right->GetImpl(0);
}

template <class Object>
bool operator==(const KORHandle<Object>& handle, std::nullptr_t) {
  return handle.IsNull();
}

using KORBaseUnknown_var = KORHandle<KORBaseUnknown>;

/// The null handle of every kind.
inline constexpr std::nullptr_t NULL_var = nullptr;
