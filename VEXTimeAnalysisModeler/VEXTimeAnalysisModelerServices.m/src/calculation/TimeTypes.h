// The time types of a line, and where the time of each stands on the line and on the analysis.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "calculation/LineKeys.h"

namespace calculation {

/// The sums of an analysis.
enum class Sum : std::size_t { TTB, TTU, TW, TRG, Total };
inline constexpr std::size_t SumCount = 5;

struct TimeType {
  std::string_view Name;
  const KORString& LineTime;  // key of the line's time for one occurrence, in seconds
  Sum AddsTo;
};

inline const std::array<TimeType, 5> TimeTypes{{
    {"TTB", TTBTimeKey, Sum::TTB},
    {"TTU", TTUTimeKey, Sum::TTU},
    {"TW", TWTimeKey, Sum::TW},
    {"TRG", TRGTimeKey, Sum::TRG},
    {"T**", TTBTimeKey, Sum::TTB},  // calculated as "TTB"
}};

/// Null for a text that is no time type.
inline const TimeType* FindTimeType(std::string_view name) {
  for (const TimeType& type : TimeTypes) {
    if (type.Name == name) return &type;
  }
  return nullptr;
}

/// The attributes of an analysis that hold one of its sums.
struct SumAttributes {
  Sum Which;
  const char* Tmu;
  const char* Seconds;
};

/// In the order in which they are written.
inline constexpr std::array<SumAttributes, SumCount> SumsOfAnalysis{{
    {Sum::TTB, "TTBCalculated", "V_HumanTime"},
    {Sum::TTU, "TTUCalculated", "V_MachineTime"},
    {Sum::TW, "TWCalculated", "V_WaitingTime"},
    {Sum::TRG, "TRGCalculated", "V_SetupTime"},
    {Sum::Total, "TotalCalculated", "V_TotalTime"},
}};

}  // namespace calculation
