// The face of what is done to analyses as a whole.
#include "VEXSTTApplicativeContainerServices.h"

#include "exchange/LegacyStream.h"
#include "objects/ApplicativeData.h"
#include "objects/IdentifierRepair.h"
#include "objects/ImpactPropagation.h"
#include "objects/ReuseIndex.h"
#include "objects/SubsystemMigration.h"
#include "platform/base/KORStatus.h"

long VEXSTTApplicativeContainerServices::Create(const KORBaseUnknown_var& representation,
                                                KORIContainer_var& container) {
  return objects::CreateContainer(representation, container);
}

long VEXSTTApplicativeContainerServices::Retrieve(const KORBaseUnknown_var& representation,
                                                  KORIContainer_var& container) {
  return objects::RetrieveContainer(representation, container);
}

// Migration

long VEXSTTApplicativeContainerServices::MigrateSUBSYSTEM_to_MODAPTS(KOROmbLifeCycleRootsBag& bag) {
  return objects::MigrateSubsystemToModapts(bag);
}

long VEXSTTApplicativeContainerServices::RetrieveDBDIStream(const KORBaseUnknown_var& representation,
                                                            KORUnicodeString& stream) {
  return exchange::RetrieveLegacyStream(representation, stream);
}

// Analyses that reuse

long VEXSTTApplicativeContainerServices::UpdateModificationsTOAllImpactedTimeAnalysis(
    KORBaseUnknown_var changed, KOROmbLifeCycleRootsBag& bag, KORListValKORBaseUnknown_var& /*unused*/,
    KORListValKORBaseUnknown_var& all_analyses) {
  return objects::UpdateAllAbove(changed, bag, all_analyses);
}

long VEXSTTApplicativeContainerServices::UpdateTemplateToImapctedTA(KORBaseUnknown_var changed,
                                                                    KORBaseUnknown_var impacted, KORHashObject*& reuses,
                                                                    KORListPtrKORIPLMComponent& components) {
  objects::UpdateAndClimb(changed, impacted, reuses, components);
  return S_OK;
}

long VEXSTTApplicativeContainerServices::GetOldAndNewPLMIDs(KORBaseUnknown_var& analysis,
                                                            KORListValKORUnicodeString& old_identifiers,
                                                            KORListValKORUnicodeString& new_identifiers) {
  return objects::ListIdentifierChanges(analysis, {old_identifiers, new_identifiers});
}

long VEXSTTApplicativeContainerServices::UpdatePLMIDsOfTimeAnalysisRepRef(KORBaseUnknown_var& analysis,
                                                                          KORListValKORUnicodeString& old_identifiers,
                                                                          KORListValKORUnicodeString& new_identifiers) {
  return objects::RepairOwners(analysis, {old_identifiers, new_identifiers});
}

long VEXSTTApplicativeContainerServices::CleanHashObjectWithListValues(KORHashObject*& table) {
  return objects::CleanHashObjectWithListValues(table);
}
