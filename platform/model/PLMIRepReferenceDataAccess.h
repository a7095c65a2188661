// What a representation reference holds beside its attributes, as its users reach it: containers and its legacy stream.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// The applicative containers of a representation.
class PLMIRepReferenceApplicativeDataAccess : public KORInterface<PLMIRepReferenceApplicativeDataAccess> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepReferenceApplicativeDataAccess";

  /// Makes a named container, empty.
  ///
  /// out    [out] the interface of it that is asked for, with a reference that the caller releases; null on failure
  /// model  what the container is for
  /// type   "KORFeatCont", a container of features
  /// S_OK; E_INVALIDARG for a null argument and for another type; E_NOINTERFACE if it doesn't offer the interface;
  /// E_FAIL, with nothing changed, if the representation has a container already.
  virtual long CreateApplicativeContainer(void** out, const char* model, const KORUuid& interface_id, const char* type,
                                          const KORUnicodeString& name) = 0;

  /// Gives the container of that name; `out` and statuses as above, E_FAIL if there is none.
  virtual long RetrieveApplicativeContainer(const KORUnicodeString& name, const KORUuid& interface_id, void** out) = 0;
};
using PLMIRepReferenceApplicativeDataAccess_var = KORHandle<PLMIRepReferenceApplicativeDataAccess>;

/// The legacy stream of a representation.
class PLMIRepReferenceNonZENTADataAccess : public KORInterface<PLMIRepReferenceNonZENTADataAccess> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepReferenceNonZENTADataAccess";

  /// The local file that holds the stream. S_OK; E_FAIL, with an empty path, if the representation has none.
  virtual long GetStreamFilePath(KORUnicodeString& path) = 0;
};
using PLMIRepReferenceNonZENTADataAccess_var = KORHandle<PLMIRepReferenceNonZENTADataAccess>;
