// Analyses in a folder of text files.
#include "tools/analysis/AnalysisFolder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFileContent.h"
#include "tools/analysis/AnalysisMessages.h"
#include "tools/analysis/FolderListing.h"
#include "tools/analysis/ReuseOrder.h"

namespace tool {

namespace {

namespace files = std::filesystem;

constexpr std::string_view Extension = ".csv";

// The folder of a name, with a "/" behind it; empty for the folder of the model.
std::string FolderOf(const std::string& name) {
  const std::size_t slash = name.rfind('/');
  return slash == std::string::npos ? std::string() : name.substr(0, slash + 1);
}

}  // namespace

bool IsPlainName(std::string_view name) {
  if (name.find('\\') != std::string_view::npos) return false;
  while (true) {
    const std::size_t end = std::min(name.find('/'), name.size());
    const std::string_view part = name.substr(0, end);
    if (part.empty() || part == "." || part == "..") return false;
    if (end == name.size()) return true;
    name.remove_prefix(end + 1);
  }
}

AnalysisFolder::AnalysisFolder(const std::string& path, Tell tell)
    : _Path(path), _Canonical(CanonicalPath(path)), _Tell(std::move(tell)) {
}

bool AnalysisFolder::Holds(const std::string& path) const {
  const std::string relative = PathFrom(_Path, path);
  return !relative.empty() && relative != ".." && !relative.starts_with("../");
}

void AnalysisFolder::AddAll(const std::string& path) {
  bool any_unreadable = false;
  const std::vector<std::string> paths =
      FilesBelow(path, Extension, [&](const std::string& folder, const std::string& cause) {
        _Tell(FolderNotReadable(folder, cause));
        any_unreadable = true;
      });
  for (const std::string& file : paths) Add(file, Links::WithinTheFolder);
  if (paths.empty() && !any_unreadable) _Tell(FolderWithoutAnalyses(path));
}

void AnalysisFolder::Add(const std::string& path, Links links) {
  const std::string file_name = PathFrom(_Path, path);
  const std::string name = WithoutExtension(file_name, Extension);
  const auto known = _ByName.find(name);
  const std::size_t member = known == _ByName.end() ? Load(name, file_name, links) : known->second;
  if (member != NoAnalysis) _Members[member].IsWanted = true;
}

// Reads a file of the folder; NoAnalysis, which is told, if it cannot be read.
std::size_t AnalysisFolder::Load(const std::string& name, const std::string& file_name, Links links) {
  const std::string path = _Path == "." ? file_name : (files::path(_Path) / file_name).string();
  std::size_t& member = _ByName.emplace(name, NoAnalysis).first->second;
  if (links == Links::WithinTheFolder && LeadsOutOf(_Canonical, path)) {
    _Tell(AnalysisOutsideFolder(path, _Path));
    return member;
  }
  std::string content;
  std::string cause;
  if (!KORReadFileContent(path, LargestFile, content, cause)) {
    _Tell(AnalysisNotReadable(path, cause));
    return member;
  }
  const KORUnicodeString text{std::string_view(content)};
  member = _Members.size();
  _Members.emplace_back();
  _Members.back().Name = name;
  _Members.back().File = AnalysisFile(path, text.Bytes());
  return member;
}

// The analysis of that name from the folder of the model; NoAnalysis if there is none.
std::size_t AnalysisFolder::Find(const std::string& name) {
  const auto known = _ByName.find(name);
  if (known != _ByName.end()) return known->second;
  const std::string file_name = name + std::string(Extension);
  std::error_code error;
  const bool is_there = files::is_regular_file(files::path(_Path) / file_name, error);
  return is_there ? Load(name, file_name, Links::WithinTheFolder) : NoAnalysis;
}

std::size_t AnalysisFolder::FindReused(std::size_t member, std::size_t line, std::string_view name) {
  const FilePlace place{_Members[member].File.GetPath(), line};
  if (!IsPlainName(name)) {
    _Members[member].ReuseFaults.push_back(ReuseNameNotPlain(place, name));
    return NoAnalysis;
  }
  const std::string plain = WithoutExtension(std::string(name), Extension);
  std::vector<std::string> searched;
  for (std::string folder = FolderOf(_Members[member].Name);;) {
    const std::size_t found = Find(folder + plain);
    if (found != NoAnalysis) return found;
    searched.push_back((files::path(_Path) / (folder + plain + std::string(Extension))).string());
    if (folder.empty()) break;
    folder.pop_back();
    folder = FolderOf(folder);
  }
  _Members[member].ReuseFaults.push_back(ReusedFileMissing(place, name, searched));
  return NoAnalysis;
}

void AnalysisFolder::FollowReuse(std::size_t member) {
  const std::size_t count = _Members[member].File.GetRows().size();
  _Members[member].Reused.assign(count, NoAnalysis);
  for (std::size_t index = 0; index < count; ++index) {
    const AnalysisRow& row = _Members[member].File.GetRows()[index];
    const std::string name(_Members[member].File.Cell(row, Column::Reuse));
    if (name.empty()) continue;
    const std::size_t found = FindReused(member, row.Line, name);  // loads files, which moves the members
    _Members[member].Reused[index] = found;
  }
}

void AnalysisFolder::CheckIdentifiers() {
  std::map<std::string, std::size_t> owners;
  for (std::size_t index = 0; index < _Members.size(); ++index) {
    Member& member = _Members[index];
    const std::string& named = member.File.GetIdentifier();
    member.Identifier = named.empty() ? member.Name : named;
    const FilePlace place{member.File.GetPath(), member.File.GetIdentifierLine()};
    if (member.Identifier.find('|') != std::string::npos) {
      member.ReuseFaults.push_back(IdentifierWithBar(place, member.Identifier));
      std::replace(member.Identifier.begin(), member.Identifier.end(), '|', '_');
    }
    const auto [owner, is_new] = owners.emplace(member.Identifier, index);
    if (is_new) continue;
    member.ReuseFaults.push_back(IdentifierShared(place, member.Identifier, _Members[owner->second].File.GetPath()));
  }
}

std::vector<std::size_t> AnalysisFolder::Resolve() {
  for (std::size_t member = 0; member < _Members.size(); ++member) FollowReuse(member);
  CheckIdentifiers();
  std::vector<std::vector<std::size_t>> reused;
  for (const Member& member : _Members) reused.push_back(member.Reused);
  return OrderByReuse(reused, NoAnalysis, [this](const ReuseCircleFound& circle) {
    std::vector<std::string> names;
    for (const std::size_t member : circle.Path) names.push_back(_Members[member].Name);
    Member& closing = _Members[circle.Member];
    closing.Reused[circle.Row] = NoAnalysis;
    const FilePlace place{closing.File.GetPath(), closing.File.GetRows()[circle.Row].Line};
    closing.ReuseFaults.push_back(ReuseCircle(place, names));
  });
}

}  // namespace tool
