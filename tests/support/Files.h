// Files and folders of a test.
#ifndef OMBRELIA_TESTS_SUPPORT_FILES_H
#define OMBRELIA_TESTS_SUPPORT_FILES_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace Tests {

// A new empty folder, removed at the end with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& Path() const { return m_path; }
  std::string operator/(const std::string& name) const { return m_path + "/" + name; }
  // The folder below this one to which the plug-in writes its report. Made by MakeReportFolder only.
  std::string ReportFolder() const { return m_path + "/scons-out/opt/tests/auto_experiment_tests"; }
  void MakeReportFolder() const;

 private:
  std::string m_path;
};

// The working directory of this process, back to the former one at the end.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const std::string& path);
  ~WorkingDirectory();
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;

 private:
  std::string m_former;
};

// Bytes. An unreadable file fails the test and reads as empty.
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);
bool Exists(const std::string& path);
// The names in a folder, sorted.
std::vector<std::string> NamesIn(const std::string& folder);

// The text with every "_pid_<pid>" made "_pid_@PID@".
std::string PidBlanked(std::string report, pid_t pid);

// "FakeUnitTestsDataHookExperimentRunning_<pid>.xml" and "special_flag_file_<pid>.dat".
std::string ReportName(pid_t pid);
std::string FlagFileName(pid_t pid);

// The report's lines whose element is "testcase", as name only: "name" or "FAIL name".
std::vector<std::string> TestCasesOf(const std::string& report);

}  // namespace Tests

#endif
