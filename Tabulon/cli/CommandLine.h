// The program's arguments.
#ifndef OMBRELIA_TABULON_CLI_COMMANDLINE_H
#define OMBRELIA_TABULON_CLI_COMMANDLINE_H

#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "Tabulon/cli/ExitStatus.h"

namespace TabulonCli {

enum class Action { Show, Distinct, Info };
enum class Format { Table, Tsv, Json };

// Rows first to last, both inclusive and counted from 0.
struct RowRange {
  int first = 0;
  int last = std::numeric_limits<int>::max();
};

// Texts are UTF-8; columns are as the user typed them.
struct CommandLine {
  Action action = Action::Show;
  std::vector<std::filesystem::path> files;
  std::string distinctColumn;
  std::string sortColumn;  // empty: unsorted
  bool reverse = false;
  bool hideEmpty = false;
  std::vector<std::string> hiddenColumns;
  std::vector<std::string> conditions;  // COLUMN=VALUE; a row must meet all of them
  std::vector<std::string> columns;     // each one column or several with commas; empty: all
  RowRange rows;
  std::vector<int> flaggedRows;
  Format format = Format::Table;
};

// Fills commandLine. An exit status comes back when the program is to end at once: after the help and the
// version, which it prints, and after wrong use, which it names on standard error.
std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine);

}  // namespace TabulonCli

#endif
