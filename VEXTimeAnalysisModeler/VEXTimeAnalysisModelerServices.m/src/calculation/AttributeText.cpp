// Attributes of any object as text.
#include "calculation/AttributeText.h"

#include <optional>

#include "platform/base/KORStatus.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORIPLMNavOccurrence.h"

namespace calculation {

namespace {

// The status of reading the text of an attribute; nothing if the object has no such attribute.
std::optional<long> ReadAttribute(const KORIInstance_var& object, const KORUnicodeString& name,
                                  KORUnicodeString& text) {
  const auto value = KORIValue_var::Adopt(object->GetAttribute(name));
  if (value.IsNull()) return std::nullopt;
  return value->GetText(text);
}

// The reference behind an occurrence; null if the way there fails. The status is that of the last step.
KORBaseUnknown_var ReferenceOf(const KORIPLMNavOccurrence_var& occurrence, long& status) {
  KORIPLMNavInstance* instance = nullptr;
  status = occurrence->GetRelatedInstance(instance);
  const auto held_instance = KORIPLMNavInstance_var::Adopt(instance);
  if (held_instance.IsNull()) return NULL_var;
  KORIPLMNavReference* reference = nullptr;
  status = held_instance->GetInstanceReference(reference);
  return KORIPLMNavReference_var::Adopt(reference);
}

}  // namespace

long AttributeText(const KORBaseUnknown_var& object, const KORUnicodeString& name, KORUnicodeString& text) {
  const KORIInstance_var instance = object;
  if (instance.IsNull()) return E_FAIL;
  if (const std::optional<long> status = ReadAttribute(instance, name, text)) return *status;
  const KORIPLMNavOccurrence_var occurrence = object;
  if (occurrence.IsNull()) return E_FAIL;
  long status = E_FAIL;
  const KORIInstance_var reference = ReferenceOf(occurrence, status);
  if (reference.IsNull()) return E_FAIL;
  return ReadAttribute(reference, name, text).value_or(status);
}

}  // namespace calculation
