// timeanalysis calc: analyses from text files, with their times and totals.
#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>
#include <system_error>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/AnalysisFolder.h"
#include "tools/analysis/AnalysisMessages.h"
#include "tools/analysis/AnalysisResult.h"
#include "tools/analysis/CalcReport.h"
#include "tools/analysis/CodeBook.h"

namespace tool {

namespace {

namespace files = std::filesystem;

// The folders that the analyses of a run lie in.
class CalcFolders {
 public:
  CalcFolders(const CommandLine& line, Answers& answers) : _Model(line.Model), _Answers(answers) {
    std::error_code error;
    if (!_Model.empty() && !files::is_directory(_Model, error)) throw NoSuchFileOrFolder(_Model);
  }

  void Add(const std::string& path) {
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

  const std::vector<std::unique_ptr<AnalysisFolder>>& GetFolders() const { return _Folders; }

 private:
  AnalysisFolder& FolderOf(const std::string& path) {
    for (std::size_t index = 0; index < _Paths.size(); ++index) {
      if (_Paths[index] == path) return *_Folders[index];
    }
    _Paths.push_back(path);
    const auto tell = [this](const Failure& failure) { _Answers.Tell(failure); };
    return *_Folders.emplace_back(std::make_unique<AnalysisFolder>(path, tell));
  }

  std::string _Model;
  Answers& _Answers;
  std::vector<std::string> _Paths;
  std::vector<std::unique_ptr<AnalysisFolder>> _Folders;
};

// Computes analyses and writes those that were asked for.
class Calculation {
 public:
  Calculation(const CommandLine& line, const Catalogue& catalogue, Answers& answers)
      : _Line(line),
        _Answers(answers),
        _Codes(catalogue, answers),
        _Builder(_Codes, _Services, line.System),
        _Unit(_Services, line.Unit) {
    if (line.Csv) WriteCsvHeader(answers.Out());
  }

  void Compute(AnalysisFolder& folder) {
    const std::vector<std::size_t> order = folder.Resolve();
    std::vector<BuiltAnalysis> built(order.size());
    for (const std::size_t index : order) {
      const AnalysisFolder::Member& member = folder.GetMembers()[index];
      ReusedAnalyses reused;
      for (const std::size_t of_row : member.Reused) {
        reused.push_back(of_row == AnalysisFolder::NoAnalysis ? nullptr : &built[of_row]);
      }
      built[index] = _Builder.Build(member.File, member.Identifier, reused);
      if (member.IsWanted) Write(member, built[index]);
      TellProblems(member, built[index]);
    }
  }

  /// Closes a run of several tables with their totals.
  void Finish() {
    if (_Written.size() > 1) WriteOverview(_Answers.Out(), _Written, _Unit);
  }

 private:
  void TellProblems(const AnalysisFolder::Member& member, const BuiltAnalysis& built) {
    std::vector<PlacedFailure> problems = member.ReuseFaults;
    problems.insert(problems.end(), built.Problems.begin(), built.Problems.end());
    std::stable_sort(problems.begin(), problems.end(), [](const PlacedFailure& left, const PlacedFailure& right) {
      return left.GetLine() < right.GetLine();
    });
    for (const PlacedFailure& problem : problems) _Answers.Tell(problem);
  }

  void Write(const AnalysisFolder::Member& member, const BuiltAnalysis& built) {
    const bool has_nothing = built.Rows.empty() && !member.File.IsWhole();
    if (has_nothing) return;
    AnalysisResult result = ReadResult(member, built, _Services);
    if (_Line.Json) {
      WriteResultJson(_Answers.Out(), result, _Services);
    } else if (_Line.Csv) {
      WriteResultCsv(_Answers.Out(), result, _Unit);
    } else {
      WriteResultTable(_Answers.Out(), result, _Unit, _Written.empty());
      result.Lines.clear();
      _Written.push_back(std::move(result));
    }
  }

  const CommandLine& _Line;
  Answers& _Answers;
  VEXSTMTimeAnalysisDlgServices _Services;
  CodeBook _Codes;
  AnalysisBuilder _Builder;
  ResultUnit _Unit;
  std::vector<AnalysisResult> _Written;  // as tables, without their lines
};

}  // namespace

void RunCalc(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  CalcFolders folders(line, answers);
  for (const std::string& path : line.Texts) folders.Add(path);
  Calculation calculation(line, catalogue, answers);
  for (const std::unique_ptr<AnalysisFolder>& folder : folders.GetFolders()) calculation.Compute(*folder);
  calculation.Finish();
}

}  // namespace tool
