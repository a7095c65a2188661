// A host that knows the platform alone: it names nothing of the services, and finds them by the component of an
// analysis.
#include <cstdio>

#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/system/KORSession.h"

namespace {

// The icon of a new analysis, as the services give it: what was read once stays, though another icon is set.
KORUnicodeString IconOfAnalysis() {
  KORFreshSession session;
  const KORIIcon_var icon = KORModel::Current().CreateTimeAnalysis("Fasten cover");
  KORUnicodeString name("no services");
  if (icon.IsNull()) return name;
  (void)icon->SetIconName("I_Fasten");
  (void)icon->GetIconName(name);
  (void)icon->SetIconName("I_Other");
  (void)icon->GetIconName(name);
  return name;
}

const KORUnicodeString at_load = IconOfAnalysis();

}  // namespace

int main() {
  std::printf("%s %s\n", at_load.Bytes().data(), IconOfAnalysis().Bytes().data());
}
