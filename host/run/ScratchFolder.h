// A folder for files that are read once.
#ifndef OMBRELIA_HOST_RUN_SCRATCHFOLDER_H
#define OMBRELIA_HOST_RUN_SCRATCHFOLDER_H

#include <filesystem>

namespace OmbreliaHost {

// New and empty, in memory where the system has such a place; goes with all that is in it.
class ScratchFolder {
 public:
  // Ends the run (NoReport) if there can be none.
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

}  // namespace OmbreliaHost

#endif
