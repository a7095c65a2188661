// A session with legacy analyses: operations under which stand analyses that are one stream each, in a file.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORRecord.h"
#include "platform/system/KORSession.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"
#include "tests/support/TemporaryFolder.h"

namespace exchangetest {

/// A status that nothing but a fault gives.
inline constexpr long FaultStatus = -77;

/// How an operation of the platform fails, in words that can name a test.
struct FaultWay {
  const char* Name;
  KORFault::Kind Kind;
};
inline constexpr FaultWay StatusAndNull{"StatusAndNull", KORFault::Kind::StatusAndNull};
inline constexpr FaultWay StatusAlone{"StatusAlone", KORFault::Kind::StatusAlone};
inline constexpr FaultWay NullAlone{"NullAlone", KORFault::Kind::NullAlone};

inline void InjectFault(const std::string& operation, KORFault::Kind kind, KORFault::Life life) {
  KORFault fault{FaultStatus};
  fault.What = kind;
  fault.Holds = life;
  KORSession::Current().InjectFault(operation, fault);
}

/// An operation with its occurrence.
struct LegacyOperation {
  KORHandle<KOROperationReference> Operation;
  KORHandle<KOROperationOccurrence> Occurrence;
};

class LegacyTest : public testing::Test {
 protected:
  /// A new operation under which nothing stands yet.
  static LegacyOperation AddOperation() {
    const auto operation = KORModel::Current().CreateOperation("OP");
    return {operation, KORModel::Current().CreateOccurrence(KORIPLMNavReference_var(operation))};
  }

  /// An operation with a legacy analysis, whose stream is a file of that content; without content it has no stream.
  LegacyOperation AddLegacy(const std::string& identifier, const std::optional<std::string>& stream) {
    const LegacyOperation made = AddOperation();
    const support::TimeAnalysis_var analysis = MakeLegacy(identifier, stream);
    Attach(made, PLMIRepReference_var(analysis));
    return made;
  }

  support::TimeAnalysis_var MakeLegacy(const std::string& identifier, const std::optional<std::string>& stream) {
    const support::TimeAnalysis_var analysis = KORModel::Current().CreateTimeAnalysis(support::Unicode(identifier));
    if (stream) {
      const std::string path = Folder.Write(std::to_string(++_FileCount) + ".stream", *stream);
      analysis->GetContent().LegacyStreamPath = support::Unicode(path);
    }
    return analysis;
  }

  static void Attach(const LegacyOperation& made, const PLMIRepReference_var& representation) {
    PLMIRepInstance* instance = nullptr;
    ASSERT_EQ(made.Operation->AddRepInstance(nullptr, representation.Get(), instance, 0), S_OK);
    (void)PLMIRepInstance_var::Adopt(instance);
  }

  /// The representations that stand under an operation, in their order. Faults are not in the way.
  static std::vector<KORBaseUnknown_var> Under(const LegacyOperation& made) {
    KORSession::Current().ClearFaults();
    KORListValKORBaseUnknown_var instances;
    EXPECT_EQ(made.Operation->ListRepInstances(instances), S_OK);
    std::vector<KORBaseUnknown_var> representations;
    for (const KORBaseUnknown_var& instance : instances) {
      PLMIRepReference* reference = nullptr;
      EXPECT_EQ(PLMIRepInstance_var(instance)->GetRepReference(reference), S_OK);
      representations.emplace_back(PLMIRepReference_var::Adopt(reference));
    }
    return representations;
  }

  static void Record(KORRecord::Mode mode) { KORSession::Current().GetRecorder().SetMode(mode); }

  const KORFreshSession Session;
  const support::TemporaryFolder Folder;
  TraceLines Trace;

 private:
  int _FileCount = 0;
};

}  // namespace exchangetest
