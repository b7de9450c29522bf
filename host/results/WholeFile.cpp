#include "host/results/WholeFile.h"

#include <unistd.h>

#include <fstream>
#include <system_error>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// False if not all of it could be written.
bool Write(std::ofstream& file, const std::string& text) {
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return static_cast<bool>(file);
}

void Open(std::ofstream& file, const fs::path& path, const fs::path& named) {
  file.open(path, std::ios::binary | std::ios::trunc);
  if (!file) {
    throw RunError(ExitStatus::WrongUse, named.string() + ": the file cannot be written");
  }
}

}  // namespace

void WriteWholeFile(const fs::path& path, const std::string& text) {
  std::error_code error;
  // What a link leads to is replaced, and the link stays.
  const fs::path target = fs::exists(path, error) ? fs::canonical(path, error) : path;
  const bool replaces = fs::is_regular_file(target, error);
  const bool isNew = !fs::exists(fs::symlink_status(target, error));
  fs::path written = target;
  if (replaces || isNew) written += ".part-" + std::to_string(getpid());
  std::ofstream file;
  Open(file, written, path);
  bool whole = Write(file, text);
  if (whole && written != target) {
    if (replaces) {
      fs::permissions(written, fs::status(target, error).permissions(), error);
    }
    error.clear();
    fs::rename(written, target, error);
    whole = !error;
  }
  if (whole) return;
  if (written != target) fs::remove(written, error);
  throw RunError(ExitStatus::NoReport, path.string() + ": the file could not be written");
}

}  // namespace OmbreliaHost
