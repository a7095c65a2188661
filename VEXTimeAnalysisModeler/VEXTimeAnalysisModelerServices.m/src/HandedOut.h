// What an operation of the platform hands out through a pointer.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"

/// What an operation handed out, and its status: of the two one may tell of a failure that the other knows nothing of.
/// The reference that came with the object is the handle's, whatever the status says.
///
/// Example: const HandedOut<KORIPLMOpen> open([](KORIPLMOpen*& out) { return KORPLMServices::GetOpenServices(out); });
template <class Object>
class HandedOut {
 public:
  /// Calls the operation with a null pointer to fill.
  template <class Operation>
  explicit HandedOut(const Operation& operation) {
    Object* object = nullptr;
    _Status = operation(object);
    _Object = KORHandle<Object>::Adopt(object);
  }

  /// Null if nothing was handed out.
  const KORHandle<Object>& Get() const { return _Object; }
  long GetStatus() const { return _Status; }
  /// True if the status is a success and there is an object.
  bool IsGiven() const { return Succeeded(_Status) && !_Object.IsNull(); }

  /// Hands the object on, with a reference that the caller releases; null if it is not given. The status.
  long HandOn(Object*& out) const {
    out = IsGiven() ? _Object.Get() : nullptr;
    if (out != nullptr) out->AddRef();
    return _Status;
  }

 private:
  KORHandle<Object> _Object;
  long _Status = E_FAIL;
};

/// The same for an operation that hands out an interface through a pointer without its type.
template <class Interface, class Operation>
HandedOut<Interface> HandedOutUntyped(const Operation& operation) {
  return HandedOut<Interface>([&operation](Interface*& object) {
    void* untyped = nullptr;
    const long status = operation(&untyped);
    object = static_cast<Interface*>(untyped);
    return status;
  });
}

/// An interface of an object, which is not null.
template <class Interface, class Object>
HandedOut<Interface> Query(const KORHandle<Object>& object) {
  return HandedOutUntyped<Interface>(
      [&object](void** out) { return object->QueryInterface(Interface::ClassId(), out); });
}
