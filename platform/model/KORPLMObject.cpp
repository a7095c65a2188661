// What all objects of the product structure share: an identificator, attributes and a reservation.
#include "platform/model/KORPLMObject.h"

#include <optional>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/model/KORValueText.h"
#include "platform/system/KORPerform.h"

namespace {

class TextValue final : public KORImplements<KORIValue> {
 public:
  explicit TextValue(KORUnicodeString text) : _Text(std::move(text)) {}

  long GetText(KORUnicodeString& text) override {
    return KORPerform("KORIValue::GetText", [this, &text] {
      text = _Text;
      return S_OK;
    });
  }

 private:
  KORUnicodeString _Text;
};

}  // namespace

long KORPLMIdentificator::IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) {
  same = 0;
  return KORPerform("IsSameAs", [this, other, &same] {
    if (other == nullptr) return E_INVALIDARG;
    same = other->GetImpl(0) == this ? 1 : 0;
    return S_OK;
  });
}

void KORPLMIdentificator::ForgetObject() {
  const std::lock_guard lock(_Mutex);
  _Object = nullptr;
}

KORBaseUnknown_var KORPLMIdentificator::FindObject() const {
  const std::lock_guard lock(_Mutex);
  return _Object != nullptr && _Object->TryAddRef() ? KORBaseUnknown_var::Adopt(_Object) : NULL_var;
}

KORPLMObject::KORPLMObject(const KORUnicodeString& identifier) {
  _Attributes.Set("PLM_ExternalID", identifier);
}

KORPLMObject::~KORPLMObject() {
  if (!_Identificator.IsNull()) _Identificator->ForgetObject();
}

long KORPLMObject::GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) {
  if (_Identificator.IsNull()) {
    _Identificator = KORHandle<KORPLMIdentificator>::Adopt(new KORPLMIdentificator(*this));
  }
  return KORHandOut("GetPLMIdentificator", _Identificator, identificator);
}

KORIValue* KORPLMObject::GetAttribute(const KORUnicodeString& name) {
  return KORGive("GetAttribute", [this, &name]() -> KORIValue* {
    const std::optional<KORKeyedValues::View> value = _Attributes.Look(name.Bytes());
    return value ? new TextValue(KORTextOfValue(*value, KORBooleanWords)) : nullptr;
  });
}

void KORPLMObject::Reserve(const KORUnicodeString& user) {
  _Attributes.Set(KORReservedAttribute, static_cast<unsigned char>(1));
  _Attributes.Set(KORReservedByAttribute, user);
}

void KORPLMObject::Unreserve() {
  _Attributes.Set(KORReservedAttribute, static_cast<unsigned char>(0));
  _Attributes.Set(KORReservedByAttribute, KORUnicodeString());
}
