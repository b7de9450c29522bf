#include "host/run/DatafileList.h"

#include <fnmatch.h>

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

std::vector<fs::path> DatafilesOfFolder(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (HasDatafileName(entry->path()) && !entry->is_directory(ignored)) {
      files.push_back(entry->path());
    }
  }
  if (error) Reject(folder, "the folder cannot be read: " + error.message());
  if (files.empty()) Reject(folder, "the folder holds no data file (*.txt)");
  std::sort(files.begin(), files.end(),
            [](const fs::path& a, const fs::path& b) { return a.native() < b.native(); });
  return files;
}

template <typename CONDITION>
void KeepOnly(std::vector<Datafile>& files, const CONDITION& condition) {
  files.erase(std::remove_if(files.begin(), files.end(),
                             [&](const Datafile& file) { return !condition(file); }),
              files.end());
}

}  // namespace

bool HasDatafileName(const fs::path& path) {
  return path.extension() == ".txt" && path.filename().string().front() != '.';
}

bool MatchesOneOf(const std::vector<std::string>& globs, const fs::path& path) {
  const std::string name = path.filename().string();
  const std::string experiment = name.substr(0, name.find(' '));
  return std::any_of(globs.begin(), globs.end(), [&](const std::string& glob) {
    return fnmatch(glob.c_str(), name.c_str(), 0) == 0 ||
           fnmatch(glob.c_str(), experiment.c_str(), 0) == 0;
  });
}

void RequireReadableFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) Reject(path, "no such file or folder");
  if (error) Reject(path, "cannot be read: " + error.message());
  // Opening a pipe would wait for a writer.
  if (!fs::is_regular_file(status)) Reject(path, "neither a file nor a folder");
  if (!std::ifstream(path)) Reject(path, "the file cannot be read");
}

std::vector<Datafile> ListDatafiles(const std::vector<fs::path>& inputs,
                                    const std::vector<std::string>& globs,
                                    const std::optional<Shard>& shard) {
  std::vector<Datafile> files;
  const auto add = [&files](const fs::path& given, const fs::path& path) {
    files.push_back({given, path, 0, {}});
  };
  for (const fs::path& input : inputs) {
    std::error_code error;
    const fs::path path = fs::absolute(input, error);
    if (error) Reject(input, error.message());
    std::error_code ignored;
    if (!fs::is_directory(path, ignored)) {
      add(input, path);
      continue;
    }
    for (const fs::path& file : DatafilesOfFolder(path)) add(input / file.filename(), file);
  }
  for (const Datafile& file : files) RequireReadableFile(file.path);

  if (!globs.empty()) {
    KeepOnly(files, [&globs](const Datafile& file) { return MatchesOneOf(globs, file.path); });
    if (files.empty()) throw RunError(ExitStatus::WrongUse, "no data file matches --only");
  }
  for (std::size_t i = 0; i < files.size(); ++i) files[i].position = i + 1;
  if (shard) {
    KeepOnly(files, [&shard](const Datafile& file) {
      return (file.position - 1) % shard->count == shard->index - 1;
    });
  }
  return files;
}

}  // namespace OmbreliaHost
