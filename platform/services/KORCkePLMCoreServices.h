// Proxies: objects that stand for one that is still to be made, and hold the values that it is to start with.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/model/KORICkeObject.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORPLMObject.h"
#include "platform/services/KORIType.h"
#include "platform/services/PLMPSISessionHelpers.h"

/// A proxy of an object of a knowledge type. Its values are set by GetAttributes().
class KORPLATFORM_API KORCkeProxy final : public KORPLMObject {
 public:
  explicit KORCkeProxy(const KORUnicodeString& type) : _Type(type) {}

  const KORUnicodeString& GetTypeName() const { return _Type; }

 private:
  KORUnicodeString _Type;
};

struct KORPLATFORM_API KORCkePLMCoreServices {
  /// type  [out] the type that a proxy stands for, as the current session has it; a null handle on failure
  /// S_OK; E_INVALIDARG for null and for an object that is no proxy; E_FAIL if the session has no such type.
  static long RetrieveTypeFromProxy(const KORICkeObject_var& proxy, KORIType_var& type);

  /// Copies the values that the proxy has of the attributes of the type to an object of the model, each with its type
  /// of value; attributes that the proxy does not have stay as they are.
  ///
  /// environment, parameters  passed as null
  /// flag                     passed as 1
  /// S_OK; E_INVALIDARG, with nothing changed, for a null object, type or proxy, and for objects that are not of the
  /// model.
  static long FillAttributesFromProxyOrBusinessLogicOnObject(const KORIInstance_var& object, const KORIType_var& type,
                                                             KORIAdpEnvironment* environment,
                                                             const KORIInstance_var& proxy,
                                                             const KORListValKORICkeParm_var* parameters, int flag);
};
