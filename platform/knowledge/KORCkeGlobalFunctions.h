// The way into the knowledge engine.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/knowledge/KORICkeFactory.h"

namespace KORCkeGlobalFunctions {

/// The factory of what belongs to no object; it casts to KORICkeExpressionFactory, too. Safe across threads.
///
/// Example:
///   const KORICkeParmFactory_var parameters = KORCkeGlobalFunctions::GetVolatileFactory();
///   const KORICkeExpressionFactory_var expressions = parameters;
KORPLATFORM_API KORICkeParmFactory_var GetVolatileFactory();

}  // namespace KORCkeGlobalFunctions
