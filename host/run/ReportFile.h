// Where the plug-in's report stands on disk.
#ifndef OMBRELIA_HOST_RUN_REPORTFILE_H
#define OMBRELIA_HOST_RUN_REPORTFILE_H

#include <sys/stat.h>
#include <sys/types.h>

#include <filesystem>

namespace OmbreliaHost {

// The report of this process, below the working directory at construction. Makes the directory, which
// the plug-in expects to find; ends the run (NoReport) if that fails.
class ReportFile {
 public:
  ReportFile();

  // Call right before the flush: an older report may stand under the same name.
  void RememberStateBeforeWriting();
  // Was a file written since?
  bool IsWritten() const;

  // Where a process with this working directory writes its report; absolute.
  static std::filesystem::path PathOf(pid_t process);

 private:
  struct State {
    bool exists;
    struct stat status;
  };
  State CurrentState() const;

  std::filesystem::path m_path;
  State m_before;
};

}  // namespace OmbreliaHost

#endif
