// The description that every class of objects has.
#pragma once

#include <array>

#include "platform/base/KORExport.h"
#include "platform/base/KORUuid.h"

/// Kinds of classes, by the platform's numbers.
enum class ENUMTypeOfClass : int {
  Implementation = 1,  // a class that stands by itself and extends nothing
  DataExtension = 2,   // an extension with state: one object per extended object, gone with it
  CodeExtension = 4    // an extension without state: an object is made for each cast
};

/// Describes a class of objects: its name, its identifier, the class that it derives from, and what it extends. What
/// its texts point to is to live as long as it does.
struct KORMetaClass {
  const char* Name;
  KORUuid Identifier;
  const KORMetaClass* Base;
  ENUMTypeOfClass Kind = ENUMTypeOfClass::Implementation;
  const char* FWname = "";                       // framework that the class belongs to
  std::array<const char*, 2> Extends{};          // components that it extends, in their order; null for none
  const KORMetaClass* Implementation = nullptr;  // of a forwarder: the class that its operations are passed on to

  /// True if the class is called `name` or derives from the one that is.
  KORPLATFORM_API bool IsAKindOf(const char* name) const;

  /// Adds a component that the class extends. False, with nothing changed, for the third one.
  KORPLATFORM_API bool SetExtensionOf(const char* component);

  void SetFWname(const char* framework) { FWname = framework; }
};

/// The description of the class of that name, for the process: `description` itself, unless another one is known under
/// its name, which stays. It is to live until fct_ForgetMetaObject. Safe across threads, as are the other two; they can
/// be called from static initialisers.
KORPLATFORM_API const KORMetaClass* fct_RetrieveMetaObject(const KORMetaClass& description);

/// The description of the class of that name; null if none is known.
KORPLATFORM_API const KORMetaClass* fct_FindMetaObject(const char* name);

/// Takes it away, for a module that is unloaded. One that is not known changes nothing.
KORPLATFORM_API void fct_ForgetMetaObject(const KORMetaClass& description);
