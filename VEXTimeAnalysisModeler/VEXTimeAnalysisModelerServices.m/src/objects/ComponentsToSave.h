// Components collected to be saved together.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/model/KORPLMComponent.h"

namespace objects {

/// Appends the object, with a reference that the caller releases; nothing for an object that is no component. It is not
/// null.
void AppendComponent(const KORBaseUnknown_var& object, KORListPtrKORIPLMComponent& components);

/// A list of components with a reference on each.
class ComponentsToSave {
 public:
  ComponentsToSave() = default;
  ComponentsToSave(const ComponentsToSave&) = delete;
  ComponentsToSave& operator=(const ComponentsToSave&) = delete;
  /// Releases the entries.
  ~ComponentsToSave();

  KORListPtrKORIPLMComponent& List() { return _List; }

  /// Stores all of them in one go; also none. Whether that worked is not told.
  void Save() const;

 private:
  KORListPtrKORIPLMComponent _List;
};

}  // namespace objects
