// The trace of this module.
#include "ModuleTrace.h"

#include <string>

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
