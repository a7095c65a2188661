// The scope in which a raised error is caught.
#pragma once

#include <exception>
#include <optional>

#include "platform/base/KORError.h"
#include "platform/base/KORExport.h"

/// Marks a scope in which an error is caught, of whichever kind, and keeps it until the next scope is run.
///
/// Example: KORXHContext context;
///          if (!context.Run([&] { members = container->ListMembers(name); })) {
///            if (!context.GetError()) KORError::Throw(context.GetCaught());  // no business of ours
///            status = E_FAIL;
///          }
class KORPLATFORM_API KORXHContext {
 public:
  /// Runs the scope on the caller's thread. True if it ended without an error, false if an error was caught; what the
  /// scope had made by then is destroyed.
  template <class Scope>
  bool Run(Scope&& scope) {
    _Caught = nullptr;
    try {
      scope();
    } catch (...) {
      _Caught = std::current_exception();
    }
    return _Caught == nullptr;
  }

  /// The caught error if it is a kind of KORError; nothing if it is another one or none was caught.
  std::optional<KORError> GetError() const;
  /// The caught error, of whichever kind, for KORError::Throw; null if none was caught.
  const std::exception_ptr& GetCaught() const { return _Caught; }

 private:
  std::exception_ptr _Caught;
};
