// Whether a time analysis and those that it reuses are last revisions, asked one by one.
#include "objects/RevisionStatus.h"

#include <algorithm>

#include "objects/Identificator.h"
#include "objects/ReusedAnalyses.h"
#include "objects/VersionQuery.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisRevisionCache.h"

namespace objects {

namespace {

using Status = VEXSTTProvider::TARevStatus;

// The analysis is not null.
Status AskForStatus(const VEXITimeAnalysisRepReference_var& analysis) {
  if (!IsLatest(analysis)) return Status::TARevNotLatest;
  KORListValKORBaseUnknown_var reused;
  ListReusedAnalyses(analysis, reused);
  const bool all_latest = std::all_of(reused.begin(), reused.end(), [](const VEXITimeAnalysisRepReference_var& one) {
    return one.IsNull() || IsLatest(one);
  });
  return all_latest ? Status::TARevLatest : Status::TARevReusedNotLatest;
}

}  // namespace

bool IsLatest(const VEXITimeAnalysisRepReference_var& analysis) {
  const KORIAdpPLMIdentificator_var identificator = IdentificatorOf(analysis).Get();
  if (identificator.IsNull()) return false;
  KORListPtrKORIAdpPLMIdentificator asked;
  asked.Append(identificator.Get());
  KORListValKORAdpVersioningInfo infos;
  // A database that cannot be asked has nothing against the revision at hand.
  if (Failed(AskForVersions(asked, infos))) return infos.Size() == 0;
  return infos.Size() == 1 && IsLastMajor(infos[1]);
}

long RevisionStatusFromDatabase(const VEXITimeAnalysisRepReference_var& analysis, Status& status) {
  if (analysis.IsNull()) return E_FAIL;
  status = AskForStatus(analysis);
  return S_OK;
}

long RevisionStatus(const VEXITimeAnalysisRepReference_var& analysis, Status& status) {
  if (analysis.IsNull()) return E_FAIL;
  const VEXITimeAnalysisRevisionCache_var cache(analysis);
  int remembered = Status::TARevUnknown;
  (void)cache->GetRevisionStatus(remembered);
  status = remembered != Status::TARevUnknown ? static_cast<Status>(remembered) : AskForStatus(analysis);
  (void)cache->SetRevisionStatus(status);
  return S_OK;
}

}  // namespace objects
