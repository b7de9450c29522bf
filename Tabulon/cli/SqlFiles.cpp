#include "Tabulon/cli/SqlFiles.h"

#include <new>

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

struct VirtualTable : sqlite3_vtab {
  const SqlFiles* files;
};

struct Cursor : sqlite3_vtab_cursor {
  const SqlFiles* files;
  std::size_t at;
};

Cursor& CursorOf(sqlite3_vtab_cursor* cursor) { return *static_cast<Cursor*>(cursor); }

int Connect(sqlite3* database, void* files, int, const char* const*, sqlite3_vtab** table, char**) {
  const int status = sqlite3_declare_vtab(
      database,
      "CREATE TABLE files(path TEXT, title TEXT, date TEXT, participant TEXT, rows INTEGER)");
  if (status != SQLITE_OK) return status;
  auto* const made = new (std::nothrow) VirtualTable();
  if (made == nullptr) return SQLITE_NOMEM;
  made->files = static_cast<const SqlFiles*>(files);
  *table = made;
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete static_cast<VirtualTable*>(table);
  return SQLITE_OK;
}

int BestIndex(sqlite3_vtab* table, sqlite3_index_info* info) {
  info->estimatedRows =
      static_cast<sqlite3_int64>(static_cast<VirtualTable*>(table)->files->Files().size());
  info->estimatedCost = static_cast<double>(info->estimatedRows) + 1;
  return SQLITE_OK;
}

int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor) {
  auto* const made = new (std::nothrow) Cursor();
  if (made == nullptr) return SQLITE_NOMEM;
  made->files = static_cast<VirtualTable*>(table)->files;
  *cursor = made;
  return SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete &CursorOf(cursor);
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value**) {
  CursorOf(cursor).at = 0;
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
  ++CursorOf(cursor).at;
  return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor* cursor) {
  return CursorOf(cursor).at >= CursorOf(cursor).files->Files().size() ? 1 : 0;
}

void Answer(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

int ColumnOf(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const SqlFiles::File& file = CursorOf(cursor).files->Files()[CursorOf(cursor).at];
  switch (column) {
    case 0:
      Answer(context, file.path);
      break;
    case 1:
      Answer(context, file.title);
      break;
    case 2:
      Answer(context, file.date);
      break;
    case 3:
      Answer(context, file.participant);
      break;
    default:
      sqlite3_result_int64(context, static_cast<sqlite3_int64>(file.rows));
  }
  return SQLITE_OK;
}

int RowidOf(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowid) {
  *rowid = static_cast<sqlite3_int64>(CursorOf(cursor).at);
  return SQLITE_OK;
}

const sqlite3_module MODULE = [] {
  sqlite3_module module = {};
  module.xConnect = Connect;
  module.xDisconnect = Disconnect;
  module.xBestIndex = BestIndex;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Filter;
  module.xNext = Next;
  module.xEof = Eof;
  module.xColumn = ColumnOf;
  module.xRowid = RowidOf;
  return module;
}();

}  // namespace

const std::vector<std::string> SqlFiles::COLUMN_NAMES = {"path", "title", "date", "participant",
                                                         "rows"};

SqlFiles::SqlFiles(const DrivenTable& driven) {
  for (const LoadedFile& file : driven.Loaded()) {
    m_files.push_back({Utf8(driven.Files().NameOf(file.path)), Utf8(file.title), Utf8(file.date),
                       Utf8(file.participant), file.rows});
  }
}

void SqlFiles::Register(sqlite3* database) {
  sqlite3_create_module(database, "files", &MODULE, this);
}

}  // namespace TabulonCli
