// The analyses that a command is given.
#include "tools/analysis/AnalysisRun.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "tools/analysis/AnalysisMessages.h"

namespace tool {

namespace {

namespace files = std::filesystem;

}  // namespace

AnalysisRun::AnalysisRun(const CommandLine& line, const Catalogue& catalogue, VEXSTMTimeAnalysisDlgServices& services,
                         Answers& answers)
    : _Model(line.Model),
      _System(line.System),
      _Services(services),
      _Answers(answers),
      _Codes(catalogue, answers),
      _Builder(_Codes, services, line.System) {
  std::error_code error;
  if (!_Model.empty() && !files::is_directory(_Model, error)) throw NoSuchFileOrFolder(_Model);
  for (const std::string& path : line.Texts) AddPath(path);
}

void AnalysisRun::AddPath(const std::string& path) {
  std::error_code error;
  const files::file_status status = files::status(path, error);
  if (status.type() == files::file_type::not_found) return _Answers.Tell(NoSuchFileOrFolder(path));
  const bool is_folder = status.type() == files::file_type::directory;
  const std::string parent = files::path(path).parent_path().string();
  const std::string own = is_folder ? path : parent.empty() ? "." : parent;
  AnalysisFolder& folder = FolderOf(_Model.empty() ? own : _Model);
  if (!folder.Holds(path)) return _Answers.Tell(OutsideModelFolder(path, _Model));
  is_folder ? folder.AddAll(path) : folder.AddFile(path);
}

AnalysisFolder& AnalysisRun::FolderOf(const std::string& path) {
  for (std::size_t index = 0; index < _Paths.size(); ++index) {
    if (_Paths[index] == path) return *_Folders[index];
  }
  _Paths.push_back(path);
  const auto tell = [this](const Failure& failure) { _Answers.Tell(failure); };
  return *_Folders.emplace_back(std::make_unique<AnalysisFolder>(path, tell));
}

void AnalysisRun::Build(const Take& take, OutOfDate out_of_date) {
  for (const std::unique_ptr<AnalysisFolder>& folder : _Folders) BuildFolder(*folder, take, out_of_date);
}

std::size_t AnalysisRun::CountAnalyses() const {
  std::size_t count = 0;
  for (const std::unique_ptr<AnalysisFolder>& folder : _Folders) {
    for (const AnalysisFolder::Member& member : folder->GetMembers()) count += member.IsWanted ? 1 : 0;
  }
  return count;
}

void AnalysisRun::BuildFolder(AnalysisFolder& folder, const Take& take, OutOfDate out_of_date) {
  const std::vector<std::size_t> order = folder.Resolve();
  std::vector<BuiltAnalysis> built(order.size());
  for (const std::size_t index : order) {
    const AnalysisFolder::Member& member = folder.GetMembers()[index];
    ReusedAnalyses reused;
    for (const std::size_t of_row : member.Reused) {
      reused.push_back(of_row == AnalysisFolder::NoAnalysis ? nullptr : &built[of_row]);
    }
    built[index] = _Builder.Build(member.File, member.Identifier, reused);
    if (member.IsWanted) take(member, built[index], reused);
    TellProblems(member, built[index], out_of_date);
  }
}

void AnalysisRun::TellProblems(const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                               OutOfDate out_of_date) {
  std::vector<PlacedFailure> problems = member.ReuseFaults;
  problems.insert(problems.end(), built.Problems.begin(), built.Problems.end());
  if (out_of_date == OutOfDate::Told) {
    problems.insert(problems.end(), built.OutOfDate.begin(), built.OutOfDate.end());
  }
  std::stable_sort(problems.begin(), problems.end(), [](const PlacedFailure& left, const PlacedFailure& right) {
    return left.GetLine() < right.GetLine();
  });
  for (const PlacedFailure& problem : problems) _Answers.Tell(problem);
}

}  // namespace tool
