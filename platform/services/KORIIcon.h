// The icon of an object.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// The icon name of an object.
class KORIIcon : public KORInterface<KORIIcon> {
 public:
  static constexpr const char* InterfaceName = "KORIIcon";

  /// name  [out] of the icon; left as it was on failure
  /// S_OK, also for an object without an icon, with an empty name.
  virtual long GetIconName(KORUnicodeString& name) = 0;
  /// Gives the object another icon. S_OK.
  virtual long SetIconName(const KORUnicodeString& name) = 0;
};
using KORIIcon_var = KORHandle<KORIIcon>;

/// Base of the extensions that give objects an icon: the name that was set last on the extended object, empty as long
/// as none was. One serves one thread at a time.
class KORPLATFORM_API KORIconAdaptor : public KORExtension, public KORImplements<KORIIcon> {
 public:
  long GetIconName(KORUnicodeString& name) override;
  long SetIconName(const KORUnicodeString& name) override;

 private:
  KORUnicodeString _NameThatWasSet;
};
