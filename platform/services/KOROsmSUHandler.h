// Makes features in containers.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORIContainer.h"

/// A declared feature, ready to be made in a container.
class KORPLATFORM_API KOROsmSUHandler {
 public:
  /// name     of the feature: any text but the empty one can be made
  /// text     passed as empty
  /// storage  where it is declared: VEXTimeAnalysisModelerDeclarations::StorageName
  KOROsmSUHandler(const KORUnicodeString& name, const KORUnicodeString& /*text*/, const KORUnicodeString& storage)
      : _Name(name), _Storage(storage) {}

  /// Makes the feature, which bears the name of the handler, behind the members of the container.
  ///
  /// feature    [out] the new feature; left as it was on failure
  /// container  one of the model (PLMIRepReferenceApplicativeDataAccess)
  /// text       passed as empty
  /// S_OK; E_INVALIDARG for a null container and for one that is not of the model; E_FAIL for an empty name and for
  /// another storage.
  long Instanciate(KORISpecObject_var& feature, const KORIContainer_var& container, const KORUnicodeString& text) const;

 private:
  KORUnicodeString _Name;
  KORUnicodeString _Storage;
};
