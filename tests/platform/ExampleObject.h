// A small object with two interfaces, for the tests of objects, handles and extensions.
#pragma once

#include "platform/base/KORHandle.h"

namespace platformtest {

class VEXIWeight : public KORInterface<VEXIWeight> {
 public:
  static constexpr const char* InterfaceName = "VEXIWeight";
  virtual int GetWeight() const = 0;
};
using VEXIWeight_var = KORHandle<VEXIWeight>;

class VEXIDistance : public KORInterface<VEXIDistance> {
 public:
  static constexpr const char* InterfaceName = "VEXIDistance";
  virtual int GetDistance() const = 0;
};
using VEXIDistance_var = KORHandle<VEXIDistance>;

/// No object's class implements this one.
class VEXIColour : public KORInterface<VEXIColour> {
 public:
  static constexpr const char* InterfaceName = "VEXIColour";
  virtual int GetColour() const = 0;
};
using VEXIColour_var = KORHandle<VEXIColour>;

/// A workpiece of 7 kilograms, 30 centimetres away, which is a component of the name given.
class Workpiece : public KORImplements<VEXIWeight, VEXIDistance> {
 public:
  explicit Workpiece(const char* component = "") : _Component(component) {}

  const char* GetComponentName() const override { return _Component; }
  int GetWeight() const override { return 7; }
  int GetDistance() const override { return 30; }

  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"Workpiece", KORUuid::OfName("Workpiece"), KORBaseUnknown::MetaObject()};
    return &description;
  }

 private:
  const char* _Component;
};

/// A new workpiece in a handle of its implementation.
inline KORBaseUnknown_var MakeWorkpiece(const char* component = "") {
  return KORBaseUnknown_var::Adopt(new Workpiece(component));
}

/// The number of references on the object.
inline unsigned long CountReferences(const KORBaseUnknown& object) {
  object.AddRef();
  return object.Release();
}

}  // namespace platformtest
