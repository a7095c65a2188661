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

template <class Tie>
void* Tie_Construct(KORBaseUnknown& object);

/// Base of a forwarder from an interface to the extension class that does the work, which need not implement the
/// interface itself and has state. All forwarders of one object share the object's one extension of that class.
///
/// A forwarder lives as an extension without state does: counted by itself, it keeps the extended object alive, has its
/// identity and offers its interfaces.
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

 protected:
  /// The extension that does the work.
  Class& Linked() const { return *_Linked; }

 private:
  template <class Tie>
  friend void* Tie_Construct(KORBaseUnknown& object);

  using InterfaceOfTie = Interface;

  // Finds the extension of the object, or makes it.
  void Tie_Link(KORBaseUnknown& object) {
    constexpr KORExtensionMaker make = []() -> KORExtension* { return new Class; };
    _Linked = static_cast<Class*>(&KORExtensionRegistry::OfProcess().Attach(object, *Class::MetaObject(), make));
  }

  Class* _Linked = nullptr;  // lives as long as the extended object does
};

/// The creation function of a forwarder: a new one over the object's extension, as a pointer to its interface with one
/// reference, which is the caller's.
template <class Tie>
void* Tie_Construct(KORBaseUnknown& object) {
  constexpr KORExtensionMaker make = []() -> KORExtension* { return new Tie; };
  const auto made = KORHandle<KORExtension>::Adopt(KORExtensionRegistry::Extend(object, make));
  auto* const tie = static_cast<Tie*>(made.Get());
  tie->Tie_Link(object);
  tie->AddRef();
  return static_cast<typename Tie::InterfaceOfTie*>(tie);
}
