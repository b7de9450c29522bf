// The program's arguments.
#ifndef OMBRELIA_TABULON_CLI_COMMANDLINE_H
#define OMBRELIA_TABULON_CLI_COMMANDLINE_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Printers.h"

namespace TabulonCli {

enum class Action { Show, Distinct, Count, Group, Summary, Diff, Sql, Info };

// Rows first to last, both inclusive and counted from 0.
struct RowRange {
  std::size_t first = 0;
  std::size_t last = static_cast<std::size_t>(-1);
};

// Texts are UTF-8; columns and conditions are as the user typed them. An action reads only what its options fill.
struct CommandLine {
  Action action = Action::Show;
  std::vector<std::filesystem::path> inputs;
  std::vector<std::string> mergedPrefixes;
  std::vector<std::string> conditions;  // a row must meet all of them
  PrintOptions print;
  bool hasFormat = false;

  std::optional<std::string> sort;
  bool reverse = false;
  bool hideEmpty = false;
  bool origin = false;
  bool noOrigin = false;
  bool rowNumbers = false;
  std::vector<std::string> hiddenColumns;
  std::vector<std::string>
      columns;  // each one column or several with commas; of show, distinct, count, and
                // the columns that group groups by
  std::optional<RowRange> rows;
  std::optional<std::size_t> last;
  std::vector<std::size_t> flaggedRows;

  bool counts = false;
  std::vector<std::string> aggregates;  // NAME:COLUMN or n
  std::vector<std::string> keys;
  std::vector<std::string> tolerances;  // COLUMN=N
  std::string query;
  std::filesystem::path saveFile;  // empty: none
  bool isShort = false;
};

// Fills commandLine. An exit status comes back when the program is to end at once: after the help and the
// version, which it prints, and after wrong use, which it names on standard error.
std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine);

}  // namespace TabulonCli

#endif
