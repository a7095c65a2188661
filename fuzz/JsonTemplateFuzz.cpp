// JSON templates: whatever they hold, an analysis is exported by them, and comes out as by the plain export. Input: the
// template of the whole file, then, behind a record separator (U+001E), that of a line; without one the same for both.
#include <string>
#include <string_view>

#include "VEXSTMJSONServices.h"
#include "fuzz/FuzzSupport.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/PlainJsonExport.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr char RecordSeparator = '\x1E';

support::TimeAnalysis_var SampleAnalysis() {
  const auto reused = support::MakeAnalysis("Grasp");
  auto analysis = support::MakeAnalysis(
      "TA-1", {support::Line("R40A").Timed("TTB", 0.36, 2.0).Set("RowNum", 1).Set("Description", "Höhe \"40\"\n"),
               support::Line("Grasp").Reuses(reused).Set("IsStandardTextFlag", static_cast<unsigned char>(1)),
               support::Line("F").Timed("TTU", -0.036).Formula(support::TimeFormula("TA-1", "3", "0.5"))});
  (void)analysis->SetValue("V_Name", KORUnicodeString("Montage"));
  (void)analysis->SetValue("State", 7);
  (void)analysis->SetValue("TTBCalculated", 20.5);
  (void)analysis->SetValue("IsDirty", static_cast<unsigned char>(2));
  (void)analysis->SetValue("", 1e300);
  return analysis;
}

std::string StreamOf(VEXTimeAnalysisRepReference& analysis) {
  const KORStream* const stream = analysis.GetContent().Streams.Find({"JSON", "TA-1"});
  return stream == nullptr ? "no stream" : *stream->Bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const support::TemporaryFolder folder;
  std::string_view rest = fuzz::BytesOf(data, size);
  const std::string complete(fuzz::TakeText(rest, RecordSeparator));
  const std::string line = complete.size() == size ? complete : std::string(rest);
  folder.Write("JSONTemplates/TAComplete_Template.JSON", complete);
  folder.Write("JSONTemplates/TALineAttributes_Template.JSON", line);

  KORFreshSession session;
  session.SetEnvironment("KORStartupPath", KORUnicodeString(folder.Path().c_str()));
  session.SetEnvironment("KORTemp", KORUnicodeString(folder.Path().c_str()));
  const auto analysis = SampleAnalysis();
  KORListValKORBaseUnknown_var list;
  list.Append(analysis);
  fuzz::RequireSame(long{S_OK}, VEXSTMJSONServices::CreateAndUpdateJSONOnTA(list), "status");
  fuzz::RequireSame(support::PlainDocument(complete, line, *analysis).dump(), StreamOf(*analysis), "stream");
  return 0;
}
