// Knowledge types: the names of kinds of objects, with the attributes that they have.
#include "platform/services/KORIType.h"

#include <array>
#include <string_view>

#include "platform/system/KORSession.h"

namespace {

class KnowledgeType final : public KORImplements<KORIType> {
 public:
  KnowledgeType(const KORUnicodeString& name, const KORListValKORAttributeInfos& attributes)
      : _Name(name), _Attributes(attributes) {}

  const KORUnicodeString& Name() const override { return _Name; }
  const KORListValKORAttributeInfos& Attributes() const override { return _Attributes; }

 private:
  KORUnicodeString _Name;
  KORListValKORAttributeInfos _Attributes;
};

struct Attribute {
  std::string_view Name;
  bool Writable;
};

// What a time analysis has: what the user enters is writable, what identifies it or is calculated is not.
// clang-format off
constexpr std::array AnalysisAttributes{
    Attribute{"PLM_ExternalID",  false},
    Attribute{"V_Name",          true},
    Attribute{"V_description",   true},
    Attribute{"V_Subsystem",     true},
    Attribute{"Subsystem",       true},
    Attribute{"TTBCalculated",   false},
    Attribute{"TTUCalculated",   false},
    Attribute{"TWCalculated",    false},
    Attribute{"TRGCalculated",   false},
    Attribute{"TotalCalculated", false},
    Attribute{"V_HumanTime",     false},
    Attribute{"V_MachineTime",   false},
    Attribute{"V_WaitingTime",   false},
    Attribute{"V_SetupTime",     false},
    Attribute{"V_TotalTime",     false},
    Attribute{"V_Direction",     true},
    Attribute{"V_Category",      true},
    Attribute{"V_discipline",    true},
    Attribute{"V_nature",        true},
};
// clang-format on

}  // namespace

KORKnowledgeTypes::KORKnowledgeTypes() {
  KORListValKORAttributeInfos attributes;
  for (const auto& [name, writable] : AnalysisAttributes) {
    attributes.Append(KORAttributeInfos(KORUnicodeString(name), writable));
  }
  Define("VEXTimeAnalysisRepReference", attributes);
}

KORKnowledgeTypes& KORKnowledgeTypes::Current() {
  return KORSession::Current().GetPart<KORKnowledgeTypes>();
}

void KORKnowledgeTypes::Define(const KORUnicodeString& name, const KORListValKORAttributeInfos& attributes) {
  _Types.insert_or_assign(name, KORHandle<KnowledgeType>::Adopt(new KnowledgeType(name, attributes)));
}

void KORKnowledgeTypes::Forget(const KORUnicodeString& name) {
  _Types.erase(name);
}

KORIType_var KORKnowledgeTypes::Find(const KORUnicodeString& name) const {
  const auto found = _Types.find(name);
  return found == _Types.end() ? KORIType_var() : found->second;
}
