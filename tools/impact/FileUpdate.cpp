// Files of a folder given their new contents.
#include "tools/impact/FileUpdate.h"

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/system/KORFileContent.h"
#include "tools/exchange/OutputFolder.h"
#include "tools/impact/ImpactMessages.h"

namespace tool {

namespace {

namespace files = std::filesystem;

constexpr files::perms Writable = files::perms::owner_write | files::perms::group_write | files::perms::others_write;

class Update {
 public:
  Update(const std::string& folder, const FolderAnalyses& analyses, std::vector<ImpactedAnalysis>& impacted)
      : _Folder(folder, ".csv", OutputFolder::Present::Replaced), _Analyses(analyses) {
    for (ImpactedAnalysis& analysis : impacted) {
      if (analysis.State == FileState::Changes) _Changed.push_back(&analysis);
    }
  }

  std::size_t Count() const { return _Changed.size(); }

  void Check(Answers& answers) {
    bool all_fit = true;
    for (const ImpactedAnalysis* const analysis : _Changed) {
      const std::optional<Failure> unfit = WhyUnfit(MemberOf(*analysis));
      if (!unfit) continue;
      answers.Tell(*unfit);
      all_fit = false;
    }
    if (all_fit) return;
    for (ImpactedAnalysis* const analysis : _Changed) analysis->State = FileState::Old;
    throw NothingApplied();
  }

  void Write(std::size_t index) {
    ImpactedAnalysis& analysis = *_Changed[index];
    const AnalysisFolder::Member& member = MemberOf(analysis);
    std::string content;
    std::string cause;
    const bool is_read = KORReadFileContent(member.File.GetPath(), AnalysisFolder::LargestFile, content, cause);
    if (!is_read || content != analysis.OldContent) throw ChangedWhileRead(member.File.GetPath());
    _Folder.Write(member.Name, analysis.NewContent);
    analysis.State = FileState::Written;
  }

  [[noreturn]] void Stop(const Failure& cause) {
    std::vector<std::string> written;
    std::vector<std::string> old;
    for (ImpactedAnalysis* const analysis : _Changed) {
      const bool is_written = analysis->State == FileState::Written;
      if (!is_written) analysis->State = FileState::Old;
      (is_written ? written : old).push_back(MemberOf(*analysis).File.GetPath());
    }
    throw StoppedInBetween(cause, written, old);
  }

 private:
  const AnalysisFolder::Member& MemberOf(const ImpactedAnalysis& analysis) const {
    return *_Analyses[analysis.Step.Analysis].Member;
  }

  std::optional<Failure> WhyUnfit(const AnalysisFolder::Member& member) const {
    const std::string& path = member.File.GetPath();
    std::error_code error;
    const files::file_status status = files::symlink_status(path, error);
    if (status.type() == files::file_type::symlink) return FileIsLink(path);
    const bool is_writable = (status.permissions() & Writable) != files::perms::none && access(path.c_str(), W_OK) == 0;
    if (!is_writable) return FileIsReadOnly(path);
    return _Folder.Check(member.Name);
  }

  OutputFolder _Folder;
  const FolderAnalyses& _Analyses;
  std::vector<ImpactedAnalysis*> _Changed;
};

}  // namespace

void UpdateFiles(const std::string& folder, const FolderAnalyses& analyses, std::vector<ImpactedAnalysis>& impacted,
                 Answers& answers, const std::function<bool()>& is_stop_wanted,
                 const std::function<void(std::size_t done)>& tick) {
  Update update(folder, analyses, impacted);
  update.Check(answers);
  for (std::size_t index = 0; index < update.Count(); ++index) {
    tick(index);
    try {
      if (is_stop_wanted()) throw Interrupted();
      update.Write(index);
    } catch (const Failure& failure) {
      update.Stop(failure);
    }
  }
}

}  // namespace tool
