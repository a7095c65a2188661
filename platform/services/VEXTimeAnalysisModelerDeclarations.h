// Names that the modeler declares for its data.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

struct KORPLATFORM_API VEXTimeAnalysisModelerDeclarations {
  /// The storage in which the features of a time analysis are declared. It is there for every static object of a source
  /// that includes this header ahead of it.
  static inline const KORUnicodeString StorageName{"VEXTimeAnalysisModelerFeatures"};
};
