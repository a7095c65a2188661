// What a session works in: its helper object and its environment.
#include "platform/services/PLMPSISessionHelpers.h"

#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

namespace {

class Environment final : public KORImplements<KORIAdpEnvironment> {};

class SessionHelpers final : public KORImplements<PLMPSISessionHelpers> {
 public:
  long GetCurrentEnvironment(KORIAdpEnvironment*& environment) override {
    return KORHandOut("GetCurrentEnvironment", _Environment, environment);
  }

 private:
  const KORIAdpEnvironment_var _Environment = KORIAdpEnvironment_var::Adopt(new Environment);
};

// The part of a session that holds its helper object.
struct HelpersOfSession {
  const PLMPSISessionHelpers_var Helpers = PLMPSISessionHelpers_var::Adopt(new SessionHelpers);
};

}  // namespace

long PLMPSISessionHelpers::GetSessionHelpers(PLMPSISessionHelpers*& helpers) {
  return KORHandOut("GetSessionHelpers", KORSession::Current().GetPart<HelpersOfSession>().Helpers, helpers);
}
