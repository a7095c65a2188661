// The load of the services, for programs that are linked by hand.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"

extern "C" {

/// Does nothing. When the services are loaded they tell the platform of their classes, ahead of the static initialisers
/// of the program that have no priority, so that objects of analyses offer the interfaces that the services add. They
/// stay loaded to the end of the process.
///
/// A program need not name anything of the services for that, and then a linker may leave them out. The CMake package
/// and the pkg-config file keep them in the link; a program that is linked in another way calls this function anywhere.
VEXTIMEANALYSISMODELER_API void VEXTimeAnalysisModelerServicesLoad();
}
