// Random graphs of analyses that reuse each other: the climb from a changed analysis and the repair of identifiers
// against their plain versions, every attribute and every line of every analysis afterwards.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/calculation/ModelTwin.h"
#include "tests/objects/ImpactTest.h"
#include "tests/oracle/ImpactOracle.h"
#include "tests/support/AnalysisDescription.h"
#include "tests/support/RandomAnalysis.h"

namespace {

using calculationtest::ModelTwin;
using objectstest::ReuseIndex;
using support::RandomAnalysis;
using support::RandomAnalysisOptions;
using support::RandomModel;
using support::RandomText;
using Services = VEXSTTApplicativeContainerServices;

/// How the graph of a drawn model is reworked.
enum class Graph {
  AsDrawn,  // whichever analyses share identifiers, whoever owns the parameters
  Dense,    // many ways; identifiers are distinct and each analysis owns all parameters that its lines start with
};

struct GraphRow {
  const char* name;
  unsigned seed;
  int models;
  Graph graph;
  RandomAnalysisOptions options;
};

/// A drawn model as real analyses in a session of its own, which is the current one as long as this object lives.
class World {
 public:
  explicit World(RandomModel& model) : _Twin(model, &World::Make) {
    // 0 stands for a site without the setting.
    if (model.tmu_per_minute == 0.0) return;
    const std::string setting = std::to_string(model.tmu_per_minute);
    _Session.AddRepository("VEXTimeAnalysisCommonOptions")
        .WriteSetting("mintotmuconversion", KORUnicodeString(setting));
  }

  const ModelTwin& Twin() const { return _Twin; }
  KORBaseUnknown_var At(std::size_t index) const { return _Twin.Of(_Twin.Plain(index)); }
  KORListValKORBaseUnknown_var All() const {
    KORListValKORBaseUnknown_var all;
    for (std::size_t index = 0; index < _Twin.Size(); ++index) all.Append(At(index));
    return all;
  }

  /// The position of an analysis in the model, by whichever object stands for it; -1 for any other object.
  int PositionOf(const KORBaseUnknown_var& object) const {
    for (std::size_t index = 0; index < _Twin.Size(); ++index) {
      if (At(index) == object || _Twin.Inside(index).GetImpl(0) == object.Get()) return static_cast<int>(index);
    }
    return -1;
  }

  std::vector<std::string> Contents() const {
    std::vector<std::string> contents;
    for (std::size_t index = 0; index < _Twin.Size(); ++index) contents.push_back(Content(index));
    return contents;
  }

 private:
  static support::TimeAnalysis_var Make(const std::string& identifier) { return objectstest::NewAnalysis(identifier); }

  // With the reused analyses by position, as they may share identifiers.
  std::string Content(std::size_t index) const {
    const oracle::Analysis analysis = _Twin.ReadBack(index);
    std::string content = support::Describe(analysis);
    for (const oracle::Line& line : analysis.lines) {
      content += std::to_string(PositionOf(_Twin.Of(line.reused))) + " ";
    }
    return content;
  }

