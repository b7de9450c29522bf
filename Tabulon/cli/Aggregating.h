// Means and the like per group of rows.
#ifndef OMBRELIA_TABULON_CLI_AGGREGATING_H
#define OMBRELIA_TABULON_CLI_AGGREGATING_H

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"

namespace TabulonCli {

// One row per group, in the order of first appearance: the columns that it is grouped by, then the aggregates. How
// many cells are no number is told on standard error. Ends the run (WrongUse) at an unknown column or aggregate.
void Group(const CommandLine& commandLine, DrivenTable& driven);

// One row per column: kind, rows, empty cells, numbers, different texts; least, median, mean and most number.
void Summary(const CommandLine& commandLine, DrivenTable& driven);

}  // namespace TabulonCli

#endif
