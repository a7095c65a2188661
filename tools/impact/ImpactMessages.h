// Messages about the impact of changes. The words for a cause are written here and nowhere else.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/analysis/AnalysisMessages.h"

namespace tool {

// The template.
PlacedFailure NoFolderOfAnalyses(const std::string& path);
PlacedFailure TemplateNotFound(const std::string& folder, std::string_view identifier,
                               const std::vector<std::string>& nearest);
Failure TemplateShared(std::string_view identifier, const std::vector<std::string>& paths);

// What comes of its change.
PlacedFailure CarriesTooMuch(const FilePlace& place, std::string_view rows, std::size_t bound);
PlacedFailure PropagationFails(const std::string& path);
PlacedFailure TotalsDiffer(const std::string& path, const std::string& carried, const std::string& computed);

// Files that are changed.
PlacedFailure ChangedWhileRead(const std::string& path);
PlacedFailure FileIsLink(const std::string& path);
PlacedFailure FileIsReadOnly(const std::string& path);
Failure NothingApplied();
Failure Interrupted();
Failure InterruptedEarly();
/// The end ahead of time of a run that changes files: which of them are new, and which are old.
Failure StoppedInBetween(const Failure& cause, const std::vector<std::string>& written,
                         const std::vector<std::string>& old);

}  // namespace tool
