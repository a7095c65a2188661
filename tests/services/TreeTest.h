// What the tests of the tree share: objects and nodes of components of the tests' own.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/base/KORHandle.h"
#include "platform/services/KORGraphNode.h"

namespace servicestest {

using Node_var = KORHandle<KORGraphNode>;
using Calls = std::vector<std::string>;

/// An object of a component, and nothing else.
class ComponentObject final : public KORBaseUnknown {
 public:
  explicit ComponentObject(std::string component = "") : _Component(std::move(component)) {}
  const char* GetComponentName() const override { return _Component.c_str(); }

 private:
  std::string _Component;
};

inline KORBaseUnknown_var NewObject(const char* component = "") {
  return KORBaseUnknown_var::Adopt(new ComponentObject(component));
}

inline Node_var NewNode(const char* component = "") {
  return Node_var::Adopt(new KORGraphNode(component));
}

/// The number of references on the object.
inline unsigned long CountReferences(const KORBaseUnknown& object) {
  object.AddRef();
  return object.Release();
}

}  // namespace servicestest
