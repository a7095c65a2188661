// Analyses in a folder of text files, and which of them reuse which.
//
// An analysis is called by its path from the folder, without ".csv": "grip/screw" is the file grip/screw.csv. That is
// also its identifier, unless its file names another. A row that reuses an analysis names it by its path from the
// folder of its own file; if nothing is there, from the folder above, and so on up to the folder of the model. Nothing
// outside of that folder is read.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/analysis/AnalysisFile.h"

namespace tool {

/// True for a path from a folder that does not lead out of it: parts with "/" between them, none of them empty, "." or
/// "..", and no "\".
bool IsPlainName(std::string_view name);

class AnalysisFolder {
 public:
  using Tell = std::function<void(const Failure&)>;

  static constexpr std::size_t NoAnalysis = static_cast<std::size_t>(-1);

  /// One file of the folder.
  struct Member {
    std::string Name;  // path from the folder, without ".csv"
    std::string Identifier;
    AnalysisFile File;
    bool IsWanted = false;                   // asked for, not only reused
    std::vector<std::size_t> Reused;         // by row: the member that it reuses, or NoAnalysis
    std::vector<PlacedFailure> ReuseFaults;  // what is wrong with reuse and identifier
  };

  /// path  the folder; it exists
  /// tell  takes what is wrong with files and folders as they are met
  AnalysisFolder(const std::string& path, Tell tell);

  /// Adds all analyses below a path, which is the folder or lies in it; those that links to folders lead to are left
  /// out, as are names that begin with ".". Tells of what cannot be read, and of a folder without any.
  void AddAll(const std::string& path);
  /// Adds one file, whatever it is called and wherever it leads to as a link.
  void AddFile(const std::string& path) { Add(path, Links::Anywhere); }

  /// True if a path is that of the folder, or lies in it.
  bool Holds(const std::string& path) const;

  /// Reads what the analyses reuse, cuts circles, and puts the members into an order in which each stands behind those
  /// that it reuses; otherwise in the order of being added.
  std::vector<std::size_t> Resolve();

  const std::vector<Member>& GetMembers() const { return _Members; }

  /// Bytes of a file that are read at most.
  static constexpr std::size_t LargestFile = std::size_t{256} << 20;

 private:
  enum class Links { WithinTheFolder, Anywhere };

  void Add(const std::string& path, Links links);
  std::size_t Load(const std::string& name, const std::string& file_name, Links links);
  std::size_t Find(const std::string& name);
  void FollowReuse(std::size_t member);
  std::size_t FindReused(std::size_t member, std::size_t line, std::string_view name);
  void CheckIdentifiers();

  std::string _Path;
  std::string _Canonical;
  Tell _Tell;
  std::vector<Member> _Members;
  std::map<std::string, std::size_t> _ByName;  // NoAnalysis for what cannot be read
};

}  // namespace tool
