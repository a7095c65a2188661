// The formulas of a row: its own, from the columns signature, body and values, and those of what it reuses.
//
//   values = [ value { ";" value } ]
//   value  = name "=" anything but ";"
//
// A value belongs to the argument of that name of the row's own formula; if that has none, to all arguments of that
// name of the formulas carried up from the reused analysis. An input needs a value; an output may have one, with which
// it starts. An output without one starts with 0 or an empty text, "Frequency" with -1, which leaves the frequency
// alone.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/model/VEXTimeAnalysisFormulaParameter.h"
#include "platform/model/VEXTimeAnalysisLineData.h"
#include "tools/analysis/AnalysisMessages.h"

namespace tool {

/// The cells of a row that make its formula.
struct FormulaCells {
  std::string_view Signature;
  std::string_view Body;
  std::string_view Values;
};

/// Who owns a formula: an analysis, and the row in it.
struct FormulaOwner {
  KORUnicodeString Identifier;
  int Row = 0;
};

struct RowFormula {
  std::vector<VEXTimeAnalysisFormulaParameter> Parameters;  // carried ones first, the row's own behind them
  bool HasOwnTime = false;                                  // the row's own formula has an output "Time"
  bool ChangesCarried = false;                              // a value of the row replaces one of the reused analysis
  std::vector<PlacedFailure> Problems;                      // with any of them the row has no time
};

/// Reads the formula of a row and tries every formula that its values act on. `carried` are the parameters of the
/// reused analysis.
RowFormula ReadRowFormula(const FilePlace& place, const FormulaCells& cells, const FormulaOwner& owner,
                          std::vector<VEXTimeAnalysisFormulaParameter> carried);

/// Puts copies of the parameters on a line, in place of those that it has.
void SetFormulaParameters(std::span<const VEXTimeAnalysisFormulaParameter> parameters, VEXTimeAnalysisLineData& line);

/// The column "values" of a formula: all that its parameters say beside what its outputs start with anyway. The other
/// way round from ReadRowFormula; a value with a ";" in it, or blanks at its ends, does not come back.
std::string ValuesOfFormula(std::span<const VEXTimeAnalysisFormulaParameter> formula);

/// One value of that column.
std::string NamedValueText(std::string_view name, std::string_view value);

}  // namespace tool
