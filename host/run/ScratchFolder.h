// A folder for files that are read once.
#ifndef OMBRELIA_HOST_RUN_SCRATCHFOLDER_H
#define OMBRELIA_HOST_RUN_SCRATCHFOLDER_H

#include <filesystem>

namespace OmbreliaHost {

// A new empty folder, in memory if the system offers that. The destructor deletes it with its content.
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
