// The files that a run is about.
#ifndef OMBRELIA_TABULON_CLI_INPUTS_H
#define OMBRELIA_TABULON_CLI_INPUTS_H

#include <wx/string.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Tabulon/cli/StandardInputCopy.h"

namespace TabulonCli {

class Inputs {
 public:
  // Files, folders (every *.txt below them, in the order of their names) and "-" for standard input, which is
  // read here. A file that is named twice comes once. Ends the run (WrongUse) at the first that is missing or
  // unreadable, and at a folder without any such file; whether a file is a data file is for its reader to say.
  explicit Inputs(const std::vector<std::filesystem::path>& given);

  // As absolute paths.
  const std::vector<std::filesystem::path>& Paths() const { return m_paths; }
  // What the user called the file that the table knows by this path.
  const wxString& NameOf(const wxString& tablePath) const;
  std::string NameOf(const std::filesystem::path& path) const;

 private:
  void Add(const std::filesystem::path& given);
  void AddFile(const std::filesystem::path& given);
  void AddFolder(const std::filesystem::path& given);
  void AddStandardInput();

  std::vector<std::filesystem::path> m_paths;
  std::map<wxString, wxString> m_names;  // by the path that the table is given
  std::unique_ptr<StandardInputCopy> m_standardInput;
};

}  // namespace TabulonCli

#endif
