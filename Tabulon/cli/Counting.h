// The different texts of columns, and how many rows have them.
#ifndef OMBRELIA_TABULON_CLI_COUNTING_H
#define OMBRELIA_TABULON_CLI_COUNTING_H

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

// Lists each combination of texts once, in the order of first appearance; without a format and for one column alone
// as bare lines. Ends the run (WrongUse) at an unknown column.
void Distinct(const CommandLine& commandLine, DrivenTable& driven);

// The heading of a column of counts.
ResultColumn CountHeading();

// Counts the rows per combination of texts, the most frequent first.
void Count(const CommandLine& commandLine, DrivenTable& driven);

}  // namespace TabulonCli

#endif
