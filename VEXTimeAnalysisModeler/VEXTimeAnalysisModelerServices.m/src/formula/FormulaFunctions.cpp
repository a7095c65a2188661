// The function table of the formulas.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

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

// The names of the used slots; their lengths and first letters alone tell most of them apart.
constexpr auto UsedSlots = static_cast<std::size_t>(
    std::ranges::count_if(Table, [](const FormulaFunction& slot) { return slot.Name != nullptr; }));
constexpr std::array<std::wstring_view, UsedSlots> Names = [] {
  std::array<std::wstring_view, UsedSlots> names;
  for (std::size_t slot = 0; slot < UsedSlots; ++slot) names[slot] = Table[slot].Name;
  return names;
}();

}  // namespace

void InitFormulaFunctions() {
}

const FormulaFunctionTable& FormulaFunctions() {
  return Table;
}

const FormulaFunction* FindFormulaFunction(std::wstring_view name) {
  if (name.empty()) return nullptr;
  for (std::size_t slot = 0; slot < UsedSlots; ++slot) {
    const std::wstring_view candidate = Names[slot];
    if (candidate.size() == name.size() && candidate.front() == name.front() && candidate == name) return &Table[slot];
  }
  return nullptr;
}
