// How the user interface deals with a representation.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORHandle.h"

/// Who deals with a representation in the user interface.
class KORIPLMRepUIManagement : public KORInterface<KORIPLMRepUIManagement> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMRepUIManagement";

  /// mode  [out] 0: as the tree deals with every representation; 1: by the representation's own classes. Left as it was
  ///       on failure
  /// S_OK.
  virtual long GetRepUIMode(int& mode) = 0;
};
using KORIPLMRepUIManagement_var = KORHandle<KORIPLMRepUIManagement>;

/// Base of the extensions that tell so; as it stands, mode 0.
class KORPLATFORM_API KORPLMRepUIManagementAdapter : public KORExtension, public KORImplements<KORIPLMRepUIManagement> {
 public:
  long GetRepUIMode(int& mode) override;
};
