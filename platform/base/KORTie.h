// Forwarders: small objects that answer for one interface of an extension by passing its operations on.
//
//   class TIEVEXIExample final : public KORTie<VEXIExample, VEXEExample> {
//    public:
//     int GetWeight() override { return Linked().GetWeight(); }
//   };
//   void* CreateTIEVEXIExampleVEXEExample(KORBaseUnknown& object) { return Tie_Construct<TIEVEXIExample>(object); }
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORHandle.h"

/// Base of a forwarder from an interface to the extension class that does the work, which need not implement the
/// interface itself and has state. All forwarders of one object share the object's one extension of that class.
///
/// A forwarder is made for each cast and lives as an extension without state does (KORExtension): counted by itself, it
/// keeps the extended object alive, has its identity, answers queries as the object does, and lets go of it at its end.
/// It serves as many threads as the extension behind it.
template <class Interface, class Class>
class KORTie : public KORExtension, public KORImplements<Interface> {
 public:
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  /// A description of its own under the name of the interface, from which it derives; it points to that of the class.
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{.Name = Interface::InterfaceName,
                                          .Identifier = Interface::ClassId(),
                                          .Base = Interface::MetaObject(),
                                          .FWname = Class::MetaObject()->FWname,
                                          .Implementation = Class::MetaObject()};
    return &description;
  }
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  using InterfaceOfTie = Interface;
  /// Leads to the extension of the object, made if the object has none.
  void Tie_Link(KORBaseUnknown& object) { _Linked = &KORExtensionRegistry::OfProcess().ExtendWithState<Class>(object); }

 protected:
  /// The extension that does the work.
  Class& Linked() const { return *_Linked; }

 private:
  Class* _Linked = nullptr;  // lives as long as the extended object does
};

/// The creation function of a forwarder: a new one over the object's extension.
template <class Tie>
void* Tie_Construct(KORBaseUnknown& object) {
  const KORHandle<Tie> tie = KORExtensionRegistry::Extend<Tie>(object);
  tie->Tie_Link(object);
  return KORExtensionRegistry::OwnInterface(*tie, Tie::InterfaceOfTie::ClassId());
}
