#include "Tabulon/cli/SqlRows.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <new>
#include <numeric>
#include <set>

#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/RowGroups.h"
#include "Tabulon/cli/RowResult.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/text/MUTrimmedText.h"

namespace TabulonCli {

namespace {

// SQLite is C: no exception may pass through it.
template <typename ACTION>
int Guarded(ACTION action) noexcept {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (...) {
    return SQLITE_ERROR;
  }
}

std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (const char byte : name) quoted.append(byte == '"' ? 2 : 1, byte);
  return quoted + '"';
}

// Matches the rows whose cell passes the test.
template <typename TEST>
class CellDecider : public MUInterfaceRowTruthDecider {
 public:
  CellDecider(ColumnCells& cells, TEST test) : m_cells(cells), m_test(test) {}
  int DecideRow(DataRow* row) override { return m_test(m_cells.TextOf(*row)) ? 1 : 0; }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  ColumnCells& m_cells;
  TEST m_test;
};

bool ContainsWithoutCase(const std::string& text, const std::string& part) {
  const auto same = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
  };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

}  // namespace

struct SqlRows::VirtualTable : sqlite3_vtab {
  SqlRows* rows = nullptr;
};

// Walks over all rows, or over some in its own order.
class SqlRows::Cursor : public sqlite3_vtab_cursor {
 public:
  explicit Cursor(SqlRows& rows) : sqlite3_vtab_cursor(), m_rows(rows) {}

  void Start(std::optional<std::vector<std::uint32_t>> places) {
    m_places = std::move(places);
    m_at = 0;
  }
  void Advance() { ++m_at; }
  bool IsAtEnd() const { return m_at >= (m_places ? m_places->size() : m_rows.m_rows.size()); }
  std::size_t Row() const { return m_places ? (*m_places)[m_at] : m_at; }
  SqlRows& Rows() { return m_rows; }

 private:
  SqlRows& m_rows;
  std::optional<std::vector<std::uint32_t>> m_places;
  std::size_t m_at = 0;
};

// Without xCreate the table is there under the module's name; without xUpdate it is read-only.
const sqlite3_module SqlRows::MODULE = [] {
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

SqlRows::SqlRows(DrivenTable& driven, const Columns& columns, const std::vector<DataRow*>& rows,
                 std::string query)
    : m_driven(driven),
      m_columns(columns),
      m_rows(rows),
      m_query(std::move(query)),
      m_cells(columns.All().size()),
      m_questions(columns.All().size()) {
  AddSqlColumns();
}

void SqlRows::AddSqlColumns() {
  std::set<std::string> taken;
  const auto isFree = [&taken](const std::string& name) {
    return taken.insert(Utf8(TextOf(name).Lower())).second;
  };
  const std::vector<Column>& all = m_columns.All();
  for (const Column& column : all) isFree(column.label);
  for (const auto& [name, source] : {std::pair("row", SqlColumn::Source::RowNumber),
                                     std::pair("flagged", SqlColumn::Source::Flag)}) {
    SqlColumn column;
    column.name = name;
    while (!isFree(column.name)) column.name += '#';
    column.source = source;
    column.isNumbers = true;
    m_sqlColumns.push_back(column);
  }
  for (const bool origin : {true, false}) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (all[i].IsOrigin() != origin) continue;
      SqlColumn column;
      column.name = all[i].label;
      column.column = i;
      column.isNumbers =
          all[i].kind == Column::Kind::Line ||
          (!origin && MayBeAskedFor(all[i]) && HoldsOnlyNumbers(Cells(i), m_rows, IsPlainNumber));
      m_sqlColumns.push_back(column);
    }
  }
  for (std::size_t i = 0; i < m_sqlColumns.size(); ++i) {
    if (m_sqlColumns[i].isAlias || m_sqlColumns[i].source != SqlColumn::Source::Cell) continue;
    const wxString& name = all[m_sqlColumns[i].column].name;
    for (const std::string& alias : {Typeable(name), Utf8(name)}) {
      if (!isFree(alias)) continue;
      SqlColumn column = m_sqlColumns[i];
      column.name = alias;
      column.isAlias = true;
      m_sqlColumns.push_back(column);
    }
  }
}

// The query is not parsed: a name may stand in it by chance, but not be missing where it is meant.
bool SqlRows::MayBeNamed(const std::string& name) const {
  std::string doubled;
  for (const char byte : name) doubled.append(byte == '"' ? 2 : 1, byte);
  return ContainsWithoutCase(m_query, name) || ContainsWithoutCase(m_query, doubled);
}

