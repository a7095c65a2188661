// Makes the objects of registered components.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUuid.h"

/// Makes a new object of a registered component (KORFillDictionary) and asks it for an interface. Safe across threads.
///
/// interface_id  of the interface that is wanted
/// out           [out] pointer to the interface with a reference, which the caller releases; null on failure
/// S_OK; E_FAIL if no component of that name is registered; E_NOINTERFACE if it doesn't offer the interface;
/// E_INVALIDARG for a null argument.
KORPLATFORM_API long KORInstantiateComponent(const char* component, const KORUuid& interface_id, void** out);
