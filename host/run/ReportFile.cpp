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

ReportFile::ReportFile() : m_before{} {
  const fs::path directory = fs::current_path() / "scons-out/opt/tests/auto_experiment_tests";
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) {
    throw RunError(
        ExitStatus::NoReport,
        directory.string() + ": the report's directory cannot be made: " + error.message());
  }
  m_path =
      directory / ("FakeUnitTestsDataHookExperimentRunning_" + std::to_string(getpid()) + ".xml");
}

ReportFile::State ReportFile::CurrentState() const {
  State state{};
  state.exists = stat(m_path.c_str(), &state.status) == 0;
  return state;
}

void ReportFile::RememberStateBeforeWriting() { m_before = CurrentState(); }

void ReportFile::RequireWritten() const {
  const State now = CurrentState();
  const bool written =
      now.exists && !(m_before.exists && SameContentOnDisk(m_before.status, now.status));
  if (!written) {
    throw RunError(ExitStatus::NoReport, m_path.string() + ": the report could not be written");
  }
}

}  // namespace OmbreliaHost
