// Stores components.
#pragma once

#include <functional>
#include <utility>

#include "platform/base/KORExport.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/services/KORAdpVersioning.h"

/// Stores a list of components to the database in one go.
class KORPLATFORM_API KORAdpProtectedSaver {
 public:
  /// components  not null; one may be there more than once. The caller keeps the components alive.
  /// monitor     of the request; may be null
  KORAdpProtectedSaver(const KORListPtrKORIPLMComponent& components, KORIAdpErrorMonitor* monitor)
      : _Components(components), _Monitor(monitor) {}

  /// From now on the database knows the components (KORRepContent::IsInDatabase). S_OK; E_INVALIDARG, with nothing
  /// stored, for a null component.
  long Save();

 private:
  KORListPtrKORIPLMComponent _Components;
  KORIAdpErrorMonitor_var _Monitor;
};

/// Who wants to know what is stored in a session; a part of the session.
class KORPLATFORM_API KORSaveObserver {
 public:
  /// Takes the components of one Save in their order, ahead of the storing; also those of a Save that then fails.
  using Observer = std::function<void(const KORListPtrKORIPLMComponent& components)>;

  /// That of the current session; owned by it.
  static KORSaveObserver& Current();

  /// Null: nobody.
  void Set(Observer observer) { _Observer = std::move(observer); }
  void Tell(const KORListPtrKORIPLMComponent& components) const {
    if (_Observer) _Observer(components);
  }

 private:
  Observer _Observer;
};
