// Whether objects may be changed by the user.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"

/// Editability, by the records of the model.
struct KORPLATFORM_API KORPLMEditabilityServices {
  /// Asks for the editability of objects. An operation reference may be changed unless it is said not to
  /// (KOROperationReference::SetEditable), an object of any other kind always.
  ///
  /// objects   null handles may be among them, and say nothing against it
  /// editable  [out] is appended to: 1 or 0 for each object, 0 for a null handle
  /// errors    [out] is appended to: the identifiers of the objects that may not be changed; or null
  ///
  /// S_OK if all objects may be changed; E_FAIL if one may not.
  static long GetEditabilityStatus(const KORListValKORBaseUnknown_var& objects, KORListValKORBoolean& editable,
                                   KORListValKORUnicodeString* errors);
};
