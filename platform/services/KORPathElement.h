// A path through the tree.
#pragma once

#include <cstddef>
#include <new>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"

/// A path that starts at an object and, so far, ends there. It keeps the object alive. One serves one thread at a time.
class KORPLATFORM_API KORPathElement final : public KORBaseUnknown {
 public:
  explicit KORPathElement(KORBaseUnknown* object) : _Start(object) {}
  KORPathElement(const KORPathElement&) = delete;
  KORPathElement& operator=(const KORPathElement&) = delete;
  ~KORPathElement() override = default;

  const KORBaseUnknown_var& GetStart() const { return _Start; }

  /// Memory for a path; null if there is none, and with a fault put into it.
  static void* operator new(std::size_t size, const std::nothrow_t& no_throw) noexcept;
  static void operator delete(void* path, const std::nothrow_t& no_throw) noexcept;
  static void operator delete(void* path) noexcept;

 private:
  KORBaseUnknown_var _Start;
};
