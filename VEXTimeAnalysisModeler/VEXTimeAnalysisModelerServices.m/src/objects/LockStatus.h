// Who has reserved a time analysis. Meaning and results as the members of VEXSTTProvider of the same purpose tell.
#pragma once

#include "VEXSTTProvider.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

namespace objects {

/// The reservation of a representation instance.
long LockStatusOfInstance(const KORBaseUnknown_var& instance, VEXSTTProvider::TALockStatus& status,
                          KORUnicodeString user);

/// The reservation of the time analysis that a representation instance stands for.
long LockStatusOfReference(const KORBaseUnknown_var& instance, VEXSTTProvider::TALockStatus& status,
                           KORUnicodeString user);

}  // namespace objects
