// Changes the mode in which objects are loaded.
#pragma once

#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

/// One rule: the mode in which objects are to be loaded.
class KOROmbDefaultLoadingModeRule {
 public:
  explicit KOROmbDefaultLoadingModeRule(const KORUnicodeString& mode) : _Mode(mode) {}
  const KORUnicodeString& GetMode() const { return _Mode; }

 private:
  KORUnicodeString _Mode;
};

class KORPLATFORM_API KOROmbLoadingModeRuleSet {
 public:
  /// S_OK.
  long AddALoadingModeRule(const KOROmbDefaultLoadingModeRule& rule);
  const std::vector<KOROmbDefaultLoadingModeRule>& GetRules() const { return _Rules; }

 private:
  std::vector<KOROmbDefaultLoadingModeRule> _Rules;
};

/// One step of a switch: an object that is to be brought into a mode.
class KOROmiSwitchOperation {
 public:
  KOROmiSwitchOperation(const KORBaseUnknown_var& object, const KORUnicodeString& mode)
      : _Object(object), _Mode(mode) {}
  const KORBaseUnknown_var& GetObject() const { return _Object; }
  const KORUnicodeString& GetMode() const { return _Mode; }

 private:
  KORBaseUnknown_var _Object;
  KORUnicodeString _Mode;
};
using KORListPtrKOROmiSwitchOperation = KORList<KOROmiSwitchOperation*>;

/// Brings objects into a loading mode; its operations are called in the order in which they stand here.
class KORIOmiSwitchEngine : public KORInterface<KORIOmiSwitchEngine> {
 public:
  static constexpr const char* InterfaceName = "KORIOmiSwitchEngine";

  /// S_OK; E_INVALIDARG for null.
  virtual long AddSwitchComponent(KORBaseUnknown* object) = 0;
  /// The last rule of the set holds. S_OK.
  virtual long SetLoadingRules(const KOROmbLoadingModeRuleSet& rules) = 0;
  /// Appends what is to be done; the entries are the engine's, and live as long as it does. S_OK; E_FAIL, with nothing
  /// appended, without an object or without a rule, and for another mode than "Authoring_Mode".
  virtual long PrepareSwitch(KORListPtrKOROmiSwitchOperation& operations) = 0;
  /// Does what was prepared (KORRepContent::LoadingMode) and appends what was done. S_OK; E_FAIL, with nothing changed,
  /// if nothing was prepared, and if an object is no representation reference.
  virtual long ExecuteSwitch(KORListPtrKOROmiSwitchOperation& operations) = 0;
};
using KORIOmiSwitchEngine_var = KORHandle<KORIOmiSwitchEngine>;

class KORPLATFORM_API KOROmbSwitchSessionService {
 public:
  /// context  of the session; passed as null
  explicit KOROmbSwitchSessionService(const void* /*context*/) {}

  /// engine  [out] a new engine, with a reference that the caller releases; null on failure
  /// S_OK.
  long CreateSwitchEngine(KORIOmiSwitchEngine*& engine) const;
};
