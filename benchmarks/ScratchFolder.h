// A folder for the inputs of one run.
#ifndef OMBRELIA_BENCHMARKS_SCRATCHFOLDER_H
#define OMBRELIA_BENCHMARKS_SCRATCHFOLDER_H

#include <filesystem>

namespace Bench {

// A new folder below the system's folder for temporary files, removed with everything in it.
class ScratchFolder {
 public:
  // Ends the program with a message if there cannot be one.
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

}  // namespace Bench

#endif
