// The element times of MTM-1 as functions of a formula.
//
// Times in TMU, distances in cm, angles in degrees, weights in kg. Distances, cases, rows, columns, classes and angles
// are cut to 32-bit integers toward zero. The low four bits of the variant choose the set of constants: 1 is variant 1,
// everything else variant 0, so that a variant left out is 0. An index outside its table gives 0.0.
#pragma once

#include "formula/FormulaEvaluator.h"

namespace formula {

/// StartInMotion, Distance, Case (0 A, 1 B, 2 C, 3 E), EndInMotion, Variant. Beyond 80 cm each further 5 cm add the
/// step; an end in motion comes off there by the constants of one end in motion, in variant 0 as the times themselves.
double Mtm1Reach(const FormulaArguments& arguments);

/// StartInMotion, Distance, Case (0 A, 1 B, 2 C), EndInMotion, Variant. Beyond 80 cm the ends play no part.
double Mtm1Move(const FormulaArguments& arguments);

/// Weight, Variant: the factor on the time of a move; 0.0 above the last weight class.
double Mtm1DynamicFactor(const FormulaArguments& arguments);

/// Weight, Variant: what a move takes more; 0.0 above the last weight class.
double Mtm1StaticConstant(const FormulaArguments& arguments);

/// FitRow, SymmetryColumn, HandlingRow, Variant.
double Mtm1Position(const FormulaArguments& arguments);

/// Angle, WeightClass, Variant. An angle above 180 reads the first time of the next weight class.
double Mtm1Turn(const FormulaArguments& arguments);

/// TravelDistance, PerpendicularDistance, Variant; at most 20 TMU (100/6 in variant 1), also for 0 over 0.
double Mtm1EyeTravel(const FormulaArguments& arguments);

/// Distance, Case (1, or any other), Variant.
double Mtm1SideStep(const FormulaArguments& arguments);

/// Distance, Variant.
double Mtm1LegMotion(const FormulaArguments& arguments);

}  // namespace formula
