// The analyses that a command is given: their files and folders read, each built behind those that it reuses.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/Answers.h"
#include "tools/Catalogue.h"
#include "tools/CommandLine.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/AnalysisFolder.h"
#include "tools/analysis/CodeBook.h"

namespace tool {

class AnalysisRun {
 public:
  /// Takes what a built analysis is worth: one that was asked for, with what each of its rows reuses. All of them live
  /// until the end of the call; analyses themselves as long as the session.
  using Take = std::function<void(const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                                  const ReusedAnalyses& reused)>;

  /// Finds the files. What cannot be found or read goes to `answers`. All have to outlive the run.
  AnalysisRun(const CommandLine& line, const Catalogue& catalogue, VEXSTMTimeAnalysisDlgServices& services,
              Answers& answers);

  /// Whether recorded times that are not the present ones are told of.
  enum class OutOfDate { Told, PassedOver };

  /// Builds all analyses in the model of the current session; tells of what is wrong with each behind its `take`.
  void Build(const Take& take, OutOfDate out_of_date = OutOfDate::Told);

  /// Number of analyses that were asked for.
  std::size_t CountAnalyses() const;

  /// A builder for further analyses with the codes and the system of the run, which has to outlive it.
  AnalysisBuilder MakeBuilder() { return {_Codes, _Services, _System}; }

 private:
  void AddPath(const std::string& path);
  AnalysisFolder& FolderOf(const std::string& path);
  void BuildFolder(AnalysisFolder& folder, const Take& take, OutOfDate out_of_date);
  void TellProblems(const AnalysisFolder::Member& member, const BuiltAnalysis& built, OutOfDate out_of_date);

  std::string _Model;
  std::string _System;  // of analyses that name none
  VEXSTMTimeAnalysisDlgServices& _Services;
  Answers& _Answers;
  std::vector<std::string> _Paths;  // of the folders
  std::vector<std::unique_ptr<AnalysisFolder>> _Folders;
  CodeBook _Codes;
  AnalysisBuilder _Builder;
};

}  // namespace tool
