// The function table of the formulas.
#include <cmath>

#include "formula/FormulaEvaluator.h"
#include "formula/MostFunction.h"
#include "formula/Mtm1Functions.h"
#include "formula/WorkFactorFunctions.h"

namespace {

using Arguments = FormulaArguments;

// Trigonometry in radians.
constexpr FormulaFunctionTable Table{{
    {L"sin", [](const Arguments& x) { return std::sin(x[0]); }},
    {L"cos", [](const Arguments& x) { return std::cos(x[0]); }},
    {L"tan", [](const Arguments& x) { return std::tan(x[0]); }},
    {L"exp", [](const Arguments& x) { return std::exp(x[0]); }},
    {L"pow", [](const Arguments& x) { return std::pow(x[0], x[1]); }},
    {L"sqrt", [](const Arguments& x) { return std::sqrt(x[0]); }},
    {L"abs", [](const Arguments& x) { return std::fabs(x[0]); }},
    {L"MTM1REACH", formula::Mtm1Reach},
    {L"MTM1MOVE", formula::Mtm1Move},
    {L"MTM1DYNAMICFACTOR", formula::Mtm1DynamicFactor},
    {L"MTM1STATICCONSTANT", formula::Mtm1StaticConstant},
    {L"MTM1POSITION", formula::Mtm1Position},
    {L"MTM1TURN", formula::Mtm1Turn},
    {L"MTM1EYETRAVEL", formula::Mtm1EyeTravel},
    {L"MTM1SIDESTEP", formula::Mtm1SideStep},
    {L"MTM1LEGMOTION", formula::Mtm1LegMotion},
    {L"WFASY", formula::WorkFactorAssembly},
    {L"WFPP", formula::WorkFactorPreposition},
    {L"WFT", formula::WorkFactorTransport},
    {L"MOST", formula::MostSequenceTime},
}};

}  // namespace

void InitFormulaFunctions() {
}

const FormulaFunctionTable& FormulaFunctions() {
  return Table;
}
