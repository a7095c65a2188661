// timeanalysis code: what a catalogue says about codes.
#include <cmath>
#include <memory>
#include <ostream>

#include "tools/Catalogue.h"
#include "tools/CodeLookup.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/LookupFormula.h"
#include "tools/NearestCodes.h"
#include "tools/NumberText.h"

namespace tool {

namespace {

std::string TimeText(const CommandLine& line, const VEXSTMTimeAnalysisDlgServices& service, const CodeAnswer& answer) {
  const std::string tmu = NumberText(answer.Tmu) + " TMU";
  const auto in_unit = [&](DisplayUnit unit) { return NumberText(TimeInUnit(service, answer.Tmu, unit)); };
  if (line.Unit == "tmu") return tmu;
  if (line.Unit == "s") return in_unit(DisplayUnit::Seconds) + " s";
  if (line.Unit == "min") return in_unit(DisplayUnit::Minutes) + " min";
  if (line.Unit == "mod") return in_unit(DisplayUnit::Mod) + " MOD";
  return tmu + " = " + in_unit(DisplayUnit::Seconds) + " s";
}

void WriteText(std::ostream& output, const CodeAnswer& answer, const std::string& time) {
  const auto write = [&output](const char* label, std::string_view text) {
    output << "  " << label << (text.empty() ? "-" : text) << '\n';
  };
  output << answer.Code.Bytes() << '\n';
  write("time               ", time);
  write("description        ", answer.Description.Bytes());
  write("local description  ", answer.LocalDescription.Bytes());
  write("time type          ", answer.TimeType.Bytes());
  write("frequency          ", answer.Frequency.Bytes());
  write("value added        ", answer.ValueAdded.Bytes());
  write("code identifier    ", answer.CodeId.Bytes());
  write("options            ", answer.OptionId == 0 ? "none" : std::to_string(answer.OptionId));
}

void WriteJson(std::ostream& output, const VEXSTMTimeAnalysisDlgServices& service, const CodeAnswer& answer) {
  WriteJsonLine(output, {{"code", answer.Code.Bytes()},
                         {"found", answer.Found},
                         {"time", answer.Time.Bytes()},
                         {"tmu", JsonNumber(answer.Tmu)},
                         {"seconds", JsonNumber(TimeInUnit(service, answer.Tmu, DisplayUnit::Seconds))},
                         {"description", answer.Description.Bytes()},
                         {"localDescription", answer.LocalDescription.Bytes()},
                         {"timeType", answer.TimeType.Bytes()},
                         {"frequency", answer.Frequency.Bytes()},
                         {"valueAdded", answer.ValueAdded.Bytes()},
                         {"codeId", answer.CodeId.Bytes()},
                         {"optionId", answer.OptionId}});
}

// A lookup answers a formula that fails with the time 0, which is told apart from a time that is 0.
void TellOfNoTime(VEXSTMTimeAnalysisDlgServices& service, const CodeAnswer& answer, std::size_t number,
                  Answers& answers) {
  const std::string_view time = answer.Time.Bytes();
  if (time == "0") {
    const LookupFormula formula = EvaluateLookupFormula(service, answer.Code.Bytes(), answer.Entry);
    if (formula.Status == 0) return;
    answers.Tell(
        CodeFormulaFails(answer.Code.Bytes(), EntryName(service, answer.Entry), formula.Text, formula.Status, number));
  } else if (!std::isfinite(answer.Tmu)) {
    answers.Tell(CodeTimeNotFinite(answer.Code.Bytes(), EntryName(service, answer.Entry), time, number));
  }
}

}  // namespace

void RunCode(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  VEXSTMTimeAnalysisDlgServices service;
  const std::string path = catalogue.Open(line.System, service);
  std::unique_ptr<NearestCodes> nearest;  // gathered when the first code is not found
  ForEachText(line, surroundings, [&](std::string_view code, std::size_t number) {
    const CodeAnswer answer = LookUpCode(service, code);
    if (line.Json) {
      WriteJson(answers.Out(), service, answer);
    } else if (answer.Found) {
      WriteText(answers.Out(), answer, TimeText(line, service, answer));
    }
    if (answer.Found) return TellOfNoTime(service, answer, number, answers);
    if (!nearest) nearest = std::make_unique<NearestCodes>(service);
    answers.Tell(CodeNotFound(line.System, answer.Code.Bytes(), path, nearest->Find(answer.Code.Bytes()), number));
  });
}

}  // namespace tool