  KORFreshSession _Session;
  ModelTwin _Twin;
};

/// What an operation gave, and what it left.
struct Outcome {
  std::string result;
  std::vector<std::vector<int>> saves;  // positions of analyses
  std::vector<int> components;          // the same
  std::vector<std::string> contents;
};

void ExpectSameContents(const Outcome& real, const Outcome& expected) {
  ASSERT_EQ(real.contents.size(), expected.contents.size());
  for (std::size_t index = 0; index < real.contents.size(); ++index) {
    ASSERT_EQ(real.contents[index], expected.contents[index]) << "analysis " << index;
  }
}

std::vector<int> PositionsOf(const World& world, const KORListPtrKORIPLMComponent& components) {
  std::vector<int> positions;
  for (KORIPLMComponent* const component : components) {
    positions.push_back(world.PositionOf(KORBaseUnknown_var(component)));
  }
  return positions;
}

std::vector<int> PositionsOf(const World& world, const std::vector<KORIPLMComponent_var>& components) {
  std::vector<int> positions;
  for (const KORIPLMComponent_var& component : components) positions.push_back(world.PositionOf(component));
  return positions;
}

// Below this number of visits every way is gone.
constexpr std::size_t SmallClimb = 250;

// ---- The climb from one analysis to one that may reuse it ----

Outcome Climb(RandomModel& model, std::size_t changed, std::size_t impacted, bool has_reuses) {
  const World world(model);
  ReuseIndex index(world.All());
  KORHashObject* nobody = nullptr;
  KORListPtrKORIPLMComponent components;
  Outcome outcome;
  outcome.result = objectstest::OutcomeOf([&] {
    return Services::UpdateTemplateToImapctedTA(world.At(changed), world.At(impacted),
                                                has_reuses ? index.Table() : nobody, components);
  });
  outcome.components = PositionsOf(world, components);
  (void)objectstest::TakeNames(components);
  outcome.contents = world.Contents();
  return outcome;
}

Outcome PlainClimb(RandomModel& model, std::size_t changed, std::size_t impacted, bool has_reuses,
                   oracle::Climb& climb) {
  const World world(model);
  const oracle::Reuses reuses = oracle::ReusesOf(world.All());
  Outcome outcome;
  outcome.result = objectstest::OutcomeOf([&] {
    return oracle::UpdateTemplateToImpacted(world.At(changed), world.At(impacted), has_reuses ? &reuses : nullptr,
                                            climb);
  });
  outcome.components = PositionsOf(world, climb.components);
  climb.components.clear();
  outcome.contents = world.Contents();
  return outcome;
}

// ---- The climb to all above an analysis ----

Outcome Propagate(RandomModel& model, std::size_t changed) {
  const World world(model);
  Outcome outcome;
  KORSaveObserver::Current().Set(
      [&](const KORListPtrKORIPLMComponent& components) { outcome.saves.push_back(PositionsOf(world, components)); });
  outcome.result = objectstest::Propagate(world.At(changed));
  KORSaveObserver::Current().Set(nullptr);
  outcome.contents = world.Contents();
  return outcome;
}

Outcome PlainPropagate(RandomModel& model, std::size_t changed, oracle::Climb& climb) {
  const World world(model);
  Outcome outcome;
  outcome.result = objectstest::OutcomeOf([&] {
    KORListValKORBaseUnknown_var all_analyses;
    const oracle::ImpactOutcome impact = oracle::UpdateAllImpacted(world.At(changed), all_analyses, climb);
    if (impact.saves) outcome.saves.push_back(PositionsOf(world, climb.components));
    return impact.status;
  });
  climb.components.clear();
  outcome.contents = world.Contents();
  return outcome;
}

// ---- Drawing ----

class ImpactDifferentialTest : public testing::TestWithParam<GraphRow> {
 protected:
  ImpactDifferentialTest() : _Random(GetParam().seed), _Models(GetParam().seed, GetParam().options) {}

  RandomModel Draw() {
    RandomModel model = _Models.Draw();
    if (GetParam().graph == Graph::Dense) MakeDense(model);
    return model;
  }

  std::size_t AnyOf(const RandomModel& model) { return Below(model.analyses.size()); }
  std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(_Random.Below(static_cast<int>(bound))); }

  RandomText _Random;

 private:
  void MakeDense(RandomModel& model);

  RandomAnalysis _Models;
};

