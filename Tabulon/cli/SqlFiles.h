// The loaded files as SQLite's read-only virtual table "files": path, title, date, participant, rows.
#ifndef OMBRELIA_TABULON_CLI_SQLFILES_H
#define OMBRELIA_TABULON_CLI_SQLFILES_H

#include <sqlite3.h>

#include <string>
#include <vector>

#include "Tabulon/cli/DrivenTable.h"

namespace TabulonCli {

class SqlFiles {
 public:
  struct File {
    std::string path;  // as the user gave it, as in the column "file" of the rows
    std::string title;
    std::string date;
    std::string participant;
    std::size_t rows = 0;
  };
  static const std::vector<std::string> COLUMN_NAMES;

  explicit SqlFiles(const DrivenTable& driven);

  // Makes the table known to the database, which must not outlive this.
  void Register(sqlite3* database);

  const std::vector<File>& Files() const { return m_files; }

 private:
  std::vector<File> m_files;
};

}  // namespace TabulonCli

#endif
