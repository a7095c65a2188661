// The stream that a legacy representation carries.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

namespace exchange {

/// As VEXSTTApplicativeContainerServices::RetrieveDBDIStream.
long RetrieveLegacyStream(const KORBaseUnknown_var& representation, KORUnicodeString& stream);

}  // namespace exchange