void ImpactDifferentialTest::MakeDense(RandomModel& model) {
  for (std::size_t index = 0; index < model.analyses.size(); ++index) {
    oracle::Analysis& analysis = *model.analyses[index];
    analysis.identifier = "D" + std::to_string(index);
    for (oracle::Line& line : analysis.lines) {
      // Parameters multiply on every way up.
      if (!_Random.OneIn(6)) line.parameters.clear();
      std::erase(line.parameters, std::nullopt);
      for (auto& parameter : line.parameters) parameter->owner_id = analysis.identifier;
    }
    if (index == 0) continue;
    // Two or three lines that reuse one of the four before it.
    for (int left = _Random.Below(2) + 2; left > 0; --left) {
      oracle::Line& line = analysis.lines.emplace_back();
      line.values = {{"Code", std::string("D")}, {"TimeType", std::string("TTB")}, {"Factor", 1.0}};
      line.reused = model.analyses[index - 1 - Below(std::min<std::size_t>(index, 4))].get();
    }
  }
}

// ---- Comparing ----

TEST_P(ImpactDifferentialTest, ClimbsAsThePlainClimb) {
  std::size_t compared = 0, rewritten = 0, most_visits = 0;
  for (int number = 0; number < GetParam().models; ++number) {
    RandomModel model = Draw();
    const std::size_t changed = AnyOf(model);
    std::size_t impacted = AnyOf(model);
    // Mostly one that reuses the changed one.
    for (std::size_t index = 0; index < model.analyses.size() && !_Random.OneIn(8); ++index) {
      const auto& lines = model.analyses[index]->lines;
      const auto reuses_it = [&](const oracle::Line& line) { return line.reused == model.analyses[changed].get(); };
      if (std::any_of(lines.begin(), lines.end(), reuses_it)) impacted = index;
    }
    const bool has_reuses = !_Random.OneIn(16);
    SCOPED_TRACE("model " + std::to_string(number) + ", from " + std::to_string(changed) + " to " +
                 std::to_string(impacted));
    oracle::Climb climb;
    climb.most_parameters = 20'000;
    climb.most_visits = 5'000;
    const Outcome expected = PlainClimb(model, changed, impacted, has_reuses, climb);
    if (climb.given_up) continue;
    const Outcome real = Climb(model, changed, impacted, has_reuses);
    ASSERT_EQ(real.result, expected.result);
    ASSERT_EQ(real.components, expected.components);
    ASSERT_NO_FATAL_FAILURE(ExpectSameContents(real, expected));
    ++compared;
    if (!expected.components.empty()) ++rewritten;
    most_visits = std::max(most_visits, climb.visits);
  }
  RecordProperty("compared", static_cast<int>(compared));
  RecordProperty("rewritten", static_cast<int>(rewritten));
  RecordProperty("most_visits", static_cast<int>(most_visits));
  EXPECT_GT(compared, static_cast<std::size_t>(GetParam().models) / 2);
  EXPECT_GT(rewritten, compared / 4);
  EXPECT_GT(most_visits, 4U);
}

