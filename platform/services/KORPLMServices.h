// Opens components in the session.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORPLMComponent.h"

/// How components are opened. There is nothing to choose.
struct KORJXMNavOpenParameters {};

class KORIPLMOpen : public KORInterface<KORIPLMOpen> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMOpen";

  /// Opens the components of the first list and fills `objects` with what was opened, in their order. A component opens
  /// to itself, unless the session knows otherwise (KOROpenedComponents).
  ///
  /// components2, names, text, flag1, flag2  passed as empty, empty, empty, 1 and 0
  /// S_OK; E_INVALIDARG, with an empty list, for a null component.
  virtual long OpenComponents(const KORListPtrKORIPLMComponent& components,
                              const KORListPtrKORIPLMComponent& components2, const KORJXMNavOpenParameters& parameters,
                              const KORListValKORUnicodeString& names, const KORUnicodeString& text,
                              KORListValKORBaseUnknown_var& objects, int flag1, int flag2) = 0;
};
using KORIPLMOpen_var = KORHandle<KORIPLMOpen>;

struct KORPLATFORM_API KORPLMServices {
  /// open  [out] the opening service, with a reference that the caller releases; null on failure
  /// S_OK.
  static long GetOpenServices(KORIPLMOpen*& open);
};

/// The components of a session that open to other objects than themselves: to none, or to several. A part of the
/// session.
class KORPLATFORM_API KOROpenedComponents {
 public:
  /// Those of the current session; owned by it.
  static KOROpenedComponents& Current();

  /// What a component opens to from now on.
  void SetOpened(const KORIPLMComponent_var& component, const KORListValKORBaseUnknown_var& objects);
  /// Appends what a component opens to; it is not null.
  void AppendOpened(KORIPLMComponent* component, KORListValKORBaseUnknown_var& objects) const;

 private:
  std::map<const KORBaseUnknown*, std::pair<KORIPLMComponent_var, KORListValKORBaseUnknown_var>> _Opened;
};
