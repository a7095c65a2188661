// The path of a file in a folder whose name comes from data.
#pragma once

#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORPaths.h"

namespace exchange {

/// Gives memory back that the platform made with std::malloc.
struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};

/// The path of a file in a folder; nothing if KORMakePath gives none, as for a name that leads out of the folder.
inline std::optional<KORUnicodeString> JoinPath(const KORUnicodeString& folder, const KORUnicodeString& file) {
  char* path = nullptr;
  (void)KORMakePath(folder, file, path);  // the path tells
  const std::unique_ptr<char, FreeMemory> owner(path);
  if (owner == nullptr) return std::nullopt;
  return KORUnicodeString(owner.get());
}

}  // namespace exchange
