// The element times of MTM-1 as functions of a formula.
#include "formula/Mtm1Functions.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

#include "formula/Mtm1Tables.h"
#include "formula/TableCell.h"
#include "platform/base/KORTruncation.h"

namespace formula {
namespace {

using kornumber::TruncateToInt32;

constexpr std::size_t ReachCases = 4;  // A, B, C, E
constexpr std::size_t MoveCases = 3;   // A, B, C

bool IsVariant1(double variant) {
  return (kornumber::TruncateToInt64(variant) & 15) == 1;
}

/// How many ends of a motion are in motion: 0, 1 or 2.
int EndsInMotion(double start, double end) {
  return (TruncateToInt32(start) == 1 ? 1 : 0) + (TruncateToInt32(end) == 1 ? 1 : 0);
}

/// One column of a reach or move table in one motion state.
template <std::size_t Columns>
struct MotionColumn {
  const MotionTable<Columns>& Table;
  std::size_t Time;       // the column of the times
  std::size_t Reduction;  // variant 1: the column of what comes off for each end in motion
  double Ends;            // variant 1: how many ends are in motion
  double Unit;            // 1 TMU, or 6 sixths

  double TimeOfRow(std::size_t row) const {
    const double time = Table[row][Time] / Unit;
    return Ends == 0.0 ? time : time - Ends * (Table[row][Reduction] / Unit);
  }
};

/// Variant 0: the columns of a motion state stand side by side, as many as there are cases.
template <std::size_t Columns>
MotionColumn<Columns> ColumnOf(const MotionTable<Columns>& table, std::size_t cases, std::size_t motion_case,
                               int ends) {
  return {table, static_cast<std::size_t>(ends) * cases + motion_case, 0, 0.0, 1.0};
}

/// Variant 1: the plain column less the reduction, once for each end in motion.
template <std::size_t Columns>
MotionColumn<Columns> SixthsColumnOf(const MotionTable<Columns>& table, std::size_t motion_case, std::size_t reduction,
                                     int ends) {
  return {table, motion_case, reduction, static_cast<double>(ends), 6.0};
}

/// Time of a distance up to 80.
template <std::size_t Columns>
double TimeWithinTable(const MotionColumn<Columns>& column, std::int32_t distance) {
  std::size_t row = 0;
  while (Distances[row] < distance) ++row;
  const double high = column.TimeOfRow(row);
  if (Distances[row] == distance || row == 0) return high;
  const double low = column.TimeOfRow(row - 1);
  const double share = (high - low) * static_cast<double>(distance - Distances[row - 1]);
  return share / static_cast<double>(Distances[row] - Distances[row - 1]) + low;
}

/// The 5 cm step that holds a distance above 80, and the time between its ends.
struct StepBeyondTable {
  /// From the time of the last row and that of a step, both with no end in motion.
  StepBeyondTable(double last, double step, std::int32_t distance)
      : Distance(distance),
        Number((std::int64_t{distance} - 80 + 4) / 5),
        Low(last + static_cast<double>(Number - 1) * step),
        High(last + static_cast<double>(Number) * step) {}

  double Time() const { return static_cast<double>(Distance - (75 + 5 * Number)) * (High - Low) / 5.0 + Low; }

