#include "host/run/DatafileList.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

[[noreturn]] void Reject(const fs::path& path, const std::string& why) {
  throw RunError(ExitStatus::WrongUse, path.string() + ": " + why);
}

bool LooksLikeDatafile(const fs::path& path) {
  return path.extension() == ".txt" && path.filename().string().front() != '.';
}

std::vector<fs::path> DatafilesOfFolder(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (LooksLikeDatafile(entry->path()) && !entry->is_directory(ignored)) {
      files.push_back(entry->path());
    }
  }
  if (error) Reject(folder, "the folder cannot be read: " + error.message());
  if (files.empty()) Reject(folder, "the folder holds no data file (*.txt)");
  std::sort(files.begin(), files.end(),
            [](const fs::path& a, const fs::path& b) { return a.native() < b.native(); });
  return files;
}

}  // namespace

void RequireReadableFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) Reject(path, "no such file or folder");
  if (error) Reject(path, "cannot be read: " + error.message());
  // Opening a pipe would wait for a writer.
  if (!fs::is_regular_file(status)) Reject(path, "neither a file nor a folder");
  if (!std::ifstream(path)) Reject(path, "the file cannot be read");
}

std::vector<fs::path> ListDatafiles(const std::vector<fs::path>& inputs) {
  std::vector<fs::path> files;
  for (const fs::path& input : inputs) {
    std::error_code error;
    const fs::path path = fs::absolute(input, error);
    if (error) Reject(input, error.message());
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
      const std::vector<fs::path> ofFolder = DatafilesOfFolder(path);
      files.insert(files.end(), ofFolder.begin(), ofFolder.end());
    } else {
      files.push_back(path);
    }
  }
  for (const fs::path& file : files) RequireReadableFile(file);
  return files;
}

}  // namespace OmbreliaHost
