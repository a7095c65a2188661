// Objects whose attributes the knowledge engine reads.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"

/// Marks an object with attributes. KORCkeObjectAttrReadServices reads them.
class KORICkeObject : public KORInterface<KORICkeObject> {
 public:
  static constexpr const char* InterfaceName = "KORICkeObject";
};
using KORICkeObject_var = KORHandle<KORICkeObject>;
