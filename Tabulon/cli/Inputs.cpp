#include "Tabulon/cli/Inputs.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Text.h"

namespace fs = std::filesystem;

namespace TabulonCli {

namespace {

[[noreturn]] void Reject(const fs::path& path, const std::string& why) {
  throw RunError(ExitStatus::WrongUse, path.string() + ": " + why);
}

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

void RequireReadableFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) Reject(path, "no such file");
  if (error) Reject(path, "cannot be read: " + error.message());
  // Opening a pipe would wait for a writer.
  if (!fs::is_regular_file(status)) Reject(path, "is not an ordinary file");
  if (!std::ifstream(path)) Reject(path, "cannot be read");
}

}  // namespace

Inputs::Inputs(const std::vector<fs::path>& given) {
  bool standardInput = false;
  for (const fs::path& path : given) {
    if (path == "-") {
      standardInput = true;
    } else {
      Add(path);
    }
  }
  // Only when all others are known to be there, because it may take a while.
  if (standardInput) AddStandardInput();
}

void Inputs::Add(const fs::path& given) {
  if (IsFolder(given)) {
    AddFolder(given);
  } else {
    RequireReadableFile(given);
    AddFile(given);
  }
}

void Inputs::AddFile(const fs::path& given) {
  const fs::path path = fs::absolute(given).lexically_normal();
  if (m_names.emplace(TextOf(path), TextOf(given)).second) m_paths.push_back(path);
}

void Inputs::AddFolder(const fs::path& given) {
  std::error_code error;
  std::vector<fs::path> files;
  fs::recursive_directory_iterator place(given, error);
  for (; !error && place != fs::recursive_directory_iterator(); place.increment(error)) {
    std::error_code ignored;
    const fs::path& path = place->path();
    if (path.extension() == ".txt" && place->is_regular_file(ignored)) files.push_back(path);
  }
  if (error) Reject(given, "cannot be read: " + error.message());
  if (files.empty()) Reject(given, "holds no file *.txt");
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) AddFile(file);
}

void Inputs::AddStandardInput() {
  m_standardInput = std::make_unique<StandardInputCopy>();
  m_names.emplace(TextOf(m_standardInput->Path()), wxT("-"));
  m_paths.push_back(m_standardInput->Path());
}

const wxString& Inputs::NameOf(const wxString& tablePath) const {
  const auto found = m_names.find(tablePath);
  return found == m_names.end() ? tablePath : found->second;
}

std::string Inputs::NameOf(const fs::path& path) const {
  return m_standardInput != nullptr && path == m_standardInput->Path() ? "-" : path.string();
}

}  // namespace TabulonCli
