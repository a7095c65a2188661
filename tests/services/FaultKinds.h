// What the tests of injected faults share: how an operation is called so that what it leaves is seen, and the walk
// through all kinds of faults.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace servicestest {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

/// The status of the faults, which nothing else gives.
inline constexpr long FaultStatus = -77;

/// The error that faults raise.
struct FaultRaised {};

/// Runs an operation and asks `check` whether it did its work, also where it raises.
template <class Operation, class Check>
long Run(bool& done, const Operation& operation, const Check& check) {
  try {
    const long status = operation();
    done = check();
    return status;
  } catch (const FaultRaised&) {
    done = check();
    throw;
  }
}

/// The same for an operation that hands out an object: it is done if the pointer is not null.
template <class Interface, class Operation>
long HandOut(bool& done, const Operation& operation) {
  int anything = 0;
  auto* const before = reinterpret_cast<Interface*>(&anything);
  Interface* out = before;
  return Run(
      done, [&] { return operation(out); },
      [&] {
        EXPECT_NE(out, before) << "the pointer was left as it was";
        if (out != nullptr && out != before) out->Release();
        return out != nullptr;
      });
}

/// The same for one that hands out an interface by its identifier.
template <class Interface, class Operation>
long HandOutAnonymous(bool& done, const Operation& operation) {
  return HandOut<Interface>(done, [&](Interface*& out) {
    void* found = out;
    const auto take = [&] { out = static_cast<Interface*>(found); };
    try {
      const long status = operation(&found);
      take();
      return status;
    } catch (const FaultRaised&) {
      take();
      throw;
    }
  });
}

inline Analysis_var NewAnalysis() {
  return KORModel::Current().CreateTimeAnalysis("TA");
}

/// An operation of the platform, by the name under which faults are put into it.
struct OperationRow {
  const char* Name;
  long (*Call)(bool& done);  // on objects of its own; `done` tells whether it did its work
  bool GivesStatus = true;   // false: it gives its result alone, and Call gives S_OK
  bool CanRaise = true;      // false: no error leaves it, and the kind that raises one is left out
};

/// Names the rows.
struct NameOfOperation {
  std::string operator()(const testing::TestParamInfo<OperationRow>& row) const {
    std::string name = row.param.Name;
    std::erase(name, ':');
    return name;
  }
};

class FaultKindsTest : public testing::TestWithParam<OperationRow> {
 protected:
  using Kind = KORFault::Kind;
  using Life = KORFault::Life;

  FaultKindsTest() { _Session.SetCurrentUserId("user"); }

  /// Puts faults of all kinds into the operation, each for one call and for all, and looks at the calls with them and
  /// at the call behind them.
  void CheckAllKinds() {
    ExpectWork();
    for (const Kind what : {Kind::StatusAndNull, Kind::StatusAlone, Kind::NullAlone, Kind::Raised}) {
      if (what == Kind::Raised && !GetParam().CanRaise) continue;
      SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(what));
      Inject(what, Life::Once);
      ExpectFault(what);
      ExpectWork();
      Inject(what, Life::Always);
      ExpectFault(what);
      ExpectFault(what);
      _Session.ClearFaults();
      ExpectWork();
    }
  }

 private:
  void Inject(Kind what, Life life) {
    KORFault fault{FaultStatus, what, life};
    if (what == Kind::Raised) fault.Error = std::make_exception_ptr(FaultRaised());
    _Session.InjectFault(GetParam().Name, fault);
  }

  static void ExpectFault(Kind what) {
    bool done = what != Kind::StatusAlone;
    if (what == Kind::Raised) {
      EXPECT_THROW((void)GetParam().Call(done), FaultRaised);
    } else {
      const bool tells = GetParam().GivesStatus && what != Kind::NullAlone;
      EXPECT_EQ(GetParam().Call(done), tells ? FaultStatus : S_OK);
    }
    EXPECT_EQ(done, what == Kind::StatusAlone);
  }

  static void ExpectWork() {
    bool done = false;
    EXPECT_EQ(GetParam().Call(done), S_OK);
    EXPECT_TRUE(done);
  }

  KORFreshSession _Session;
};

}  // namespace servicestest