  std::int64_t Distance;
  std::int64_t Number;  // of the step, from 1 just above 80
  double Low;
  double High;
};

/// What an end in motion takes off a reach above 80: the lower end of the first step loses `Last`, all else `Step`.
struct ReachReduction {
  double Last;
  double Step;
};

double ReachBeyondTable(StepBeyondTable step, double ends, const ReachReduction& reduction) {
  if (ends > 0.0) {
    step.High -= ends * reduction.Step;
    step.Low -= ends * (step.Number == 1 ? reduction.Last : reduction.Step);
  }
  return step.Time();
}

/// `unit`: 1 for times in TMU, 6 for sixths. The reduction stands behind the plain columns in both variants: the
/// columns of one end in motion, or those of what comes off for one.
template <std::size_t Columns>
double ReachTime(const MotionTable<Columns>& table, const MotionColumn<Columns>& column, std::int32_t distance,
                 std::size_t motion_case, double ends, double unit) {
  if (distance <= Distances.back()) return TimeWithinTable(column, distance);
  const std::size_t reduction = ReachCases + motion_case;
  const StepBeyondTable step(table[LastDistanceRow][motion_case] / unit, table[StepRow][motion_case] / unit, distance);
  return ReachBeyondTable(step, ends, {table[LastDistanceRow][reduction] / unit, table[StepRow][reduction] / unit});
}

template <std::size_t Columns>
double MoveTime(const MotionTable<Columns>& table, const MotionColumn<Columns>& column, std::int32_t distance,
                std::size_t motion_case, double unit) {
  if (distance <= Distances.back()) return TimeWithinTable(column, distance);
  return StepBeyondTable(table[LastDistanceRow][motion_case] / unit, table[StepRow][motion_case] / unit, distance)
      .Time();
}

double OfWeightClass(double weight, double variant, double WeightClass::*constant, double unit) {
  const std::span<const WeightClass> classes = IsVariant1(variant) ? std::span<const WeightClass>(WeightClassesSixths)
                                                                   : std::span<const WeightClass>(WeightClasses);
  for (const WeightClass& candidate : classes) {
    if (0.01 > weight - candidate.Threshold) return candidate.*constant / unit;
  }
  return 0.0;
}

}  // namespace

double Mtm1Reach(const FormulaArguments& arguments) {
  const std::int32_t distance = TruncateToInt32(arguments[1]);
  const std::int32_t case_number = TruncateToInt32(arguments[2]);
  if (distance == 0 || case_number < 0 || case_number >= static_cast<std::int32_t>(ReachCases)) return 0.0;
  const auto motion_case = static_cast<std::size_t>(case_number);
  const int ends = EndsInMotion(arguments[0], arguments[3]);
  if (IsVariant1(arguments[4])) {
    const auto column = SixthsColumnOf(ReachSixths, motion_case, ReachCases + motion_case, ends);
    return ReachTime(ReachSixths, column, distance, motion_case, ends, 6.0);
  }
  return ReachTime(ReachTimes, ColumnOf(ReachTimes, ReachCases, motion_case, ends), distance, motion_case, ends, 1.0);
}

double Mtm1Move(const FormulaArguments& arguments) {
  const std::int32_t distance = TruncateToInt32(arguments[1]);
  const std::int32_t case_number = TruncateToInt32(arguments[2]);
  if (distance == 0 || case_number < 0 || case_number >= static_cast<std::int32_t>(MoveCases)) return 0.0;
  const auto motion_case = static_cast<std::size_t>(case_number);
  const int ends = EndsInMotion(arguments[0], arguments[3]);
  if (IsVariant1(arguments[4])) {
    return MoveTime(MoveSixths, SixthsColumnOf(MoveSixths, motion_case, MoveCases, ends), distance, motion_case, 6.0);
  }
  return MoveTime(MoveTimes, ColumnOf(MoveTimes, MoveCases, motion_case, ends), distance, motion_case, 1.0);
}

double Mtm1DynamicFactor(const FormulaArguments& arguments) {
  return OfWeightClass(arguments[0], arguments[1], &WeightClass::DynamicFactor, 1.0);
}

double Mtm1StaticConstant(const FormulaArguments& arguments) {
  return OfWeightClass(arguments[0], arguments[1], &WeightClass::StaticConstant, IsVariant1(arguments[1]) ? 6.0 : 1.0);
}

double Mtm1Position(const FormulaArguments& arguments) {
  const std::int64_t row = std::int64_t{TruncateToInt32(arguments[2])} + TruncateToInt32(arguments[0]);
  const std::int64_t index = row * 3 + TruncateToInt32(arguments[1]);
  return IsVariant1(arguments[3]) ? CellOf(PositionSixths, index) / 6.0 : CellOf(PositionTimes, index);
}

double Mtm1Turn(const FormulaArguments& arguments) {
  const std::int32_t angle = TruncateToInt32(arguments[0]);
  std::size_t column = 0;
  while (column < TurnDegrees.size() && TurnDegrees[column] < angle) ++column;
  const std::int64_t index =
      std::int64_t{TruncateToInt32(arguments[1])} * std::ssize(TurnDegrees) + static_cast<std::int64_t>(column);
  return IsVariant1(arguments[2]) ? CellOf(TurnSixths, index) / 6.0 : CellOf(TurnTimes, index);
}

double Mtm1EyeTravel(const FormulaArguments& arguments) {
  const auto [travel, perpendicular] = std::pair{arguments[0], arguments[1]};
  if (IsVariant1(arguments[2])) return std::min(100.0 / 6.0, travel / perpendicular * 76.0 / 6.0);
  return std::min(20.0, travel * 15.2 / perpendicular);
}

double Mtm1SideStep(const FormulaArguments& arguments) {
  const std::int32_t distance = TruncateToInt32(arguments[0]);
  const bool case1 = TruncateToInt32(arguments[1]) == 1;
  const bool variant1 = IsVariant1(arguments[2]);
  if (distance == 0) return 0.0;
  const double base = variant1 ? (case1 ? 85.0 / 6.0 : 28.5) : (case1 ? 17.0 : 34.1);
  if (distance <= 30) return base;
  const double excess = static_cast<double>(distance - 30);
  if (variant1) return case1 ? base + excess / 6.0 : base + 2.0 * excess / 6.0;
  return case1 ? base + excess * 0.2 : base + excess * 0.4;
}

double Mtm1LegMotion(const FormulaArguments& arguments) {
  const std::int32_t distance = TruncateToInt32(arguments[0]);
  const bool variant1 = IsVariant1(arguments[1]);
  if (distance == 0) return 0.0;
  const double base = variant1 ? 6.0 : 7.1;
  if (distance <= 15) return base;
  const double excess = static_cast<double>(distance - 15);
  return variant1 ? base + excess * 2.6 / 6.0 : base + excess * 0.5;
}

}  // namespace formula
