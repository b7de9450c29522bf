// The rows that a command is about.
#ifndef OMBRELIA_TABULON_CLI_SELECTEDROWS_H
#define OMBRELIA_TABULON_CLI_SELECTEDROWS_H

#include <vector>

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/SortKeys.h"

namespace TabulonCli {

struct SelectedRows {
  // Hides the rows that miss a condition of the command line; rows are the others, in load order. Ends the run
  // (WrongUse) at a condition that is none.
  SelectedRows(const CommandLine& commandLine, DrivenTable& driven, const Columns& columns)
      : inputs(driven.Files()) {
    std::vector<Condition> conditions;
    for (const std::string& condition : commandLine.conditions)
      conditions.emplace_back(condition, columns);
    driven.KeepRowsWhere(conditions);
    rows = ShownRows(driven.Table());
  }

  const Inputs& inputs;
  std::vector<DataRow*> rows;
};

}  // namespace TabulonCli

#endif
