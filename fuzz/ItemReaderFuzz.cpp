// Lists of items that are written into an analysis with lines, and the analysis read out: against the plain exchange,
// and against what holds for every list. Input: a stream, cut into items at "|".
#include <string>
#include <string_view>
#include <vector>

#include "ModuleTrace.h"
#include "VEXTADataIO.h"
#include "fuzz/FuzzSupport.h"
#include "platform/model/KORModel.h"
#include "platform/model/KORValueText.h"
#include "platform/system/KORSession.h"
#include "tests/oracle/ExchangeOracle.h"
#include "tests/support/AnalysisBuilder.h"

namespace {

using Texts = std::vector<std::string>;

std::string Joined(const Texts& texts) {
  std::string text;
  for (const std::string& one : texts) text += one + '\n';
  return text;
}

std::string Joined(const KORListValKORUnicodeString& list) {
  std::string text;
  for (const KORUnicodeString& one : list) text.append(one.Bytes()) += '\n';
  return text;
}

// Values with the number of their type.
void Describe(const KORKeyedValues& values, std::string& text) {
  values.ForEach([&text](std::string_view key, const KORKeyedValues::View& value) {
    text.append(key).append("=").append(KORTextOfValue(value, KORBooleanDigits).Bytes());
    text.append(" type ").append(std::to_string(value.index())).append("\n");
  });
}

// A session with the analysis "A", which has two lines, and the analysis "B", which it reuses. While it lives it is the
// current one, and the trace of the services comes to it.
class World {
 public:
  World() : _Analysis(KORModel::Current().CreateTimeAnalysis("A")) {
    const auto reused = KORModel::Current().CreateTimeAnalysis("B");
    (void)static_cast<VEXITimeAnalysisRepReference&>(*_Analysis).SetValue("V_Name", KORUnicodeString("Assembly"));
    support::AppendLines(*_Analysis, {support::Line("R40A").Timed("TTB", 0.36),
                                      support::Line("B").Reuses(reused).Formula(support::TimeFormula("A", "2", "1"))});
    ModuleTrace().RedirectTo([this](std::string_view line) { _Trace += line; });
  }
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  ~World() { ModuleTrace().RedirectTo(nullptr); }

  KORBaseUnknown* Analysis() const { return _Analysis->GetImpl(0); }
  const std::string& Trace() const { return _Trace; }

  int LineCount() const {
    int count = 0;
    (void)_Analysis->GetLineCount(count);
    return count;
  }

  std::string Lines() const {
    std::string text;
    for (int row = 1; row <= LineCount(); ++row) {
      VEXTimeAnalysisLineData line;
      (void)_Analysis->GetLine(row, line);
      text += "row " + std::to_string(row) + "\n";
      Describe(line.GetContent().Values, text);
    }
    return text;
  }

  std::string Content() const {
    std::string text;
    Describe(_Analysis->GetAttributes(), text);
    return text + Lines();
  }

 private:
  KORFreshSession _Session;
  support::TimeAnalysis_var _Analysis;
  std::string _Trace;
};

// What the services made of the items, and what holds for every list.
struct Result {
  long status;
  std::string trace;
  std::string content;
  std::string items_out;
};

Result WriteAndRead(const KORListValKORUnicodeString& items) {
  World world;
  const std::string lines_before = world.Lines();
  KORListValKORUnicodeString list = items;
  const long status = VEXTADataIO::SetAnalysisData("A", list, world.Analysis());
  fuzz::RequireSame(true, list == items, "the list that was written in");
  int cells = 0;
  for (const KORUnicodeString& item : items) {
    if (VEXTADataIO::ExplodeString(":", item).Locate("LineData") == 1) ++cells;
  }
  if (cells == 0) fuzz::RequireSame(lines_before, world.Lines(), "lines without an item of the line table");
  if (cells > 0) fuzz::RequireSame(true, world.LineCount() <= cells, "no more lines than cells");

  KORListValKORUnicodeString items_out;
  const std::string content = world.Content();
  fuzz::RequireSame(S_OK, VEXTADataIO::GetAnalysisData("A", items_out, world.Analysis()), "status of reading out");
  fuzz::RequireSame(content, world.Content(), "an analysis that was read out");
  Result result{status, world.Trace(), content, Joined(items_out)};
  // The same list again leads to the same analysis.
  fuzz::RequireSame(status, VEXTADataIO::SetAnalysisData("A", list, nullptr), "status of the second time");
  fuzz::RequireSame(content, world.Content(), "the second time");
  return result;
}

Result WriteAndReadPlainly(const KORListValKORUnicodeString& items) {
  const World world;
  const oracle::ExchangeOutcome written = oracle::SetAnalysisData("A", items, world.Analysis());
  const std::string content = world.Content();
  KORListValKORUnicodeString items_out;
  const oracle::ExchangeOutcome read = oracle::GetAnalysisData("A", items_out, world.Analysis());
  return {written.status, Joined(written.trace) + Joined(read.trace), content, Joined(items_out)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const KORUnicodeString stream(fuzz::BytesOf(data, size));
  const KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", stream);
  const Result plain = WriteAndReadPlainly(items);
  const Result result = WriteAndRead(items);
  fuzz::RequireSame(plain.status, result.status, "status of writing in");
  fuzz::RequireSame(plain.trace, result.trace, "trace");
  fuzz::RequireSame(plain.content, result.content, "analysis");
  fuzz::RequireSame(plain.items_out, result.items_out, "items read out");
  return 0;
}
