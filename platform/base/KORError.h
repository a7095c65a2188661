// Raised errors and the errors that wait behind a status.
#pragma once

#include <exception>
#include <optional>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// An error with the words for a person. The only exception that the platform raises by itself is the null-handle
/// error.
class KORPLATFORM_API KORError {
 public:
  KORError(long status, KORUnicodeString message);

  long GetStatus() const { return _Status; }
  const KORUnicodeString& GetMessage() const { return _Message; }

  /// The kind of error that this is.
  static const char* ClassName() { return "KORError"; }

  /// Raises this error.
  [[noreturn]] void Throw() const;
  /// Raises a caught error again, of whichever kind; `caught` is not null. KORXHContext catches errors.
  [[noreturn]] static void Throw(const std::exception_ptr& caught);

  /// The error that the last failing operation of this thread left with `status`; nothing if it left none.
  /// The second argument is reserved by the platform and is passed as null.
  static std::optional<KORError> KORGetLastError(long status, const void* reserved);

  /// Leaves an error for KORGetLastError on this thread, in place of the one before.
  static void SetLastError(const KORError& error);
  /// Forgets the error left on this thread.
  static void ClearLastError();

 private:
  long _Status;
  KORUnicodeString _Message;
};

/// Raises the null-handle error: a KORError with status E_FAIL.
[[noreturn]] KORPLATFORM_API void ThrowErrorNullVar();
