// The colour filter of the tree in the current window.
#pragma once

#include <array>

#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

namespace objects {

/// As VEXSTTProvider::GetBIInfo.
long ReadFilterState(unsigned char& active, KORUnicodeString& name);

/// A value of a filter.
struct FilterValue {
  const KORString& Filter;
  const KORUnicodeString& Attribute;
  const KORString& Text;
};

/// The five integers, where the caller wants them.
using ColourIndices = std::array<int*, 5>;

/// As VEXSTTProvider::GetColorForBIFilter.
long ReadColour(const FilterValue& value, const ColourIndices& indices);

}  // namespace objects
