// Marks what the service library hands out when it is built as a shared library.
#pragma once

#define VEXTIMEANALYSISMODELER_API __attribute__((visibility("default")))
