// Proxies: objects that stand for one that is still to be made, and hold the values that it is to start with.
#include "platform/services/KORCkePLMCoreServices.h"

#include <optional>
#include <string_view>
#include <variant>

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

namespace {

// The object of the model behind an interface; null if there is none.
template <class Object, class Interface>
Object* ObjectBehind(const KORHandle<Interface>& handle) {
  return handle.IsNull() ? nullptr : dynamic_cast<Object*>(handle->GetImpl(0));
}

// Sets an attribute to a value, with the type that the value has.
struct Setter {
  KORKeyedValues& Attributes;
  std::string_view Name;

  void operator()(std::string_view text) const { Attributes.Set(Name, KORUnicodeString(text)); }
  template <class Value>
  void operator()(const Value& value) const {
    Attributes.Set(Name, value);
  }
};

}  // namespace

long KORCkePLMCoreServices::RetrieveTypeFromProxy(const KORICkeObject_var& proxy, KORIType_var& type) {
  type = nullptr;
  return KORPerform("RetrieveTypeFromProxy", [&] {
    const auto* const of_model = ObjectBehind<KORCkeProxy>(proxy);
    if (of_model == nullptr) return E_INVALIDARG;
    type = KORKnowledgeTypes::Current().Find(of_model->GetTypeName());
    return type.IsNull() ? E_FAIL : S_OK;
  });
}

long KORCkePLMCoreServices::FillAttributesFromProxyOrBusinessLogicOnObject(
    const KORIInstance_var& object, const KORIType_var& type, KORIAdpEnvironment* /*environment*/,
    const KORIInstance_var& proxy, const KORListValKORICkeParm_var* /*parameters*/, int /*flag*/) {
  return KORPerform("FillAttributesFromProxyOrBusinessLogicOnObject", [&] {
    auto* const target = ObjectBehind<KORPLMObject>(object);
    const auto* const source = ObjectBehind<KORPLMObject>(proxy);
    if (target == nullptr || source == nullptr || type.IsNull()) return E_INVALIDARG;
    for (const KORAttributeInfos& attribute : type->Attributes()) {
      const std::string_view name = attribute.Name().Bytes();
      const std::optional<KORKeyedValues::View> value = source->GetAttributes().Look(name);
      if (value) std::visit(Setter{target->GetAttributes(), name}, *value);
    }
    return S_OK;
  });
}
