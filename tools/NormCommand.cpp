// timeanalysis norm: code form and norm format of sequences.
#include <ostream>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/Systems.h"

namespace tool {

namespace {

constexpr std::string_view UnreadableSequence = "0";

// Asks for the norm format unless told: a code form has "-" ahead of each frequency, a norm text has none.
bool GoesToNorm(const CommandLine& line, std::string_view text) {
  if (!line.To.empty()) return line.To == "norm";
  return IsMostFamily(line.System) && text.find('-') != std::string_view::npos;
}

void CheckDirection(const CommandLine& line) {
  if (!IsMostFamily(line.System) && line.System != "MODAPTS") throw NoNormFormat(line.System);
  if (line.System == "MODAPTS" && line.To == "norm") throw NoWayToNorm(line.System);
}

void CheckFrequency(VEXSTMTimeAnalysisDlgServices& service, const KORUnicodeString& frequency) {
  int status = 0;
  service.GetTimeFromFormula(frequency, status);
  if (status != 0) throw FrequencyFails(frequency.Bytes(), status);
}

}  // namespace

void RunNorm(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  CheckDirection(line);
  VEXSTMTimeAnalysisDlgServices service;
  SelectSystem(line.System, service);
  const KORUnicodeString frequency{std::string_view(line.Frequency)};
  CheckFrequency(service, frequency);
  ForEachText(line, surroundings, [&](std::string_view bytes, std::size_t number) {
    const KORUnicodeString text(bytes);
    KORUnicodeString result;
    bool readable = true;
    if (line.System == "MODAPTS") {
      result = service.GetMODAPTSCodeFromNormFormatService(text);
      readable = result.Bytes() != UnreadableSequence || text.Bytes() == UnreadableSequence;
    } else if (GoesToNorm(line, bytes)) {
      result = service.ConvertToMOSTNormFormatService(text, frequency);
    } else {
      result = service.GetMOSTCodeFromNormFormatService(text, frequency);
    }
    if (line.Json) {
      WriteJsonLine(answers.Out(), {{"text", text.Bytes()}, {"result", result.Bytes()}});
    } else {
      answers.Out() << result.Bytes() << '\n';
    }
    if (!readable) answers.Tell(NormNotReadable(text.Bytes(), number));
  });
}

}  // namespace tool
