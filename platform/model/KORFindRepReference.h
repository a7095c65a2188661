// The way from an interface to the representation reference behind it.
#pragma once

#include "platform/model/KORRepReference.h"

/// The representation reference that an object is, by whichever of its interfaces it is given, with no reference added;
/// null for null and for an object of another kind.
inline KORRepReference* KORFindRepReference(KORBaseUnknown* object) {
  return object == nullptr ? nullptr : dynamic_cast<KORRepReference*>(object->GetImpl(0));
}
