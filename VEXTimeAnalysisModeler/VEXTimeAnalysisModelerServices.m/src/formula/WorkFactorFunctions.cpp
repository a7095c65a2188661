// The Work-Factor functions of a formula.
#include "formula/WorkFactorFunctions.h"

#include <cmath>
#include <cstdint>
#include <span>

#include "formula/TableCell.h"
#include "formula/WorkFactorTables.h"
#include "platform/base/KORTruncation.h"

namespace formula {
namespace {

using kornumber::TruncateToInt32;

constexpr double SetLimit = 1e-9;

bool IsSet(double argument) {
  return SetLimit < argument;
}

double FlatCell(std::span<const double> cells, std::size_t columns, double row, std::int64_t column) {
  return CellOf(cells, std::int64_t{TruncateToInt32(row)} * static_cast<std::int64_t>(columns) + column);
}

double FactorOf(std::span<const double> factors, double index) {
  return CellOf(factors, std::int64_t{TruncateToInt32(index)} - 1);
}

struct AssemblyArguments {
  double TableSwitch, Column, RowFirst, ColumnShift, RowSecond;
  double FactorA, FactorB, FactorC, FactorD, FactorE, FactorTotal;
  double Surcharge, HalfShare;
};

struct BaseAndWork {
  double Base;
  double Work;
};

BaseAndWork PairOf(const AssemblyArguments& a) {
  const std::int64_t column = TruncateToInt32(a.Column);
  if (a.TableSwitch < SetLimit) {
    const std::int64_t shifted = TruncateToInt32(a.ColumnShift) + column;
    return {FlatCell(FirstPairBase, PairColumns, a.RowFirst, shifted),
            FlatCell(FirstPairWork, PairColumns, a.RowFirst, shifted)};
  }
  return {FlatCell(SecondPairBase, PairColumns, a.RowSecond, column),
          FlatCell(SecondPairWork, PairColumns, a.RowSecond, column)};
}

/// What the factors A to E add. The share carried from one factor to the next is kept on purpose: an index for which
/// neither B nor C holds a factor counts the share before it once more.
double SumOfFactors(const AssemblyArguments& a, double base, double work) {
  double sum = 0.0;
  double share = 0.0;
  if (IsSet(a.FactorA)) {
    share = work * FactorOf(FactorA, a.FactorA);
    sum += RoundViaText(share);
  }
  if (IsSet(a.FactorB)) {  // where both hold a factor, C wins
    if (FactorOf(FactorB, a.FactorB) > SetLimit) share = FactorOf(FactorB, a.FactorB) * work;
    if (FactorOf(FactorC, a.FactorB) > SetLimit) share = FactorOf(FactorC, a.FactorB) * base;
    share += FactorOf(Addend, a.FactorB);
    sum += RoundViaText(share);
  }
  if (IsSet(a.FactorC)) {  // where both hold a factor, B wins
    if (FactorOf(FactorB, a.FactorC) > SetLimit) {
      share = FactorOf(FactorB, a.FactorC) * work;
    } else if (FactorOf(FactorC, a.FactorC) > SetLimit) {
      share = FactorOf(FactorC, a.FactorC) * base;
    }
    share += FactorOf(Addend, a.FactorC);
    sum += RoundViaText(share);
  }
  if (IsSet(a.FactorD)) sum += RoundViaText(work * FactorOf(FactorD, a.FactorD));
  if (IsSet(a.FactorE)) sum += RoundViaText(work * FactorOf(FactorE, a.FactorE));
  return sum;
}

}  // namespace

double RoundViaText(double value) {
  return std::nearbyint(value);
}

double WorkFactorAssembly(const FormulaArguments& arguments) {
  const AssemblyArguments a{arguments[0],  arguments[1],  arguments[2], arguments[3], arguments[4],
                            arguments[5],  arguments[6],  arguments[7], arguments[8], arguments[9],
                            arguments[10], arguments[11], arguments[12]};
  const auto [base, work] = PairOf(a);
  double sum = SumOfFactors(a, base, work);
  const double surcharge = IsSet(a.Surcharge) ? (a.TableSwitch < SetLimit ? 3.0 : 4.0) : 0.0;
  const double half = IsSet(a.HalfShare) ? RoundViaText((work + sum) * 0.5) : 0.0;
  sum = sum + base + surcharge;
  const double final_share = IsSet(a.FactorTotal) ? RoundViaText(sum * FactorOf(FactorT, a.FactorTotal)) : 0.0;
  return final_share + half + sum;
}

double WorkFactorPreposition(const FormulaArguments& arguments) {
  const double value = FlatCell(PrepositionTimes, PrepositionColumns, arguments[1], TruncateToInt32(arguments[0]));
  return IsSet(arguments[2]) ? RoundViaText(value * 0.5) + value : value;
}

double WorkFactorTransport(const FormulaArguments& arguments) {
  return FlatCell(TransportTimes, TransportColumns, arguments[0], TruncateToInt32(arguments[1]));
}

}  // namespace formula
