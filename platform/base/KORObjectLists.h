// The value lists of counted handles.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"

/// Objects, each kept alive by the list. Locate compares objects, by whichever interfaces they are held.
using KORListValKORBaseUnknown_var = KORList<KORBaseUnknown_var>;
