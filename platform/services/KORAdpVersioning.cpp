// What the database knows of the revisions of objects.
#include "platform/services/KORAdpVersioning.h"

#include <algorithm>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFindRepReference.h"
#include "platform/model/KORPLMIdentificator.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

namespace {

class ErrorMonitor final : public KORImplements<KORIAdpErrorMonitor> {};

// Appends what the database knows of the object of an identificator.
void Answer(KORIAdpPLMIdentificator& identificator, std::vector<KORAdpVersioningInfo>& answers) {
  const auto* const of_model = dynamic_cast<KORPLMIdentificator*>(identificator.GetImpl(0));
  const KORBaseUnknown_var object = of_model == nullptr ? NULL_var : of_model->FindObject();
  const KORRepReference* const reference = KORFindRepReference(object.Get());
  if (reference == nullptr || !reference->GetContent().IsInDatabase) return;
  answers.emplace_back(KORIAdpPLMIdentificator_var(&identificator), reference->GetContent().IsLastMajorRevision);
}

}  // namespace

long KORAdpErrorMonitorFactory::CreateErrorMonitor(const KORUuid& /*identifier*/, KORIAdpErrorMonitor*& monitor) {
  return KORHandOut("CreateErrorMonitor", KORIAdpErrorMonitor_var::Adopt(new ErrorMonitor), monitor);
}

long KORAdpMajorInformation::IsLastMajor(unsigned char& is_last) const {
  is_last = 0;
  return KORPerform("IsLastMajor", [this, &is_last] {
    is_last = _IsLast ? 1 : 0;
    return S_OK;
  });
}

long KORAdpVersioningInfo::GetElement(KORIAdpPLMIdentificator*& element) const {
  return KORHandOut("GetElement", _Element, element);
}

long KORAdpVersioningInfo::GetMajorVersioningInformation(KORAdpMajorInformation& information) const {
  return KORPerform("GetMajorVersioningInformation", [this, &information] {
    information = _Major;
    return S_OK;
  });
}

long KORAdpProtectedVersioningServices::GetVersioningInfo(const KORListPtrKORIAdpPLMIdentificator& identificators,
                                                          int /*major*/, int /*minor*/,
                                                          KORListValKORAdpVersioningInfo& infos,
                                                          KORIAdpErrorMonitor* /*monitor*/) {
  KORVersioningDatabase& database = KORVersioningDatabase::Current();
  ++database._QueryCount;
  return KORPerform("GetVersioningInfo", [&database, &identificators, &infos] {
    if (identificators.Locate(nullptr) != 0) return E_INVALIDARG;
    std::vector<KORAdpVersioningInfo> answers;
    for (KORIAdpPLMIdentificator* const identificator : identificators) Answer(*identificator, answers);
    if (database._Order == KORVersioningDatabase::Order::Reversed) std::reverse(answers.begin(), answers.end());
    for (const KORAdpVersioningInfo& answer : answers) infos.Append(answer);
    for (const KORAdpVersioningInfo& answer : database._Besides) infos.Append(answer);
    return S_OK;
  });
}

KORVersioningDatabase& KORVersioningDatabase::Current() {
  return KORSession::Current().GetPart<KORVersioningDatabase>();
}
