// Standard input as a file, for a reader that can only open one by its name.
#ifndef OMBRELIA_TABULON_CLI_STANDARDINPUTCOPY_H
#define OMBRELIA_TABULON_CLI_STANDARDINPUTCOPY_H

#include <cstdio>
#include <filesystem>
#include <memory>

namespace TabulonCli {

// Reads all of standard input, or as much as shows that it is larger than any data file, into a file without a
// name, which is gone with this object. Ends the run (WrongUse) if standard input cannot be read and (NoOutput)
// if the copy cannot be written.
class StandardInputCopy {
 public:
  StandardInputCopy();

  // Where the copy can be opened, as often as one likes.
  std::filesystem::path Path() const;

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, Close> m_file;
};

}  // namespace TabulonCli

#endif
