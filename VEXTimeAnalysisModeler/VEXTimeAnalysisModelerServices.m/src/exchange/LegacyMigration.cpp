// Legacy analyses become present ones: what their streams hold is written into new analyses, which take their places.
#include "exchange/LegacyMigration.h"

#include <utility>

#include "VEXSTTProvider.h"
#include "exchange/ItemText.h"
#include "exchange/LegacyStream.h"
#include "exchange/WriteIn.h"
#include "objects/OperationWalk.h"
#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/model/KORIPLMNavOccurrence.h"
#include "platform/model/VEXITimeAnalysisProperties.h"

namespace exchange {

namespace {

KORUnicodeString PropertyOf(const VEXITimeAnalysisProperties_var& properties, const char* name) {
  KORUnicodeString value;
  (void)properties->GetValue(name, value);
  return value;
}

// Line feeds at the end go first, and then separators: what stands ahead of these stays, line feeds included.
KORListValKORUnicodeString ItemsOf(KORUnicodeString stream) {
  stream.Strip(KORUnicodeString::StripPlace::Trailing, '\n');
  stream.Strip(KORUnicodeString::StripPlace::Trailing, ItemSeparator);
  return Explode("|", stream);
}

// The migration of one operation after the other. Pointers are tested rather than statuses, as the platform may give
// either without the other.
class Migration {
 public:
  // False if the whole is to end.
  bool Take(const KORBaseUnknown_var& entry) {
    const KORIPLMNavOccurrence_var occurrence(entry);
    if (occurrence.IsNull()) return true;
    KORIPLMNavReference_var operation;
    if (const auto instance = objects::InstanceOf(occurrence); !instance.Get().IsNull()) {
      const auto reference = objects::OperationOf(instance.Get());
      _Status = reference.GetStatus();
      if (reference.Get().IsNull()) return true;
      operation = reference.Get();
    }
    KORBaseUnknown_var old_analysis;
    _Status = VEXSTTProvider::CheckExsistingRepRef(operation, old_analysis);
    return old_analysis.IsNull() || Migrate(operation, old_analysis);
  }

  long GetStatus() const { return _Status; }

 private:
  bool Migrate(const KORIPLMNavReference_var& operation, const KORBaseUnknown_var& old_analysis) {
    KORUnicodeString stream;
    _Status = RetrieveLegacyStream(old_analysis, stream);
    if (Failed(_Status) || stream.IsEmpty()) return true;
    const KORListValKORUnicodeString items = ItemsOf(std::move(stream));
    const VEXITimeAnalysisProperties_var properties(old_analysis);
    if (properties.IsNull()) return false;
    const KORUnicodeString identifier = PropertyOf(properties, "PLM_ExternalID");
    const KORUnicodeString system = PropertyOf(properties, "V_Subsystem");
    const KORListValKORICkeParm_var attributes =
        FirstAttributes(KORCkeGlobalFunctions::GetVolatileFactory(), identifier, system);
    KORBaseUnknown_var new_analysis;
    // They are handed over as the attributes that can be written, which a new analysis does not get.
    _Status = VEXSTTProvider::CreateNewFactoryRepRef(new_analysis, attributes, {}, nullptr);
    if (Failed(_Status) || new_analysis.IsNull()) return true;
    (void)VEXSTTProvider::RemoveRepRef(operation);
    (void)VEXSTTProvider::InstanciateNewRepRef(operation, new_analysis);
    _Status = WriteIn(items, new_analysis);
    return true;
  }

  long _Status = E_FAIL;
};

}  // namespace

KORListValKORICkeParm_var FirstAttributes(const KORICkeParmFactory_var& factory, const KORUnicodeString& identifier,
                                          const KORUnicodeString& system) {
  KORListValKORICkeParm_var attributes;
  if (factory.IsNull()) return attributes;
  attributes.Append(factory->CreateTextParm("PLM_ExternalID", identifier));
  attributes.Append(factory->CreateTextParm("V_Subsystem", system));
  attributes.Append(factory->CreateTextParm("V_description", identifier));
  attributes.Append(factory->CreateTextParm("V_Name", identifier));
  return attributes;
}

long MigrateLegacyAnalyses(const KORListValKORBaseUnknown_var& occurrences) {
  Migration migration;
  for (const KORBaseUnknown_var& entry : occurrences) {
    if (!migration.Take(entry)) break;
  }
  return migration.GetStatus();
}

}  // namespace exchange
