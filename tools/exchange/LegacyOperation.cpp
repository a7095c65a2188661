// A legacy analysis under an operation, as the migration of the library takes it.
#include "tools/exchange/LegacyOperation.h"

#include <string_view>
#include <utility>

#include "VEXSTTProvider.h"
#include "VEXTADataIO.h"
#include "platform/model/KORModel.h"

namespace tool {

LegacyOperation::LegacyOperation(AnalysisHandle legacy, const std::string& path) : _Legacy(std::move(legacy)) {
  KORModel& model = KORModel::Current();
  const KORHandle<KOROperationReference> operation = model.CreateOperation(KORUnicodeString());
  _Occurrence = model.CreateOccurrence(KORIPLMNavReference_var(operation));
  _Legacy->GetContent().LegacyStreamPath = KORUnicodeString(std::string_view(path));
  (void)VEXSTTProvider::InstanciateNewRepRef(operation, _Legacy);
}

AnalysisHandle LegacyOperation::Migrate(long& status) const {
  KORListValKORBaseUnknown_var occurrences;
  occurrences.Append(_Occurrence);
  status = VEXTADataIO::MigrateAllQ4TimeAnalysesToR9(occurrences);
  const KORBaseUnknown_var found = VEXSTTProvider::GetTimeAnalysisFromOperation(_Occurrence);
  if (found.IsNull() || found == _Legacy) return NULL_var;
  const AnalysisHandle analysis(dynamic_cast<VEXTimeAnalysisRepReference*>(found.Get()));
  KORUnicodeString identifier;
  (void)_Legacy->GetValue("PLM_ExternalID", identifier);
  if (!analysis.IsNull()) (void)analysis->SetValue("PLM_ExternalID", identifier);
  return analysis;
}

}  // namespace tool
