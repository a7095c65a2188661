// Extensions: objects that add interfaces to the objects of a component, and the registry by which they are found.
#pragma once

#include <functional>
#include <map>
#include <shared_mutex>
#include <string>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"

/// Base of an object that extends another one: `class VEXEExample : public KORExtension, public
/// KORImplements<VEXIExample>`.
///
/// From outside an extension is the extended object: it is counted with it (as a data extension it has no life of its
/// own, as a code extension it keeps the extended object alive), it has its identity, and it offers its interfaces.
class KORPLATFORM_API KORExtension : public virtual KORBaseUnknown {
 public:
  unsigned long AddRef() const noexcept override;
  unsigned long Release() const noexcept override;
  /// The extended object; the extension itself as long as it extends nothing.
  KORBaseUnknown* GetImpl(int reserved) override;
  ~KORExtension() override;

 protected:
  KORExtension() = default;

  /// The extended object, with no reference added: never null from the first call through an interface on, and not to
  /// be used in the destructor. To keep a counted handle to it would keep it alive for ever.
  KORBaseUnknown* GetExtended() const { return _Extended; }

 private:
  friend class KORExtensionRegistry;

  KORBaseUnknown* _Extended = nullptr;
  ENUMTypeOfClass _Kind = ENUMTypeOfClass::Implementation;
};

/// Gives the interface that an extension adds to an object, with a reference that the caller releases; null if it
/// can't. There is one for each interface of each extension.
using KORCreationFunction = void* (*)(KORBaseUnknown& object);

/// The extensions of the process, by component and interface. Safe across threads; it is there as soon as the first
/// static initialiser asks for it.
class KORPLATFORM_API KORExtensionRegistry {
 public:
  static KORExtensionRegistry& OfProcess();

  /// Adds a way from an interface to an extension. False, with nothing changed, if one is registered already.
  bool Add(const std::string& component, const KORUuid& interface_id, KORCreationFunction create);
  /// Takes it away; extensions that are attached to objects stay. A cast that another thread has begun may still end.
  void Remove(const std::string& component, const KORUuid& interface_id);

  /// The interface that an extension adds to the object, with a reference; null if no extension of the object's
  /// component adds it.
  void* FindInterface(KORBaseUnknown& object, const KORUuid& interface_id);

  /// The object's extension of a class with state, made if the object has none. It lives as long as the object does.
  /// Extensions are told apart by the names of their classes (`Class::MetaObject()`).
  template <class Class>
  Class& ExtendWithState(KORBaseUnknown& object) {
    return static_cast<Class&>(Attach(object, Class::MetaObject()->Name, &Make<Class>));
  }
  /// A new extension of the object, which keeps the object alive.
  template <class Class>
  static KORHandle<Class> Extend(KORBaseUnknown& object) {
    return KORHandle<Class>::Adopt(static_cast<Class*>(BindNew(object, &Make<Class>)));
  }
  /// The interface that an object or an extension implements itself, with a reference that the caller releases; null if
  /// it doesn't.
  static void* OwnInterface(KORBaseUnknown& answering, const KORUuid& interface_id);

 private:
  using FunctionsOfComponent = std::map<decltype(KORUuid::Bytes), KORCreationFunction>;  // by interface
  using Maker = KORExtension* (*)();  // makes an extension with one reference, which is the caller's

  template <class Class>
  static KORExtension* Make() {
    return new Class;
  }

  KORCreationFunction FindFunction(const KORBaseUnknown& object, const KORUuid& interface_id);
  KORExtension* FindAttached(const KORBaseUnknown& object, const char* class_name);
  KORExtension& Attach(KORBaseUnknown& object, const char* class_name, Maker make);
  static KORExtension* BindNew(KORBaseUnknown& object, Maker make);

  std::shared_mutex _Mutex;
  std::map<std::string, FunctionsOfComponent, std::less<>> _Functions;  // by name of the component
};

/// One entry of the registry for the life of this object: as a static object of a module, from its load to its unload.
class KORPLATFORM_API KORExtensionRegistration {
 public:
  KORExtensionRegistration(const char* component, const KORUuid& interface_id, KORCreationFunction create);
  ~KORExtensionRegistration();
  KORExtensionRegistration(const KORExtensionRegistration&) = delete;
  KORExtensionRegistration& operator=(const KORExtensionRegistration&) = delete;

  /// False if the interface was registered for the component before; this object then changes nothing.
  bool IsRegistered() const { return _Registered; }

 private:
  std::string _Component;
  KORUuid _Interface;
  bool _Registered;
};
