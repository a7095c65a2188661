// Representation references, and what they hold beside their attributes.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORFeatureContainer.h"
#include "platform/model/KORIAlias.h"
#include "platform/model/KORPLMObject.h"
#include "platform/model/KORStreamList.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/model/PLMIRepReferenceDataAccess.h"

/// What a representation reference holds beside its attributes.
struct KORRepContent {
  KORUnicodeString Alias;                    // display name; empty for none
  KORUnicodeString LegacyStreamPath;         // local file that holds the legacy stream; empty for none
  KORStreamList Streams;                     // the extended streams
  KORHandle<KORFeatureContainer> Container;  // applicative container; null for none
  KORUnicodeString LoadingMode;              // the mode that it was brought into last; empty: as it was made
  bool IsLastMajorRevision = true;
  bool IsInDatabase = true;  // false: the database knows nothing of it
};

/// A representation reference. One of this very class is of a kind that the system doesn't look into; a time analysis
/// is a class of its own (VEXTimeAnalysisRepReference).
class KORPLATFORM_API KORRepReference
    : public KORDerives<KORPLMObject, PLMIRepReference, KORIPLMNavRepReference, PLMIRepReferenceApplicativeDataAccess,
                        PLMIRepReferenceNonZENTADataAccess, KORIAlias> {
 public:
  using KORDerives::KORDerives;

  long CreateApplicativeContainer(void** out, const char* model, const KORUuid& interface_id, const char* type,
                                  const KORUnicodeString& name) override;
  long RetrieveApplicativeContainer(const KORUnicodeString& name, const KORUuid& interface_id, void** out) override;
  long GetStreamFilePath(KORUnicodeString& path) override;
  KORUnicodeString GetAlias() override;

  KORRepContent& GetContent() { return _Content; }
  const KORRepContent& GetContent() const { return _Content; }

 private:
  KORRepContent _Content;
};
