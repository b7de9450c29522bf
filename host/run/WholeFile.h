// A file that the program writes whole or not at all.
#ifndef OMBRELIA_HOST_RUN_WHOLEFILE_H
#define OMBRELIA_HOST_RUN_WHOLEFILE_H

#include <filesystem>
#include <fstream>
#include <ostream>

namespace OmbreliaHost {

// Takes an older file of this name away, so that it is not taken for the new one, and gathers the content in a file
// beside it. What is no plain file, such as a pipe or a link, is written as it is.
class WholeFile {
 public:
  // Looked up at once: the working directory may change. Ends the run (WrongUse) if it cannot be written.
  explicit WholeFile(const std::filesystem::path& path);
  // Without Close there is no file.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  std::ostream& Stream() { return m_out; }
  // Puts the file in its place. Ends the run (NoReport) if that fails, or if something could not be written.
  void Close();

 private:
  const std::filesystem::path m_given;
  const std::filesystem::path m_path;  // absolute
  std::filesystem::path m_temporary;   // empty: the file is written as it is, or is in its place
  std::ofstream m_out;
};

}  // namespace OmbreliaHost

#endif
