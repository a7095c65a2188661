// What all objects of the product structure share: an identificator, attributes and a reservation.
#include "platform/model/KORPLMObject.h"

#include <optional>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/model/KORValueText.h"
#include "platform/system/KORSession.h"

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

KORBaseUnknown_var KORPLMIdentificator::FindObject() const {
  return _Object != nullptr && _Object->TryAddRef() ? KORBaseUnknown_var::Adopt(_Object) : NULL_var;
}

KORPLMObject::KORPLMObject(const KORUnicodeString& identifier) {
  _Attributes.Set("PLM_ExternalID", identifier);
}

KORPLMObject::~KORPLMObject() {
  if (!_Identificator.IsNull()) _Identificator->ForgetObject();
}

long KORPLMObject::GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) {
  identificator = nullptr;
  if (const long fault = KORSession::Current().GetFault("GetPLMIdentificator"); fault != S_OK) return fault;
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

void KORPLMObject::Reserve(const KORUnicodeString& user) {
  _Attributes.Set(KORReservedAttribute, static_cast<unsigned char>(1));
  _Attributes.Set(KORReservedByAttribute, user);
}

void KORPLMObject::Unreserve() {
  _Attributes.Set(KORReservedAttribute, static_cast<unsigned char>(0));
  _Attributes.Set(KORReservedByAttribute, KORUnicodeString());
}
