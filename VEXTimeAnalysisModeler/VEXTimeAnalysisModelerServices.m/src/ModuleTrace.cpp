// The trace of this module.
#include "ModuleTrace.h"

#include <string>

#include "VEXTimeAnalysisModelerServicesLoad.h"

// The trace is made with the registration at load, which this keeps in the link.
[[maybe_unused, gnu::used]] static void (*const registration)() = &VEXTimeAnalysisModelerServicesLoad;

KORTrace& ModuleTrace() {
  static KORTrace trace("KORVEXTimeAnalysisModelerServicesTrace", "Traces for module VEXTimeAnalysisModelerServices", 1,
                        "STDERR", 1024);
  return trace;
}

void TraceNamed(std::string_view before, std::string_view name, std::string_view after) {
  std::string line(before);
  line.append("<").append(name).append(">").append(after);
  ModuleTrace().TraPutLN(KORUnicodeString(std::string_view(line)));
}
