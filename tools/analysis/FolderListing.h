// The files in a folder and below it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// All files below a folder whose names end in `extension`: those of each folder by their names, ahead of those of its
/// folders. Names that begin with "." and links to folders are passed over.
///
/// on_unreadable  called with each folder that cannot be read (to its end), and the cause
std::vector<std::string> FilesBelow(
    const std::string& folder, std::string_view extension,
    const std::function<void(const std::string& folder, const std::string& cause)>& on_unreadable);

/// The name without the extension at its end, if it has it.
std::string WithoutExtension(std::string name, std::string_view extension);

/// The path of a folder without links; empty if there is none.
std::string CanonicalPath(const std::string& folder);

/// True if a path is a link, or lies behind one, that leads out of a folder, which is given without links. False for
/// what is not there.
bool LeadsOutOf(const std::string& canonical_folder, const std::string& path);

/// The path as seen from a folder, with "/" between its parts; begins with ".." if it lies outside. Links are not
/// followed.
std::string PathFrom(const std::string& folder, const std::string& path);

}  // namespace tool
