// What all objects of the product structure share: an identificator, attributes and a reservation.
#pragma once

#include <string_view>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORICkeObject.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORKeyedValues.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/KORPLMIdentificator.h"

/// The attributes under which an object carries its reservation: whether it is reserved (boolean), and for whom (text).
inline constexpr std::string_view KORReservedAttribute = "reserved";
inline constexpr std::string_view KORReservedByAttribute = "reservedby";

/// Base of the objects of the model. One object serves one thread at a time.
class KORPLATFORM_API KORPLMObject : public KORImplements<KORIPLMComponent, KORIInstance, KORICkeObject> {
 public:
  KORPLMObject() = default;
  /// An object with that "PLM_ExternalID".
  explicit KORPLMObject(const KORUnicodeString& identifier);
  KORPLMObject(const KORPLMObject&) = delete;
  KORPLMObject& operator=(const KORPLMObject&) = delete;
  ~KORPLMObject() override;

  long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) override;
  KORIValue* GetAttribute(const KORUnicodeString& name) override;

  KORKeyedValues& GetAttributes() { return _Attributes; }
  const KORKeyedValues& GetAttributes() const { return _Attributes; }

  /// Reserves the object for a user, whoever had it before, and takes the reservation away.
  void Reserve(const KORUnicodeString& user);
  void Unreserve();

 private:
  KORHandle<KORPLMIdentificator> _Identificator;  // made when it is first asked for
  KORKeyedValues _Attributes;
};
