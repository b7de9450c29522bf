// Writing the table, or a part of it, in one of three forms.
#ifndef OMBRELIA_TABULON_CLI_PRINTING_H
#define OMBRELIA_TABULON_CLI_PRINTING_H

#include <iosfwd>

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace TabulonCli {

// What is to be printed: the displayed columns of some rows. With marks, red-flagged rows are marked.
struct Window {
  const MUExperimentTextReaderMultiFile& table;
  RowRange rows;  // of which those past the last row do not exist
  bool marks;
};

void Print(std::ostream& out, const Window& window, Format format);

}  // namespace TabulonCli

#endif
