// What a session works in: its helper object and its environment.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"

/// The environment in which objects are made. It has nothing to tell here; what is made is of the current session.
class KORIAdpEnvironment : public KORInterface<KORIAdpEnvironment> {
 public:
  static constexpr const char* InterfaceName = "KORIAdpEnvironment";
};
using KORIAdpEnvironment_var = KORHandle<KORIAdpEnvironment>;

class KORPLATFORM_API PLMPSISessionHelpers : public KORInterface<PLMPSISessionHelpers> {
 public:
  static constexpr const char* InterfaceName = "PLMPSISessionHelpers";

  /// helpers  [out] the helper object of the current session, with a reference that the caller releases; null on
  ///          failure
  /// S_OK.
  static long GetSessionHelpers(PLMPSISessionHelpers*& helpers);

  /// environment  [out] the environment of the session, with a reference that the caller releases; null if there is
  ///              none, and on failure
  /// S_OK.
  virtual long GetCurrentEnvironment(KORIAdpEnvironment*& environment) = 0;
};
using PLMPSISessionHelpers_var = KORHandle<PLMPSISessionHelpers>;
