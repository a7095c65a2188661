// Raised errors and the errors that wait behind a status.
#include "platform/base/KORError.h"

#include <utility>

#include "platform/base/KORStatus.h"

namespace {

std::optional<KORError>& LastError() {
  thread_local std::optional<KORError> error;
  return error;
}

}  // namespace

KORError::KORError(long status, KORUnicodeString message) : _Status(status), _Message(std::move(message)) {
}

void KORError::Throw() const {
  throw KORError(*this);
}

void KORError::Throw(const std::exception_ptr& caught) {
  std::rethrow_exception(caught);
}

std::optional<KORError> KORError::KORGetLastError(long status, const void* /*reserved*/) {
  const std::optional<KORError>& last = LastError();
  if (!last || last->GetStatus() != status) return std::nullopt;
  return last;
}

void KORError::SetLastError(const KORError& error) {
  LastError() = error;
}

void KORError::ClearLastError() {
  LastError().reset();
}

void ThrowErrorNullVar() {
  throw KORError(E_FAIL, "Call through a null handle");
}