bool SqlRows::MayBeAskedFor(const Column& column) const {
  if (m_query.empty()) return true;
  for (std::size_t star = m_query.find('*'); star != std::string::npos;
       star = m_query.find('*', star + 1)) {
    // count(*) asks for no column.
    if (star == 0 || m_query[star - 1] != '(') return true;
  }
  return MayBeNamed(column.label) || MayBeNamed(Typeable(column.name)) ||
         MayBeNamed(Utf8(column.name));
}

std::size_t SqlRows::KeepWithinLimit(std::size_t limit) {
  if (m_sqlColumns.size() <= limit) return 0;
  m_sqlColumns.erase(std::remove_if(m_sqlColumns.begin(), m_sqlColumns.end(),
                                    [this](const SqlColumn& column) {
                                      return column.isAlias && !MayBeNamed(column.name);
                                    }),
                     m_sqlColumns.end());
  if (m_sqlColumns.size() <= limit) return 0;
  const std::size_t before = m_sqlColumns.size();
  std::stable_partition(m_sqlColumns.begin(), m_sqlColumns.end(),
                        [this](const SqlColumn& column) { return MayBeNamed(column.name); });
  m_sqlColumns.resize(limit);
  return before - limit;
}

std::size_t SqlRows::Register(sqlite3* database) {
  const int limit = sqlite3_limit(database, SQLITE_LIMIT_COLUMN, -1);
  const std::size_t leftOut = KeepWithinLimit(static_cast<std::size_t>(limit));
  sqlite3_create_module(database, "rows", &MODULE, this);
  return leftOut;
}

std::string SqlRows::Declaration() const {
  std::string declaration = "CREATE TABLE rows(";
  const char* separator = "";
  for (const SqlColumn& column : m_sqlColumns) {
    declaration += separator + Quoted(column.name) + (column.isNumbers ? " NUMERIC" : " TEXT") +
                   (column.isAlias ? " HIDDEN" : "");
    separator = ", ";
  }
  return declaration + ")";
}

ColumnCells& SqlRows::Cells(std::size_t column) {
  if (m_cells[column] == nullptr)
    m_cells[column] = std::make_unique<ColumnCells>(m_columns.All()[column], m_driven.Files());
  return *m_cells[column];
}

int SqlRows::Connect(sqlite3* database, void* rows, int, const char* const*, sqlite3_vtab** table,
                     char** message) {
  return Guarded([&] {
    auto* const self = static_cast<SqlRows*>(rows);
    const int status = sqlite3_declare_vtab(database, self->Declaration().c_str());
    if (status != SQLITE_OK) {
      *message = sqlite3_mprintf("%s", sqlite3_errmsg(database));
      return status;
    }
    auto made = std::make_unique<VirtualTable>();
    made->rows = self;
    *table = made.release();
    return SQLITE_OK;
  });
}

int SqlRows::Disconnect(sqlite3_vtab* table) {
  delete static_cast<VirtualTable*>(table);
  return SQLITE_OK;
}

int SqlRows::BestIndex(sqlite3_vtab* table, sqlite3_index_info* info) {
  return Guarded([&] { return static_cast<VirtualTable*>(table)->rows->PlanFor(info); });
}

int SqlRows::PlanFor(sqlite3_index_info* info) {
  const double rows = static_cast<double>(m_rows.size()) + 1;
  Plan plan;
  for (int i = 0; i < info->nConstraint && !plan.equalColumn; ++i) {
    const auto& constraint = info->aConstraint[i];
    if (constraint.usable == 0 || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ ||
        constraint.iColumn < 0 || std::string(sqlite3_vtab_collation(info, i)) != "BINARY")
      continue;
    plan.equalColumn = static_cast<std::size_t>(constraint.iColumn);
    // SQLite looks at the rows again: what it calls equal is decided in one place.
    info->aConstraintUsage[i].argvIndex = 1;
  }
  if (CanOrderBy(*info)) {
    for (int i = 0; i < info->nOrderBy; ++i) {
      plan.order.push_back(
          {static_cast<std::size_t>(info->aOrderBy[i].iColumn), info->aOrderBy[i].desc != 0});
    }
    info->orderByConsumed = 1;
  }
  info->estimatedRows = static_cast<sqlite3_int64>(plan.equalColumn ? rows / 20 + 1 : rows);
  info->estimatedCost = plan.equalColumn ? rows / 10 + 1 : rows;
  info->idxNum = static_cast<int>(m_plans.size());
  m_plans.push_back(plan);
  return SQLITE_OK;
}

