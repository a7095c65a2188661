// Representation references.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/model/KORPLMObject.h"
#include "platform/model/PLMIRepInstance.h"

/// A representation reference. One of this very class is of a kind that the system doesn't look into; a time analysis
/// is a class of its own (VEXTimeAnalysisRepReference).
class KORPLATFORM_API KORRepReference : public KORDerives<KORPLMObject, PLMIRepReference, KORIPLMNavRepReference> {
 public:
  using KORDerives::KORDerives;
};
