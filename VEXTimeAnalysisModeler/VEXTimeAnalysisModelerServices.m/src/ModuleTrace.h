// The trace of this module.
#pragma once

#include <string_view>

#include "platform/base/KORTrace.h"

/// The trace to which all messages of the services go, made when they are loaded.
KORTrace& ModuleTrace();

/// Writes the line `before`, then `name` between "<" and ">", then `after`.
void TraceNamed(std::string_view before, std::string_view name, std::string_view after = "");
