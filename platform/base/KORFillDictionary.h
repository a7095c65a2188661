// What modules tell the platform of their classes when they are loaded: components that are made by their name, entries
// found by their identifier, and how classes answer for their interfaces.
#pragma once

#include <type_traits>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORExtension.h"

/// Makes a new object of a component, with one reference, which is the caller's.
using KORComponentMaker = KORBaseUnknown* (*)();

/// Marks the entries of the dictionary that are descriptions of classes.
inline constexpr KORUuid CLSID_KORMetaClass = KORUuid::OfName("KORMetaClass");

/// All of it is for the process and stays to its end. It is safe across threads, and can be called from static
/// initialisers. Names are not null.
struct KORPLATFORM_API KORFillDictionary {
  /// Registers how a component is made. True; false, with nothing changed, for a name that is registered already.
  static bool RegisterFunctionCreation(const char* component, KORComponentMaker maker);
  /// How a component is made; null if it is not registered.
  static KORComponentMaker FindFunctionCreation(const char* component);

  /// Adds an entry under an identifier, one for each kind of entry.
  ///
  /// kind   what the entry is: CLSID_KORMetaClass
  /// entry  is to live as long as the process
  /// True; false, with nothing changed, if there is one already.
  static bool AddDictionary(const KORUuid& identifier, const KORUuid& kind, const KORMetaClass* entry);
  /// The entry; null if there is none.
  static const KORMetaClass* FindInDictionary(const KORUuid& identifier, const KORUuid& kind);

  /// The creation function of a class that answers for an interface itself, as the kind in its description has it: an
  /// extension with state by the one object that belongs to `object`, one without by a new object, a class that extends
  /// nothing by `object`. Null if the class doesn't implement the interface, and for an extension whose kind says that
  /// it is none.
  template <class Interface, class Class>
  static void* ToCreateBOA(KORBaseUnknown& object) {
    using Registry = KORExtensionRegistry;
    if constexpr (std::is_base_of_v<KORExtension, Class>) {
      switch (Class::MetaObject()->Kind) {
        case ENUMTypeOfClass::DataExtension:
          return Registry::OwnInterface(Registry::OfProcess().ExtendWithState<Class>(object), Interface::ClassId());
        case ENUMTypeOfClass::CodeExtension:
          return Registry::OwnInterface(*Registry::Extend<Class>(object), Interface::ClassId());
        default:
          return nullptr;
      }
    } else {
      return Registry::OwnInterface(object, Interface::ClassId());
    }
  }
};
