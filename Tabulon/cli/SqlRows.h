// The merged table as SQLite's read-only virtual table "rows". Nothing is copied: SQLite asks for cells as it needs
// them, and hands conditions of equality and orders of texts down.
#ifndef OMBRELIA_TABULON_CLI_SQLROWS_H
#define OMBRELIA_TABULON_CLI_SQLROWS_H

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/RowIndex.h"

namespace TabulonCli {

class SqlRows {
 public:
  // One column of the virtual table.
  struct SqlColumn {
    enum class Source { RowNumber, Flag, Cell };
    std::string name;
    Source source = Source::Cell;
    std::size_t column = 0;  // of a cell: the place among all columns
    bool isAlias = false;    // a further name of a column; SELECT * leaves it out
    bool isNumbers = false;
  };

  // The rows, in load order, are all that are shown in the table. All of these must outlive this and the database.
  // query: only columns that it may name are looked through for numbers; empty if all may be asked for.
  SqlRows(DrivenTable& driven, const Columns& columns, const std::vector<DataRow*>& rows,
          std::string query);

  // Makes the table known to the database. If there are more columns than SQLite takes, the table has those that
  // the query names. Answers how many columns were left out.
  std::size_t Register(sqlite3* database);

  const std::vector<SqlColumn>& SqlColumns() const { return m_sqlColumns; }

 private:
  class Cursor;
  struct VirtualTable;
  static const sqlite3_module MODULE;

  struct OrderTerm {
    std::size_t column;  // of the SQL columns
    bool descending;
  };
  // What BestIndex found out, as Filter needs it.
  struct Plan {
    std::optional<std::size_t> equalColumn;  // the first argument is its value
    std::vector<OrderTerm> order;            // empty: the table's
  };

  static int Connect(sqlite3* database, void* rows, int, const char* const*, sqlite3_vtab** table,
                     char**);
  static int Disconnect(sqlite3_vtab* table);
  static int BestIndex(sqlite3_vtab* table, sqlite3_index_info* info);
  static int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor);
  static int Close(sqlite3_vtab_cursor* cursor);
  static int Filter(sqlite3_vtab_cursor* cursor, int planNumber, const char*, int,
                    sqlite3_value** values);
  static int Next(sqlite3_vtab_cursor* cursor);
  static int Eof(sqlite3_vtab_cursor* cursor);
  static int ColumnOf(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column);
  static int RowidOf(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowid);

  void AddSqlColumns();
  std::size_t KeepWithinLimit(std::size_t limit);
  bool MayBeNamed(const std::string& name) const;
  bool MayBeAskedFor(const Column& column) const;
  std::string Declaration() const;
  int PlanFor(sqlite3_index_info* info);
  bool CanOrderBy(const sqlite3_index_info& info) const;
  ColumnCells& Cells(std::size_t column);
  void AnswerCell(sqlite3_context* context, std::size_t row, const SqlColumn& column);
  // The places of all rows that may have the value; nothing if that may be any row.
  std::optional<std::vector<std::uint32_t>> PlacesWhere(const SqlColumn& column,
                                                        sqlite3_value* value);
  std::vector<std::uint32_t> PlacesOfText(std::size_t column, const wxString& text);
  std::vector<std::uint32_t> PlacesOfNumber(std::size_t column, double number);
  // Null while the column was asked for too seldom.
  const RowIndex* IndexOf(std::size_t column);
  template <typename TEST>
  std::vector<std::uint32_t> SearchTable(std::size_t column, TEST test);
  std::vector<std::uint32_t> OrderedPlaces(const std::vector<OrderTerm>& order,
                                           std::vector<std::uint32_t> places);

  DrivenTable& m_driven;
  const Columns& m_columns;
  const std::vector<DataRow*>& m_rows;
  const std::string m_query;
  std::vector<SqlColumn> m_sqlColumns;
  std::vector<std::unique_ptr<ColumnCells>> m_cells;  // made when first needed
  std::vector<unsigned> m_questions;                  // how often a column was searched
  std::map<std::size_t, RowIndex> m_indices;
  std::vector<Plan> m_plans;
  std::string m_room;
};

}  // namespace TabulonCli

#endif
