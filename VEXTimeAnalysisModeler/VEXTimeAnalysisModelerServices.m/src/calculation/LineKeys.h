// The keys under which the calculation finds the values of a line and of an analysis.
#pragma once

#include "platform/base/KORString.h"

namespace calculation {

// Values of a line
inline const KORString CodeKey = "Code";
inline const KORString DescriptionKey = "Description";
inline const KORString FactorKey = "Factor";
inline const KORString FormulaParameterKey = "FormulaParameter";
inline const KORString FrequencyStringKey = "FrequencyString";
inline const KORString TimeAnalysisKey = "TimeAnalysis";
inline const KORString TimeTypeKey = "TimeType";
inline const KORString TotalTimeKey = "TotalTime";
inline const KORString TRGTimeKey = "TRGTime";
inline const KORString TTBTimeKey = "TTBTime";
inline const KORString TTUTimeKey = "TTUTime";
inline const KORString TWTimeKey = "TWTime";

// Attributes of an analysis
inline const KORString ExternalIdKey = "PLM_ExternalID";
inline const KORString TotalCalculatedKey = "TotalCalculated";
inline const KORString TRGCalculatedKey = "TRGCalculated";

/// The frequency of a line that has none of its own; it counts as 1.0.
inline constexpr double NoFrequency = -1.0;

}  // namespace calculation
