// The files in a folder and below it.
#include "tools/analysis/FolderListing.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tool {

namespace {

namespace files = std::filesystem;

// The folders and the files in a folder, each in the order of their names.
struct Listing {
  std::vector<std::string> Folders;
  std::vector<std::string> Files;
  std::error_code Error;
};

Listing List(const std::string& path, std::string_view extension) {
  Listing listing;
  files::directory_iterator entry(path, listing.Error);
  while (!listing.Error && entry != files::directory_iterator()) {
    const std::string name = entry->path().filename().string();
    std::error_code ignored;
    if (entry->symlink_status(ignored).type() == files::file_type::directory) {
      if (!name.starts_with('.')) listing.Folders.push_back(entry->path().string());
    } else if (name.ends_with(extension) && !name.starts_with('.')) {
      listing.Files.push_back(entry->path().string());
    }
    entry.increment(listing.Error);
  }
  std::sort(listing.Folders.begin(), listing.Folders.end());
  std::sort(listing.Files.begin(), listing.Files.end());
  return listing;
}

}  // namespace

std::vector<std::string> FilesBelow(
    const std::string& folder, std::string_view extension,
    const std::function<void(const std::string& folder, const std::string& cause)>& on_unreadable) {
  std::vector<std::string> found;
  std::vector<std::string> folders{folder};
  while (!folders.empty()) {
    const std::string next = std::move(folders.back());
    folders.pop_back();
    const Listing listing = List(next, extension);
    if (listing.Error) on_unreadable(next, listing.Error.message());
    found.insert(found.end(), listing.Files.begin(), listing.Files.end());
    folders.insert(folders.end(), listing.Folders.rbegin(), listing.Folders.rend());
  }
  return found;
}

std::string WithoutExtension(std::string name, std::string_view extension) {
  if (name.ends_with(extension)) name.resize(name.size() - extension.size());
  return name;
}

std::string CanonicalPath(const std::string& folder) {
  std::error_code error;
  return files::canonical(folder, error).string();
}

bool LeadsOutOf(const std::string& canonical_folder, const std::string& path) {
  const std::string target = CanonicalPath(path);
  if (target.empty()) return false;
  const std::string folder = canonical_folder == "/" ? canonical_folder : canonical_folder + "/";
  return !target.starts_with(folder);
}

std::string PathFrom(const std::string& folder, const std::string& path) {
  const files::path whole = files::absolute(path).lexically_normal();
  return whole.lexically_relative(files::absolute(folder).lexically_normal()).generic_string();
}

}  // namespace tool
