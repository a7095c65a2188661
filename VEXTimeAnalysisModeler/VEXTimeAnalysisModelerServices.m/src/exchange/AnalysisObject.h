// The analysis that an exchange works on.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace exchange {

/// The analysis of that "PLM_ExternalID"; null if there is none.
KORBaseUnknown_var FindByIdentifier(const KORUnicodeString& identifier);

/// `analysis`, or the one of that identifier if it is null. Null, with a line in the trace, if there is none.
KORBaseUnknown_var GivenOrFound(const KORUnicodeString& identifier, KORBaseUnknown* analysis);

/// The attributes and the lines of an object. One that has none ends the process: it is no time analysis.
VEXITimeAnalysisRepReference_var AttributesOf(const KORBaseUnknown_var& object);
VEXITimeAnalysisLines_var LinesOf(const KORBaseUnknown_var& object);

}  // namespace exchange
