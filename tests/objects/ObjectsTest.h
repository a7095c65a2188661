// What the tests of analyses under operations share: a session with its model, short ways to make operations,
// occurrences and analyses in it, faults of the platform in all their kinds, and outcomes as texts.
//
//   const auto operation = NewOperation("Fasten cover", {NewDrawing("Sketch"), NewAnalysis("Fasten")});
//   const auto occurrence = NewOccurrence(operation);
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/system/KORFault.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"

namespace objectstest {

using support::Line;
using support::TimeAnalysis_var;

using Operation_var = KORHandle<KOROperationReference>;
using Occurrence_var = KORHandle<KOROperationOccurrence>;

/// A fresh session, current for the time of the test.
class ObjectsTest : public testing::Test {
 protected:
  KORFreshSession _Session;
};

/// The same with a row of a table.
template <class Row>
class ObjectsRowTest : public ObjectsTest, public testing::WithParamInterface<Row> {};

// ---- Objects of the current session's model ----

inline TimeAnalysis_var NewAnalysis(std::string_view identifier, const std::vector<Line>& lines = {}) {
  auto analysis = KORModel::Current().CreateTimeAnalysis(KORUnicodeString(identifier));
  support::AppendLines(*analysis, lines);
  return analysis;
}

/// A representation of another kind than a time analysis.
inline PLMIRepReference_var NewDrawing(std::string_view identifier) {
  return KORModel::Current().CreateOtherRepReference(KORUnicodeString(identifier));
}

/// Puts a representation under an operation, behind those that are there. Returns its instance.
inline PLMIRepInstance_var Attach(const Operation_var& operation, const PLMIRepReference_var& representation) {
  PLMIRepInstance* instance = nullptr;
  EXPECT_EQ(operation->AddRepInstance(nullptr, representation.Get(), instance, 0), S_OK);
  return PLMIRepInstance_var::Adopt(instance);
}

/// An operation with representations under it, in that order.
inline Operation_var NewOperation(std::string_view identifier,
                                  const std::vector<PLMIRepReference_var>& representations = {}) {
  auto operation = KORModel::Current().CreateOperation(KORUnicodeString(identifier));
  for (const PLMIRepReference_var& representation : representations) (void)Attach(operation, representation);
  return operation;
}

inline Occurrence_var NewOccurrence(const KORIPLMNavReference_var& operation) {
  return KORModel::Current().CreateOccurrence(operation);
}

/// An occurrence of a new operation of that name with these representations under it.
inline Occurrence_var NewOccurrence(std::string_view identifier,
                                    const std::vector<PLMIRepReference_var>& representations) {
  return NewOccurrence(NewOperation(identifier, representations));
}

inline KORListValKORBaseUnknown_var ListOf(std::initializer_list<KORBaseUnknown_var> objects) {
  KORListValKORBaseUnknown_var list;
  for (const KORBaseUnknown_var& object : objects) list.Append(object);
  return list;
}

/// The representation instances under an operation.
inline KORListValKORBaseUnknown_var InstancesUnder(const Operation_var& operation) {
  KORListValKORBaseUnknown_var instances;
  EXPECT_EQ(operation->ListRepInstances(instances), S_OK);
  return instances;
}

/// What an out argument holds before a call, to see whether it is touched: its name is "untouched".
inline KORBaseUnknown_var Marker() {
  return KORBaseUnknown_var::Adopt(new KORPLMObject("untouched"));
}

/// How many references an object has.
inline unsigned long ReferencesOf(const KORBaseUnknown& object) {
  object.AddRef();
  return object.Release();
}

// ---- Outcomes as texts ----

/// The status with which faults are injected; nothing else gives it.
inline constexpr long InjectedStatus = -77;

/// "S_OK", "E_FAIL" and so on; "fault" for InjectedStatus.
inline std::string StatusName(long status) {
  switch (status) {
    case S_OK:
      return "S_OK";
    case S_FALSE:
      return "S_FALSE";
    case E_FAIL:
      return "E_FAIL";
    case E_NOINTERFACE:
      return "E_NOINTERFACE";
    case E_INVALIDARG:
      return "E_INVALIDARG";
    case InjectedStatus:
      return "fault";
    default:
      return std::to_string(status);
  }
}

/// The "PLM_ExternalID" of an object of the model; "null" for a null handle, "?" for any other object.
inline std::string NameOf(const KORBaseUnknown_var& object) {
  if (object.IsNull()) return "null";
  const auto* const of_model = dynamic_cast<const KORPLMObject*>(object.Get());
  KORUnicodeString identifier("?");
  if (of_model != nullptr) (void)of_model->GetAttributes().Get("PLM_ExternalID", identifier);
  return std::string(identifier.Bytes());
}

/// The names of objects, with a blank between them.
inline std::string NamesOf(const KORListValKORBaseUnknown_var& objects) {
  std::string names;
  for (const KORBaseUnknown_var& object : objects) names += (names.empty() ? "" : " ") + NameOf(object);
  return names;
}

// ---- Faults of the platform ----

inline constexpr std::array FaultKinds{KORFault::Kind::StatusAndNull, KORFault::Kind::StatusAlone,
                                       KORFault::Kind::NullAlone};
inline constexpr std::array FaultLives{KORFault::Life::Always, KORFault::Life::Once};

inline KORFault FaultOf(KORFault::Kind kind, KORFault::Life life = KORFault::Life::Always) {
  return KORFault{InjectedStatus, kind, life, nullptr};
}

/// What comes out of an operation while one platform call fails, by the kind of the fault.
struct FaultRow {
  const char* call;
  std::string status_and_null;
  std::string status_alone;
  std::string null_alone;

