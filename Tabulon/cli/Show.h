// Printing the table.
#ifndef OMBRELIA_TABULON_CLI_SHOW_H
#define OMBRELIA_TABULON_CLI_SHOW_H

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/SortKeys.h"

namespace TabulonCli {

// Filters, hides, sorts, marks and prints as the command line says. Ends the run (WrongUse) at a column or a
// marked row that is not there.
void Show(const CommandLine& commandLine, DrivenTable& driven);

// Marks the rows of these numbers in the table. Ends the run (WrongUse) at a number that no row has.
void FlagRows(DrivenTable& driven, const std::vector<std::size_t>& numbers,
              const std::vector<DataRow*>& rows);

}  // namespace TabulonCli

#endif
