#include "Tabulon/cli/Inputs.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "Tabulon/cli/ExitStatus.h"

namespace fs = std::filesystem;

namespace TabulonCli {

namespace {

[[noreturn]] void Reject(const fs::path& path, const std::string& why) {
  throw RunError(ExitStatus::WrongUse, path.string() + ": " + why);
}

void RequireReadableFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) Reject(path, "no such file");
  if (error) Reject(path, "cannot be read: " + error.message());
  if (fs::is_directory(status)) Reject(path, "is a folder, not a data file");
  // Opening a pipe would wait for a writer.
  if (!fs::is_regular_file(status)) Reject(path, "is not an ordinary file");
  if (!std::ifstream(path)) Reject(path, "cannot be read");
}

}  // namespace

std::vector<fs::path> ListFiles(const std::vector<fs::path>& files) {
  std::vector<fs::path> paths;
  for (const fs::path& file : files) {
    RequireReadableFile(file);
    const fs::path path = fs::absolute(file).lexically_normal();
    if (std::find(paths.begin(), paths.end(), path) == paths.end()) paths.push_back(path);
  }
  return paths;
}

}  // namespace TabulonCli
