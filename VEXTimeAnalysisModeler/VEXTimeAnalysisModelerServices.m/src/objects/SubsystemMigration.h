// The motion-time system of older analyses.
#pragma once

#include "platform/services/KOROmbLifeCycleRootsBag.h"

namespace objects {

/// As VEXSTTApplicativeContainerServices::MigrateSUBSYSTEM_to_MODAPTS.
long MigrateSubsystemToModapts(KOROmbLifeCycleRootsBag& bag);

}  // namespace objects
