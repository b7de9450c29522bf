#include "host/run/WholeFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <system_error>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// Makes the file; empty if that cannot be done.
fs::path NewFileBeside(const fs::path& path) {
  std::string name = path.string() + ".XXXXXX";
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) return fs::path();
  // As any new file of this process, and not for its owner alone.
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(descriptor, 0666 & ~mask);
  close(descriptor);
  return name;
}

}  // namespace

WholeFile::WholeFile(const fs::path& path) : m_given(path), m_path(fs::absolute(path)) {
  std::error_code error;
  const fs::file_type type = fs::symlink_status(m_path, error).type();
  const bool isPlain = type == fs::file_type::not_found || type == fs::file_type::regular;
  if (isPlain) m_temporary = NewFileBeside(m_path);
  if (!isPlain || !m_temporary.empty()) {
    m_out.open(isPlain ? m_temporary : m_path, std::ios::binary | std::ios::trunc);
  }
  if (!m_out.is_open()) {
    throw RunError(ExitStatus::WrongUse, m_given.string() + ": the file cannot be written");
  }
  if (isPlain) fs::remove(m_path, error);
}

WholeFile::~WholeFile() {
  std::error_code error;
  if (!m_temporary.empty()) fs::remove(m_temporary, error);
}

void WholeFile::Close() {
  m_out.close();
  std::error_code error;
  if (m_out && !m_temporary.empty()) fs::rename(m_temporary, m_path, error);
  if (!m_out || error) {
    throw RunError(ExitStatus::NoReport, m_given.string() + ": the file could not be written");
  }
  m_temporary.clear();
}

}  // namespace OmbreliaHost
