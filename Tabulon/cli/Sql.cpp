#include "Tabulon/cli/Sql.h"

#include <iostream>

#include "Tabulon/cli/SelectedRows.h"
#include "Tabulon/cli/Show.h"
#include "Tabulon/cli/SqlDatabase.h"
#include "Tabulon/cli/SqlFiles.h"
#include "Tabulon/cli/SqlRows.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

const char* const LIST_OF_TABLES = ".tables";
const std::vector<std::string> TABLES = {"rows", "files"};

void PrintTables(const SqlRows& rows, ResultPrinter& printer) {
  std::vector<ResultColumn> headings;
  for (const char* name : {"table", "column", "holds"}) {
    headings.emplace_back();
    headings.back().name = headings.back().upper = name;
  }
  printer.Begin(headings);
  std::size_t count = 0;
  for (const SqlRows::SqlColumn& column : rows.SqlColumns()) {
    if (column.isAlias) continue;
    printer.Row({{"rows"}, {column.name}, {column.isNumbers ? "numbers" : "text"}});
    ++count;
  }
  for (const std::string& name : SqlFiles::COLUMN_NAMES) {
    printer.Row({{"files"}, {name}, {name == "rows" ? "numbers" : "text"}});
    ++count;
  }
  printer.End(count);
}

// "; did you mean ..." behind SQLite's complaint about an unknown column.
std::string HintAt(const std::string& message, const Columns& columns) {
  const std::string begin = "no such column: ";
  if (message.compare(0, begin.size(), begin) != 0) return "";
  const Column* const nearest = columns.Nearest(message.substr(begin.size()));
  return nearest == nullptr ? "" : "; did you mean \"" + nearest->label + "\"?";
}

}  // namespace

void Sql(const CommandLine& commandLine, DrivenTable& driven) {
  const Columns columns = driven.MakeColumns(commandLine.mergedPrefixes);
  const SelectedRows selected(commandLine, driven, columns);
  FlagRows(driven, commandLine.flaggedRows, selected.rows);
  const bool asksForAll = commandLine.query == LIST_OF_TABLES || !commandLine.saveFile.empty();
  SqlRows rows(driven, columns, selected.rows, asksForAll ? "" : commandLine.query);
  SqlFiles files(driven);
  SqlDatabase database;
  const std::size_t leftOut = rows.Register(database.Handle());
  if (leftOut > 0) {
    std::cerr << "tabulon-cli: rows has more columns than SQLite takes; "
              << Counted(leftOut, "column") << " not named in the query left out\n";
  }
  files.Register(database.Handle());
  if (!commandLine.saveFile.empty()) database.Save(commandLine.saveFile, TABLES);
  database.AllowOnlyReading(TABLES);
  const std::unique_ptr<ResultPrinter> printer = MakePrinter(commandLine.print);
  if (commandLine.query == LIST_OF_TABLES) {
    PrintTables(rows, *printer);
  } else {
    database.Query(commandLine.query, *printer,
                   [&columns](const std::string& message) { return HintAt(message, columns); });
  }
}

}  // namespace TabulonCli
