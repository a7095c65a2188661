// Runs an operation of the platform through every kind of fault, held once and always.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>

#include "platform/base/KORError.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace support {

/// The status of the faults; no operation gives it by itself.
inline constexpr long InjectedStatus = static_cast<std::int32_t>(0x80040111u);

/// What one call of an operation came to.
struct Attempt {
  std::optional<long> Status;  // nothing for an operation that gives none
  bool Given = false;          // whether it handed out or changed what it does when it works
};

/// One call of an operation that works, in the current session; called anew for each attempt.
using AttemptCall = std::function<Attempt()>;

/// Calls an operation with an out pointer that is not null before, and releases what it hands out.
template <class Interface, class Call>
Attempt AttemptWithOut(const Call& call) {
  int anything = 0;
  auto* const before = reinterpret_cast<Interface*>(&anything);
  Interface* out = before;
  const long status = call(out);
  const bool given = out != nullptr;
  if (given && out != before) out->Release();
  return {status, given};
}

/// The same for an operation that takes the place of an interface without its type.
template <class Interface, class Call>
Attempt AttemptWithVoidOut(const Call& call) {
  return AttemptWithOut<Interface>([&call](Interface*& out) {
    void* place = out;
    const long status = call(&place);
    out = static_cast<Interface*>(place);
    return status;
  });
}

inline void ExpectWork(const AttemptCall& call) {
  const Attempt attempt = call();
  EXPECT_EQ(attempt.Status.value_or(S_OK), S_OK);
  EXPECT_TRUE(attempt.Given);
}

inline void ExpectFault(const AttemptCall& call, KORFault::Kind kind) {
  if (kind == KORFault::Kind::Raised) {
    EXPECT_THROW((void)call(), KORError);
    return;
  }
  const Attempt attempt = call();
  const long expected = kind == KORFault::Kind::NullAlone ? S_OK : InjectedStatus;
  EXPECT_EQ(attempt.Status.value_or(expected), expected);
  EXPECT_EQ(attempt.Given, kind == KORFault::Kind::StatusAlone);
}

/// Expects that the operation of that name works without a fault, fails with each kind of fault for one call or for
/// all, works again once the fault is gone, and leaves no object behind its session.
inline void ExpectFaultsAsTold(const char* operation, const AttemptCall& call) {
  using Kind = KORFault::Kind;
  using Life = KORFault::Life;
  const std::exception_ptr error = std::make_exception_ptr(KORError(InjectedStatus, "broken"));
  for (const Kind kind : {Kind::StatusAndNull, Kind::StatusAlone, Kind::NullAlone, Kind::Raised}) {
    for (const Life life : {Life::Once, Life::Always}) {
      SCOPED_TRACE(std::string(operation) + ", kind " + std::to_string(static_cast<int>(kind)) +
                   (life == Life::Once ? ", once" : ", always"));
      const long before = KORBaseUnknown::CountLiveObjects();
      {
        KORFreshSession session;
        ExpectWork(call);
        session.InjectFault(operation, KORFault{InjectedStatus, kind, life, error});
        ExpectFault(call, kind);
        if (life == Life::Once) {
          ExpectWork(call);
        } else {
          ExpectFault(call, kind);
        }
        session.ClearFaults();
        ExpectWork(call);
      }
      EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
    }
  }
}

}  // namespace support
