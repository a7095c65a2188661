// The analyses of a folder, and what a change of one of them does to those above it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/AnalysisFolder.h"
#include "tools/analysis/AnalysisResult.h"
#include "tools/impact/ImpactClimb.h"

namespace tool {

/// An analysis of the folder, built from its file as it stands.
struct FolderAnalysis {
  const AnalysisFolder::Member* Member;
  BuiltAnalysis Built;
  std::vector<std::size_t> Reused;  // by row: position in the list of analyses, or AnalysisFolder::NoAnalysis
};

/// Each stands behind those that it reuses.
using FolderAnalyses = std::vector<FolderAnalysis>;

/// What becomes of the file of an analysis.
enum class FileState {
  Follows,  // it stays as it is: it records no time that changes
  Changes,  // it is to be changed
  Written,  // it was changed
  Old,      // it was to be changed, and stands as it was
  Flawed    // the analysis has faults, of its own or below it: nothing is done to it
};

/// The rows by which an analysis reuses the template or one above it.
struct ImpactUse {
  std::size_t Reused = 0;         // position in the list of analyses
  std::vector<std::size_t> Rows;  // of the reusing one, from 0
};

struct ImpactedAnalysis {
  ClimbStep Step;
  std::vector<ImpactUse> Uses;
  TotalsOfAnalysis OldTmu{};
  std::optional<TotalsOfAnalysis> NewTmu;  // none for a flawed one
  FileState State = FileState::Follows;
  std::string OldContent;  // bytes of the file, if it is to be changed
  std::string NewContent;
};

}  // namespace tool
