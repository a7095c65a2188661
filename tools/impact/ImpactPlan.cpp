// What becomes of the files above a template.
#include "tools/impact/ImpactPlan.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFileContent.h"
#include "tools/NumberText.h"
#include "tools/analysis/AnalysisNumber.h"
#include "tools/analysis/AnalysisRowBuilder.h"
#include "tools/impact/FileCells.h"
#include "tools/impact/ImpactMessages.h"

namespace tool {

namespace {

// Times are rounded to six decimals on the way from one analysis to another.
constexpr double EqualTotals = 1e-6;

bool AreEqual(double left, double right) {
  return std::fabs(left - right) <= EqualTotals * std::max(1.0, std::fabs(right));
}

// The rows of a file with other contents of some cells.
std::vector<AnalysisRow> RowsWith(const AnalysisFile& file, const std::vector<CellChange>& changes) {
  std::vector<AnalysisRow> rows = file.GetRows();
  auto change = changes.begin();
  for (AnalysisRow& row : rows) {
    if (change == changes.end() || change->Line != row.Line) continue;
    row.Cells[change->Place - 1] = change->Content;
    ++change;
  }
  return rows;
}

bool HaveSameCells(const std::vector<AnalysisRow>& left, const std::vector<AnalysisRow>& right) {
  return std::ranges::equal(left, right, [](const AnalysisRow& one, const AnalysisRow& two) {
    return one.Line == two.Line &&
           std::ranges::equal(one.Cells, two.Cells, [](const std::string& one_cell, const std::string& two_cell) {
             return Trimmed(one_cell) == Trimmed(two_cell);
           });
  });
}

class Plan {
 public:
  Plan(const FolderAnalyses& analyses, AnalysisBuilder builder, const VEXSTMTimeAnalysisDlgServices& services,
       Answers& answers)
      : _Analyses(analyses), _Builder(std::move(builder)), _Services(services), _Answers(answers) {}

  void Make(ImpactedAnalysis& impacted) {
    const FolderAnalysis& analysis = _Analyses[impacted.Step.Analysis];
    impacted.State = FileState::Flawed;
    if (!analysis.Built.IsComplete) return;
    const std::vector<CellChange> changes = ChangesOf(impacted);
    AnalysisFile file = analysis.Member->File;
    if (!changes.empty() && !ReadChanged(impacted, changes, file)) return TellLeft(impacted);
    if (!Prove(impacted, file)) return;
    impacted.NewTmu = ReadTotals(analysis.Built);
    impacted.State = changes.empty() ? FileState::Follows : FileState::Changes;
  }

 private:
  // Recorded times that are not those of what their rows reuse.
  std::vector<CellChange> ChangesOf(const ImpactedAnalysis& impacted) const {
    const FolderAnalysis& analysis = _Analyses[impacted.Step.Analysis];
    const AnalysisFile& file = analysis.Member->File;
    std::vector<CellChange> changes;
    for (const ImpactUse& use : impacted.Uses) {
      const double seconds = TimeTakenOver(_Analyses[use.Reused].Built, _Services);
      for (const std::size_t row : use.Rows) {
        const std::string_view recorded = file.Cell(file.GetRows()[row], Column::Recorded);
        if (recorded.empty() || ReadFiniteNumber(recorded) == seconds) continue;
        changes.push_back({file.GetRows()[row].Line, file.PlaceOf(Column::Recorded), PlainNumberText(seconds)});
      }
    }
    std::sort(changes.begin(), changes.end(),
              [](const CellChange& left, const CellChange& right) { return left.Line < right.Line; });
    return changes;
  }

  // The file with its changes. False if its bytes are not, or no longer, those that it was built from.
  bool ReadChanged(ImpactedAnalysis& impacted, const std::vector<CellChange>& changes, AnalysisFile& file) const {
    const std::string path = file.GetPath();
    std::string cause;
    if (!KORReadFileContent(path, AnalysisFolder::LargestFile, impacted.OldContent, cause)) return false;
    std::optional<std::string> content = WithCellsChanged(impacted.OldContent, changes);
    if (!content) return false;
    const std::vector<AnalysisRow> wanted = RowsWith(file, changes);
    const KORUnicodeString text{std::string_view(*content)};
    file = AnalysisFile(path, text.Bytes());
    impacted.NewContent = std::move(*content);
    return HaveSameCells(file.GetRows(), wanted);
  }

  void TellLeft(const ImpactedAnalysis& impacted) {
    const FolderAnalysis& analysis = _Analyses[impacted.Step.Analysis];
    _Answers.Tell(ChangedWhileRead(analysis.Member->File.GetPath()));
    BuiltAnalysis& left = _Proven[impacted.Step.Analysis] = analysis.Built;
    left.IsComplete = false;
  }

  // Builds the analysis from its new file, upon those below it that were built so.
  bool Prove(const ImpactedAnalysis& impacted, const AnalysisFile& file) {
    const FolderAnalysis& analysis = _Analyses[impacted.Step.Analysis];
    ReusedAnalyses reused;
    for (const std::size_t of_row : analysis.Reused) {
      const auto proven = _Proven.find(of_row);
      const BuiltAnalysis* const standing = of_row == AnalysisFolder::NoAnalysis ? nullptr : &_Analyses[of_row].Built;
      reused.push_back(proven == _Proven.end() ? standing : &proven->second);
    }
    BuiltAnalysis& built = _Proven[impacted.Step.Analysis] = _Builder.Build(file, analysis.Member->Identifier, reused);
    TellNewProblems(analysis.Built, built);
    if (!built.IsComplete) return false;
    const bool is_same = std::ranges::equal(ReadTotals(analysis.Built), ReadTotals(built), AreEqual);
    if (!is_same) {
      _Answers.Tell(TotalsDiffer(file.GetPath(), TotalText(analysis.Built), TotalText(built)));
      built.IsComplete = false;
    }
    return is_same;
  }

  std::string TotalText(const BuiltAnalysis& built) const {
    return PlainNumberText(ResultUnit(_Services, "tmu").Convert(ReadTotals(built).back()));
  }

  void TellNewProblems(const BuiltAnalysis& before, const BuiltAnalysis& now) {
    for (const PlacedFailure& problem : now.Problems) {
      const bool is_known = std::any_of(before.Problems.begin(), before.Problems.end(), [&](const PlacedFailure& one) {
        return std::string_view(one.what()) == problem.what();
      });
      if (!is_known) _Answers.Tell(problem);
    }
  }

  const FolderAnalyses& _Analyses;
  AnalysisBuilder _Builder;
  const VEXSTMTimeAnalysisDlgServices& _Services;
  Answers& _Answers;
  std::map<std::size_t, BuiltAnalysis> _Proven;  // by position among the analyses
};

}  // namespace

void PlanChanges(const FolderAnalyses& analyses, std::vector<ImpactedAnalysis>& impacted, AnalysisBuilder builder,
                 const VEXSTMTimeAnalysisDlgServices& services, Answers& answers,
                 const std::function<void(std::size_t done)>& tick) {
  Plan plan(analyses, std::move(builder), services, answers);
  for (std::size_t done = 0; done < impacted.size(); ++done) {
    tick(done);
    plan.Make(impacted[done]);
  }
}

}  // namespace tool
