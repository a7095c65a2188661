// What all objects of the product structure share: an identificator and attributes.
#include "platform/model/KORPLMObject.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORValueText.h"

namespace {

class TextValue final : public KORImplements<KORIValue> {
 public:
  explicit TextValue(KORUnicodeString text) : _Text(std::move(text)) {}

  long GetText(KORUnicodeString& text) override {
    text = _Text;
    return S_OK;
  }

 private:
  KORUnicodeString _Text;
};

}  // namespace

long KORPLMIdentificator::IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) {
  same = other != nullptr && other->GetImpl(0) == this ? 1 : 0;
  return other == nullptr ? E_INVALIDARG : S_OK;
}

KORPLMObject::~KORPLMObject() {
  if (!_Identificator.IsNull()) _Identificator->ForgetObject();
}

long KORPLMObject::GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) {
  if (_Identificator.IsNull()) {
    _Identificator = KORHandle<KORPLMIdentificator>::Adopt(new KORPLMIdentificator(*this));
  }
  identificator = _Identificator.Get();
  identificator->AddRef();
  return S_OK;
}

KORIValue* KORPLMObject::GetAttribute(const KORUnicodeString& name) {
  const std::optional<KORKeyedValues::View> value = _Attributes.Look(name.Bytes());
  return value ? new TextValue(KORTextOfValue(*value, KORBooleanWords)) : nullptr;
}
