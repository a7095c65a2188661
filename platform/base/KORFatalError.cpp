// The end of the process on a broken invariant.
#include "platform/base/KORFatalError.h"

#include <cstdio>
#include <cstdlib>

void KORFatalError(const char* text, const void* /*reserved1*/, const void* /*reserved2*/, const void* /*reserved3*/,
                   const char* source_path, int line) {
  std::fprintf(stderr, "%s %s %d\n", text, source_path, line);
  std::abort();
}
