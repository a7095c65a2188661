// The keys of a line and the attributes of an analysis with their types, written down once more for the tests.
#pragma once

#include <ostream>

#include "tests/model/ModelTest.h"

namespace modeltest {

struct KeyRow {
  const char* Key;
  Value Held;  // of the type of the key
};

inline void PrintTo(const KeyRow& row, std::ostream* out) {
  *out << row.Key;
}

inline const unsigned char Truth = 1;

/// In the order of the table of line keys; "TimeAnalysis" and "FormulaParameter", whose values are made anew for each
/// use, hold nothing here.
inline const KeyRow LineKeys[] = {
    {"IsStandardTextFlag", Truth},
    {"ActivitySectionName", Unicode("Vormontage")},
    {"RowNum", 7},
    {"Description", Unicode("Hinlangen zum Werkzeug, H\xC3\xB6he 40 cm")},
    {"Code", Unicode("R40A")},
    {"TimeType", Unicode("T**")},
    {"AnalysisType", Unicode("analysis type")},
    {"LineType", Unicode("line type")},
    {"Bitmask", -2147483647 - 1},
    {"Factor", -1.0},
    {"FactorString", Unicode("2*3")},
    {"FrequencyString", Unicode("6")},
    {"ParamFactorString", Unicode("n")},
    {"State", 2147483647},
    {"AddDescription", Unicode("")},
    {"ValueAdded", Unicode("NVA")},
    {"RuleIn", Unicode("rule in")},
    {"RuleOut", Unicode("rule out")},
    {"TotalTime", 0.1},
    {"TotalCalc", -0.0},
    {"TTBTime", -0.036},
    {"TTUTime", 1e-320},
    {"TRGTime", 1.7976931348623157e308},
    {"TWTime", 0.3333333333333333},
    {"TTBCalc", 1.0},
    {"TTUCalc", 2.0},
    {"TRGCalc", 3.0},
    {"TWCalc", 4.0},
    {"TTBCalcAllowance", 5.0},
    {"TTUCalcAllowance", 6.0},
    {"TRGCalcAllowance", 7.0},
    {"TWCalcAllowance", 8.0},
    {"TotalCalcAllowance", 9.0},
    {"TimeAnalysis", KORBaseUnknown_var()},
    {"FormulaParameter", KORRawCollPV()},
    {"FormulaPicture", Unicode("picture.png")},
};

inline const KeyRow AttributeKeys[] = {
    {"PLM_ExternalID", Unicode("TA-0001")},
    {"V_Name", Unicode("Montage")},
    {"V_description", Unicode("description")},
    {"V_Subsystem", Unicode("MTM1")},
    {"Subsystem", Unicode("STD")},
    {"TTBCalculated", 100.0},
    {"TTUCalculated", 0.1},
    {"TWCalculated", 0.0},
    {"TRGCalculated", -0.0},
    {"TotalCalculated", 100.1},
    {"V_HumanTime", 3.6},
    {"V_MachineTime", 0.0036},
    {"V_WaitingTime", 0.0},
    {"V_SetupTime", 1e300},
    {"V_TotalTime", 3.6036},
};

}  // namespace modeltest
