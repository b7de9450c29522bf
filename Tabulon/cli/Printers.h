// The forms in which a result is written.
#ifndef OMBRELIA_TABULON_CLI_PRINTERS_H
#define OMBRELIA_TABULON_CLI_PRINTERS_H

#include <memory>
#include <optional>
#include <string>

#include "Tabulon/cli/Result.h"

namespace TabulonCli {

enum class Format { Table, Tsv, Csv, Json, Markdown, Line };

struct PrintOptions {
  Format format = Format::Table;
  std::optional<std::size_t> width;  // of a table; not set: the terminal's, or none
  std::optional<std::size_t>
      limit;  // rows, 0 for all; not set: all, or some if a table is shown on a terminal
};

// Writes to standard output, and no more rows than the limit.
std::unique_ptr<ResultPrinter> MakePrinter(const PrintOptions& options);

}  // namespace TabulonCli

#endif
