// The factory of representation references.
#include "platform/services/PLMIRepresentationReferenceFactory.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORPerform.h"

namespace {

void SetAttribute(KORKeyedValues& attributes, const KORICkeParm_var& parameter) {
  const std::string_view name = parameter->RoleName().Bytes();
  const KORICkeValue_var value = parameter->Value();
  switch (value->GetKind()) {
    case KORCke::ValueKind::Integer:
      attributes.Set(name, value->AsInteger());
      break;
    case KORCke::ValueKind::Real:
      attributes.Set(name, value->AsReal());
      break;
    case KORCke::ValueKind::Text:
      attributes.Set(name, value->AsString());
      break;
  }
}

// Makes the time analyses of whichever session is the current one.
class RepresentationReferenceFactory final : public KORImplements<PLMIRepresentationReferenceFactory> {
 public:
  long CreateRepReference(KORIAdpEnvironment* environment, const KORIType_var& type,
                          const KORListValKORICkeParm_var& attributes, const KORUnicodeString& text,
                          KORBaseUnknown*& object, int reserved) override;
};

long RepresentationReferenceFactory::CreateRepReference(KORIAdpEnvironment* environment, const KORIType_var& type,
                                                        const KORListValKORICkeParm_var& attributes,
                                                        const KORUnicodeString& /*text*/, KORBaseUnknown*& object,
                                                        int /*reserved*/) {
  object = nullptr;
  return KORPerform("CreateRepReference", [&]() -> long {
    if (environment == nullptr || type.IsNull()) return E_INVALIDARG;
    if (type->Name() != "VEXTimeAnalysisRepReference") return E_FAIL;
    const auto made = KORModel::Current().CreateTimeAnalysis(KORUnicodeString());
    for (const KORICkeParm_var& parameter : attributes) {
      if (!parameter.IsNull()) SetAttribute(made->GetAttributes(), parameter);
    }
    object = made->GetImpl(0);
    object->AddRef();
    return S_OK;
  });
}

}  // namespace

long GetRepresentationReferenceFactory(const KORUnicodeString& type, void** out, const KORUuid& interface_id) {
  if (out != nullptr) *out = nullptr;
  return KORPerform("GetRepresentationReferenceFactory", [&]() -> long {
    if (out == nullptr) return E_INVALIDARG;
    if (type != "TimeAnalysis") return E_FAIL;
    const auto factory = KORHandle<RepresentationReferenceFactory>::Adopt(new RepresentationReferenceFactory);
    return factory->QueryInterface(interface_id, out);
  });
}
