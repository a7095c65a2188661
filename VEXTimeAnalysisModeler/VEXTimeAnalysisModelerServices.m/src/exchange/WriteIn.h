// A list of items fills an analysis.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"

namespace exchange {

/// Sets the attributes and writes the lines that the items hold, in their order. All lines of the analysis go first if
/// there is an item of the line table at all.
///
/// Returns the status of the last item that has one; E_FAIL if none has; E_NOINTERFACE at the first cell for an object
/// without a line table. An object that is no time analysis ends the process.
long WriteIn(const KORListValKORUnicodeString& items, const KORBaseUnknown_var& analysis);

}  // namespace exchange