  const std::string& OutcomeOf(KORFault::Kind kind) const {
    if (kind == KORFault::Kind::StatusAndNull) return status_and_null;
    return kind == KORFault::Kind::StatusAlone ? status_alone : null_alone;
  }
};

/// A row under one of the kinds, for one call or for all.
struct FaultCase {
  FaultRow row;
  KORFault::Kind kind;
  KORFault::Life life;

  const std::string& Outcome() const { return row.OutcomeOf(kind); }
};

/// Every row under every kind, once and always. For INSTANTIATE_TEST_SUITE_P with testing::ValuesIn.
inline std::vector<FaultCase> AllFaults(const std::vector<FaultRow>& rows) {
  std::vector<FaultCase> cases;
  for (const FaultRow& row : rows) {
    for (const KORFault::Kind kind : FaultKinds) {
      for (const KORFault::Life life : FaultLives) cases.push_back({row, kind, life});
    }
  }
  return cases;
}

/// Names a fault case, as "GetRepReferenceStatusAloneOnce".
struct FaultCaseName {
  std::string operator()(const testing::TestParamInfo<FaultCase>& info) const {
    std::string name;
    for (const char* letter = info.param.row.call; *letter != '\0'; ++letter) {
      if (*letter != ':') name += *letter;
    }
    switch (info.param.kind) {
      case KORFault::Kind::StatusAndNull:
        name += "StatusAndNull";
        break;
      case KORFault::Kind::StatusAlone:
        name += "StatusAlone";
        break;
      default:
        name += "NullAlone";
    }
    return name + (info.param.life == KORFault::Life::Once ? "Once" : "Always");
  }
};

/// The outcome of an operation with a fault, and that it does its work again once the fault is gone.
template <class Operation>
void ExpectOutcomeUnderFault(KORSession& session, const FaultCase& fault, const Operation& operation,
                             const std::string& outcome_without) {
  session.InjectFault(fault.row.call, FaultOf(fault.kind, fault.life));
  EXPECT_EQ(operation(), fault.Outcome());
  if (fault.life == KORFault::Life::Always) session.ClearFaults();
  EXPECT_EQ(operation(), outcome_without) << "once the fault is gone";
}

/// A test with a row of faults.
class FaultTest : public ObjectsRowTest<FaultCase> {
 protected:
  template <class Operation>
  void ExpectOutcome(const Operation& operation, const std::string& outcome_without) {
    ExpectOutcomeUnderFault(_Session, GetParam(), operation, outcome_without);
  }
};

}  // namespace objectstest
