// Whether the time analyses of many operations are last revisions: by a single query, and by what is remembered on
// them.
#include "objects/RevisionBatch.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <typeinfo>
#include <vector>

#include "HandedOut.h"
#include "VEXSTTProvider.h"
#include "objects/Identificator.h"
#include "objects/OperationWalk.h"
#include "objects/ReusedAnalyses.h"
#include "objects/RevisionStatus.h"
#include "objects/VersionQuery.h"
#include "platform/base/KORFatalError.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORPLMIdentificator.h"

namespace objects {

namespace {

using Status = VEXSTTProvider::TARevStatus;

// What the end of the process names as its place.
constexpr const char* SourceName = "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src/VEXSTTProvider";
constexpr int SourceLine = 1181;

constexpr int TableSize = 200;

// The table of statuses; owns its cells.
class StatusTable {
 public:
  StatusTable() = default;
  StatusTable(const StatusTable&) = delete;
  StatusTable& operator=(const StatusTable&) = delete;
  ~StatusTable() {
    void* analysis = nullptr;
    void* cell = nullptr;
    for (_Entries.Begin(); _Entries.Next(analysis, cell) != 0;) delete static_cast<int*>(cell);
  }

  KORHashObject& Entries() { return _Entries; }

 private:
  KORHashObject _Entries{TableSize};
};

// The list of identificators; owns their references.
class IdentificatorList {
 public:
  IdentificatorList() = default;
  IdentificatorList(const IdentificatorList&) = delete;
  IdentificatorList& operator=(const IdentificatorList&) = delete;
  ~IdentificatorList() { ReleaseIdentificators(_Entries); }

  KORListPtrKORIAdpPLMIdentificator& Entries() { return _Entries; }

 private:
  KORListPtrKORIAdpPLMIdentificator _Entries;
};

int* CellOf(const KORHashObject& statuses, const KORBaseUnknown* analysis) {
  return static_cast<int*>(statuses.Get(analysis));
}

// What the analyses in the status table reuse, as far as it was read when they were entered, so that their lines need
// not be read again. The analyses are kept alive by the lines.
class KnownReuses {
 public:
  // One more entry of the table, the next in the order in which they are made.
  void AddEntry() { _Ranges.emplace_back(); }

  void SetLast(const KORListValKORBaseUnknown_var& reused) {
    _Ranges.back() = {_Reused.size(), static_cast<std::size_t>(reused.Size())};
    for (const KORBaseUnknown_var& one : reused) _Reused.push_back(one.Get());
  }

  // What the entry of that number, from 0, reuses; empty as well if it isn't known.
  std::span<const KORBaseUnknown* const> Of(std::size_t number) const {
    if (number >= _Ranges.size()) return {};
    return std::span(_Reused).subspan(_Ranges[number].First, _Ranges[number].Count);
  }

 private:
  struct Range {
    std::size_t First = 0;
    std::size_t Count = 0;
  };

  std::vector<const KORBaseUnknown*> _Reused;
  std::vector<Range> _Ranges;  // one for each entry
};

// Fills the tables and the list of BuildTAsHashWithListOfPLMIdentificators.
class TableBuilder {
 public:
  TableBuilder(KORHashObject& statuses, KORHashObject& identifiers, KORListPtrKORIAdpPLMIdentificator& identificators,
               KnownReuses& reuses)
      : _Statuses(statuses), _Identifiers(identifiers), _Identificators(identificators), _Reuses(reuses) {}

  // Enters an analysis and what it reuses. What it reuses is entered again with each of its instances, which changes
  // nothing unless an operation failed the time before.
  void EnterWithReused(const VEXITimeAnalysisRepReference_var& analysis) {
    const bool is_new = Enter(analysis);
    ListReusedAnalyses(analysis, _Reused);
    if (is_new) _Reuses.SetLast(_Reused);
    for (const VEXITimeAnalysisRepReference_var reused : _Reused) {
      if (!reused.IsNull()) Enter(reused);
    }
  }

 private:
  // False if the analysis was there already.
  bool Enter(const VEXITimeAnalysisRepReference_var& analysis) {
    auto cell = std::make_unique<int>(Status::TARevUnknown);
    if (_Statuses.Insert(analysis->GetImpl(0), cell.get()) == 0) return false;
    (void)cell.release();
    _Reuses.AddEntry();
    const HandedOut<KORIAdpPLMIdentificator> handed_out = IdentificatorOf(analysis);
    KORIAdpPLMIdentificator* const identificator = handed_out.Get().Get();
    if (identificator == nullptr) return true;
    _Identificators.Append(identificator);
    identificator->AddRef();
    (void)_Identifiers.Insert(identificator->GetImpl(0), analysis->GetImpl(0));
    return true;
  }

