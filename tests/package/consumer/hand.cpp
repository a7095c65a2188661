// A program that is linked by hand with the static libraries, and names one class of the services alone. Prints how
// much of their registration it found ahead of main, from 0 to 3.
#include <cstdio>

#include "VEXSTMPicturesServices.h"
#include "platform/base/KORTrace.h"
#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/system/KORSession.h"

namespace {

int CountFound() {
  const KORFreshSession session;
  const KORIIcon_var icon = KORModel::Current().CreateTimeAnalysis("Fasten");
  return (icon.IsNull() ? 0 : 1) + (fct_FindMetaObject("VEXSTMJSONServices") == nullptr ? 0 : 1) +
         (KORTrace::Find("KORVEXTimeAnalysisModelerServicesTrace") == nullptr ? 0 : 1);
}

const int at_load = CountFound();

}  // namespace

int main() {
  KORBaseUnknown_var no_analysis;
  const long status = VEXSTMPicturesServices::RemovePictureOnTARep(no_analysis, "grip.png");
  std::printf("%d %s\n", at_load, status < 0 ? "failed" : "done");
}
