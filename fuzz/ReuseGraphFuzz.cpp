// Analyses that reuse each other, one of which changes: both ways of bringing those above it up to date against each
// other, and what holds for every graph. Input: how many analyses, then three bytes for each line: the analysis that it
// stands in, the one that it reuses, and what else it is. An odd first byte allows circles.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "VEXSTTApplicativeContainerServices.h"
#include "fuzz/FuzzSupport.h"
#include "objects/ComponentsToSave.h"
#include "objects/ImpactPropagation.h"
#include "objects/ReuseIndex.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"

namespace {

using support::TimeAnalysis_var;

constexpr std::size_t MostAnalyses = 10;
constexpr std::size_t MostLines = 20;  // keeps the number of ways small

std::string IdentifierOf(std::size_t index) {
  return "A" + std::to_string(index);
}

// A session with the analyses of an input, current as long as it lives. Two of one input are alike.
class World {
 public:
  explicit World(std::span<const std::uint8_t> input) {
    const std::size_t head = input.empty() ? 0 : input[0];
    _HasCircles = head % 2 == 1;
    for (std::size_t index = 0; index < 1 + head / 2 % MostAnalyses; ++index) {
      _Analyses.push_back(
          KORModel::Current().CreateTimeAnalysis(KORUnicodeString(std::string_view(IdentifierOf(index)))));
    }
    (void)_Analyses.front()->SetValue("TotalCalculated", 12.5);
    (void)_Analyses.front()->SetValue("TRGCalculated", 0.25);
    for (std::size_t line = 0; line < MostLines && 3 * line + 3 < input.size(); ++line) {
      AddLine(input[3 * line + 1], input[3 * line + 2], input[3 * line + 3]);
    }
    for (const TimeAnalysis_var& analysis : _Analyses) _All.Append(analysis);
  }

  KORBaseUnknown_var Changed() const { return KORBaseUnknown_var(_Analyses.front()); }
  const KORListValKORBaseUnknown_var& All() const { return _All; }
  bool HasCircles() const { return _HasCircles; }

  std::string Content() const {
    std::string text;
    for (const TimeAnalysis_var& analysis : _Analyses) text += support::DescribeAnalysis(*analysis) + "\n";
    return text;
  }

 private:
  void AddLine(std::size_t place, std::size_t reused, unsigned kind) {
    place %= _Analyses.size();
    if (!_HasCircles && place == 0) return;  // the lowest one reuses nothing
    reused %= _HasCircles ? _Analyses.size() : place;
    constexpr std::array Types{"TTB", "TTU", "TW", "TRG"};
    support::Line line((kind & 4) == 0 ? IdentifierOf(reused) : "*");
    if ((kind & 8) == 0) line.Timed(Types[kind % Types.size()], 0.36, (kind & 16) == 0 ? 2.0 : -1.0);
    if ((kind & 32) == 0) line.Reuses(_Analyses[reused]);
    if ((kind & 64) != 0)
      line.Formula(support::TimeFormula(IdentifierOf((kind & 128) == 0 ? place : reused), "1", "0.5"));
    support::AppendLines(*_Analyses[place], {line});
  }

  KORFreshSession _Session;
  std::vector<TimeAnalysis_var> _Analyses;
  KORListValKORBaseUnknown_var _All;
  bool _HasCircles = false;
};

using Way = void (*)(const KORBaseUnknown_var&, const KORHashObject&, KORListPtrKORIPLMComponent&);

std::string ContentAfter(std::span<const std::uint8_t> input, Way update) {
  const World world(input);
  objects::ReuseIndex reuses;
  (void)reuses.Enter(world.All(), S_OK);
  objects::ComponentsToSave components;
  update(world.Changed(), reuses.Table(), components.List());
  return world.Content();
}

std::string ContentAfterService(std::span<const std::uint8_t> input) {
  const World world(input);
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var unused, all;
  (void)VEXSTTApplicativeContainerServices::UpdateModificationsTOAllImpactedTimeAnalysis(world.Changed(), bag, unused,
                                                                                         all);
  fuzz::RequireSame(world.All().Size(), all.Size(), "all analyses");
  return world.Content();
}

// The repair on unchanged identifiers corrects codes, and lists pairs of equal identifiers the second time.
void CheckRepair(std::span<const std::uint8_t> input) {
  const World world(input);
  KORBaseUnknown_var top = world.All()[world.All().Size()];
  for (int time = 1; time <= 2; ++time) {
    KORListValKORUnicodeString before, after;
    fuzz::RequireSame(S_OK, VEXSTTApplicativeContainerServices::GetOldAndNewPLMIDs(top, before, after), "identifiers");
    fuzz::RequireSame(before.Size(), after.Size(), "pairs of identifiers");
    if (time == 2) fuzz::RequireSame(true, before == after, "identifiers after the repair");
    (void)VEXSTTApplicativeContainerServices::UpdatePLMIDsOfTimeAnalysisRepRef(top, before, after);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  const std::string of_service = ContentAfterService(input);
  const std::string once = ContentAfter(input, objects::UpdateEachOnce);
  if (!World(input).HasCircles()) {
    fuzz::RequireSame(ContentAfter(input, objects::UpdateOnEveryWay), once, "the two ways");
    fuzz::RequireSame(of_service, once, "the service");
  }
  CheckRepair(input);
  return 0;
}
