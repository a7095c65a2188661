// timeanalysis eval: value and status of formulas.
#include <ostream>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/NumberText.h"

namespace tool {

void RunEval(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  VEXSTMTimeAnalysisDlgServices service;
  SelectSystem(line.System, service);
  ForEachText(line, surroundings, [&](std::string_view text, std::size_t number) {
    const KORUnicodeString formula(text);
    int status = 0;  // an empty formula leaves it alone
    const double value = service.GetTimeFromFormula(formula, status);
    if (line.Json) {
      WriteJsonLine(answers.Out(), {{"formula", formula.Bytes()}, {"status", status}, {"value", JsonNumber(value)}});
    } else {
      answers.Out() << NumberText(value) << '\t' << status << '\t' << formula.Bytes() << '\n';
    }
    if (status != 0) answers.Tell(FormulaFails(formula.Bytes(), status, line.System, number));
  });
}

}  // namespace tool