  KORHashObject& _Statuses;
  KORHashObject& _Identifiers;
  KORListPtrKORIAdpPLMIdentificator& _Identificators;
  KnownReuses& _Reuses;
  KORListValKORBaseUnknown_var _Reused;
};

bool IsSame(KORIAdpPLMIdentificator& element, KORIAdpPLMIdentificator* other) {
  unsigned char same = 0;
  (void)element.IsSameAs(other, same);
  return same != 0;
}

// The element, as what is the same as itself.
KORBaseUnknown* EntryItself(KORIAdpPLMIdentificator& element) {
  return IsSame(element, &element) ? element.GetImpl(0) : nullptr;
}

// The entry of the list that identifies the same object as the element, the first if there are several; null if there
// is none.
KORBaseUnknown* FindSame(KORIAdpPLMIdentificator& element, const KORListPtrKORIAdpPLMIdentificator& identificators) {
  for (KORIAdpPLMIdentificator* const identificator : identificators) {
    if (IsSame(element, identificator)) return identificator->GetImpl(0);
  }
  return nullptr;
}

// The analysis that an element of an information identifies; null if it is none of those asked about.
//
// Searching the list for each information would take the square of its length. An identificator of the model is the
// only one of its object (KORPLMIdentificator::IsSameAs), so that the entry to be found is the very same object, and
// the table tells it at once. Any other kind may stand for one object several times, where the first entry of the list
// counts: that takes the search.
KORBaseUnknown* AnalysisOf(KORIAdpPLMIdentificator& element, const KORListPtrKORIAdpPLMIdentificator& identificators,
                           const KORHashObject& identifiers) {
  const KORBaseUnknown* const implementation = element.GetImpl(0);
  const bool is_only_one = typeid(*implementation) == typeid(KORPLMIdentificator);
  const KORBaseUnknown* const entry = is_only_one ? EntryItself(element) : FindSame(element, identificators);
  return entry == nullptr ? nullptr : static_cast<KORBaseUnknown*>(identifiers.Get(entry));
}

// Whether one of the analyses that an analysis reuses is not a last revision. Its lines are read if `known` is empty.
bool ReusesNotLatest(KORBaseUnknown* analysis, const KORHashObject& statuses,
                     std::span<const KORBaseUnknown* const> known) {
  const auto is_not_latest = [&statuses](const KORBaseUnknown* reused) {
    const int* const cell = CellOf(statuses, reused);
    return cell != nullptr && *cell == Status::TARevNotLatest;
  };
  if (!known.empty()) return std::any_of(known.begin(), known.end(), is_not_latest);
  KORListValKORBaseUnknown_var reused;
  ListReusedAnalyses(VEXITimeAnalysisRepReference_var(analysis), reused);
  return std::any_of(reused.begin(), reused.end(),
                     [&is_not_latest](const KORBaseUnknown_var& one) { return is_not_latest(one.Get()); });
}

void MarkReusersOfNotLatest(KORHashObject& statuses, const KnownReuses& reuses) {
  std::size_t number = 0;
  void* analysis = nullptr;
  void* cell = nullptr;
  for (statuses.Begin(); statuses.Next(analysis, cell) != 0; ++number) {
    int& status = *static_cast<int*>(cell);
    if (status == Status::TARevLatest &&
        ReusesNotLatest(static_cast<KORBaseUnknown*>(analysis), statuses, reuses.Of(number))) {
      status = Status::TARevReusedNotLatest;
    }
  }
}

// The tables of BuildTAsHashWithListOfPLMIdentificators and SetRevisionStatusToTA_InHash, none of them null.
struct Tables {
  KORHashObject& Statuses;
  KORHashObject& Identifiers;
};

void Build(const KORListValKORBaseUnknown_var& instances, Tables tables,
           KORListPtrKORIAdpPLMIdentificator& identificators, KnownReuses& reuses) {
  TableBuilder builder(tables.Statuses, tables.Identifiers, identificators, reuses);
  for (const KORBaseUnknown_var& instance : instances) {
    const VEXITimeAnalysisRepReference_var analysis = AnalysisOfRepInstance(instance);
    if (!analysis.IsNull()) builder.EnterWithReused(analysis);
  }
}

long SetStatuses(const KORListPtrKORIAdpPLMIdentificator& identificators, const KORListValKORAdpVersioningInfo& infos,
                 Tables tables, const KnownReuses& reuses) {
  long result = S_OK;
  for (const KORAdpVersioningInfo& info : infos) {
    const Status status = IsLastMajor(info) ? Status::TARevLatest : Status::TARevNotLatest;
    const HandedOut<KORIAdpPLMIdentificator> element(
        [&info](KORIAdpPLMIdentificator*& out) { return info.GetElement(out); });
    result = element.GetStatus();
    if (element.Get().IsNull()) continue;
    int* const cell = CellOf(tables.Statuses, AnalysisOf(*element.Get(), identificators, tables.Identifiers));
    if (cell != nullptr) *cell = status;
  }
  MarkReusersOfNotLatest(tables.Statuses, reuses);
  return result;
}

// Fills the cells of the status table with what the database tells of the analyses of the instances.
void AskForAll(const KORListValKORBaseUnknown_var& instances, KORHashObject& statuses) {
  KORHashObject identifiers(TableSize);
  const Tables tables{statuses, identifiers};
  IdentificatorList identificators;
  KnownReuses reuses;
  Build(instances, tables, identificators.Entries(), reuses);
  KORListValKORAdpVersioningInfo infos;
  (void)AskForVersions(identificators.Entries(), infos);
  (void)SetStatuses(identificators.Entries(), infos, tables, reuses);
}

long ResultOf(long status, const KORListValKORBaseUnknown_var& instances, const KORRawCollint& statuses) {
  return instances.Size() == 0 || instances.Size() != statuses.Size() ? E_FAIL : status;
}

}  // namespace

long InstancesWithStatusByOneQuery(const KORListValKORBaseUnknown_var& occurrences,
                                   KORListValKORBaseUnknown_var& instances, KORRawCollint& statuses) {
  StatusTable table;
  const long status = ListAnalysisInstances(occurrences, instances);
  if (Succeeded(status)) {
    for (int position = 1; position <= instances.Size(); ++position) statuses.Append(Status::TARevUnknown);
    if (instances.Size() > 0) AskForAll(instances, table.Entries());
  }
  // There is a status at the position of each instance, if not its own: the list may not have come empty.
  for (int position = 1; position <= instances.Size(); ++position) {
    const VEXITimeAnalysisRepReference_var analysis = AnalysisOfRepInstance(instances[position]);
    if (analysis.IsNull()) continue;
    const int* const cell = CellOf(table.Entries(), analysis->GetImpl(0));
    if (cell != nullptr) statuses[position] = *cell;
  }
  return ResultOf(status, instances, statuses);
}

long InstancesWithRememberedStatus(const KORListValKORBaseUnknown_var& occurrences,
                                   KORListValKORBaseUnknown_var& instances, KORRawCollint& statuses) {
  const long status = ListAnalysisInstances(occurrences, instances);
  if (Succeeded(status)) {
    for (const KORBaseUnknown_var& instance : instances) {
      const VEXITimeAnalysisRepReference_var analysis = AnalysisOfRepInstance(instance);
      if (analysis.IsNull()) continue;
      Status revision = Status::TARevNotLatest;
      (void)RevisionStatus(analysis, revision);
      statuses.Append(revision);
    }
  }
  return ResultOf(status, instances, statuses);
}

void BuildTAsHashWithListOfPLMIdentificators(KORListValKORBaseUnknown_var& instances, KORHashObject*& statuses,
                                             KORHashObject*& identifiers,
                                             KORListPtrKORIAdpPLMIdentificator& identificators) {
  if (statuses == nullptr || identifiers == nullptr) return;
  KnownReuses reuses;
  Build(instances, {*statuses, *identifiers}, identificators, reuses);
}

long SetRevisionStatusToTA_InHash(const KORListPtrKORIAdpPLMIdentificator& identificators,
                                  KORListValKORAdpVersioningInfo& infos, KORHashObject*& statuses,
                                  KORHashObject*& identifiers) {
  if (statuses == nullptr || identifiers == nullptr) return E_FAIL;
  return SetStatuses(identificators, infos, {*statuses, *identifiers}, KnownReuses());
}

void ReleaseIdentificators(KORListPtrKORIAdpPLMIdentificator& identificators) {
  for (KORIAdpPLMIdentificator* const identificator : identificators) {
    if (identificator == nullptr) {
      KORFatalError("AssertionFailed:pIdentifier", nullptr, nullptr, nullptr, SourceName, SourceLine);
    }
    identificator->Release();
  }
  identificators.RemoveAll();
}

}  // namespace objects
