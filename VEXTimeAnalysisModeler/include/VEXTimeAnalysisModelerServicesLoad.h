// The load of the services, for programs that are linked by hand.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"

extern "C" {

/// Does nothing. When the services are loaded they tell the platform of their classes, ahead of the static initialisers
/// of the program, so that objects of analyses offer the interfaces that the services add. A program need not name
/// anything of the services for that, and then a linker may leave them out. The CMake package and the pkg-config file
/// keep them in the link; a program that is linked in another way calls this function, or names it to the linker of a
/// static library: `-Wl,--undefined=VEXTimeAnalysisModelerServicesLoad`.
VEXTIMEANALYSISMODELER_API void VEXTimeAnalysisModelerServicesLoad();
}
