// What all objects of the product structure share: an identificator and attributes.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORKeyedValues.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/KORPLMIdentificator.h"

/// Base of the objects of the model. One object serves one thread at a time.
class KORPLATFORM_API KORPLMObject : public KORImplements<KORIPLMComponent, KORIInstance> {
 public:
  KORPLMObject() = default;
  KORPLMObject(const KORPLMObject&) = delete;
  KORPLMObject& operator=(const KORPLMObject&) = delete;
  ~KORPLMObject() override;

  long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) override;
  KORIValue* GetAttribute(const KORUnicodeString& name) override;

  KORKeyedValues& GetAttributes() { return _Attributes; }
  const KORKeyedValues& GetAttributes() const { return _Attributes; }

 private:
  KORHandle<KORPLMIdentificator> _Identificator;  // made when it is first asked for
  KORKeyedValues _Attributes;
};
