// A file that appears under its path when it is whole. For the sources of the platform.
#pragma once

#include <cstddef>
#include <string>

#include "platform/system/KORHostFile.h"

/// A file that is being written.
///
/// Its content is kept in a hidden file of its own in the same folder, which nobody takes for the file that it becomes:
/// ".korpending-" and 16 hexadecimal digits drawn by lot, so that the name has room in every folder that has room for
/// the file's own. Keep gives that file its place under the path; without it, nothing is left at the end. The folder
/// is the one that stood under its path at the beginning, whatever becomes of that path or of the working folder.
class KORPendingFile {
 public:
  /// Takes away what stands under the path, a regular file or a link. Not open, with everything left as it was, if
  /// that is neither or the folder is missing or not to be written to.
  explicit KORPendingFile(const std::string& path);
  ~KORPendingFile() { GiveUp(); }
  KORPendingFile(const KORPendingFile&) = delete;
  KORPendingFile& operator=(const KORPendingFile&) = delete;

  bool IsOpen() const { return _Content.IsOpen(); }
  const KORHostFile& GetContent() const { return _Content; }

  /// Writes on behind what was written before. False if not all bytes could be written: the file is given up then.
  bool Write(const char* bytes, std::size_t length);
  /// Puts the content under the path, in place of what has come there since. False, with the file given up, if that
  /// can't be done, and for a file that was given up before.
  bool Keep();
  /// Leaves nothing of the content.
  void GiveUp();

 private:
  bool Create();
  bool MayReplace() const;
  bool TakeAway(const std::string& name) const;

  KORHostFile _Folder;
  std::string _Name;           // in the folder
  std::string _TemporaryName;  // in the folder; empty if there is none
  KORHostFile _Content;
};
