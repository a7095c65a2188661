// What the knowledge engine knows of the objects of the product structure: their types and their reservation.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/model/KORICkeObject.h"
#include "platform/services/KORIType.h"
#include "platform/services/PLMPSISessionHelpers.h"

struct KORPLATFORM_API KORCkePLMNavPublicServices {
  /// type  [out] the type of that name in the current session (KORKnowledgeTypes); a null handle on failure
  /// S_OK; E_FAIL if there is none.
  static long RetrieveKnowledgeType(const KORUnicodeString& name, KORIType_var& type);

  /// Fills `infos` with the attributes of a type; it is empty on failure.
  ///
  /// criterion, flag  passed as 0: all attributes
  /// environment      not looked at, and may be null
  /// S_OK; E_INVALIDARG for a null type.
  static long ListAttributesFromType(int criterion, const KORIType_var& type, KORIAdpEnvironment* environment,
                                     KORListValKORAttributeInfos& infos, int flag);

  /// Names of the attributes that tell whether the object is reserved, and for whom; empty for null.
  static KORUnicodeString GetReservedAttributeNameFromObject(const KORICkeObject_var& object);
  static KORUnicodeString GetReservedByAttributeNameFromObject(const KORICkeObject_var& object);
};
