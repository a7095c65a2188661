// The model of a session: the analyses and operations that were made in it.
#include "platform/model/KORModel.h"

#include "platform/system/KORSession.h"

namespace {

template <class Object>
KORHandle<Object> Keep(std::vector<KORHandle<Object>>& kept, Object* made) {
  return kept.emplace_back(KORHandle<Object>::Adopt(made));
}

}  // namespace

KORModel::~KORModel() {
  for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : _TimeAnalyses) (void)analysis->RemoveAllLines();
}

KORModel& KORModel::Current() {
  return KORSession::Current().GetPart<KORModel>();
}

KORHandle<VEXTimeAnalysisRepReference> KORModel::CreateTimeAnalysis(const KORUnicodeString& identifier) {
  return Keep(_TimeAnalyses, new VEXTimeAnalysisRepReference(identifier));
}

KORHandle<KORRepReference> KORModel::CreateOtherRepReference(const KORUnicodeString& identifier) {
  return Keep(_OtherRepReferences, new KORRepReference(identifier));
}

KORHandle<KOROperationReference> KORModel::CreateOperation(const KORUnicodeString& identifier) {
  return Keep(_Operations, new KOROperationReference(identifier));
}

KORHandle<KOROperationOccurrence> KORModel::CreateOccurrence(const KORIPLMNavReference_var& operation) {
  const auto instance = KORHandle<KOROperationInstance>::Adopt(new KOROperationInstance(operation));
  return Keep(_Occurrences, new KOROperationOccurrence(instance));
}
