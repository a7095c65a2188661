// The container of features that a representation holds, and the features in it.
#include "platform/model/KORFeatureContainer.h"

#include <string_view>

#include "platform/system/KORPerform.h"

namespace {

// True if the class name is that of the interface and the member offers it.
template <class Interface>
bool Offers(const KORBaseUnknown_var& member, std::string_view class_name) {
  return class_name == Interface::ClassName() && !KORHandle<Interface>(member).IsNull();
}

bool IsListed(const KORBaseUnknown_var& member, const char* class_name) {
  return member->IsAKindOf(class_name) != 0 || Offers<KORISpecObject>(member, class_name) ||
         Offers<KORISpecAttrAccess>(member, class_name);
}

}  // namespace

KORUnicodeString KORFeature::GetFeatureName() {
  return KORGive("GetFeatureName", [this] { return _Name; });
}

std::unique_ptr<KORListValKORUnicodeString> KORFeature::ListAttributeNames() {
  return KORGive("ListAttributeNames",
                 [this] { return std::make_unique<KORListValKORUnicodeString>(_AttributeNames); });
}

std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> KORFeatureContainer::ListMembers(const char* class_name) {
  return KORGive("ListMembers", [this, class_name] {
    auto listed = std::make_unique<_SEQUENCE_KORBaseUnknown_ptr>();
    if (class_name == nullptr) return listed;
    for (const KORBaseUnknown_var& member : _Members) {
      if (!IsListed(member, class_name)) continue;
      member->AddRef();
      listed->Append(member.Get());
    }
    return listed;
  });
}
