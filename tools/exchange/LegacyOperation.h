// A legacy analysis under an operation, as the migration of the library takes it.
#pragma once

#include <string>

#include "platform/model/KOROperation.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

class LegacyOperation {
 public:
  /// Makes an operation, with an occurrence, in the model of the current session, and puts the analysis under it.
  ///
  /// legacy  is given the file as its stream
  LegacyOperation(AnalysisHandle legacy, const std::string& path);

  /// Has the library bring the analysis over. The new analysis, which bears the identifier of the legacy one then; null
  /// if the library has left it out, and `status` tells why.
  AnalysisHandle Migrate(long& status) const;

 private:
  AnalysisHandle _Legacy;
  KORHandle<KOROperationOccurrence> _Occurrence;
};

}  // namespace tool