TEST_P(ImpactDifferentialTest, PropagatesAsThePlainClimb) {
  // Without the few that lack an interface, as the model of a session has none of these.
  std::size_t compared = 0, saved = 0, large = 0;
  for (int number = 0; number < GetParam().models; ++number) {
    RandomModel model = Draw();
    for (const auto& analysis : model.analyses) {
      analysis->offers_lines = analysis->offers_properties = analysis->offers_rep_reference = true;
    }
    // Mostly one that has something above it.
    const std::size_t changed = _Random.OneIn(4) ? AnyOf(model) : Below((model.analyses.size() + 2) / 3);
    SCOPED_TRACE("model " + std::to_string(number) + ", from " + std::to_string(changed));
    oracle::Climb climb;
    climb.most_parameters = 100'000;
    climb.most_visits = 5'000;
    const Outcome expected = PlainPropagate(model, changed, climb);
    // In a circle the last state depends on the ways gone, and so does a parameter that comes from below and seems own.
    const bool depends_on_ways = GetParam().options.cycles || GetParam().graph == Graph::AsDrawn;
    const bool is_small = climb.visits < SmallClimb;
    if (climb.given_up || (!is_small && depends_on_ways)) continue;
    const Outcome real = Propagate(model, changed);
    ASSERT_EQ(real.result, expected.result);
    ASSERT_EQ(real.saves.size(), expected.saves.size());
    if (is_small) {
      ASSERT_EQ(real.saves, expected.saves);
    }
    for (std::size_t save = 0; save < real.saves.size(); ++save) {
      ASSERT_EQ(std::set<int>(real.saves[save].begin(), real.saves[save].end()),
                std::set<int>(expected.saves[save].begin(), expected.saves[save].end()));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSameContents(real, expected));
    ++compared;
    if (!expected.saves.empty()) ++saved;
    if (!is_small) ++large;
  }
  RecordProperty("compared", static_cast<int>(compared));
  RecordProperty("saved", static_cast<int>(saved));
  RecordProperty("large", static_cast<int>(large));
  EXPECT_GT(compared, static_cast<std::size_t>(GetParam().models) / 2);
  EXPECT_GT(saved, compared / 4);
  if (GetParam().graph == Graph::Dense) {
    EXPECT_GT(large, 4U);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Graphs, ImpactDifferentialTest,
    testing::Values(GraphRow{"WellFormed", 701, 150, Graph::AsDrawn, {.wrong_types = false, .broken_formulas = false}},
                    GraphRow{"AsTheyCome", 702, 200, Graph::AsDrawn, {.most_analyses = 14}},
                    GraphRow{"OddNumbers", 703, 100, Graph::AsDrawn, {.odd_numbers = true}},
                    GraphRow{"MissingInterfaces", 704, 200, Graph::AsDrawn, {.missing_interfaces = true}},
                    GraphRow{"Cycles", 705, 200, Graph::AsDrawn, {.most_analyses = 5, .cycles = true}},
                    GraphRow{"All",
                             706,
                             200,
                             Graph::AsDrawn,
                             {.most_analyses = 5,
                              .cycles = true,
                              .odd_numbers = true,
                              .unknown_magnitudes = true,
                              .barred_identifiers = true,
                              .missing_interfaces = true}},
                    GraphRow{"Dense", 707, 60, Graph::Dense, {.most_analyses = 20, .most_lines = 3}}),
    support::RowName());

// ---- Identifiers ----

/// What becomes of the lists between listing and repairing.
enum class Lists { AsListed, NewOnesShorter, OldOnesShorter, Turned, Empty };

struct RepairRow {
  const char* name;
  unsigned seed;
  Lists lists;
  RandomAnalysisOptions options;
};

/// Both lists of a repair.
struct IdentifierLists {
  KORListValKORUnicodeString old_identifiers;
  KORListValKORUnicodeString new_identifiers;
};

KORListValKORUnicodeString Cut(const KORListValKORUnicodeString& list, int size) {
  KORListValKORUnicodeString cut;
  for (int position = 1; position <= std::min(size, list.Size()); ++position) cut.Append(list[position]);
  return cut;
}

IdentifierLists Reworked(const IdentifierLists& lists, Lists how) {
  const int half = lists.old_identifiers.Size() / 2;
  switch (how) {
    case Lists::NewOnesShorter:
      return {lists.old_identifiers, Cut(lists.new_identifiers, half)};
    case Lists::OldOnesShorter:
      return {Cut(lists.old_identifiers, half), lists.new_identifiers};
    case Lists::Turned:
      return {lists.new_identifiers, lists.old_identifiers};
    case Lists::Empty:
      return {};
    default:
      return lists;
  }
}

class RepairDifferentialTest : public testing::TestWithParam<RepairRow> {
 protected:
  // Renames analyses, mostly, and writes the name before into the codes of lines that reuse them.
  void Rename(RandomModel& model) {
    for (const auto& analysis : model.analyses) {
      for (oracle::Line& line : analysis->lines) {
        if (line.reused == nullptr || _Random.OneIn(4)) continue;
        line.values["Code"] = _Random.OneIn(6) ? std::string("*") : line.reused->identifier;
      }
    }
    for (const auto& analysis : model.analyses) {
      if (!_Random.OneIn(3)) analysis->identifier += "-new";
    }
  }

  RandomText _Random{GetParam().seed};
};

/// Lists the identifiers below an analysis and repairs all analyses by the lists.
template <class ListAll, class Repair>
Outcome RepairAll(RandomModel& model, std::size_t top, Lists how, const ListAll& list_all, const Repair& repair) {
  const World world(model);
  IdentifierLists lists;
  lists.old_identifiers.Append("A1");
  lists.new_identifiers.Append("first");
  Outcome outcome;
  KORBaseUnknown_var analysis = world.At(top);
  outcome.result = objectstest::OutcomeOf([&] { return list_all(analysis, lists); });
  const auto append = [&outcome](const KORListValKORUnicodeString& list) {
    for (const KORUnicodeString& identifier : list) outcome.result += "\n" + support::Text(identifier);
  };
  append(lists.old_identifiers);
  append(lists.new_identifiers);
  IdentifierLists reworked = Reworked(lists, how);
  for (std::size_t index = 0; index < world.Twin().Size(); ++index) {
    KORBaseUnknown_var one = world.At(index);
    outcome.result += "\n" + objectstest::OutcomeOf([&] { return repair(one, reworked); });
  }
  outcome.contents = world.Contents();
  return outcome;
}

TEST_P(RepairDifferentialTest, RepairsAsThePlainRepair) {
  RandomAnalysis models(GetParam().seed, GetParam().options);
  int changed = 0;
  for (int number = 0; number < 150; ++number) {
    RandomModel model = models.Draw();
    Rename(model);
    const std::size_t top = model.analyses.size() - 1;
    SCOPED_TRACE("model " + std::to_string(number));
    const std::vector<std::string> before = World(model).Contents();
    const Outcome real = RepairAll(
        model, top, GetParam().lists,
        [](KORBaseUnknown_var& analysis, IdentifierLists& lists) {
          return Services::GetOldAndNewPLMIDs(analysis, lists.old_identifiers, lists.new_identifiers);
        },
        [](KORBaseUnknown_var& analysis, IdentifierLists& lists) {
          return Services::UpdatePLMIDsOfTimeAnalysisRepRef(analysis, lists.old_identifiers, lists.new_identifiers);
        });
    const Outcome expected = RepairAll(
        model, top, GetParam().lists,
        [](const KORBaseUnknown_var& analysis, IdentifierLists& lists) {
          return oracle::GetOldAndNewIdentifiers(analysis, lists.old_identifiers, lists.new_identifiers);
        },
        [](const KORBaseUnknown_var& analysis, const IdentifierLists& lists) {
          return oracle::UpdateIdentifiers(analysis, lists.old_identifiers, lists.new_identifiers);
        });
    ASSERT_EQ(real.result, expected.result);
    ASSERT_NO_FATAL_FAILURE(ExpectSameContents(real, expected));
    if (expected.contents != before) ++changed;
  }
  EXPECT_GT(changed, 100);
}

INSTANTIATE_TEST_SUITE_P(
    Graphs, RepairDifferentialTest,
    testing::Values(RepairRow{"AsListed", 801, Lists::AsListed, {}},
                    RepairRow{"NewOnesShorter", 802, Lists::NewOnesShorter, {}},
                    RepairRow{"OldOnesShorter", 803, Lists::OldOnesShorter, {}},
                    RepairRow{"Turned", 804, Lists::Turned, {}}, RepairRow{"NothingListed", 805, Lists::Empty, {}},
                    RepairRow{"Cycles", 806, Lists::AsListed, {.most_analyses = 5, .cycles = true}},
                    RepairRow{"MissingInterfaces",
                              807,
                              Lists::AsListed,
                              {.most_analyses = 5, .cycles = true, .missing_interfaces = true}}),
    support::RowName());

}  // namespace
