// What the platform is told of this module's classes when the module is loaded, so that it finds them by name and
// interface.
#pragma once

#include <array>

#include "platform/base/KORExtension.h"
#include "platform/base/KORMetaClass.h"

namespace presentation {

/// A class of the module.
struct ClassRow {
  const char* Class;
  ENUMTypeOfClass Kind;
  const KORMetaClass* (*MetaClassBase)();
  const char* ExtendsComponent;  // "KORNull": none
  const char* AlsoExtends;       // null: none
};

/// An interface for which a class of the module answers.
struct DictionaryRow {
  const char* Class;
  const KORUuid& (*Interface)();
  KORCreationFunction Create;
};

extern const std::array<ClassRow, 8> Classes;
extern const std::array<DictionaryRow, 8> Dictionary;

/// The description of a class of the table; null for any other name. They are all made by the first call, ahead of the
/// registration or with it. Safe across threads.
const KORMetaClass* RetrieveMetaObject(const char* class_name);

}  // namespace presentation
