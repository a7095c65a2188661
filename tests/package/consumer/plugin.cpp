// A host that loads the services while it runs. Prints how much of them it knows ahead of that, behind it, and once it
// has let go of them; and the icon of an analysis that was asked for its icon meanwhile.
#include <dlfcn.h>

#include <cstdio>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORTrace.h"
#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNavigTree.h"
#include "platform/system/KORSession.h"

namespace {

// From 0 to 5.
int CountKnown() {
  KORFreshSession session;
  KORNavigTree tree;
  const KORHandle<VEXTimeAnalysisRepReference> analysis = KORModel::Current().CreateTimeAnalysis("Fasten");
  const KORIIcon_var icon = analysis;
  const KORINavigElement_var element = tree.AddNode(analysis);
  return (icon.IsNull() ? 0 : 1) + (element.IsNull() ? 0 : 1) +
         (fct_FindMetaObject("VEXSTMTimeAnalysisIcon") == nullptr ? 0 : 1) +
         (KORFillDictionary::FindFunctionCreation("VEXETimeAnalysisSessionServicesMgr") == nullptr ? 0 : 1) +
         (KORTrace::Find("KORVEXTimeAnalysisModelerServicesTrace") == nullptr ? 0 : 1);
}

}  // namespace

int main() {
  const KORBaseUnknown_var analysis = KORModel::Current().CreateTimeAnalysis("Fasten");
  std::printf("%d ", CountKnown());
  void* const services = dlopen(SERVICES, RTLD_NOW | RTLD_LOCAL);
  if (services == nullptr) {
    std::printf("%s\n", dlerror());
    return 1;
  }
  (void)KORIIcon_var(analysis)->SetIconName("I_Fasten");
  std::printf("%d ", CountKnown());
  dlclose(services);
  KORUnicodeString name;
  (void)KORIIcon_var(analysis)->GetIconName(name);
  std::printf("%d %s\n", CountKnown(), std::string(name.Bytes()).c_str());
}
