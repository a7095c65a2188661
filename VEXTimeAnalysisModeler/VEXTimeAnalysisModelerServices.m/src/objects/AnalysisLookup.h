// Time analyses found by their identifier.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

namespace objects {

/// The first analysis that the query for that "PLM_ExternalID" lists; null if it lists none.
KORBaseUnknown_var FindByIdentifier(const KORUnicodeString& identifier);

}  // namespace objects
