// A host that loads the services while it runs, and unloads them again.
#include <dlfcn.h>

#include <cstdio>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORTrace.h"
#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/system/KORSession.h"

namespace {

// How much of the services the platform knows: 0 to 4.
int CountKnown() {
  KORFreshSession session;
  const KORIIcon_var icon = KORModel::Current().CreateTimeAnalysis("Fasten cover");
  return (icon.IsNull() ? 0 : 1) + (fct_FindMetaObject("VEXSTMTimeAnalysisIcon") == nullptr ? 0 : 1) +
         (KORFillDictionary::FindFunctionCreation("VEXETimeAnalysisSessionServicesMgr") == nullptr ? 0 : 1) +
         (KORTrace::Find("KORVEXTimeAnalysisModelerServicesTrace") == nullptr ? 0 : 1);
}

}  // namespace

int main() {
  for (int round = 0; round < 2; ++round) {
    std::printf("%d ", CountKnown());
    void* const services = dlopen(SERVICES, RTLD_NOW | RTLD_LOCAL);
    if (services == nullptr) std::printf("%s ", dlerror());
    std::printf("%d ", CountKnown());
    if (services != nullptr) dlclose(services);
  }
  std::printf("%d\n", CountKnown());
}
