// Class identifiers.
#include "platform/base/KORUuid.h"

#include <random>

KORUuid KORUuid::Fresh() {
  std::random_device source;
  KORUuid identifier;
  for (std::uint8_t& byte : identifier.Bytes) byte = static_cast<std::uint8_t>(source());
  return identifier;
}
