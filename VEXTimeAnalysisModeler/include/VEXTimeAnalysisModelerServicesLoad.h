// The load of the services, for programs that are linked with the static library by hand.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"

extern "C" {

/// Does nothing. When the services are loaded they tell the platform of their classes, ahead of the static initialisers
/// of the program, so that objects of analyses offer the interfaces that the services add. A linker leaves that out
/// of a program that names nothing of the static library, or a shared library that it finds unused. The CMake package
/// and the pkg-config file name this function in the link for that reason; a program that is linked without them calls
/// it, or is linked with `-Wl,--undefined=VEXTimeAnalysisModelerServicesLoad`.
VEXTIMEANALYSISMODELER_API void VEXTimeAnalysisModelerServicesLoad();
}
