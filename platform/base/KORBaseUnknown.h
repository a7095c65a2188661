// The reference-counted base of every platform object, and the way from an object to its interfaces.
//
// An interface is an abstract class that derives from KORInterface<itself>. The class of an object derives from
// KORImplements<its interfaces>. Further interfaces may be added to an object by extensions (KORExtension). A caller
// doesn't see the difference: it holds a handle (KORHandle) and casts it to the interface that it wants.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>

#include "platform/base/KORExport.h"
#include "platform/base/KORMetaClass.h"
#include "platform/base/KORUuid.h"

class KORAttachedExtensions;

/// Base of every platform object.
///
/// An object is made with a count of one, which belongs to its maker. AddRef and Release are safe across threads;
/// the Release that takes the last reference destroys the object. If that happens while another object is being
/// destroyed on the same thread, the object goes right after that one: so a chain of objects that hold each other may
/// be of any length. A copy is an object of its own with a count of one. An object may also be a local variable, which
/// nobody releases.
class KORPLATFORM_API KORBaseUnknown {
 public:
  KORBaseUnknown() noexcept;
  KORBaseUnknown(const KORBaseUnknown&) noexcept;
  KORBaseUnknown& operator=(const KORBaseUnknown&) noexcept { return *this; }
  virtual ~KORBaseUnknown();

  /// Both return the count after the call.
  virtual unsigned long AddRef() const noexcept;
  virtual unsigned long Release() const noexcept;
  /// Takes a reference if the object still has one; false, with nothing taken, once its last one has gone, also while
  /// its destruction is still to come. For those who know the object without keeping it alive.
  bool TryAddRef() const noexcept;

  /// Asks the object for an interface: the class of the object first, the registered extensions of its component
  /// second. It gives the same answer from whichever interface of the object it is asked.
  ///
  /// interface_id  identifier of the interface, as VEXITimeAnalysisLines::ClassId()
  /// out           [out] pointer to the interface with a reference, which the caller releases; null on failure
  /// S_OK; E_NOINTERFACE if the object doesn't offer the interface; E_INVALIDARG for a null `out`.
  long QueryInterface(const KORUuid& interface_id, void** out);

  /// The implementation object behind any interface, with no reference added: one pointer for all interfaces of one
  /// object, so that it is the object's identity. The argument is reserved by the platform and is passed as 0.
  virtual KORBaseUnknown* GetImpl(int /*reserved*/) { return this; }

  /// Name of the component that the object is, under which extensions of it are registered; empty for none.
  virtual const char* GetComponentName() const { return ""; }

  /// Description of the object's class; owned by the class.
  virtual const KORMetaClass* GetMetaObject() const { return MetaObject(); }
  /// Name of the object's class; that of its nearest base with a name if the class has none of its own.
  virtual const char* IsA() const { return GetMetaObject()->Name; }
  /// 1 if that class is called `name` or derives from the one that is, else 0.
  virtual int IsAKindOf(const char* name) const { return GetMetaObject()->IsAKindOf(name) ? 1 : 0; }

  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();

  /// Number of objects alive in the process, local variables included. A count that doesn't return to what it was
  /// tells of a leak.
  static long CountLiveObjects() noexcept;

 protected:
  /// The interface of that identifier that the object's class implements, as a pointer to it with no reference added;
  /// null if there is none.
  virtual void* FindInterface(const KORUuid& interface_id);

 private:
  friend class KORExtensionRegistry;

  void EndLife() const noexcept;
  void Destroy() const noexcept;

  mutable std::atomic<unsigned long> _References{1};
  mutable std::unique_ptr<KORAttachedExtensions> _Extensions;  // made with the first extension that has state
};

/// Base of an interface: `class VEXIExample : public KORInterface<VEXIExample>`, with its name as a public constant
/// `static constexpr const char* InterfaceName`.
template <class Interface>
class KORInterface : public virtual KORBaseUnknown {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{Interface::InterfaceName, KORUuid::OfName(Interface::InterfaceName),
                                          KORBaseUnknown::MetaObject()};
    return &description;
  }
};

/// Base of a class that implements interfaces.
template <class... Interfaces>
class KORImplements : public Interfaces... {
 public:
  static const char* ClassName() = delete;  // an object's class has a name of its own, or none
  static const KORUuid& ClassId() = delete;
  static const KORMetaClass* MetaObject() { return KORBaseUnknown::MetaObject(); }

 protected:
  void* FindInterface(const KORUuid& interface_id) override {
    void* found = nullptr;
    const auto is_found = [&](const KORUuid& identifier, void* offered) {
      if (identifier == interface_id) found = offered;
      return found != nullptr;
    };
    if ((is_found(Interfaces::ClassId(), static_cast<Interfaces*>(this)) || ...)) return found;
    return KORBaseUnknown::FindInterface(interface_id);
  }
};

/// Base of a class that takes over the interfaces of `Base`, itself a class that implements some, and adds others.
template <class Base, class... Interfaces>
class KORDerives : public Base, public KORImplements<Interfaces...> {
 public:
  using Base::Base;
  static const char* ClassName() = delete;  // as with KORImplements
  static const KORUuid& ClassId() = delete;
  static const KORMetaClass* MetaObject() { return KORBaseUnknown::MetaObject(); }

 protected:
  void* FindInterface(const KORUuid& interface_id) override {
    void* const found = KORImplements<Interfaces...>::FindInterface(interface_id);
    return found != nullptr ? found : Base::FindInterface(interface_id);
  }
};
