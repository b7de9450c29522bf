// Random sequences of operations on the table and on the plain model of it: every answer must agree.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <utility>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "tests/Tabulon/table/TablePlainModel.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::LoadAndShow;
using Tests::PlainFile;
using Tests::PlainSet;
using Tests::PlainTable;
using Tests::ProbeTable;
using Tests::Strings;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Row = MUSingleRowDataPlusRowProperties;

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TABLE_MODEL_UNDER_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define TABLE_MODEL_UNDER_SANITIZER
#endif

// Builds that are slow by design run fewer of them; the optimised one runs all.
#if defined(TABLE_MODEL_UNDER_SANITIZER) || !defined(__OPTIMIZE__)
constexpr unsigned SEQUENCES = 1500;
#else
constexpr unsigned SEQUENCES = 10000;
#endif
constexpr unsigned FIRST_SEED = 90210;

wxString Wide(const std::string& text) { return wxString::FromUTF8(text); }

class CellDecider : public MUInterfaceRowTruthDecider {
 public:
  CellDecider(const std::string& column, const std::string& text)
      : m_column(Wide(column)), m_text(Wide(text)) {}
  int DecideRow(MUSingleRowDataPlusRowProperties* row) override {
    // By reference, so that the row gets an entry for the length of the look.
    const auto cell = row->m_cells.find(m_column);
    return (cell == row->m_cells.end() ? wxString() : cell->second) == m_text ? 1 : 0;
  }
  bool ResultMayBeCached() override { return true; }
  wxString GetIdentityString() override { return m_column + wxT("|") + m_text; }

 private:
  wxString m_column;
  wxString m_text;
};

// Does something with the rows whose cell in column B is the text.
class ActingDecider : public MUInterfaceRowTruthDecider {
 public:
  ActingDecider(const std::string& text, std::function<void(Row&)> action)
      : m_text(Wide(text)), m_action(std::move(action)) {}
  int DecideRow(Row* row) override {
    if (row->m_cells.ValueOrDefault(wxT("B")) == m_text) m_action(*row);
    return 0;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  wxString m_text;
  std::function<void(Row&)> m_action;
};

class CountingObserver : public MUInterfaceExperimentDataObserver {
 public:
  void OnDataShapeChanged(unsigned shownRows, unsigned shownColumns, unsigned long active, int row,
                          int column) override {
    ++shapes;
    last = {static_cast<long>(shownRows), static_cast<long>(shownColumns),
            static_cast<long>(active), row, column};
  }
  void OnRefreshRequest(wxCommandEvent&) override { ++refreshes; }

  int shapes = 0;
  int refreshes = 0;
  std::vector<long> last;
};

// One seed in four hands out no record of a row, and one only to deciders, so that notifications may append to the
// lists. Another one in four tests a derived table, which makes the lists anew each time.
class Comparison {
 public:
  Comparison(const std::vector<PlainFile>& disk, unsigned seed)
      : m_disk(disk),
        m_random(seed),
        m_handsOutRecords(seed % 2 == 1),
        m_asksDeciders(seed % 4 != 0),
        m_model(disk),
        m_ownedTable(seed % 4 == 3 ? std::make_unique<ProbeTable>()
                                   : std::make_unique<MUExperimentTextReaderMultiFile>(nullptr)),
        m_table(*m_ownedTable) {
    m_table.AddObserver(&m_observer);
  }

  void Run() {
    const int steps = 4 + Any(16);
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      Change();
      CompareState();
      const int questions = Any(6);
      for (int i = 0; i < questions; ++i) Ask();
    }
  }

  const std::string& Log() const { return m_log; }

