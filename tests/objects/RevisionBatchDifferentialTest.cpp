// The revision status of many analyses against plain ways to work it out: the search of the identificators, entry by
// entry, and the rules of the field written down on random plans of reuse.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/objects/RevisionBatchTest.h"

namespace {

using objectstest::BatchTables;
using objectstest::ByCache;
using objectstest::ByOneQuery;
using objectstest::IdentificatorFor;
using objectstest::NewRevision;
using objectstest::ObjectsTest;
using objectstest::Placed;
using objectstest::QueryCount;
using objectstest::Revision;
using objectstest::RevisionName;
using objectstest::StatusBy;
using objectstest::StatusesBy;
using support::TimeAnalysis_var;

using Random = std::mt19937;

std::size_t Draw(Random& random, std::size_t count) {
  return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

// ---- Bringing the answers back ----

// An identificator that is not of the model. Those of one number identify the same object, and are not one object.
class ForeignIdentificator : public KORImplements<KORIAdpPLMIdentificator> {
 public:
  explicit ForeignIdentificator(std::size_t number) : _Number(number) {}

  long IsSameAs(KORIAdpPLMIdentificator* other, unsigned char& same) override {
    same = 0;
    if (other == nullptr) return E_INVALIDARG;
    const auto* const foreign = dynamic_cast<const ForeignIdentificator*>(other->GetImpl(0));
    same = foreign != nullptr && foreign->_Number == _Number ? 1 : 0;
    return S_OK;
  }

 private:
  std::size_t _Number;
};

KORIAdpPLMIdentificator_var NewForeign(std::size_t number) {
  return KORIAdpPLMIdentificator_var(KORHandle<ForeignIdentificator>::Adopt(new ForeignIdentificator(number)));
}

int* CellOf(const KORHashObject& statuses, const void* analysis) {
  return static_cast<int*>(statuses.Get(analysis));
}

// The plain way: each element is searched for in the list, from the first entry on.
void SetPlainly(const KORListPtrKORIAdpPLMIdentificator& identificators, const KORListValKORAdpVersioningInfo& infos,
                KORHashObject& statuses, const KORHashObject& identifiers) {
  for (const KORAdpVersioningInfo& info : infos) {
    KORAdpMajorInformation major;
    unsigned char is_last = 0;
    if (Succeeded(info.GetMajorVersioningInformation(major))) (void)major.IsLastMajor(is_last);
    KORIAdpPLMIdentificator* element = nullptr;
    (void)info.GetElement(element);
    if (element == nullptr) continue;
    const auto held = KORIAdpPLMIdentificator_var::Adopt(element);
    for (int position = 1; position <= identificators.Size(); ++position) {
      unsigned char same = 0;
      (void)element->IsSameAs(identificators[position], same);
      if (same == 0) continue;
      int* const cell = CellOf(statuses, identifiers.Get(identificators[position]->GetImpl(0)));
      if (cell != nullptr) *cell = is_last != 0 ? VEXSTTProvider::TARevLatest : VEXSTTProvider::TARevNotLatest;
      break;
    }
  }
  void* analysis = nullptr;
  void* cell = nullptr;
  for (statuses.Begin(); statuses.Next(analysis, cell) != 0;) {
    int& status = *static_cast<int*>(cell);
    if (status != VEXSTTProvider::TARevLatest) continue;
    const VEXITimeAnalysisRepReference_var reusing(static_cast<KORBaseUnknown*>(analysis));
    KORListValKORBaseUnknown_var reused;
    (void)VEXSTTProvider::GetAllInsertedTARepRef(reusing, reused);
    for (const KORBaseUnknown_var& one : reused) {
      const int* const other = CellOf(statuses, one.Get());
      if (other == nullptr || *other != VEXSTTProvider::TARevNotLatest) continue;
      status = VEXSTTProvider::TARevReusedNotLatest;
      break;
    }
  }
}

// Analyses, some of which reuse others drawn among those that come before.
std::vector<TimeAnalysis_var> RandomAnalyses(Random& random, std::size_t count) {
  std::vector<TimeAnalysis_var> analyses;
  for (std::size_t number = 0; number < count; ++number) {
    std::vector<KORBaseUnknown_var> reused;
    for (std::size_t line = number == 0 ? 0 : Draw(random, 3); line > 0; --line) {
      reused.emplace_back(analyses[Draw(random, number)]);
    }
    analyses.push_back(NewRevision(std::to_string(number), Revision::Last, reused));
  }
  return analyses;
}

// What one round is about: what is in the tables, and what the database tells.
struct Round {
  std::vector<TimeAnalysis_var> Analyses;
  std::vector<std::pair<KORIAdpPLMIdentificator_var, TimeAnalysis_var>> Entered;
  KORListValKORAdpVersioningInfo Infos;

  void Fill(BatchTables& tables) const {
    for (const TimeAnalysis_var& analysis : Analyses) tables.EnterStatus(analysis, VEXSTTProvider::TARevUnknown);
    for (const auto& [identificator, analysis] : Entered) tables.EnterIdentificator(identificator, analysis);
  }
};

// The identificators are drawn from few, so that some are entered twice or equal each other, and some are told of
// without being entered.
Round RandomRound(Random& random) {
  Round round;
  round.Analyses = RandomAnalyses(random, 1 + Draw(random, 12));
  std::vector<KORIAdpPLMIdentificator_var> known;
  for (const TimeAnalysis_var& analysis : round.Analyses) {
    known.push_back(IdentificatorFor(KORIPLMComponent_var(analysis)));
    known.push_back(NewForeign(Draw(random, 5)));
  }
  for (std::size_t entries = Draw(random, 2 * known.size()); entries > 0; --entries) {
    round.Entered.emplace_back(known[Draw(random, known.size())], round.Analyses[Draw(random, round.Analyses.size())]);
  }
  for (std::size_t infos = Draw(random, 2 * known.size()); infos > 0; --infos) {
    const bool is_of_nothing = Draw(random, 10) == 0;
    round.Infos.Append(
        KORAdpVersioningInfo(is_of_nothing ? NULL_var : known[Draw(random, known.size())], Draw(random, 2) == 0));
  }
  return round;
}

TEST_F(ObjectsTest, AnswersComeBackAsByTheSearchOfTheWholeList) {
  Random random(20'240'607);
  int marked = 0;
  for (int number = 0; number < 2'000; ++number) {
    const Round round = RandomRound(random);
    BatchTables tables, plain;
    round.Fill(tables);
    round.Fill(plain);
    (void)tables.Set(round.Infos);
    SetPlainly(plain.Identificators, round.Infos, *plain.Statuses(), *plain.Identifiers());
    ASSERT_EQ(tables.Told(), plain.Told()) << "round " << number;
    if (plain.Told().find("ReusedNotLatest") != std::string::npos) ++marked;
  }
  EXPECT_GT(marked, 200) << "the rounds tell little";
}

// Two foreign identificators of one object in one list: the first one counts, whichever is told of.
TEST_F(ObjectsTest, OfEqualIdentificatorsTheFirstInTheListCounts) {
  const auto first = NewRevision("First", Revision::Last), second = NewRevision("Second", Revision::Last);
  const KORIAdpPLMIdentificator_var entered = NewForeign(1), equal = NewForeign(1), another = NewForeign(1);
  for (const KORIAdpPLMIdentificator_var& told : {entered, equal, another}) {
    BatchTables tables;
    tables.EnterStatus(first, VEXSTTProvider::TARevUnknown);
    tables.EnterStatus(second, VEXSTTProvider::TARevUnknown);
    tables.EnterIdentificator(entered, first);
    tables.EnterIdentificator(equal, second);
    KORListValKORAdpVersioningInfo infos;
    infos.Append(KORAdpVersioningInfo(told, true));
    EXPECT_EQ(tables.Set(infos), S_OK);
    EXPECT_EQ(tables.Told(), "First Latest, Second Unknown");
  }
}

// ---- The rules of the field ----

// An analysis of a random plan, as the rules see it.
struct Planned {
  Revision Is;
  std::vector<std::size_t> Reused;
};

using Plan = std::vector<Planned>;

// An analysis may reuse itself, and others in circles.
Plan RandomPlan(Random& random) {
  Plan plan(1 + Draw(random, 8));
  for (Planned& planned : plan) {
    const std::size_t drawn = Draw(random, 10);
    planned.Is = drawn < 6 ? Revision::Last : drawn < 9 ? Revision::Older : Revision::Unknown;
    for (std::size_t line = Draw(random, 4); line > 0; --line) planned.Reused.push_back(Draw(random, plan.size()));
  }
  return plan;
}

// The status of an analysis, if `counts_as_older` tells which reused analyses are not the last revision.
template <class CountsAsOlder>
int StatusOf(const Plan& plan, const Planned& planned, const CountsAsOlder& counts_as_older) {
  if (planned.Is != Revision::Last) return VEXSTTProvider::TARevNotLatest;
  const bool reuses_older = std::any_of(planned.Reused.begin(), planned.Reused.end(),
                                        [&](std::size_t reused) { return counts_as_older(plan[reused]); });
  return reuses_older ? VEXSTTProvider::TARevReusedNotLatest : VEXSTTProvider::TARevLatest;
}

// What the database does not know is unknown to one query, and does not count for its reusers.
int StatusByOneQuery(const Plan& plan, const Planned& planned) {
  if (planned.Is == Revision::Unknown) return VEXSTTProvider::TARevUnknown;
  return StatusOf(plan, planned, [](const Planned& reused) { return reused.Is == Revision::Older; });
}

// Asked one by one, it is not the last revision.
int StatusOneByOne(const Plan& plan, const Planned& planned) {
  return StatusOf(plan, planned, [](const Planned& reused) { return reused.Is != Revision::Last; });
}

std::vector<TimeAnalysis_var> MakeAnalyses(const Plan& plan) {
  std::vector<TimeAnalysis_var> analyses;
  for (std::size_t index = 0; index < plan.size(); ++index) {
    analyses.push_back(NewRevision(std::to_string(index), plan[index].Is));
  }
  for (std::size_t index = 0; index < plan.size(); ++index) {
    for (const std::size_t reused : plan[index].Reused) {
      support::AppendLines(*analyses[index], {objectstest::Line().Reuses(analyses[reused])});
    }
  }
  return analyses;
}

TEST(RevisionRulesTest, HoldOnRandomPlansOfReuse) {
  Random random(20'240'608);
  for (int number = 0; number < 500; ++number) {
    const KORFreshSession session;
    KORVersioningDatabase::Current().SetOrder(Draw(random, 2) == 0 ? KORVersioningDatabase::Order::AsAsked
                                                                   : KORVersioningDatabase::Order::Reversed);
    const Plan plan = RandomPlan(random);
    const std::vector<TimeAnalysis_var> analyses = MakeAnalyses(plan);
    KORListValKORBaseUnknown_var occurrences;
    std::string names;
    KORRawCollint by_one_query, one_by_one;
    for (std::size_t count = 1 + Draw(random, 2 * plan.size()); count > 0; --count) {
      const std::size_t index = Draw(random, plan.size());
      occurrences.Append(Placed(analyses[index]));
      names += " " + std::to_string(index);
      by_one_query.Append(StatusByOneQuery(plan, plan[index]));
      one_by_one.Append(StatusOneByOne(plan, plan[index]));
    }
    ASSERT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK |" + names + " | " + objectstest::RevisionNames(by_one_query));
    ASSERT_EQ(QueryCount(), 1);
    ASSERT_EQ(StatusesBy(ByCache, occurrences), "S_OK |" + names + " | " + objectstest::RevisionNames(one_by_one));
    for (std::size_t index = 0; index < plan.size(); ++index) {
      ASSERT_EQ(StatusBy(&VEXSTTProvider::GetTARevStatusFromDB, analyses[index]),
                "S_OK " + RevisionName(StatusOneByOne(plan, plan[index])));
    }
  }
}

}  // namespace
