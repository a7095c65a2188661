// What the platform is told of this module's classes when the module is loaded, so that it finds them by name and
// interface.
#pragma once

#include "platform/base/KORMetaClass.h"

namespace presentation {

/// The framework of all classes of the module.
inline constexpr const char* ModuleName = "VEXTimeAnalysisModeler";

/// The description of a class of the module; null for a name that is not in its table. The descriptions of all classes
/// are made by the first call, be it ahead of the registration or part of it. Safe across threads.
const KORMetaClass* RetrieveMetaObject(const char* class_name);

}  // namespace presentation
