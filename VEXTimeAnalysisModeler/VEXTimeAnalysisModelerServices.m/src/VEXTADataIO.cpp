// Time analyses as lists of text items: reading one out, writing one in.
#include "VEXTADataIO.h"

#include "exchange/AnalysisObject.h"
#include "exchange/ItemText.h"
#include "exchange/LegacyMigration.h"
#include "exchange/ReadOut.h"
#include "exchange/WriteIn.h"

KORListValKORUnicodeString VEXTADataIO::ExplodeString(const KORUnicodeString& separator, KORUnicodeString text) {
  return exchange::Explode(separator, text);
}

long VEXTADataIO::GetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                                  KORBaseUnknown* analysis) {
  const KORBaseUnknown_var object = exchange::GivenOrFound(identifier, analysis);
  return object.IsNull() ? E_FAIL : exchange::ReadOut(object, items);
}

long VEXTADataIO::SetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                                  KORBaseUnknown* analysis) {
  const KORBaseUnknown_var object = exchange::GivenOrFound(identifier, analysis);
  return object.IsNull() ? E_FAIL : exchange::WriteIn(items, object);
}

long VEXTADataIO::MigrateAllQ4TimeAnalysesToR9(KORListValKORBaseUnknown_var& occurrences) {
  return exchange::MigrateLegacyAnalyses(occurrences);
}
