// The factory of representation references.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/services/KORIType.h"
#include "platform/services/PLMPSISessionHelpers.h"

class PLMIRepresentationReferenceFactory : public KORInterface<PLMIRepresentationReferenceFactory> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepresentationReferenceFactory";

  /// Makes a new representation reference in the model of the current session, which keeps it (KORModel).
  ///
  /// environment  of the session; not null
  /// type         the knowledge type of what is made: "VEXTimeAnalysisRepReference" makes a time analysis
  /// attributes   are set on the new object, each under its name with its value; null entries are passed over
  /// text         passed as "KORData"
  /// object       [out] the new object, with a reference that the caller releases; null on failure
  /// reserved     passed as 0
  /// S_OK; E_INVALIDARG for a null environment or type; E_FAIL for a type of which the factory makes nothing.
  virtual long CreateRepReference(KORIAdpEnvironment* environment, const KORIType_var& type,
                                  const KORListValKORICkeParm_var& attributes, const KORUnicodeString& text,
                                  KORBaseUnknown*& object, int reserved) = 0;
};
using PLMIRepresentationReferenceFactory_var = KORHandle<PLMIRepresentationReferenceFactory>;

/// The factory of a representation type. It may be kept and used in any session, on any thread: what it makes is of
/// the session that is the current one then.
///
/// type  "TimeAnalysis"
/// out   [out] the interface of the factory, with a reference that the caller releases; null on failure
/// S_OK; E_INVALIDARG for a null `out`; E_FAIL for another type; E_NOINTERFACE for another interface.
KORPLATFORM_API long GetRepresentationReferenceFactory(const KORUnicodeString& type, void** out,
                                                       const KORUuid& interface_id);
