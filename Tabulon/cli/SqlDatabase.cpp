#include "Tabulon/cli/SqlDatabase.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <system_error>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

// The line of the query in which the place is, with a mark below it.
std::string Pointed(const std::string& query, std::size_t place) {
  const std::size_t lineFeed = place == 0 ? std::string::npos : query.rfind('\n', place - 1);
  const std::size_t begin = lineFeed == std::string::npos ? 0 : lineFeed + 1;
  const std::string line = query.substr(begin, query.find('\n', begin) - begin);
  std::string harmless;
  AppendHarmless(harmless, line);
  const std::size_t indent =
      DisplayWidth(std::string_view(line).substr(0, std::min(place - begin, line.size())));
  return "\n  " + harmless + "\n  " + std::string(indent, ' ') + "^";
}

int AllowReading(void*, int action, const char*, const char* second, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_FUNCTION:
      return std::string("load_extension") == second ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

// number(x): the number in a text; NULL for any other.
void Number(sqlite3_context* context, int, sqlite3_value** values) {
  switch (sqlite3_value_type(values[0])) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      sqlite3_result_value(context, values[0]);
      return;
    case SQLITE_TEXT:
      break;
    default:
      return;
  }
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
  const auto length = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
  const std::optional<double> number = text == nullptr ? std::nullopt : NumberIn({text, length});
  if (number) sqlite3_result_double(context, *number);
}

std::vector<ResultColumn> HeadingsOf(sqlite3_stmt* statement) {
  std::vector<ResultColumn> headings;
  std::set<std::string> taken;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    ResultColumn heading;
    const char* const name = sqlite3_column_name(statement, i);
    if (name == nullptr) throw std::bad_alloc();
    AppendHarmless(heading.name, name);
    while (!taken.insert(heading.name).second) heading.name += '#';
    heading.upper = heading.name;
    headings.push_back(heading);
  }
  return headings;
}

ResultCell CellIn(sqlite3_stmt* statement, int column) {
  ResultCell cell;
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      cell.kind = ResultCell::Kind::Null;
      return cell;
    case SQLITE_FLOAT:
      if (!std::isfinite(sqlite3_column_double(statement, column))) break;
      [[fallthrough]];
    case SQLITE_INTEGER:
      cell.kind = ResultCell::Kind::Number;
      break;
  }
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  if (text != nullptr)
    cell.text = {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
  return cell;
}

// The unfinished file, gone unless it is taken.
class NewFile {
 public:
  explicit NewFile(const std::filesystem::path& file) : m_file(file), m_unfinished(file) {
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(file, ignored)))
      throw RunError(ExitStatus::WrongUse, "--save: " + file.string() + " is there already");
    m_unfinished += ".unfinished";
    std::filesystem::remove(m_unfinished, ignored);
  }
  ~NewFile() {
    std::error_code ignored;
    std::filesystem::remove(m_unfinished, ignored);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  const std::filesystem::path& Unfinished() const { return m_unfinished; }
  void Finish() const {
    std::error_code error;
    std::filesystem::rename(m_unfinished, m_file, error);
    if (error) {
      throw RunError(ExitStatus::NoOutput, "--save: " + m_file.string() + ": " + error.message());
    }
  }

 private:
  const std::filesystem::path m_file;
  std::filesystem::path m_unfinished;
};

}  // namespace

SqlDatabase::SqlDatabase() {
  if (sqlite3_open(":memory:", &m_database) != SQLITE_OK) throw std::bad_alloc();
  // A name in quotation marks that no column has is an error and not a text.
  sqlite3_db_config(m_database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(m_database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  Run("PRAGMA temp_store=MEMORY");
  sqlite3_create_function(m_database, "number", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                          Number, nullptr, nullptr);
}

SqlDatabase::~SqlDatabase() { sqlite3_close_v2(m_database); }

void SqlDatabase::Run(const std::string& statement) {
  if (sqlite3_exec(m_database, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw RunError(ExitStatus::NoOutput, sqlite3_errmsg(m_database));
}

void SqlDatabase::Save(const std::filesystem::path& file, const std::vector<std::string>& tables) {
  const NewFile newFile(file);
  std::string name;
  for (const char byte : newFile.Unfinished().string()) name.append(byte == '\'' ? 2 : 1, byte);
  try {
    Run("ATTACH '" + name + "' AS saved");
    Run("PRAGMA saved.journal_mode=OFF");
    Run("PRAGMA saved.synchronous=OFF");
    Run("BEGIN");
    for (const std::string& table : tables)
      Run("CREATE TABLE saved." + table + " AS SELECT * FROM " + table);
    Run("COMMIT");
    Run("DETACH saved");
  } catch (const RunError& error) {
    throw RunError(error.Status(), "--save: " + file.string() + ": " + error.what());
  }
  newFile.Finish();
}

void SqlDatabase::AllowOnlyReading(const std::vector<std::string>& tables) {
  for (const std::string& table : tables) Run("SELECT 1 FROM " + table + " LIMIT 0");
  sqlite3_set_authorizer(m_database, AllowReading, nullptr);
}

void SqlDatabase::Query(const std::string& query, ResultPrinter& printer,
                        const std::function<std::string(const std::string&)>& hint) {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int prepareStatus = sqlite3_prepare_v2(
      m_database, query.c_str(), static_cast<int>(query.size() + 1), &prepared, &rest);
  const Statement statement(prepared);
  if (prepareStatus != SQLITE_OK) {
    const std::string message = sqlite3_errmsg(m_database);
    const int place = sqlite3_error_offset(m_database);
    throw RunError(ExitStatus::WrongUse,
                   message + hint(message) +
                       (place < 0 ? "" : Pointed(query, static_cast<std::size_t>(place))));
  }
  if (statement == nullptr) throw RunError(ExitStatus::WrongUse, "the query is empty");
  const std::string more(rest);
  if (more.find_first_not_of(" \t\r\n;") != std::string::npos) {
    throw RunError(ExitStatus::WrongUse,
                   "one query at a time" + Pointed(query, query.size() - more.size()));
  }
  printer.Begin(HeadingsOf(prepared));
  std::size_t rows = 0;
  ResultRow cells(static_cast<std::size_t>(sqlite3_column_count(prepared)));
  int stepStatus = SQLITE_ROW;
  while ((stepStatus = sqlite3_step(prepared)) == SQLITE_ROW) {
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = CellIn(prepared, static_cast<int>(i));
    printer.Row(cells);
    ++rows;
  }
  if (stepStatus != SQLITE_DONE) throw RunError(ExitStatus::WrongUse, sqlite3_errmsg(m_database));
  printer.End(rows);
}

}  // namespace TabulonCli
