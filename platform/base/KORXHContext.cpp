// The scope in which a raised error is caught.
#include "platform/base/KORXHContext.h"

std::optional<KORError> KORXHContext::GetError() const {
  if (_Caught == nullptr) return std::nullopt;
  try {
    std::rethrow_exception(_Caught);
  } catch (const KORError& error) {
    return error;
  } catch (...) {
    return std::nullopt;
  }
}