// Texts are ordered here as SQLite orders them, by their bytes as UTF-8, which is the order of their characters.
bool SqlRows::CanOrderBy(const sqlite3_index_info& info) const {
  return info.nOrderBy > 0 &&
         std::all_of(info.aOrderBy, info.aOrderBy + info.nOrderBy, [this](const auto& term) {
           return term.iColumn >= 0 &&
                  !m_sqlColumns[static_cast<std::size_t>(term.iColumn)].isNumbers;
         });
}

int SqlRows::Open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor) {
  return Guarded([&] {
    *cursor = std::make_unique<Cursor>(*static_cast<VirtualTable*>(table)->rows).release();
    return SQLITE_OK;
  });
}

int SqlRows::Close(sqlite3_vtab_cursor* cursor) {
  delete static_cast<Cursor*>(cursor);
  return SQLITE_OK;
}

int SqlRows::Filter(sqlite3_vtab_cursor* cursor, int planNumber, const char*, int,
                    sqlite3_value** values) {
  return Guarded([&] {
    auto& walk = *static_cast<Cursor*>(cursor);
    SqlRows& self = walk.Rows();
    const Plan& plan = self.m_plans.at(static_cast<std::size_t>(planNumber));
    std::optional<std::vector<std::uint32_t>> places;
    if (plan.equalColumn)
      places = self.PlacesWhere(self.m_sqlColumns[*plan.equalColumn], values[0]);
    if (!plan.order.empty()) {
      if (!places) {
        places.emplace(self.m_rows.size());
        std::iota(places->begin(), places->end(), 0U);
      }
      places = self.OrderedPlaces(plan.order, std::move(*places));
    }
    walk.Start(std::move(places));
    return SQLITE_OK;
  });
}

int SqlRows::Next(sqlite3_vtab_cursor* cursor) {
  static_cast<Cursor*>(cursor)->Advance();
  return SQLITE_OK;
}

int SqlRows::Eof(sqlite3_vtab_cursor* cursor) {
  return static_cast<Cursor*>(cursor)->IsAtEnd() ? 1 : 0;
}

int SqlRows::ColumnOf(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  return Guarded([&] {
    auto& walk = *static_cast<Cursor*>(cursor);
    SqlRows& self = walk.Rows();
    self.AnswerCell(context, walk.Row(), self.m_sqlColumns[static_cast<std::size_t>(column)]);
    return SQLITE_OK;
  });
}

int SqlRows::RowidOf(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowid) {
  *rowid = static_cast<sqlite3_int64>(static_cast<Cursor*>(cursor)->Row());
  return SQLITE_OK;
}

void SqlRows::AnswerCell(sqlite3_context* context, std::size_t row, const SqlColumn& column) {
  if (column.source == SqlColumn::Source::RowNumber) {
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(row));
    return;
  }
  if (column.source == SqlColumn::Source::Flag) {
    sqlite3_result_int(context,
                       (m_rows[row]->m_rowPropertyFlags & MU_ROW_FLAG_RED_FLAG) != 0 ? 1 : 0);
    return;
  }
  const MUCellText text = Cells(column.column).TextOf(*m_rows[row]);
  if (!column.isNumbers) {
    const std::string_view utf8 = Utf8View(text, m_room);
    // The table's own memory stays where it is as long as the query runs.
    sqlite3_result_text(context, utf8.data() == nullptr ? "" : utf8.data(),
                        static_cast<int>(utf8.size()),
                        utf8.data() == m_room.data() ? SQLITE_TRANSIENT : SQLITE_STATIC);
    return;
  }
  const MUCellText trimmed = TrimmedText(text);
  if (trimmed.IsEmpty()) return;  // NULL
  const std::string_view digits = Utf8View(trimmed, m_room);
  sqlite3_int64 integer = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), integer);
  if (error == std::errc() && stop == digits.data() + digits.size()) {
    sqlite3_result_int64(context, integer);
  } else if (const auto number = NumberIn(trimmed)) {
    sqlite3_result_double(context, *number);
  }
}

