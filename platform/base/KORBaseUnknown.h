// The reference-counted base of every platform object, its class description and its counted handle.
#pragma once

#include <atomic>
#include <cstddef>
#include <utility>

#include "platform/base/KORError.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORUuid.h"

/// Describes a class of objects: its name, its identifier and the class that it derives from.
struct KORMetaClass {
  const char* Name;
  KORUuid Identifier;
  const KORMetaClass* Base;

  /// True if the class is called `name` or derives from the one that is.
  KORPLATFORM_API bool IsAKindOf(const char* name) const;
};

/// Base of every platform object.
///
/// An object is made with a count of one, which belongs to its maker. AddRef and Release are safe across threads;
/// the Release that takes the last reference destroys the object. A copy is an object of its own with a count of one.
class KORPLATFORM_API KORBaseUnknown {
 public:
  KORBaseUnknown() = default;
  KORBaseUnknown(const KORBaseUnknown&) noexcept {}
  KORBaseUnknown& operator=(const KORBaseUnknown&) noexcept { return *this; }
  virtual ~KORBaseUnknown() = default;

  /// Both return the count after the call.
  unsigned long AddRef() const noexcept;
  unsigned long Release() const noexcept;

  /// Description of the object's class; owned by the class.
  virtual const KORMetaClass* GetMetaObject() const { return MetaObject(); }
  /// Name of the object's class.
  virtual const char* IsA() const { return ClassName(); }
  /// 1 if the object's class is called `name` or derives from the one that is, else 0.
  virtual int IsAKindOf(const char* name) const { return GetMetaObject()->IsAKindOf(name) ? 1 : 0; }

  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();

 private:
  mutable std::atomic<unsigned long> _References{1};
};

/// A counted handle: keeps its object alive, and may be null.
///
/// Calling through a null handle raises the null-handle error (ThrowErrorNullVar).
template <class Object>
class KORHandle {
 public:
  KORHandle() = default;
  KORHandle(std::nullptr_t) {}
  /// Takes a reference of its own; the caller keeps its own.
  explicit KORHandle(Object* object) : _Object(object) {
    if (_Object != nullptr) _Object->AddRef();
  }
  KORHandle(const KORHandle& other) : KORHandle(other._Object) {}
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

  friend bool operator==(const KORHandle& left, const KORHandle& right) { return left._Object == right._Object; }

 private:
  Object* _Object = nullptr;
};

using KORBaseUnknown_var = KORHandle<KORBaseUnknown>;
