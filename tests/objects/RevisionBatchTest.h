// What the tests of the revision status of many operations share.
#pragma once

#include <string>

#include "objects/RevisionBatch.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/objects/RevisionTest.h"

namespace objectstest {

/// An occurrence of a new operation that has the representation under it. The instance in between bears the name.
inline KORBaseUnknown_var Placed(const PLMIRepReference_var& representation, const std::string& name) {
  const Operation_var operation = NewOperation("Operation of " + name);
  const PLMIRepInstance_var instance = Attach(operation, representation);
  dynamic_cast<KORPLMObject&>(*instance).GetAttributes().Set("PLM_ExternalID", KORUnicodeString(name));
  return NewOccurrence(operation);
}

inline KORBaseUnknown_var Placed(const TimeAnalysis_var& analysis) {
  return Placed(PLMIRepReference_var(analysis), NameOf(analysis));
}

/// The names of statuses, with a blank between them.
inline std::string RevisionNames(const KORRawCollint& statuses) {
  std::string names;
  for (const int status : statuses) names += (names.empty() ? "" : " ") + RevisionName(status);
  return names;
}

inline KORRawCollint StatusesOf(std::initializer_list<int> values) {
  KORRawCollint statuses;
  for (const int value : values) statuses.Append(value);
  return statuses;
}

using BatchQuestion = long (*)(const KORListValKORBaseUnknown_var&, KORListValKORBaseUnknown_var&, KORRawCollint&);
inline constexpr BatchQuestion ByOneQuery = &VEXSTTProvider::GetAllTARepInstancesFromOpeOccWithRevStatus;
inline constexpr BatchQuestion ByCache = &VEXSTTProvider::GetAllTARepInstancesFromOpeOccWithRevStatus_Cache;

/// Result, instances and statuses, as "S_OK | Fasten Turn | Latest NotLatest". The list of instances comes with an
/// object of before.
inline std::string StatusesBy(BatchQuestion question, const KORListValKORBaseUnknown_var& occurrences,
                              KORRawCollint statuses = {}) {
  KORListValKORBaseUnknown_var instances = ListOf({calculationtest::MakeBareObject()});
  const long result = question(occurrences, instances, statuses);
  return StatusName(result) + " | " + NamesOf(instances) + " | " + RevisionNames(statuses);
}

/// The tables and the list of one batch, which they own.
class BatchTables {
 public:
  BatchTables() = default;
  BatchTables(const BatchTables&) = delete;
  BatchTables& operator=(const BatchTables&) = delete;
  ~BatchTables() {
    void* analysis = nullptr;
    void* cell = nullptr;
    for (_Statuses.Begin(); _Statuses.Next(analysis, cell) != 0;) delete static_cast<int*>(cell);
    objects::ReleaseIdentificators(Identificators);
  }

  /// The lists and the tables, as the operations take them.
  KORListPtrKORIAdpPLMIdentificator Identificators;
  KORHashObject*& Statuses() { return _StatusPointer; }
  KORHashObject*& Identifiers() { return _IdentifierPointer; }

  void Build(KORListValKORBaseUnknown_var instances) {
    objects::BuildTAsHashWithListOfPLMIdentificators(instances, _StatusPointer, _IdentifierPointer, Identificators);
  }
  long Set(KORListValKORAdpVersioningInfo infos) {
    return objects::SetRevisionStatusToTA_InHash(Identificators, infos, _StatusPointer, _IdentifierPointer);
  }

  /// Enters an analysis with a cell of that value.
  void EnterStatus(const KORBaseUnknown_var& analysis, int status) {
    EXPECT_EQ(_Statuses.Insert(analysis.Get(), new int(status)), 1);
  }
  /// Enters an identificator of an analysis, as the building does.
  void EnterIdentificator(const KORIAdpPLMIdentificator_var& identificator, const KORBaseUnknown_var& analysis) {
    identificator->AddRef();
    Identificators.Append(identificator.Get());
    (void)_Identifiers.Insert(identificator->GetImpl(0), analysis.Get());
  }

  /// What the table of statuses tells, in the order in which its entries were made: "Fasten Latest, Turn Unknown".
  std::string Told() {
    std::string text;
    void* analysis = nullptr;
    void* cell = nullptr;
    for (_Statuses.Begin(); _Statuses.Next(analysis, cell) != 0;) {
      text += (text.empty() ? "" : ", ") + NameOf(KORBaseUnknown_var(static_cast<KORBaseUnknown*>(analysis))) + " " +
              RevisionName(*static_cast<const int*>(cell));
    }
    return text;
  }

 private:
  KORHashObject _Statuses{200};
  KORHashObject _Identifiers{200};
  KORHashObject* _StatusPointer = &_Statuses;
  KORHashObject* _IdentifierPointer = &_Identifiers;
};

}  // namespace objectstest
