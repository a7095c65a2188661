// What a node of the tree stands for.
#pragma once

#include <utility>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"

/// The place of a model object in the tree. It keeps the object alive. One serves one thread at a time.
class KORPLATFORM_API KORNavigInstance final : public KORBaseUnknown {
 public:
  /// Null for a node that has lost its object.
  explicit KORNavigInstance(KORBaseUnknown_var object) : _Object(std::move(object)) {}
  KORNavigInstance(const KORNavigInstance&) = delete;
  KORNavigInstance& operator=(const KORNavigInstance&) = delete;
  ~KORNavigInstance() override = default;

  /// The model object; null if there is none.
  KORBaseUnknown_var GetReference() const;

 private:
  KORBaseUnknown_var _Object;
};
