// Part of every program that is linked with the services: keeps them in the link.
#include "VEXTimeAnalysisModelerServicesLoad.h"

[[maybe_unused, gnu::used]] static void (*const services)() = &VEXTimeAnalysisModelerServicesLoad;
