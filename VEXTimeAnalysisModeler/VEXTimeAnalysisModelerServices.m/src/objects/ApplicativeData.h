// The applicative data of a representation: its container, and the features in that. Meaning and results as the members
// of VEXSTTApplicativeContainerServices and VEXSTTApplicativeContainerFeatServices of the same purpose tell.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORIContainer.h"

namespace objects {

long CreateContainer(const KORBaseUnknown_var& representation, KORIContainer_var& container);
long RetrieveContainer(const KORBaseUnknown_var& representation, KORIContainer_var& container);

/// Both: `container` is not null.
long CreateFeature(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature);
long RetrieveFeature(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature);

long ListAttributeNames(const KORBaseUnknown_var& feature, KORListValKORUnicodeString& names);

}  // namespace objects
