#include "host/run/ReportFile.h"

#include <unistd.h>

#include <string>
#include <system_error>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

#ifdef __APPLE__
const timespec& ModificationTime(const struct stat& status) { return status.st_mtimespec; }
#else
const timespec& ModificationTime(const struct stat& status) { return status.st_mtim; }
#endif

bool SameContentOnDisk(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         ModificationTime(a).tv_sec == ModificationTime(b).tv_sec &&
         ModificationTime(a).tv_nsec == ModificationTime(b).tv_nsec;
}

}  // namespace

ReportFile::ReportFile() : m_path(PathOf(getpid())), m_before{} {
  const fs::path directory = m_path.parent_path();
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) {
    throw RunError(
        ExitStatus::NoReport,
        directory.string() + ": the report's directory cannot be made: " + error.message());
  }
}

fs::path ReportFile::PathOf(pid_t process) {
  return fs::current_path() / "scons-out/opt/tests/auto_experiment_tests" /
         ("FakeUnitTestsDataHookExperimentRunning_" + std::to_string(process) + ".xml");
}

ReportFile::State ReportFile::CurrentState() const {
  State state{};
  state.exists = stat(m_path.c_str(), &state.status) == 0;
  return state;
}

void ReportFile::RememberStateBeforeWriting() { m_before = CurrentState(); }

bool ReportFile::IsWritten() const {
  const State now = CurrentState();
  return now.exists && !(m_before.exists && SameContentOnDisk(m_before.status, now.status));
}

}  // namespace OmbreliaHost
