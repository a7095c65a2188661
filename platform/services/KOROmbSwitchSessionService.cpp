// Changes the mode in which objects are loaded.
#include "platform/services/KOROmbSwitchSessionService.h"

#include <memory>
#include <optional>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFindRepReference.h"
#include "platform/system/KORPerform.h"

namespace {

constexpr const char* AuthoringMode = "Authoring_Mode";

class SwitchEngine final : public KORImplements<KORIOmiSwitchEngine> {
 public:
  long AddSwitchComponent(KORBaseUnknown* object) override;
  long SetLoadingRules(const KOROmbLoadingModeRuleSet& rules) override;
  long PrepareSwitch(KORListPtrKOROmiSwitchOperation& operations) override;
  long ExecuteSwitch(KORListPtrKOROmiSwitchOperation& operations) override;

 private:
  std::vector<KORBaseUnknown_var> _Objects;
  std::optional<KORUnicodeString> _Mode;  // of the last rule
  KORListPtrKOROmiSwitchOperation _Prepared;
  std::vector<std::unique_ptr<KOROmiSwitchOperation>> _Owned;  // everything that was ever prepared
};

long SwitchEngine::AddSwitchComponent(KORBaseUnknown* object) {
  return KORPerform("AddSwitchComponent", [this, object] {
    if (object == nullptr) return E_INVALIDARG;
    _Objects.emplace_back(object);
    return S_OK;
  });
}

long SwitchEngine::SetLoadingRules(const KOROmbLoadingModeRuleSet& rules) {
  return KORPerform("SetLoadingRules", [this, &rules] {
    _Mode.reset();
    if (!rules.GetRules().empty()) _Mode = rules.GetRules().back().GetMode();
    return S_OK;
  });
}

long SwitchEngine::PrepareSwitch(KORListPtrKOROmiSwitchOperation& operations) {
  return KORPerform("PrepareSwitch", [this, &operations] {
    if (_Objects.empty() || _Mode != KORUnicodeString(AuthoringMode)) return E_FAIL;
    _Prepared.RemoveAll();
    for (const KORBaseUnknown_var& object : _Objects) {
      _Owned.push_back(std::make_unique<KOROmiSwitchOperation>(object, *_Mode));
      _Prepared.Append(_Owned.back().get());
    }
    operations.Append(_Prepared);
    return S_OK;
  });
}

long SwitchEngine::ExecuteSwitch(KORListPtrKOROmiSwitchOperation& operations) {
  return KORPerform("ExecuteSwitch", [this, &operations] {
    const auto find = [](const KOROmiSwitchOperation* operation) {
      return KORFindRepReference(operation->GetObject().Get());
    };
    if (_Prepared.Size() == 0) return E_FAIL;
    for (const KOROmiSwitchOperation* const operation : _Prepared) {
      if (find(operation) == nullptr) return E_FAIL;
    }
    for (const KOROmiSwitchOperation* const operation : _Prepared) {
      find(operation)->GetContent().LoadingMode = operation->GetMode();
    }
    operations.Append(_Prepared);
    return S_OK;
  });
}

}  // namespace

long KOROmbLoadingModeRuleSet::AddALoadingModeRule(const KOROmbDefaultLoadingModeRule& rule) {
  return KORPerform("AddALoadingModeRule", [this, &rule] {
    _Rules.push_back(rule);
    return S_OK;
  });
}

long KOROmbSwitchSessionService::CreateSwitchEngine(KORIOmiSwitchEngine*& engine) const {
  return KORHandOut("CreateSwitchEngine", KORIOmiSwitchEngine_var::Adopt(new SwitchEngine), engine);
}
