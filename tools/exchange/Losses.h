// What a form of exchange cannot hold of an analysis. It is found by reading what was written: whatever does not come
// back as it was is a loss.
#pragma once

#include <string>
#include <vector>

#include "platform/model/KORKeyedValues.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

enum class LossCause {
  NoName,            // the form has no name for the attribute or key
  Formula,           // parameters of a formula
  Separator,         // a text with ":", "|" or NUL
  OtherType,         // the exchange has another type for it
  OtherNameCarried,  // another attribute with the same name in the exchange has another value
  SecondsDiffer,     // a total in seconds that does not follow from that in TMU
  RowNumber,         // numbers that reading gives to rows
  Changed,           // comes back as something else
  LineMissing        // the whole line does not come back
};

/// One value that does not come back.
struct Loss {
  int Row = 0;       // 0: an attribute of the analysis
  std::string Name;  // of the attribute, or key of the line
  std::string Value;
  LossCause Cause = LossCause::Changed;
  std::string Detail;  // by the cause: separator, type, other attribute, what it comes back as
};

/// True if two values are the same to the last bit: of truth values whether they are true, of objects the identifier.
bool IsSameValue(const KORKeyedValues::View& left, const KORKeyedValues::View& right);

/// What does not come back of an analysis by its stream.
///
/// written  the analysis
/// reread   what was read from the stream (FillAnalysis)
std::vector<Loss> LossesOfStream(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread,
                                 ExchangeVocabulary& vocabulary);

/// The names of the parameters of the formulas of a line, with ", " between them; empty for none.
std::string ParameterNamesOfLine(VEXTimeAnalysisRepReference& analysis, int row);

}  // namespace tool
