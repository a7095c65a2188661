// The magnitudes that a parameter may have, each with its unit.
#include "platform/knowledge/KORParmDictionary.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr std::array Magnitudes{
    KORCkeMagnitude{"Time", "s"},    KORCkeMagnitude{"Length", "m"}, KORCkeMagnitude{"Mass", "kg"},
    KORCkeMagnitude{"Angle", "rad"}, KORCkeMagnitude{"Number", ""},
};

}  // namespace

const KORCkeMagnitude* KORParmDictionary::FindMagnitude(const KORUnicodeString& name) {
  const auto found = std::find_if(Magnitudes.begin(), Magnitudes.end(),
                                  [&](const KORCkeMagnitude& magnitude) { return magnitude.Name == name.Bytes(); });
  return found == Magnitudes.end() ? nullptr : &*found;
}
