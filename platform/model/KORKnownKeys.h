// The keys of a line record and the attributes of an analysis that the system names itself.
#pragma once

#include <array>
#include <string_view>

/// Every key whose place in a record is fixed. Records list their values in this order, and keys that are not here
/// behind them, in the order of their bytes.
// clang-format off
inline constexpr std::array<std::string_view, 50> KORKnownKeys{
    // Keys of a line
    "IsStandardTextFlag",    // boolean  the line is a standard text
    "ActivitySectionName",   // text     name of the activity section
    "RowNum",                // integer  row number, from 1
    "Description",           // text     line description
    "Code",                  // text     code of the line; "*": the line takes no part in any total
    "TimeType",              // text     "TTB", "TTU", "TW", "TRG" or "T**"
    "AnalysisType",          // text     analysis type
    "LineType",              // text     line type
    "Bitmask",               // integer  bit mask of the line
    "Factor",                // real     frequency; -1.0: the line has none of its own, which counts as 1.0
    "FactorString",          // text     frequency as entered
    "FrequencyString",       // text     frequency as printed by the calculation
    "ParamFactorString",     // text     frequency text of a parameterised line
    "State",                 // integer  state of the line
    "AddDescription",        // text     additional description
    "ValueAdded",            // text     value-added class
    "RuleIn",                // text     rule text
    "RuleOut",               // text     rule text
    "TotalTime",             // real     time of the line multiplied by its frequency, seconds
    "TotalCalc",             // real     calculated total
    "TTBTime",               // real     time under "TTB", seconds
    "TTUTime",               // real     time under "TTU", seconds
    "TRGTime",               // real     time under "TRG", seconds
    "TWTime",                // real     time under "TW", seconds
    "TTBCalc",               // real     calculated times by time type
    "TTUCalc",               // real
    "TRGCalc",               // real
    "TWCalc",                // real
    "TTBCalcAllowance",      // real     calculated times with allowance
    "TTUCalcAllowance",      // real
    "TRGCalcAllowance",      // real
    "TWCalcAllowance",       // real
    "TotalCalcAllowance",    // real
    "TimeAnalysis",          // object   the analysis that the line reuses, or null
    "FormulaPicture",        // text     picture of the formula
    // Attributes of an analysis
    "PLM_ExternalID",        // text     identifier
    "V_Name",                // text     name
    "V_description",         // text     description
    "V_Subsystem",           // text     motion-time system
    "Subsystem",             // text     motion-time system, older attribute
    "TTBCalculated",         // real     totals in TMU
    "TTUCalculated",         // real
    "TWCalculated",          // real
    "TRGCalculated",         // real
    "TotalCalculated",       // real
    "V_HumanTime",           // real     the same totals in seconds, rounded to 6 decimals
    "V_MachineTime",         // real
    "V_WaitingTime",         // real
    "V_SetupTime",           // real
    "V_TotalTime",           // real
};
// clang-format on
