// Runs a fuzz target over files that were kept: every past find and every starting point.
// Usage: <program> FOLDER-OR-FILE...; a folder without a file is an error, so a lost corpus shows.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> FilesUnder(const std::filesystem::path& place) {
  std::vector<std::filesystem::path> files;
  if (std::filesystem::is_regular_file(place)) files.push_back(place);
  if (!std::filesystem::is_directory(place)) return files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  return files;
}

bool Replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream) return false;
  // The name comes first, so that a file that ends the program is the last one named.
  std::cout << file.string() << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::size_t replayed = 0;
  for (const std::string& place : std::vector<std::string>(arguments + 1, arguments + count)) {
    const auto files = FilesUnder(place);
    if (files.empty()) {
      std::cerr << "No file to replay in " << place << '\n';
      return 1;
    }
    for (const auto& file : files) {
      if (!Replay(file)) {
        std::cerr << "Can't read " << file.string() << '\n';
        return 1;
      }
      ++replayed;
    }
  }
  std::cout << replayed << " files replayed\n";
  return replayed > 0 ? 0 : 1;
}
