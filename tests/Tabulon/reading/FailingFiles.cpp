#include "tests/Tabulon/reading/FailingFiles.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <utility>

namespace {

int goodReadsLeft = -1;  // negative: all are good
bool closingFails = false;
bool fatalErrorsComeBack = false;
int fatalErrors = 0;
std::function<void()> actAfterOpening;

}  // namespace

// These stand before the libraries' operations of the same names, and the libraries call them.
extern "C" {

__attribute__((visibility("default"))) ssize_t read(int file, void* buffer, size_t count) {
  if (goodReadsLeft == 0) {
    errno = EIO;
    return -1;
  }
  if (goodReadsLeft > 0) --goodReadsLeft;
  return static_cast<ssize_t>(::syscall(SYS_read, file, buffer, count));
}

__attribute__((visibility("default"))) int close(int file) {
  const int answer = static_cast<int>(::syscall(SYS_close, file));
  if (!closingFails) return answer;
  errno = EIO;
  return -1;
}

#ifdef __linux__
__attribute__((visibility("default"))) int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0;
  va_end(arguments);
  const int file = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
  if (actAfterOpening) std::exchange(actAfterOpening, nullptr)();
  return file;
}
#endif

}  // extern "C"

__attribute__((visibility("default"))) void wxAbort() {
  if (!fatalErrorsComeBack) std::abort();
  ++fatalErrors;
}

namespace ReaderBench {

FailingFiles::FailingFiles(int goodReads, bool failClosing) {
  goodReadsLeft = goodReads;
  closingFails = failClosing;
}

FailingFiles::~FailingFiles() {
  goodReadsLeft = -1;
  closingFails = false;
}

#ifdef __linux__
AfterOpening::AfterOpening(std::function<void()> act) { actAfterOpening = std::move(act); }
AfterOpening::~AfterOpening() { actAfterOpening = nullptr; }
#endif

FatalErrorsComeBack::FatalErrorsComeBack() {
  fatalErrorsComeBack = true;
  fatalErrors = 0;
}

FatalErrorsComeBack::~FatalErrorsComeBack() { fatalErrorsComeBack = false; }

int FatalErrorsComeBack::Count() const { return fatalErrors; }

}  // namespace ReaderBench
