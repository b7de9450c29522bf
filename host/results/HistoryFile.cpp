#include "host/results/HistoryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <exception>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

namespace {

// Holds the file's lock, where its file system has locks. Elsewhere a write that appends is still one piece.
class FileLock {
 public:
  FileLock(int descriptor, int kind) : m_descriptor(descriptor) {
    while (flock(descriptor, kind) != 0 && errno == EINTR) {
    }
  }
  ~FileLock() { flock(m_descriptor, LOCK_UN); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int m_descriptor;
};

off_t SizeOf(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? status.st_size : 0;
}

bool EndsInsideALine(int descriptor) {
  const off_t size = SizeOf(descriptor);
  char last = '\n';
  return size > 0 && pread(descriptor, &last, 1, size - 1) == 1 && last != '\n';
}

// False, with errno, if not all of it could be written; then none of it is there.
bool WriteWhole(int descriptor, const std::string& text) {
  const off_t before = SizeOf(descriptor);
  ssize_t written = 0;
  do {
    written = write(descriptor, text.data(), text.size());
  } while (written < 0 && errno == EINTR);
  if (written == static_cast<ssize_t>(text.size())) return true;
  const int error = written < 0 ? errno : ENOSPC;
  if (written > 0 && ftruncate(descriptor, before) != 0) return errno = error, false;
  errno = error;
  return false;
}

}  // namespace

HistoryFile::HistoryFile(const std::filesystem::path& path, Use use)
    : m_path(path),
      m_descriptor(
          open(path.c_str(),
               (use == Use::Read ? O_RDONLY : O_RDWR | O_APPEND | O_CREAT) | O_CLOEXEC | O_NONBLOCK,
               0666)) {
  const char* const what =
      use == Use::Read ? ": the history cannot be read: " : ": the history cannot be written: ";
  if (m_descriptor < 0)
    throw RunError(ExitStatus::WrongUse, path.string() + what + std::strerror(errno));
  struct stat status {};
  if (fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    close(m_descriptor);
    throw RunError(ExitStatus::WrongUse, path.string() + what + "it is no regular file");
  }
}

HistoryFile::~HistoryFile() { close(m_descriptor); }

void HistoryFile::Append(const std::vector<HistoryLine>& lines) {
  const FileLock lock(m_descriptor, LOCK_EX);
  for (const HistoryLine& line : lines) {
    const std::string text = (EndsInsideALine(m_descriptor) ? "\n" : "") + TextOf(line) + "\n";
    if (!WriteWhole(m_descriptor, text)) {
      throw RunError(
          ExitStatus::NoReport,
          m_path.string() + ": the history could not be written: " + std::strerror(errno));
    }
  }
}

std::string HistoryFile::Bytes() const {
  const FileLock lock(m_descriptor, LOCK_SH);
  std::string bytes;
  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count =
        pread(m_descriptor, block.data(), block.size(), static_cast<off_t>(bytes.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      throw RunError(ExitStatus::WrongUse,
                     m_path.string() + ": the history cannot be read: " + std::strerror(errno));
    }
    if (count == 0) return bytes;
    bytes.append(block.data(), static_cast<std::size_t>(count));
  }
}

HistoryContent HistoryFile::Read() const {
  const std::string bytes = Bytes();
  HistoryContent content;
  std::size_t number = 1;
  for (std::size_t begin = 0; begin < bytes.size(); ++number) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
    const std::string text = bytes.substr(begin, end - begin);
    begin = end + 1;
    if (text.find_first_not_of(" \t\r") == std::string::npos) continue;
    try {
      content.lines.push_back(HistoryLineOf(text));
    } catch (const std::exception& error) {
      content.skipped.push_back("line " + std::to_string(number) + " is skipped: " + error.what());
    }
  }
  std::stable_sort(
      content.lines.begin(), content.lines.end(),
      [](const HistoryLine& one, const HistoryLine& other) { return one.seconds < other.seconds; });
  return content;
}

}  // namespace OmbreliaHost
