// What one file is.
#ifndef OMBRELIA_TABULON_CLI_FILEDESCRIPTION_H
#define OMBRELIA_TABULON_CLI_FILEDESCRIPTION_H

#include <filesystem>
#include <string>
#include <vector>

#include "Tabulon/cli/Inputs.h"

namespace TabulonCli {

// Texts are UTF-8, without any character that a terminal would act upon.
struct ColumnDescription {
  std::string name;   // on one line
  std::string kind;   // "plain", "trial variable", "code value" or both
  std::string cells;  // see KindOfCells
};

struct FileDescription {
  std::string name;                   // as the user gave it, or its absolute path
  std::vector<std::string> problems;  // why it is no data file; then all else is empty
  std::string title;
  std::string date;
  std::string participant;
  std::size_t rows = 0;
  std::vector<ColumnDescription> columns;
};

// Reads the file, as the table would.
FileDescription Describe(const std::filesystem::path& file, const Inputs& inputs);

}  // namespace TabulonCli

#endif
