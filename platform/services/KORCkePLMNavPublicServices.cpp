// What the knowledge engine knows of the objects of the product structure: their types and their reservation.
#include "platform/services/KORCkePLMNavPublicServices.h"

#include <string_view>

#include "platform/base/KORStatus.h"
#include "platform/model/KORPLMObject.h"
#include "platform/system/KORPerform.h"

namespace {

KORUnicodeString NameOn(const KORICkeObject_var& object, const char* operation, std::string_view name) {
  return KORGive(operation, [&] { return object.IsNull() ? KORUnicodeString() : KORUnicodeString(name); });
}

}  // namespace

long KORCkePLMNavPublicServices::RetrieveKnowledgeType(const KORUnicodeString& name, KORIType_var& type) {
  type = nullptr;
  return KORPerform("RetrieveKnowledgeType", [&] {
    type = KORKnowledgeTypes::Current().Find(name);
    return type.IsNull() ? E_FAIL : S_OK;
  });
}

long KORCkePLMNavPublicServices::ListAttributesFromType(int /*criterion*/, const KORIType_var& type,
                                                        KORIAdpEnvironment* /*environment*/,
                                                        KORListValKORAttributeInfos& infos, int /*flag*/) {
  infos.RemoveAll();
  return KORPerform("ListAttributesFromType", [&] {
    if (type.IsNull()) return E_INVALIDARG;
    infos = type->Attributes();
    return S_OK;
  });
}

KORUnicodeString KORCkePLMNavPublicServices::GetReservedAttributeNameFromObject(const KORICkeObject_var& object) {
  return NameOn(object, "GetReservedAttributeNameFromObject", KORReservedAttribute);
}

KORUnicodeString KORCkePLMNavPublicServices::GetReservedByAttributeNameFromObject(const KORICkeObject_var& object) {
  return NameOn(object, "GetReservedByAttributeNameFromObject", KORReservedByAttribute);
}