std::optional<std::vector<std::uint32_t>> SqlRows::PlacesWhere(const SqlColumn& column,
                                                               sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_NULL) return std::vector<std::uint32_t>();
  if (column.source == SqlColumn::Source::Flag) return std::nullopt;
  const int type = column.isNumbers ? sqlite3_value_numeric_type(value) : sqlite3_value_type(value);
  if (type == SQLITE_BLOB) return std::nullopt;
  if (type == SQLITE_TEXT) {
    if (column.isNumbers) return std::nullopt;
    const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (text == nullptr) throw std::bad_alloc();
    return PlacesOfText(
        column.column,
        TextOf(std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))));
  }
  const double number = sqlite3_value_double(value);
  if (!std::isfinite(number)) return std::nullopt;
  if (column.source == SqlColumn::Source::RowNumber) {
    std::vector<std::uint32_t> places;
    if (number >= 0 && number < static_cast<double>(m_rows.size()))
      places.push_back(static_cast<std::uint32_t>(number));
    return places;
  }
  // Also in a column of texts: the value may come from a column of numbers, which makes numbers of texts.
  return PlacesOfNumber(column.column, number);
}

// The table answers a first question; a cursor that asks again, as in a join, is worth an index.
const RowIndex* SqlRows::IndexOf(std::size_t column) {
  constexpr unsigned FEW_QUESTIONS = 2;
  if (++m_questions[column] <= FEW_QUESTIONS) return nullptr;
  const auto found = m_indices.find(column);
  if (found != m_indices.end()) return &found->second;
  return &m_indices.emplace(column, RowIndex(Cells(column), m_rows)).first->second;
}

template <typename TEST>
std::vector<std::uint32_t> SqlRows::SearchTable(std::size_t column, TEST test) {
  CellDecider<TEST> decider(Cells(column), test);
  std::vector<std::uint32_t> places;
  for (const unsigned long place :
       *m_driven.Table().FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, false))
    places.push_back(static_cast<std::uint32_t>(place));
  return places;
}

std::vector<std::uint32_t> SqlRows::PlacesOfText(std::size_t column, const wxString& text) {
  if (const RowIndex* index = IndexOf(column)) return index->PlacesOf(MUColumnReader::ViewOf(text));
  const MUWantedText wanted(text);
  return SearchTable(column, [&wanted](const MUCellText& cell) { return wanted.Equals(cell); });
}

std::vector<std::uint32_t> SqlRows::PlacesOfNumber(std::size_t column, double number) {
  if (const RowIndex* index = IndexOf(column)) return index->PlacesOf(number);
  return SearchTable(column, [number](const MUCellText& cell) {
    const std::optional<double> found = NumberIn(cell);
    return found && !(*found < number) && !(*found > number);
  });
}

// Few rows differ in texts: their groups are sorted, and then the rows are dealt out to them.
std::vector<std::uint32_t> SqlRows::OrderedPlaces(const std::vector<OrderTerm>& order,
                                                  std::vector<std::uint32_t> places) {
  std::vector<const Column*> columns;
  for (const OrderTerm& term : order)
    columns.push_back(&m_columns.All()[m_sqlColumns[term.column].column]);
  std::vector<DataRow*> rows;
  rows.reserve(places.size());
  for (const std::uint32_t place : places) rows.push_back(m_rows[place]);
  const RowGroups groups(columns, rows, m_driven.Files());

  std::vector<std::size_t> sorted(groups.Count());
  std::iota(sorted.begin(), sorted.end(), std::size_t{0});
  std::sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) {
    const DataRow& rowA = *rows[groups.FirstRow(a)];
    const DataRow& rowB = *rows[groups.FirstRow(b)];
    for (const OrderTerm& term : order) {
      ColumnCells& cells = Cells(m_sqlColumns[term.column].column);
      const int compared = cells.TextOf(rowA).Compare(cells.TextOf(rowB));
      if (compared != 0) return term.descending ? compared > 0 : compared < 0;
    }
    return a < b;
  });
  std::vector<std::size_t> next(groups.Count());
  std::size_t begin = 0;
  for (const std::size_t group : sorted) {
    next[group] = begin;
    begin += groups.RowCount(group);
  }
  std::vector<std::uint32_t> ordered(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) ordered[next[groups.OfRows()[i]]++] = places[i];
  return ordered;
}

}  // namespace TabulonCli
