// Extensions: objects that add interfaces to the objects of a component, and the registry by which they are found.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <shared_mutex>
#include <string>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"

/// Kinds of classes, by the platform's numbers.
enum class ENUMTypeOfClass : int {
  Implementation = 1,  // a class that stands by itself and extends nothing
  DataExtension = 2,   // an extension with state: one object per extended object, gone with it
  CodeExtension = 4    // an extension without state: an object is made for each cast
};

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

/// How an extension is made.
struct KORExtensionMaker {
  const char* ClassName;      // of the extension; its interfaces on one object share one data extension of that name
  ENUMTypeOfClass Kind;       // DataExtension or CodeExtension
  KORExtension* (*Create)();  // a new extension with one reference, which the registry takes
};

/// The extensions of the process, by component and interface. Safe across threads; it is there as soon as the first
/// static initialiser asks for it.
class KORPLATFORM_API KORExtensionRegistry {
 public:
  static KORExtensionRegistry& OfProcess();

  /// Adds a way from an interface to an extension. False, with nothing changed, if one is registered already.
  bool Add(const std::string& component, const KORUuid& interface_id, const KORExtensionMaker& maker);
  /// Takes it away; extensions that are attached to objects stay.
  void Remove(const std::string& component, const KORUuid& interface_id);

  /// The interface that an extension adds to the object, with a reference; null if no extension of the object's
  /// component adds it.
  void* FindInterface(KORBaseUnknown& object, const KORUuid& interface_id);

 private:
  using MakersOfComponent = std::map<decltype(KORUuid::Bytes), KORExtensionMaker>;  // by interface

  std::optional<KORExtensionMaker> FindMaker(const KORBaseUnknown& object, const KORUuid& interface_id);
  KORExtension* FindAttached(const KORBaseUnknown& object, const char* class_name);
  KORExtension* Attach(KORBaseUnknown& object, const KORExtensionMaker& maker);

  std::shared_mutex _Mutex;
  std::map<std::string, MakersOfComponent, std::less<>> _Makers;  // by name of the component
};

/// One entry of the registry for the life of this object: as a static object of a module, from its load to its unload.
class KORPLATFORM_API KORExtensionRegistration {
 public:
  KORExtensionRegistration(const char* component, const KORUuid& interface_id, const KORExtensionMaker& maker);
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
