// Legacy analyses for tests: analyses that are one stream each, in a file.
#pragma once

#include <optional>
#include <string>

#include "platform/model/KORModel.h"
#include "platform/system/KORRecord.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/TemporaryFolder.h"

namespace exchangetest {

/// Makes legacy analyses in the model of the current session, and keeps their files.
class LegacyAnalyses {
 public:
  /// One whose stream is a file of that content; without content it has no stream.
  support::TimeAnalysis_var Make(const std::string& identifier, const std::optional<std::string>& stream) {
    const support::TimeAnalysis_var analysis = KORModel::Current().CreateTimeAnalysis(support::Unicode(identifier));
    if (stream) {
      const std::string path = _Folder.Write(std::to_string(++_FileCount) + ".stream", *stream);
      analysis->GetContent().LegacyStreamPath = support::Unicode(path);
    }
    return analysis;
  }

  const support::TemporaryFolder& Folder() const { return _Folder; }

 private:
  support::TemporaryFolder _Folder;
  int _FileCount = 0;
};

/// Sets the recorder of the current session.
inline void Record(KORRecord::Mode mode) {
  KORSession::Current().GetRecorder().SetMode(mode);
}

inline void SetSystem(VEXTimeAnalysisRepReference& analysis, const char* system) {
  (void)analysis.SetValue("V_Subsystem", KORUnicodeString(system));
}

}  // namespace exchangetest
