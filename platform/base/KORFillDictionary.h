// What modules tell the platform of their classes when they are loaded: components that are made by their name, entries
// found by their identifier, and how extensions answer for their interfaces.
#pragma once

#include <type_traits>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORHandle.h"

/// Makes a new object of a component, with one reference, which is the caller's.
using KORComponentMaker = KORBaseUnknown* (*)();

/// Marks the entries of the dictionary that are descriptions of classes.
inline constexpr KORUuid CLSID_KORMetaClass = KORUuid::OfName("KORMetaClass");

/// All of it is for the process, safe across threads, and can be called from static initialisers.
struct KORPLATFORM_API KORFillDictionary {
  /// Registers how a component is made. True; false, with nothing changed, for a name that is registered already.
  static bool RegisterFunctionCreation(const char* component, KORComponentMaker maker);
  /// Takes it away.
  static void UnregisterFunctionCreation(const char* component);
  /// How a component is made; null if it is not registered.
  static KORComponentMaker FindFunctionCreation(const char* component);

  /// Adds an entry under an identifier, one for each kind of entry. It is to live until it is taken away.
  ///
  /// kind  what the entry is: CLSID_KORMetaClass
  /// True; false, with nothing changed, if there is one already.
  static bool AddDictionary(const KORUuid& identifier, const KORUuid& kind, const KORMetaClass* entry);
  static void RemoveDictionary(const KORUuid& identifier, const KORUuid& kind);
  /// The entry; null if there is none.
  static const KORMetaClass* FindInDictionary(const KORUuid& identifier, const KORUuid& kind);

  /// The creation function of a class that answers for an interface itself, as its kind has it: an extension with state
  /// by the one object that belongs to `object`, one without by a new object, a class that extends nothing by `object`.
  template <class Interface, class Class>
  static void* ToCreateBOA(KORBaseUnknown& object) {
    if constexpr (std::is_base_of_v<KORExtension, Class>) {
      constexpr KORExtensionMaker make = []() -> KORExtension* { return new Class; };
      if (Class::MetaObject()->Kind == ENUMTypeOfClass::DataExtension) {
        KORExtension& attached = KORExtensionRegistry::OfProcess().Attach(object, *Class::MetaObject(), make);
        return KORExtensionRegistry::OwnInterface(attached, Interface::ClassId());
      }
      const auto made = KORHandle<KORExtension>::Adopt(KORExtensionRegistry::Extend(object, make));
      return KORExtensionRegistry::OwnInterface(*made, Interface::ClassId());
    } else {
      return KORExtensionRegistry::OwnInterface(object, Interface::ClassId());
    }
  }
};
