// An analysis becomes a list of items.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"

namespace exchange {

/// Appends one item for each attribute and each value of a line that the exchange has a name for; tells of the others
/// in the trace. `items` is emptied first if the attributes can be had. S_OK. An object that is no time analysis ends
/// the process.
long ReadOut(const KORBaseUnknown_var& analysis, KORListValKORUnicodeString& items);

}  // namespace exchange
