// Files of a folder given their new contents, each whole or not at all.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/Answers.h"
#include "tools/impact/ImpactedAnalysis.h"

namespace tool {

/// Gives the files whose state is Changes their new contents, in their order: each is written in a file of its own
/// beside it, which then takes its place and its permissions. Their state becomes Written, or stays as Old.
///
/// All of them are looked at ahead of the first: where one is a link or may only be read, none is written, which
/// `answers` and NothingApplied tell. Raises StoppedInBetween where one cannot be written, where one has changed since
/// it was read, and where the run is to stop; those before are new then, and it and those behind it are old.
///
/// folder          that the analyses lie in
/// is_stop_wanted  asked ahead of each file
void UpdateFiles(const std::string& folder, const FolderAnalyses& analyses, std::vector<ImpactedAnalysis>& impacted,
                 Answers& answers, const std::function<bool()>& is_stop_wanted,
                 const std::function<void(std::size_t done)>& tick);

}  // namespace tool