 private:
  int Any(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
  bool Coin() { return Any(2) == 0; }
  const std::string& AnyPath() {
    return m_disk[static_cast<std::size_t>(Any(static_cast<int>(m_disk.size())))].path;
  }
  std::string AnyColumn() {
    const Strings names = {"A", "B", "C", "D", "Reaction\nTime", "nobody", "FFFFF1"};
    return names[static_cast<std::size_t>(Any(static_cast<int>(names.size())))];
  }
  std::string AnyText() {
    const Strings texts = {"x", "y", "", " ", "10", "5", "nobody has it", "x "};
    return texts[static_cast<std::size_t>(Any(static_cast<int>(texts.size())))];
  }
  long AnyShownRow() { return Any(static_cast<int>(m_model.shownKeys.size()) + 3) - 1; }
  PlainSet AnySet() { return static_cast<PlainSet>(Any(3)); }
  static ProbeTable::TARGETED_ROW_SEARCH_SET SetOf(PlainSet set) {
    return set == PlainSet::All      ? ProbeTable::ALL_ROWS
           : set == PlainSet::Active ? ProbeTable::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN
                                     : ProbeTable::ONLY_FULLY_SHOWN_ROWS;
  }
  unsigned AnyFlags() {
    const unsigned flags[] = {0, 8, 32, 60, 64, 96, 28, 1, 2};
    return flags[Any(9)];
  }
  std::deque<wxString> Deque(const Strings& texts) {
    std::deque<wxString> result;
    for (const std::string& text : texts) result.push_back(Wide(text));
    return result;
  }
  Strings AnyPaths() {
    Strings paths;
    for (int i = Any(3); i >= 0; --i) paths.push_back(AnyPath());
    return paths;
  }

  void Note(const std::string& what) { m_log += what + "; "; }

  // A protected member, of an object of the class itself too.
  template <typename MEMBER>
  MEMBER& Inside(MEMBER MUExperimentTextReaderMultiFile::*member) {
    return m_table.*member;
  }

  void Change() {
    switch (Any(m_handsOutRecords ? 28 : m_asksDeciders ? 26 : 24)) {
      case 24:
      case 25:
        ActByDecider();
        break;
      case 26:
      case 27:
        HideOrShowThroughRecord();
        break;
      case 0:
      case 1:
      case 2: {
        const std::string path = AnyPath();
        Note("load " + path);
        EXPECT_EQ(LoadAndShow(m_table, Wide(path)), m_model.AddWithoutViewer(path));
        break;
      }
      case 3: {
        const std::string path = AnyPath();
        const bool notify = Coin();
        Note("add " + path);
        EXPECT_EQ(m_table.AddExperimentOcurrence(wxFileName(Wide(path)), notify),
                  m_model.Add(path, notify));
        break;
      }
      case 4:
      case 5:
      case 6:
      case 7: {
        PlainTable::Requests requests;
        std::deque<DichotomousFileRequest> wxRequests;
        const bool suppress = Coin();
        Note(suppress ? "suppress" : "add and remove");
        for (int i = Any(4); i > 0; --i) {
          requests.push_back({AnyPath(), Any(3) != 0});
          wxRequests.push_back({Wide(requests.back().first), requests.back().second});
          Note(requests.back().first + (requests.back().second ? " +" : " -"));
        }
        if (suppress) {
          m_table.SimultaneousFileRequestsSuppressAndUnsuppress(wxRequests);
          m_model.SuppressAndUnsuppress(requests);
        } else {
          m_table.SimultaneousFileRequestsAddAndRemove(wxRequests);
          m_model.AddAndRemove(requests);
        }
        break;
      }
      case 8:
      case 9:
      case 10:
        Note("idle");
        m_table.OnIdle();
        m_model.Idle();
        break;
      case 11: {
        const auto row = static_cast<std::size_t>(AnyShownRow());
        Note("hide row " + std::to_string(row));
        m_table.HideOneSingleRowPerArbitraryUserRequest(row);
        m_model.HideRow(row);
        break;
      }
      case 12:
        Note("unhide rows");
        m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
        m_model.UnhideRows();
        break;
      case 13: {
        const std::string name = AnyColumn();
        const bool hide = Any(3) != 0;
        Note((hide ? "hide " : "show ") + name);
        if (hide) {
          m_table.HideOneSingleColumnPerArbitraryUserRequest(Wide(name));
        } else {
          m_table.UnhideOneSingleColumnPerArbitraryUserRequest(Wide(name));
        }
        m_model.SetColumnHidden(name, hide);
        break;
      }
      case 14: {
        const std::string moved = AnyColumn();
        const std::string before = AnyColumn();
        Note("move " + moved + " before " + before);
        m_table.MoveColumnPosition(Wide(moved), Wide(before), Coin());
        m_model.Move(moved, before);
        break;
      }
      case 15:
        Note("hide empty");
        m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
        m_model.HideEmpty();
        break;
      case 16: {
        const long row = AnyShownRow();
        const bool value = Coin();
        Note("flag " + std::to_string(row));
        if (Coin()) {
          m_table.SetRowFlag(static_cast<int>(row), value);
          m_model.SetFlag(row, value);
        } else {
          m_table.ToggleRowFlag(static_cast<int>(row));
          m_model.SetFlag(row, !m_model.Flag(row));
        }
        break;
      }
      case 17:
      case 18: {
        const std::string name = Any(8) == 0 ? "" : AnyColumn();
        const bool reverse = Coin();
        Note("sort " + name + (reverse ? " down" : " up"));
        m_table.SetSortColumn(Wide(name), reverse);
        m_model.Sort(name, reverse);
        break;
      }
      case 19:
        Note("revert");
        m_table.RevertAnyAndAllSortOptions();
        m_model.Revert();
        break;
      case 20: {
        const std::string field = AnyColumn();
        const Strings values = field == "FFFFF1" ? AnyPaths() : Strings{AnyText()};
        const bool notify = Coin();
        Note("delete " + field + "=" + values[0]);
        m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(Wide(field),
                                                                            Deque(values), notify);
        m_model.Delete(field, values, notify);
        break;
      }
      case 21: {
        const Strings paths = AnyPaths();
        Note("remove columns");
        m_table.RemoveColumnsBasedOnMultipleFileNames(Deque(paths));
        m_model.RemoveColumns(paths);
        break;
      }
      case 22: {
        const Strings paths = AnyPaths();
        if (Coin()) {
          Note("suppress columns");
          m_table.SuppressColumnsBasedOnMultipleFileNames(Deque(paths));
          m_model.SuppressColumns(paths);
        } else {
          Note("unsuppress columns");
          m_table.UnsuppressColumnsBasedOnMultipleFileNames(Deque(paths));
          m_model.UnsuppressColumns(paths);
        }
        break;
      }
      default:
        if (Any(3) == 0 && m_table.GetNumberOfDataRows() > 0) {
          // Gives one row its own entries, with a text that was not in the file.
          const auto key =
              m_model.rows.empty()
                  ? 0
                  : m_model
                        .rows[static_cast<std::size_t>(Any(static_cast<int>(m_model.rows.size())))]
                        .key;
          auto* row = Inside(&ProbeTable::m_rows).find(key);
          if (row == nullptr) break;
          Note("write");
          row->m_cells[wxT("D")] = wxT("written");
          for (auto& plain : m_model.rows) {
            if (plain.key == key) plain.cells["D"] = "written";
          }
        } else {
          Note("notify");
          m_table.IdleTimeProcessAllNotifications();
          m_model.Notification();
        }
    }
  }

  // Writes flags through a record that may have been lent long ago.
  void HideOrShowThroughRecord() {
    if (Coin()) {
      const auto index = static_cast<unsigned long>(AnyShownRow());
      Row* row = m_table.GetRowByRowIndexAndVisibilityFilter(index, ProbeTable::ALL_ROWS);
      const auto* plain = m_model.RowAt(index, PlainSet::All);
      ASSERT_EQ(row == nullptr, plain == nullptr);
      if (row != nullptr) m_lentRecords.push_back({plain->key, row});
    }
    if (m_lentRecords.empty()) return;
    const auto [key, row] =
        m_lentRecords[static_cast<std::size_t>(Any(static_cast<int>(m_lentRecords.size())))];
    if (Inside(&ProbeTable::m_rows).find(key) != row) return;  // deleted
    const unsigned flag = 8u << Any(3);
    Note("record " + std::to_string(key) + " flag " + std::to_string(flag));
    row->m_rowPropertyFlags ^= flag;
    for (auto& plain : m_model.rows) {
      if (plain.key == key) plain.flags ^= flag;
    }
  }

  // Lets a decider change rows, in one of several ways.
  void ActByDecider() {
    const std::string text = AnyText();
    const int way = Any(4);
    Note("decider " + text + " way " + std::to_string(way));
    const auto search = [this](const std::string& wanted, const std::function<void(Row&)>& action) {
      ActingDecider decider(wanted, action);
      m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
    };
    const auto hideOrShow = [](Row& row) { row.m_rowPropertyFlags ^= 32u; };
    const auto hideOrShowPlain = [](PlainTable::Row& row) { row.flags ^= 32u; };
    switch (way) {
      case 0:
        search(text, hideOrShow);
        ForEachPlainRow(text, hideOrShowPlain);
        break;
      case 1:
        search(text, [](Row& row) { row.m_cells[wxT("D")] = wxT("written"); });
        ForEachPlainRow(text, [](PlainTable::Row& row) { row.cells["D"] = "written"; });
        break;
      case 2:
        // What the notification saw is taken back.
        search(text, [&](Row& row) {
          hideOrShow(row);
          m_table.IdleTimeProcessAllNotifications();
          hideOrShow(row);
        });
        ForEachPlainRow(text, [&](PlainTable::Row& row) {
          hideOrShowPlain(row);
          m_model.Notification();
          hideOrShowPlain(row);
        });
        break;
      default: {
        const std::string inner = AnyText();
        search(text, [&](Row&) { search(inner, hideOrShow); });
        ForEachPlainRow(text, [&](PlainTable::Row&) { ForEachPlainRow(inner, hideOrShowPlain); });
      }
    }
  }

  // Calls action for the rows of the model whose cell in column B is the text, in the order that they have now.
  template <typename ACTION>
  void ForEachPlainRow(const std::string& text, ACTION action) {
    const PlainTable::Keys keys = m_model.allKeys;
    for (const unsigned long key : keys) {
      for (auto& plain : m_model.rows) {
        if (plain.key != key) continue;
        const auto cell = plain.cells.find("B");
        if ((cell == plain.cells.end() ? "" : cell->second) == text) action(plain);
      }
    }
  }

  void CompareState() {
    EXPECT_EQ(Inside(&ProbeTable::m_notificationPending), m_model.pending);
    EXPECT_EQ(Inside(&ProbeTable::m_nextRowKey), m_model.nextKey);
    EXPECT_EQ(Inside(&ProbeTable::m_rows).size(), m_model.rows.size());
    EXPECT_EQ(KeysOf(Inside(&ProbeTable::m_allRowKeys)), m_model.allKeys);
    EXPECT_EQ(KeysOf(Inside(&ProbeTable::m_activeRowKeys)), m_model.activeKeys);
    EXPECT_EQ(KeysOf(*Inside(&ProbeTable::m_currentShownRowKeys)), m_model.shownKeys);
    EXPECT_EQ(Utf8(*Inside(&ProbeTable::m_currentColumnNames)), m_model.names);
    EXPECT_EQ(m_table.GetNumberOfDataRows(), m_model.RowCount());
    EXPECT_EQ(m_table.GetNumberOfDataColumns(), static_cast<int>(m_model.columnCount));
    EXPECT_EQ(std::vector<int>(Inside(&ProbeTable::m_columnHasText).begin(),
                               Inside(&ProbeTable::m_columnHasText).end()),
              m_model.hasText);
    EXPECT_EQ(Inside(&ProbeTable::m_emptySearchFinished), m_model.searchFinished);

    ASSERT_EQ(Inside(&ProbeTable::m_files).size(), m_model.files.size());
    auto file = Inside(&ProbeTable::m_files).begin();
    for (const auto& [path, active] : m_model.files) {
      EXPECT_EQ(Utf8(file->first), path);
      EXPECT_EQ(file->second, active);
      ++file;
    }
    ASSERT_EQ(Inside(&ProbeTable::m_columns).size(), m_model.columns.size());
    for (std::size_t i = 0; i < m_model.columns.size(); ++i) {
      const MUColumnNamePlusProperties& column = *Inside(&ProbeTable::m_columns)[i];
      EXPECT_EQ(Utf8(column.m_columnName), m_model.columns[i].name);
      EXPECT_EQ(column.m_columnPropertyFlags, m_model.columns[i].flags);
      std::vector<std::pair<std::string, bool>> files;
      for (const auto& status : column.m_fileStatuses) {
        files.push_back({Utf8(status.m_fullFileName), status.m_suppressed == 1});
      }
      EXPECT_EQ(files, m_model.columns[i].files);
    }

    for (int row = -1; row <= m_model.RowCount(); ++row) {
      EXPECT_EQ(m_table.GetRowFlagStatus(row), m_model.Flag(row));
      for (int column = -1; column <= static_cast<int>(m_model.names.size()); ++column) {
        EXPECT_EQ(Utf8(m_table.GetDataCellValue(row, column)), m_model.Cell(row, column))
            << row << ", " << column;
      }
    }
    for (const PlainSet set : {PlainSet::Shown, PlainSet::All, PlainSet::Active}) {
      for (std::size_t index = 0; index <= m_model.allKeys.size(); ++index) {
        const auto* row = RecordAt(index, set);
        const auto* plain = m_model.RowAt(index, set);
        ASSERT_EQ(row == nullptr, plain == nullptr);
        if (row == nullptr) continue;
        EXPECT_EQ(row->m_rowPropertyFlags, plain->flags);
        EXPECT_EQ(row->m_indexAmongAllRows, plain->allIndex);
        EXPECT_EQ(row->m_indexAmongActiveRows, plain->activeIndex);
        EXPECT_EQ(row->m_indexAmongShownRows, plain->shownIndex);
      }
    }
    int row = 0;
    int column = 0;
    m_table.GetOuterLimitsOfPreservedRange(&row, &column);
    EXPECT_EQ(row, m_model.PreservedRow());
    EXPECT_EQ(column, m_model.PreservedColumn());
    EXPECT_EQ(m_observer.shapes, m_model.notifications);
    EXPECT_EQ(m_observer.refreshes, m_model.notifications);
    EXPECT_EQ(m_observer.last, m_model.told);
  }

  const Row* RecordAt(std::size_t index, PlainSet set) {
    if (m_handsOutRecords) return m_table.GetRowByRowIndexAndVisibilityFilter(index, SetOf(set));
    const ProbeTable::RowKeys& keys = set == PlainSet::All ? Inside(&ProbeTable::m_allRowKeys)
                                      : set == PlainSet::Active
                                          ? Inside(&ProbeTable::m_activeRowKeys)
                                          : *Inside(&ProbeTable::m_currentShownRowKeys);
    return index < keys.size() ? Inside(&ProbeTable::m_rows).find(keys[index]) : nullptr;
  }

  static PlainTable::Keys KeysOf(const ProbeTable::RowKeys& keys) {
    return {keys.begin(), keys.end()};
  }
  template <typename LIST>
  static std::vector<std::size_t> IndicesOf(const LIST& list) {
    return {list.begin(), list.end()};
  }

  void Ask() {
    switch (Any(m_asksDeciders ? 10 : 7)) {
      case 0: {
        const std::string column = AnyColumn();
        const PlainSet set = AnySet();
        const bool trim = Coin();
        std::vector<wxString> values;
        m_table.SelectDistinctPerColumn(Wide(column), values, SetOf(set), trim);
        EXPECT_EQ(Utf8(values), m_model.Distinct(column, set, trim));
        break;
      }
      case 1: {
        const std::string x = AnyColumn();
        const std::string y = AnyColumn();
        const std::string z = AnyText();
        const bool all = Coin();
        EXPECT_EQ(
            Utf8(m_table.GetAllFromCol_X_WhereField_Y_Matches_Z(Wide(x), Wide(y), Wide(z), all)),
            m_model.Where(x, y, z, all));
        break;
      }
      case 2: {
        Strings xs;
        for (int i = Any(3); i >= 0; --i) xs.push_back(AnyColumn());
        const std::string y = AnyColumn();
        const std::string z = Coin() ? std::string(20, '*') : AnyText();
        const bool all = Coin();
        const auto* found =
            m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(Deque(xs), Wide(y), Wide(z), all);
        const auto expected = m_model.SeveralWhere(xs, y, z, all);
        ASSERT_EQ(found->size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
          std::map<std::string, std::string> cells;
          for (const auto& [name, text] : *(*found)[i]) cells[Utf8(name)] = Utf8(text);
          EXPECT_EQ(cells, expected[i]);
        }
        break;
      }
      case 3: {
        // Three kinds of questions with separate caches: the model keeps them under x and y, which
        // must not meet.
        const unsigned flags = AnyFlags() + 256;
        EXPECT_EQ(Utf8(m_table.FindColumnNamesByPropertyFlag(flags - 256)),
                  m_model.ColumnsByFlags(flags - 256, 1024));
        EXPECT_EQ(Utf8(m_table.FindColumnNamesWherePropertyFlagIsAbsent(flags)),
                  m_model.ColumnsByFlags(0, flags));
        EXPECT_EQ(Utf8(m_table.FindColumnNamesHavingFlagsX_andAbsentFlagsY(1, flags)),
                  m_model.ColumnsByFlags(1, flags));
        break;
      }
      case 4: {
        const unsigned flags = AnyFlags();
        const PlainSet set = AnySet();
        EXPECT_EQ(IndicesOf(m_table.FindCurrentRowIndicesByPropertyFlag(flags, SetOf(set))),
                  m_model.RowsByFlag(flags, false, set));
        break;
      }
      case 5: {
        const unsigned flags = AnyFlags();
        const PlainSet set = AnySet();
        EXPECT_EQ(
            IndicesOf(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(flags, SetOf(set))),
            m_model.RowsByFlag(flags, true, set));
        break;
      }
      case 6: {
        const unsigned x = AnyFlags();
        const unsigned y = AnyFlags();
        EXPECT_EQ(IndicesOf(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(x, y)),
                  m_model.RowsByBoth(x, y));
        break;
      }
      case 7: {
        const std::string column = AnyColumn();
        const std::string text = AnyText();
        const bool all = Coin();
        CellDecider decider(column, text);
        EXPECT_EQ(IndicesOf(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, all)),
                  m_model.Places(column, text, all, -1, -1));
        break;
      }
      case 8: {
        const std::string column = AnyColumn();
        const std::string text = AnyText();
        const bool all = Coin();
        const int first = Any(8) - 2;
        const int last = Any(8) - 2;
        CellDecider decider(column, text);
        EXPECT_EQ(IndicesOf(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(
                      &decider, all, first, last)),
                  m_model.Places(column, text, all, first, last));
        break;
      }
      default: {
        const std::string column = AnyColumn();
        const std::string text = AnyText();
        const bool all = Coin();
        std::vector<std::size_t> indices;
        for (int i = Any(6); i > 0; --i) indices.push_back(static_cast<std::size_t>(Any(12)));
        const std::list<unsigned long> list(indices.begin(), indices.end());
        CellDecider decider(column, text);
        EXPECT_EQ(
            IndicesOf(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
                &decider, list, all)),
            m_model.PlacesWithin(column, text, indices, all));
      }
    }
  }

  const std::vector<PlainFile>& m_disk;
  std::mt19937 m_random;
  const bool m_handsOutRecords;
  const bool m_asksDeciders;
  PlainTable m_model;
  CountingObserver m_observer;
  const std::unique_ptr<MUExperimentTextReaderMultiFile> m_ownedTable;
  MUExperimentTextReaderMultiFile& m_table;
  std::vector<std::pair<unsigned long, Row*>> m_lentRecords;
  std::string m_log;
};

