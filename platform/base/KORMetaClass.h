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

/// Describes a class of objects: its name, its identifier, the class that it derives from, and what it extends. What it
/// points to is to live as long as it does.
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

  /// Adds a component that the class extends. False, with nothing changed, for the third one and for null.
  KORPLATFORM_API bool SetExtensionOf(const char* component);

  /// Sets the framework that the class belongs to.
  void SetFWname(const char* framework) { FWname = framework; }
};

/// Makes a description known by its name, from now on: it is to live as long as the process. The description that is
/// known: `description` itself, unless another one was known before, which stays. Safe across threads, as is the
/// search; both can be called from static initialisers.
KORPLATFORM_API const KORMetaClass* fct_RetrieveMetaObject(const KORMetaClass& description);

/// The description that is known by that name; null if there is none, and for null.
KORPLATFORM_API const KORMetaClass* fct_FindMetaObject(const char* name);
