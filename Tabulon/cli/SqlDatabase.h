// SQLite's database in memory, on which queries are run.
#ifndef OMBRELIA_TABULON_CLI_SQLDATABASE_H
#define OMBRELIA_TABULON_CLI_SQLDATABASE_H

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "Tabulon/cli/Result.h"

namespace TabulonCli {

// Failures end the run (WrongUse) with SQLite's own words, and with the place in the query where it tells one.
class SqlDatabase {
 public:
  SqlDatabase();
  ~SqlDatabase();
  SqlDatabase(const SqlDatabase&) = delete;
  SqlDatabase& operator=(const SqlDatabase&) = delete;

  sqlite3* Handle() { return m_database; }

  // Copies tables of these names into a new database file. Ends the run (WrongUse) if there is such a file
  // already, and (NoOutput) if it cannot be written; then none is left behind.
  void Save(const std::filesystem::path& file, const std::vector<std::string>& tables);

  // From now on nothing but reading is allowed. The virtual tables of these names are declared before, which SQLite
  // would otherwise do, and be refused, at the first query.
  void AllowOnlyReading(const std::vector<std::string>& tables);

  // Runs one statement and prints its rows. hint is asked for more words about a message of SQLite.
  void Query(const std::string& query, ResultPrinter& printer,
             const std::function<std::string(const std::string&)>& hint);

 private:
  void Run(const std::string& statement);

  sqlite3* m_database = nullptr;
};

}  // namespace TabulonCli

#endif
