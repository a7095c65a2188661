// The lines of an analysis that reuse another one, brought up to date with it.
#pragma once

#include <unordered_set>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/VEXTimeAnalysisLineData.h"

namespace objects {

/// Rewrites each line of `impacted` that reuses one of the changed analyses, and calculates `impacted` anew if there
/// was one: "FormulaParameter" becomes the parameters of the reused analysis followed by the line's own, "TTBTime" and
/// "TotalTime" its time in seconds. Nothing happens if `impacted` is null or has no lines.
///
/// changed     implementations of analyses. One without lines or attributes raises the null-handle error, and so does
///             `impacted` without properties
/// components  is appended to: `impacted` once for each line, with a reference
void BringUpToDate(const KORBaseUnknown_var& impacted, const std::unordered_set<const KORBaseUnknown*>& changed,
                   VEXSTMTimeAnalysisDlgServices& services, KORListPtrKORIPLMComponent& components);

/// The formula parameters of a line whose owner is the analysis of that identifier, in their order; they stay the
/// line's.
KORRawCollPV GetOwnParametersOnLine(const VEXTimeAnalysisLineData& line, const KORUnicodeString& identifier);

}  // namespace objects
