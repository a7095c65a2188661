// What the database is asked about the revisions of time analyses.
#include "objects/VersionQuery.h"

#include "HandedOut.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUuid.h"

namespace objects {

namespace {

// The one pair of seek modes that is asked for.
constexpr int MajorSeekMode = 1;
constexpr int MinorSeekMode = 1;

}  // namespace

long AskForVersions(const KORListPtrKORIAdpPLMIdentificator& identificators, KORListValKORAdpVersioningInfo& infos) {
  const HandedOut<KORIAdpErrorMonitor> monitor(
      [](KORIAdpErrorMonitor*& out) { return KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid::Fresh(), out); });
  return KORAdpProtectedVersioningServices::GetVersioningInfo(identificators, MajorSeekMode, MinorSeekMode, infos,
                                                              monitor.Get().Get());
}

bool IsLastMajor(const KORAdpVersioningInfo& info) {
  KORAdpMajorInformation major;
  unsigned char is_last = 0;
  if (Succeeded(info.GetMajorVersioningInformation(major))) (void)major.IsLastMajor(is_last);
  return is_last != 0;
}

}  // namespace objects
