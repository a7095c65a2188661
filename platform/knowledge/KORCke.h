// The small types of the knowledge engine.
#pragma once

#include "platform/base/KORList.h"

namespace KORCke {

/// The engine's truth value.
using Boolean = KORBoolean;
inline constexpr Boolean False = 0;
inline constexpr Boolean True = 1;

/// Modes of an argument: what goes into a formula, and what comes out of it.
inline constexpr int InputMode = 1;
inline constexpr int OutputMode = 2;

/// What a value is. A dimension is a real with a magnitude.
enum class ValueKind { Integer, Real, Text };

}  // namespace KORCke
