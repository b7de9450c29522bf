// Answering SQL queries.
#ifndef OMBRELIA_TABULON_CLI_SQL_H
#define OMBRELIA_TABULON_CLI_SQL_H

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"

namespace TabulonCli {

// Runs the query over the tables rows and files, or lists their columns for ".tables"; saves both where the
// command line says so. Ends the run (WrongUse) with SQLite's words where a query fails.
void Sql(const CommandLine& commandLine, DrivenTable& driven);

}  // namespace TabulonCli

#endif