std::vector<PlainFile> MakeDisk(const TemporaryFolder& folder) {
  std::mt19937 random(12345);
  const auto any = [&random](int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  const Strings texts = {"x",
                         "y",
                         "",
                         " ",
                         "10",
                         "5",
                         "x ",
                         "nan",
                         "aaaaaaaaaaaaaaaaaab",
                         "aaaaaaaaaaaaaaaaaaa",
                         "aaaaaaaaaaaaaaaaaa"};
  const std::vector<Strings> headings = {
      {"A", "B", "Reaction\nTime"},           {"B", "C", "A"}, {"D", "A", "B"}, {"C"},
      {"A", "Reaction\nTime", "D", "B", "C"}, {"B", "D"}};
  std::vector<PlainFile> disk;
  for (std::size_t i = 0; i < headings.size(); ++i) {
    PlainFile file;
    file.columns = headings[i];
    for (int rows = 1 + any(4); rows > 0; --rows) {
      // The last cell of a line must not be empty: the reader would not see it.
      Strings cells;
      for (int count = any(static_cast<int>(file.columns.size()) + 1); count > 0; --count) {
        cells.push_back(texts[static_cast<std::size_t>(any(static_cast<int>(texts.size())))]);
      }
      while (!cells.empty() && cells.back().empty()) cells.pop_back();
      file.rows.push_back(cells);
    }
    const std::string name = std::string(1, static_cast<char>('f' + i)) + ".txt";
    file.path = Utf8(folder.WriteData(name, file.columns, file.rows));
    disk.push_back(file);
  }
  PlainFile bad;
  bad.good = false;
  bad.path = Utf8(folder.Write("bad.txt", "bad\n"));
  disk.push_back(bad);
  bad.path = Utf8(folder.PathOf("missing.txt"));
  disk.push_back(bad);
  return disk;
}

TEST(TableModel, TheTableAgreesWithThePlainModel) {
  const TemporaryFolder folder;
  const std::vector<PlainFile> disk = MakeDisk(folder);
  for (unsigned i = 0; i < SEQUENCES && !testing::Test::HasFailure(); ++i) {
    Comparison comparison(disk, FIRST_SEED + i);
    comparison.Run();
    EXPECT_FALSE(testing::Test::HasFailure())
        << "seed " << FIRST_SEED + i << ": " << comparison.Log();
  }
}

}  // namespace
