// The face of the time analyses under operations.
#include "VEXSTTProvider.h"

#include "objects/ColourFilter.h"
#include "objects/ComponentOpening.h"
#include "objects/KnowledgeParameters.h"
#include "objects/LockStatus.h"
#include "objects/OperationWalk.h"
#include "objects/ProcessServices.h"
#include "objects/RepresentationMaking.h"
#include "objects/ReusedAnalyses.h"
#include "objects/RevisionBatch.h"
#include "objects/RevisionStatus.h"
#include "platform/base/KORStatus.h"

VEXSTTProvider::~VEXSTTProvider() {
  objects::LetGoOfRepRefFactory();
}

// Making and finding

long VEXSTTProvider::CreateNewFactoryRepRef(KORBaseUnknown_var& representation,
                                            KORListValKORICkeParm_var writable_attributes,
                                            KORListValKORICkeParm_var creation_attributes, KORIInstance_var proxy) {
  return objects::MakeRepresentation(representation, writable_attributes, creation_attributes, proxy);
}

long VEXSTTProvider::CheckExsistingRepRef(KORBaseUnknown_var operation, KORBaseUnknown_var& analysis) {
  const VEXITimeAnalysisRepReference_var found = objects::AnalysisOfOperation(operation);
  if (found.IsNull()) return E_FAIL;
  analysis = found;
  return S_OK;
}

long VEXSTTProvider::InstanciateNewRepRef(KORBaseUnknown_var operation, KORBaseUnknown_var representation) {
  return objects::AttachRepresentation(operation, representation);
}

long VEXSTTProvider::RemoveRepRef(KORBaseUnknown_var operation) {
  return objects::DetachAnalysis(operation);
}

long VEXSTTProvider::GetTARepRefFromPLMComponent(KORIPLMComponent* component,
                                                 VEXITimeAnalysisRepReference_var& analysis) {
  return objects::OpenAnalysis(component, analysis);
}

VEXITimeAnalysisRepReference_var VEXSTTProvider::GetTimeAnalysisFromOperation(KORBaseUnknown_var occurrence) {
  return objects::AnalysisOfOccurrence(occurrence);
}

unsigned char VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(KORBaseUnknown_var instance,
                                                                   KORBaseUnknown*& analysis) {
  KORBaseUnknown_var found;
  if (GetTimeAnalysisReferenceFromInstance(instance, found) == 0) return 0;
  analysis = found.Get();
  return 1;
}

unsigned char VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(KORBaseUnknown_var instance,
                                                                   KORBaseUnknown_var& analysis) {
  const VEXITimeAnalysisRepReference_var found = objects::AnalysisOfRepInstance(instance);
  if (found.IsNull()) return 0;
  analysis = found;
  return 1;
}

long VEXSTTProvider::GetAllInsertedTARepRef(const VEXITimeAnalysisRepReference_var& analysis,
                                            KORListValKORBaseUnknown_var& reused) {
  objects::ListReusedAnalyses(analysis, reused);
  return S_OK;
}

long VEXSTTProvider::GetAllTARepInstancesFromOpeOcc(const KORListValKORBaseUnknown_var& occurrences,
                                                    KORListValKORBaseUnknown_var& instances) {
  return objects::ListAnalysisInstances(occurrences, instances);
}

// Services of the process

long VEXSTTProvider::GetRepRefFactory(PLMIRepresentationReferenceFactory*& factory) {
  return objects::GetRepRefFactory(factory);
}

long VEXSTTProvider::GetSessionServicesMgr(VEXITimeAnalysisSessionServicesMgr*& manager) {
  return objects::GetSessionServicesMgr(manager);
}

// What commands show

long VEXSTTProvider::GetCkeParameters(const KORBaseUnknown* model, KORListValKORICkeParm_var& writable,
                                      KORListValKORICkeParm_var& not_writable) {
  return objects::SortParameters(model, writable, not_writable);
}

long VEXSTTProvider::GetBIInfo(unsigned char& active, KORUnicodeString& name) {
  return objects::ReadFilterState(active, name);
}

long VEXSTTProvider::GetColorForBIFilter(const KORString& filter, const KORUnicodeString& attribute,
                                         const KORString& text, int& first, int& second, int& third, int& fourth,
                                         int& fifth) {
  return objects::ReadColour({filter, attribute, text}, {&first, &second, &third, &fourth, &fifth});
}

// Reservation

long VEXSTTProvider::GetLockedStatusofTimeAnalysisRepInst(KORBaseUnknown_var instance, TALockStatus& status,
                                                          KORUnicodeString user) {
  return objects::LockStatusOfInstance(instance, status, user);
}

long VEXSTTProvider::GetLockedStatusofTimeAnalysisRepRef(KORBaseUnknown_var instance, TALockStatus& status,
                                                         KORUnicodeString user) {
  return objects::LockStatusOfReference(instance, status, user);
}

// Revision

unsigned char VEXSTTProvider::IsTARevLatest(const VEXITimeAnalysisRepReference_var& analysis) {
  return objects::IsLatest(analysis) ? 1 : 0;
}

long VEXSTTProvider::GetTARevStatusFromDB(const VEXITimeAnalysisRepReference_var& analysis, TARevStatus& status) {
  return objects::RevisionStatusFromDatabase(analysis, status);
}

long VEXSTTProvider::GetTARevStatus(const VEXITimeAnalysisRepReference_var& analysis, TARevStatus& status) {
  return objects::RevisionStatus(analysis, status);
}

long VEXSTTProvider::GetAllTARepInstancesFromOpeOccWithRevStatus(const KORListValKORBaseUnknown_var& occurrences,
                                                                 KORListValKORBaseUnknown_var& instances,
                                                                 KORRawCollint& statuses) {
  return objects::InstancesWithStatusByOneQuery(occurrences, instances, statuses);
}

long VEXSTTProvider::GetAllTARepInstancesFromOpeOccWithRevStatus_Cache(const KORListValKORBaseUnknown_var& occurrences,
                                                                       KORListValKORBaseUnknown_var& instances,
                                                                       KORRawCollint& statuses) {
  return objects::InstancesWithRememberedStatus(occurrences, instances, statuses);
}
