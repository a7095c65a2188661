// Representation references, and what they hold beside their attributes.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORPLMObject.h"
#include "platform/model/KORStreamList.h"
#include "platform/model/PLMIRepInstance.h"

/// What a representation reference holds beside its attributes.
struct KORRepContent {
  KORUnicodeString Alias;             // display name; empty for none
  KORUnicodeString LegacyStreamPath;  // local file that holds the legacy stream; empty for none
  KORStreamList Streams;              // the extended streams
  KORBaseUnknown_var Container;       // applicative container, not to hold its owner; null for none
  KORUnicodeString LoadingMode;       // the mode that it was brought into last; empty: as it was made
  bool IsLastMajorRevision = true;
  bool IsInDatabase = true;  // false: the database knows nothing of it
};

/// A representation reference. One of this very class is of a kind that the system doesn't look into; a time analysis
/// is a class of its own (VEXTimeAnalysisRepReference).
class KORPLATFORM_API KORRepReference : public KORDerives<KORPLMObject, PLMIRepReference, KORIPLMNavRepReference> {
 public:
  using KORDerives::KORDerives;

  KORRepContent& GetContent() { return _Content; }
  const KORRepContent& GetContent() const { return _Content; }

 private:
  KORRepContent _Content;
};
