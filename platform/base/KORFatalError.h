// The end of the process on a broken invariant.
#pragma once

#include "platform/base/KORExport.h"

/// Prints `text`, the source path and the line to standard error, one line, and ends the process (abort).
/// The three pointers are reserved by the platform and are passed as null.
[[noreturn]] KORPLATFORM_API void KORFatalError(const char* text, const void* reserved1, const void* reserved2,
                                                const void* reserved3, const char* source_path, int line);
