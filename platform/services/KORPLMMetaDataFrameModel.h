// The attributes of a representation while they are edited.
#pragma once

#include <map>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/services/PLMPSISessionHelpers.h"

/// What an editor shows: every attribute as a parameter, and which of them were changed so far. An object serves one
/// thread at a time.
class KORPLATFORM_API KORPLMMetaDataFrameModel : public KORBaseUnknown {
 public:
  /// environment  [out] that of the current session, with a reference that the caller releases; null on failure
  /// S_OK.
  long GetLocalEnvironment(KORIAdpEnvironment*& environment) const;
  /// Fill the list with the names of all attributes, in the order in which they were added, and of those changed so
  /// far, in the order of their first change. S_OK; the list is empty on failure.
  long GetListOfAttributes(KORListValKORUnicodeString& names) const;
  long GetListOfModifiedAttributes(KORListValKORUnicodeString& names) const;
  /// parameter  [out] the attribute, which follows the model; a null handle on failure
  /// S_OK; E_FAIL if there is no attribute of that name.
  long GetAttributeParm(const KORUnicodeString& name, KORICkeParm_var& parameter) const;

  /// Adds an attribute under the name of the parameter, unchanged so far; in place of one of that name. Not null.
  void AddAttribute(const KORICkeParm_var& parameter);
  /// Tells that the attribute of that name was changed. It need not be there.
  void MarkModified(const KORUnicodeString& name);

 private:
  KORListValKORUnicodeString _Names;
  KORListValKORUnicodeString _Modified;
  std::map<KORUnicodeString, KORICkeParm_var> _Parameters;
};
