// A derived viewer may do in its overrides whatever the members allow; the table answers as if it made every
// list anew. An object of the class itself takes short cuts, and nobody can tell by what it answers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ColumnOf;
using Tests::LoadAndShow;
using Tests::ProbeTable;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Table = MUExperimentTextReaderMultiFile;
using Row = MUSingleRowDataPlusRowProperties;
using Texts = std::vector<std::string>;
using Keys = ProbeTable::RowKeys;

// A viewer whose steps do more after the table's own steps.
class ViewerTable : public ProbeTable {
 public:
  using Action = std::function<void()>;
  Action afterUnsortedOrder;
  Action insteadOfSortedOrder;
  Action afterExtraction;
  Action afterCachesWereErased;
  Action afterRowsWereSuppressed;

  void ResetKeysIntoCurrentRowsAll() override {
    ProbeTable::ResetKeysIntoCurrentRowsAll();
    if (afterUnsortedOrder) afterUnsortedOrder();
  }
  void ResetKeysUsingSortSettings() override {
    if (insteadOfSortedOrder) {
      insteadOfSortedOrder();
    } else {
      ProbeTable::ResetKeysUsingSortSettings();
    }
  }
  void ExtractAll(MUInterfaceExperimentDataFileInputReader* reader) override {
    ProbeTable::ExtractAll(reader);
    if (afterExtraction) afterExtraction();
  }
  void EraseCachesOfQueries() override {
    ProbeTable::EraseCachesOfQueries();
    if (afterCachesWereErased) afterCachesWereErased();
  }
  void SimultaneousRowsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) override {
    ProbeTable::SimultaneousRowsSuppressAndUnsuppress(requests);
    if (afterRowsWereSuppressed) afterRowsWereSuppressed();
  }
};

class TableViewer : public testing::Test {
 protected:
  TableViewer() {
    for (const char* name : {"a", "b", "c"}) {
      m_paths.push_back(folder.WriteData(std::string(name) + ".txt", {"Event\nName"},
                                         {{std::string(name) + "0"}, {std::string(name) + "1"}}));
    }
  }

  void Load(std::size_t file) { ASSERT_TRUE(viewer.Load(m_paths[file])); }
  Texts Shown() { return viewer.Column(wxT("Event\nName")); }
  static Texts Distinct(const Table& table) {
    std::vector<wxString> texts;
    table.SelectDistinctPerColumn(wxT("Event\nName"), texts, Table::ALL_ROWS, false);
    return Utf8(texts);
  }

  TemporaryFolder folder;
  ViewerTable viewer;
  std::vector<wxString> m_paths;
};

TEST_F(TableViewer, MayTurnTheOrderRound) {
  viewer.afterUnsortedOrder = [this] {
    for (Keys* keys : {&viewer.m_allRowKeys, &viewer.m_activeRowKeys, viewer.m_currentShownRowKeys})
      std::reverse(keys->begin(), keys->end());
  };
  Load(0);
  EXPECT_EQ(Shown(), Texts({"a1", "a0"}));
  Load(1);
  EXPECT_EQ(Shown(), Texts({"b1", "b0", "a1", "a0"}));
  viewer.OnIdle();
  Load(2);
  EXPECT_EQ(Shown(), Texts({"c1", "c0", "b1", "b0", "a1", "a0"}));
  EXPECT_EQ(viewer.m_allRowKeys, Keys({5, 4, 3, 2, 1, 0}));
  EXPECT_EQ(viewer.m_activeRowKeys, Keys({5, 4, 3, 2, 1, 0}));
}

TEST_F(TableViewer, MayFillTheListsOfASortItself) {
  viewer.insteadOfSortedOrder = [this] {
    Keys keys;
    for (const auto& [key, row] : viewer.m_rows) keys.push_back(key);
    std::rotate(keys.begin(), keys.begin() + 1, keys.end());
    viewer.m_allRowKeys = viewer.m_activeRowKeys = *viewer.m_currentShownRowKeys = keys;
  };
  Load(0);
  viewer.SetSortColumn(wxT("Event\nName"), true);
  EXPECT_EQ(Shown(), Texts({"a1", "a0"}));
  Load(1);
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1", "a0"}));
  viewer.RevertAnyAndAllSortOptions();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
  Load(2);
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableViewer, MayChangeFlagsWhereFilesAreSuppressedAndNotify) {
  Load(0);
  Load(1);
  viewer.afterRowsWereSuppressed = [this] {
    viewer.m_rows.find(0)->m_rowPropertyFlags ^= MU_ROW_FLAG_SUPPRESSED_BY_FILE;
    viewer.NotifyMyObservers();
  };
  viewer.SimultaneousRowsSuppressAndUnsuppress({});
  viewer.OnIdle();
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1"}));
  viewer.SimultaneousRowsSuppressAndUnsuppress({});
  viewer.OnIdle();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
}

TEST_F(TableViewer, MayChangeFlagsOfOldRowsWhenNewOnesArrive) {
  Load(0);
  viewer.afterExtraction = [this] { viewer.m_rows.find(1)->m_rowPropertyFlags |= 16; };
  Load(1);
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1"}));
  EXPECT_EQ(viewer.m_activeRowKeys, Keys({0, 2, 3}));
  EXPECT_EQ(viewer.m_allRowKeys, Keys({0, 1, 2, 3}));
}

TEST_F(TableViewer, MayTakeRowsOut) {
  Load(0);
  viewer.afterCachesWereErased = [this] {
    const Row* row = viewer.m_rows.find(0);
    viewer.m_rows.erase(0);
    delete row;
  };
  Load(1);
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1"}));
  EXPECT_EQ(viewer.m_allRowKeys, Keys({1, 2, 3}));
}

TEST_F(TableViewer, MayWritePlacesAndCallTheStepsItself) {
  Load(0);
  Load(1);
  for (const auto& [key, row] : viewer.m_rows) {
    row->m_indexAmongAllRows = row->m_indexAmongActiveRows = row->m_indexAmongShownRows = 77;
  }
  viewer.m_allRowKeys.clear();
  viewer.ResetKeysIntoCurrentRowsAll();
  viewer.ResetKeysIntoCurrentRowsAll();
  EXPECT_EQ(viewer.m_allRowKeys, Keys({0, 1, 2, 3}));
  for (const auto& [key, row] : viewer.m_rows) {
    EXPECT_EQ(row->m_indexAmongAllRows, key);
    EXPECT_EQ(row->m_indexAmongActiveRows, key);
    EXPECT_EQ(row->m_indexAmongShownRows, key);
  }
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
}

TEST_F(TableViewer, MayWriteTheDisplayedNames) {
  const wxString path = folder.WriteData("two.txt", {"A", "B"}, {{"a", "b"}});
  ASSERT_TRUE(viewer.Load(path));
  EXPECT_EQ(viewer.Cell(0, 0), "a");
  std::swap(viewer.m_currentColumnNames->at(0), viewer.m_currentColumnNames->at(1));
  EXPECT_EQ(viewer.Cell(0, 0), "b");
  EXPECT_EQ(viewer.Cell(0, 1), "a");
}

TEST_F(TableViewer, MaySwapTheRowsForOthers) {
  ViewerTable other;
  ASSERT_TRUE(other.Load(m_paths[1]));
  Load(0);
  EXPECT_EQ(Distinct(viewer), Texts({"a0", "a1"}));
  EXPECT_EQ(Distinct(other), Texts({"b0", "b1"}));
  std::swap(viewer.m_rows, other.m_rows);
  viewer.Notify();
  other.Notify();
  EXPECT_EQ(Distinct(viewer), Texts({"b0", "b1"}));
  EXPECT_EQ(Distinct(other), Texts({"a0", "a1"}));
  viewer.SetSortColumn(wxT("Event\nName"), true);
  EXPECT_EQ(Shown(), Texts({"b1", "b0"}));
}

TEST_F(TableViewer, MayTakeAllRowsOutAndPutThemBack) {
  Load(0);
  EXPECT_EQ(Distinct(viewer), Texts({"a0", "a1"}));
  MURowStore saved = std::move(viewer.m_rows);
  viewer.Notify();
  EXPECT_EQ(viewer.m_allRowKeys, Keys());
  EXPECT_EQ(Distinct(viewer), Texts());
  viewer.SetSortColumn(wxT("Event\nName"), true);
  EXPECT_EQ(Shown(), Texts());
  viewer.m_rows = std::move(saved);
  viewer.Notify();
  EXPECT_EQ(Distinct(viewer), Texts({"a1", "a0"}));
  EXPECT_EQ(Shown(), Texts({"a1", "a0"}));
}

// The table then takes itself for an empty one, and its keys start over.
class TableWithoutLists : public ProbeTable {
 public:
  void ResetKeysIntoCurrentRowsAll() override {}
};

TEST_F(TableViewer, ThatMakesNoListsHasTheNewRowsInPlaceOfTheOld) {
  TableWithoutLists table;
  ASSERT_TRUE(table.Load(folder.WriteData("old.txt", {"A"}, {{"o0"}, {"o1"}, {"o2"}})));
  EXPECT_EQ(table.m_nextRowKey, 0u);
  ASSERT_TRUE(table.Load(folder.WriteData("new.txt", {"A"}, {{"n0"}, {"n1"}})));
  Texts texts;
  for (const auto& [key, row] : table.m_rows)
    texts.push_back(std::to_string(key) + Utf8(row->m_cells.ValueOrDefault(wxT("A"))));
  EXPECT_EQ(texts, Texts({"0n0", "1n1", "2o2"}));
}

// Shows each row as soon as it is read. The last one has a cell beyond the columns, which so far had no name.
class TableThatShowsWhileItReads : public ProbeTable {
 public:
  void ExtractAll(MUInterfaceExperimentDataFileInputReader* reader) override {
    const wxString extra =
        MUInterfaceExperimentDataFileInputReader::COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING;
    reader->GoToDataRow(0);
    for (std::uint32_t i = 0; i < reader->GetDataRowCount(); ++i) {
      m_rows.insert(m_nextRowKey++, reader->CreateAndReturnCurrentRowObject(true));
      ResetKeysIntoCurrentRowsAll();
      *m_currentColumnNames = {wxT("A"), extra};
      m_shownRowCount = m_currentShownRowKeys->size();
      m_shownColumnCount = m_currentColumnNames->size();
      seen.push_back(Cell(static_cast<int>(i), 1));
    }
  }

  Texts seen;
};

TEST_F(TableViewer, MayReadAColumnBeforeItsFirstRowIsMade) {
  TableThatShowsWhileItReads table;
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"short"}, {"long", "extra"}})));
  EXPECT_EQ(table.seen, Texts({"", "extra"}));
}

// ---- Shares of columns

class TableShares : public testing::Test {
 protected:
  static constexpr std::size_t FILES = 70;

  void SetUp() override {
    for (std::size_t i = 0; i < FILES; ++i) {
      paths.push_back(folder.WriteData("many" + std::to_string(100 + i) + ".txt", {"A"}, {{"x"}}));
      ASSERT_TRUE(table.Load(paths.back()));
    }
  }
  FileStatusStruct& Share(std::size_t file) {
    return *std::next(table.m_columns.front()->m_fileStatuses.begin(),
                      static_cast<std::ptrdiff_t>(file));
  }
  std::size_t SuppressedShares() {
    const auto& shares = table.m_columns.front()->m_fileStatuses;
    return static_cast<std::size_t>(
        std::count_if(shares.begin(), shares.end(),
                      [](const FileStatusStruct& share) { return share.m_suppressed == 1; }));
  }

  TemporaryFolder folder;
  ProbeTable table;
  std::deque<wxString> paths;
};

TEST_F(TableShares, AViewersOwnSuppressionAmongManyIsUndone) {
  Share(3).m_suppressed = 1;
  Share(66).m_suppressed = 1;
  table.UnsuppressColumnsBasedOnMultipleFileNames({paths[66], paths[5]});
  EXPECT_EQ(Share(3).m_suppressed, 1);
  EXPECT_EQ(Share(66).m_suppressed, 0);
  table.UnsuppressColumnsBasedOnMultipleFileNames(paths);
  EXPECT_EQ(SuppressedShares(), 0u);
}

TEST_F(TableShares, AFileThatIsLoadedAgainHasAllItsSharesLive) {
  Share(66).m_suppressed = 1;
  ASSERT_TRUE(table.Load(paths[66]));
  EXPECT_EQ(SuppressedShares(), 0u);
  EXPECT_EQ(table.m_columns.front()->m_fileStatuses.size(), FILES + 1);
}

TEST_F(TableShares, ManyFilesAreSuppressedByOneBatch) {
  std::deque<DichotomousFileRequest> requests;
  for (const wxString& path : paths) requests.push_back({path, false});
  table.SimultaneousFileRequestsSuppressAndUnsuppress(requests);
  EXPECT_EQ(SuppressedShares(), FILES);
  EXPECT_EQ(table.m_columns.front()->m_columnPropertyFlags & MU_COL_FLAG_SUPPRESSED_BY_FILE,
            MU_COL_FLAG_SUPPRESSED_BY_FILE);
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 0);
  EXPECT_EQ(table.m_allRowKeys.size(), FILES);

  requests.front().m_wanted = true;
  table.SimultaneousFileRequestsSuppressAndUnsuppress({requests.front()});
  table.OnIdle();
  EXPECT_EQ(SuppressedShares(), FILES - 1);
  EXPECT_EQ(table.Column(wxT("A")), Texts({"x"}));
}

// An object of the class itself, whose shares only its own operations can suppress.
class TableOwnShares : public testing::Test {
 protected:
  TableOwnShares() {
    for (const char* name : {"a", "b"}) {
      paths.push_back(folder.WriteData(std::string(name) + ".txt", {"A"}, {{name}}));
      EXPECT_TRUE(LoadAndShow(table, paths.back()));
    }
  }
  MUColumnNamePlusProperties& Column() { return *(table.*&ProbeTable::m_columns).front(); }
  std::vector<int> States() {
    std::vector<int> states;
    for (const FileStatusStruct& share : Column().m_fileStatuses)
      states.push_back(share.m_suppressed);
    return states;
  }

  TemporaryFolder folder;
  Table table{nullptr};
  std::deque<wxString> paths;
};

TEST_F(TableOwnShares, AreNotLookedThroughForAFileThatWasNeverSuppressed) {
  Column().m_fileStatuses.front().m_suppressed = 1;  // behind the table's back
  ASSERT_TRUE(LoadAndShow(table, paths[0]));
  EXPECT_EQ(States(), std::vector<int>({1, 0, 0}));
}

TEST_F(TableOwnShares, OfASuppressedFileAreLiveWhenItIsLoadedAgain) {
  table.SuppressColumnsBasedOnMultipleFileNames(paths);
  ASSERT_TRUE(LoadAndShow(table, paths[0]));
  EXPECT_EQ(States(), std::vector<int>({0, 1, 0}));
  ASSERT_TRUE(LoadAndShow(table, paths[1]));
  EXPECT_EQ(States(), std::vector<int>({0, 0, 0, 0}));
}

TEST_F(TableOwnShares, OfAFileThatABatchSuppressedAreLiveWhenItIsLoadedAgain) {
  table.SimultaneousFileRequestsSuppressAndUnsuppress({{paths[0], false}, {paths[1], false}});
  table.UnsuppressColumnsBasedOnMultipleFileNames({paths[1]});
  EXPECT_EQ(States(), std::vector<int>({1, 0}));
  ASSERT_TRUE(LoadAndShow(table, paths[0]));
  EXPECT_EQ(States(), std::vector<int>({0, 0, 0}));
}

TEST_F(TableOwnShares, ThatStayWhenOneOfAFilesLoadsIsRemovedAreLiveWhenItIsLoadedAgain) {
  ASSERT_TRUE(LoadAndShow(table, paths[0]));
  table.RemoveColumnsBasedOnMultipleFileNames({paths[0]});
  EXPECT_EQ(States(), std::vector<int>({0, 1}));
  ASSERT_TRUE(LoadAndShow(table, paths[0]));
  EXPECT_EQ(States(), std::vector<int>({0, 0, 0}));
}

TEST_F(TableOwnShares, OfAnotherFileShowASuppressedColumnAgain) {
  table.SuppressColumnsBasedOnMultipleFileNames(paths);
  EXPECT_EQ(Column().m_columnPropertyFlags & MU_COL_FLAG_SUPPRESSED_BY_FILE,
            MU_COL_FLAG_SUPPRESSED_BY_FILE);
  ASSERT_TRUE(LoadAndShow(table, folder.WriteData("c.txt", {"A"}, {{"c"}})));
  EXPECT_EQ(States(), std::vector<int>({1, 1, 0}));
  EXPECT_EQ(Column().m_columnPropertyFlags & MU_COL_FLAG_SUPPRESSED_BY_FILE, 0u);
  EXPECT_EQ(ColumnOf(table, wxT("A")), Texts({"a", "b", "c"}));
}

// ---- Names that the caller changed

class ChangedNames : public testing::TestWithParam<bool> {};

TEST_P(ChangedNames, DecideWhichCellIsRead) {
  const TemporaryFolder folder;
  Table table(nullptr);
  ASSERT_TRUE(LoadAndShow(table, folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}})));
  ASSERT_TRUE(LoadAndShow(table, folder.WriteData("b.txt", {"B", "A"}, {{"b2", "a2"}})));
  if (GetParam()) {
    EXPECT_EQ(Utf8(table.GetDataCellValue(0, 0)), "a");
    EXPECT_EQ(Utf8(table.GetDataCellValue(1, 1)), "b2");
  }
  std::vector<wxString>& names = *table.GetNamesOfAllCurrentlyDisplayedColumns();
  names[0] = wxT("B");
  EXPECT_EQ(Utf8(table.GetDataCellValue(0, 0)), "b");
  EXPECT_EQ(Utf8(table.GetDataCellValue(1, 0)), "b2");
  EXPECT_EQ(Utf8(table.GetDataCellValue(1, 1)), "b2");
  names[1] = wxT("nobody");
  EXPECT_EQ(Utf8(table.GetDataCellValue(1, 1)), "");
  names.pop_back();
  EXPECT_EQ(Utf8(table.GetDataCellValue(1, 1)), "?");
  names.push_back(wxT("A"));
  EXPECT_EQ(Utf8(table.GetDataCellValue(1, 1)), "a2");
}

INSTANTIATE_TEST_SUITE_P(Table, ChangedNames, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& kind) {
                           return kind.param ? "AfterACellWasRead" : "BeforeAnyCellWasRead";
                         });

TEST(HiddenCells, AreReadUnderADisplayedColumnOfTheSameName) {
  const TemporaryFolder folder;
  Table table(nullptr);
  const wxString path = folder.WriteData("a.txt", {"A", "FFFFF1"}, {{"a", "on the line"}});
  ASSERT_TRUE(LoadAndShow(table, path));
  const int column = table.GetColumnPositionNumberFromText(wxT("FFFFF1"));
  ASSERT_EQ(column, 1);
  EXPECT_EQ(table.GetDataCellValue(0, column), path);
  EXPECT_EQ(Utf8(table.GetDataCellValue(0, 0)), "a");
}

// ---- Records and what is kept

// Changes a row's flags while it decides.
class MarkingDecider : public MUInterfaceRowTruthDecider {
 public:
  MarkingDecider(const wxString& text, unsigned flags) : m_text(text), m_flags(flags) {}
  int DecideRow(Row* row) override {
    if (row->m_cells.ValueOrDefault(wxT("Event\nName")) != m_text) return 0;
    row->m_rowPropertyFlags ^= m_flags;
    return 1;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  wxString m_text;
  unsigned m_flags;
};

// An object of the class itself, whose inside is looked at through the names that a derived class opens.
class TableRecords : public testing::Test {
 protected:
  TableRecords() {
    for (const char* name : {"a", "b", "c", "d"}) {
      m_paths.push_back(folder.WriteData(std::string(name) + ".txt", {"Event\nName"},
                                         {{std::string(name) + "0"}, {std::string(name) + "1"}}));
    }
  }

  void Load(std::size_t file) { ASSERT_TRUE(LoadAndShow(table, m_paths[file])); }
  Texts Shown() { return ColumnOf(table, wxT("Event\nName")); }
  Row& RecordBehindTheBack(unsigned long key) { return *(table.*&ProbeTable::m_rows).find(key); }
  // Loads the file. Answers whether the notification wrote the old rows' places anew.
  bool WritesOldPlaces(std::size_t file) {
    RecordBehindTheBack(0).m_indexAmongActiveRows = 77;
    Load(file);
    const bool written = RecordBehindTheBack(0).m_indexAmongActiveRows == 0;
    RecordBehindTheBack(0).m_indexAmongActiveRows = 0;
    return written;
  }

  TemporaryFolder folder;
  Table table{nullptr};
  std::vector<wxString> m_paths;
};

TEST_F(TableRecords, WithoutThemANotificationOnlyAppends) {
  Load(0);
  EXPECT_FALSE(WritesOldPlaces(1));
  EXPECT_FALSE(WritesOldPlaces(2));
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableRecords, MayBeWrittenByTheirHolderAtAnyTime) {
  Load(0);
  Row* row = table.GetRowByRowIndexAndVisibilityFilter(1, Table::ALL_ROWS);
  ASSERT_NE(row, nullptr);
  Load(1);
  row->m_rowPropertyFlags |= 16;
  Load(2);
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
  row->m_rowPropertyFlags = 32;
  table.IdleTimeProcessAllNotifications();
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
  EXPECT_EQ(
      table.FindCurrentRowIndicesByPropertyFlag(32, Table::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN),
      std::list<unsigned long>({1}));
  row->m_rowPropertyFlags = 0;
  Load(3);
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1", "d0", "d1"}));
}

TEST_F(TableRecords, ThatNobodyWroteCostNoRebuild) {
  Load(0);
  ASSERT_NE(table.GetRowByRowIndexAndVisibilityFilter(1, Table::ALL_ROWS), nullptr);
  EXPECT_FALSE(WritesOldPlaces(1));
  table.GetRowByRowIndexAndVisibilityFilter(1, Table::ALL_ROWS)->m_indexAmongAllRows = 5;
  EXPECT_TRUE(WritesOldPlaces(2));
  EXPECT_FALSE(WritesOldPlaces(3));
}

TEST_F(TableRecords, OfRowsThatAreGoneCostNothing) {
  Load(0);
  ASSERT_NE(table.GetRowByRowIndexAndVisibilityFilter(1, Table::ALL_ROWS), nullptr);
  table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("Event\nName"), wxT("a1"));
  EXPECT_TRUE(WritesOldPlaces(1));
  EXPECT_FALSE(WritesOldPlaces(2));
  table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("FFFFF1"), {m_paths[0], m_paths[1], m_paths[2]}, true);
  table.IdleTimeProcessAllNotifications();
  Load(3);
  EXPECT_FALSE(WritesOldPlaces(0));
  EXPECT_EQ(Shown(), Texts({"d0", "d1", "a0", "a1"}));
}

TEST_F(TableRecords, WrittenByADeciderAreSeenByTheNextNotification) {
  Load(0);
  Load(1);
  MarkingDecider decider(wxT("a1"), MU_ROW_FLAG_HIDDEN_BY_USER);
  EXPECT_EQ(table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true)->size(), 1u);
  EXPECT_TRUE(WritesOldPlaces(2));
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
  EXPECT_FALSE(WritesOldPlaces(3));
}

// Does what it is told with each row. Every row is a match.
class ActingDecider : public MUInterfaceRowTruthDecider {
 public:
  explicit ActingDecider(std::function<void(Row&)> action) : m_action(std::move(action)) {}
  int DecideRow(Row* row) override {
    m_action(*row);
    return 1;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  std::function<void(Row&)> m_action;
};

TEST_F(TableRecords, WrittenAroundANotificationInsideOfACallAreSeenByTheNextOne) {
  Load(0);
  ActingDecider decider([&](Row& row) {
    row.m_rowPropertyFlags |= MU_ROW_FLAG_HIDDEN_BY_USER;
    table.IdleTimeProcessAllNotifications();
    row.m_rowPropertyFlags &= ~MU_ROW_FLAG_HIDDEN_BY_USER;
  });
  table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  Load(1);
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
  EXPECT_FALSE(WritesOldPlaces(2));
}

TEST_F(TableRecords, WrittenByASearchInsideOfASearchAreSeenByTheNextNotification) {
  Load(0);
  MarkingDecider marking(wxT("a1"), MU_ROW_FLAG_HIDDEN_BY_USER);
  ActingDecider searching([&](Row& row) {
    if (&row == &RecordBehindTheBack(0))
      table.FindCurrentRowIndicesMatchingRowTruthPredicate(&marking, true);
  });
  table.FindCurrentRowIndicesMatchingRowTruthPredicate(&searching, true);
  Load(1);
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1"}));
}

TEST_F(TableRecords, OfADeciderThatFailedCostOneRebuild) {
  Load(0);
  ActingDecider failing([](Row& row) {
    row.m_rowPropertyFlags |= MU_ROW_FLAG_HIDDEN_BY_USER;
    throw std::runtime_error("enough");
  });
  EXPECT_THROW(table.FindCurrentRowIndicesMatchingRowTruthPredicate(&failing, true),
               std::runtime_error);
  EXPECT_TRUE(WritesOldPlaces(1));
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1"}));
  EXPECT_FALSE(WritesOldPlaces(2));
}

TEST_F(TableRecords, ThatADeciderReadsInFilesOfDifferentColumnsCostNoRebuild) {
  ASSERT_TRUE(LoadAndShow(
      table, folder.WriteData("t.txt", {"A", "B", "T"}, {{"1", "2", "3"}, {"4", "5", "6"}})));
  ASSERT_TRUE(LoadAndShow(table, folder.WriteData("u.txt", {"A", "B"}, {{"7", "8"}, {"9", "10"}})));
  Texts read;
  ActingDecider reading([&](Row& row) {
    const wxString column = row.m_cells.count(wxT("T")) != 0 ? wxT("T") : wxT("B");
    read.push_back(Utf8(row.m_cells[column]));
  });
  table.FindCurrentRowIndicesMatchingRowTruthPredicate(&reading, true);
  EXPECT_EQ(read, Texts({"3", "6", "8", "10"}));
  for (unsigned long key = 0; key < 4; ++key) EXPECT_FALSE(RecordBehindTheBack(key).HasOverlay());
  EXPECT_FALSE(WritesOldPlaces(0));
}

TEST_F(TableRecords, WithAReactionTimeThatIsNoNumberCostNoRebuild) {
  ASSERT_TRUE(
      LoadAndShow(table, folder.WriteData("n.txt", {"Reaction\nTime", "A"}, {{"nan", "x"}})));
  ASSERT_TRUE(std::isnan(RecordBehindTheBack(0).m_reactionTime));
  ActingDecider idle([](Row&) {});
  table.FindCurrentRowIndicesMatchingRowTruthPredicate(&idle, true);
  EXPECT_FALSE(WritesOldPlaces(0));
}

// ---- What a decider may do to the table

TEST_F(TableRecords, ADeciderMaySearchSortAndNotifyByItself) {
  using Indices = std::list<unsigned long>;
  Load(0);
  Load(1);
  const Row* const first = &RecordBehindTheBack(0);
  ActingDecider every([](Row&) {});
  ActingDecider within([&](Row& row) {
    if (&row != first) return;
    EXPECT_EQ(
        *table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&every, {2}, true),
        Indices({2}));
  });
  EXPECT_EQ(*table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
                &within, {0, 1, 3}, true),
            Indices({0, 1, 3}));

  // The walk goes on in the order that it began with.
  Texts visited;
  ActingDecider sorting([&](Row& row) {
    visited.push_back(Utf8(row.m_cells.ValueOrDefault(wxT("Event\nName"))));
    if (&row == first) table.SetSortColumn(wxT("Event\nName"), true);
  });
  EXPECT_EQ(*table.FindCurrentRowIndicesMatchingRowTruthPredicate(&sorting, false),
            Indices({0, 1, 2, 3}));
  EXPECT_EQ(visited, Texts({"a0", "a1", "b0", "b1"}));
  EXPECT_EQ(Shown(), Texts({"b1", "b0", "a1", "a0"}));

  visited.clear();
  ActingDecider deleting([&](Row& row) {
    visited.push_back(Utf8(row.m_cells.ValueOrDefault(wxT("Event\nName"))));
    if (visited.size() != 1) return;
    table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("Event\nName"), wxT("b0"));
    table.IdleTimeProcessAllNotifications();
  });
  EXPECT_EQ(*table.FindCurrentRowIndicesMatchingRowTruthPredicate(&deleting, false),
            Indices({0, 2, 3}));
  EXPECT_EQ(visited, Texts({"b1", "a1", "a0"}));
  EXPECT_EQ(Shown(), Texts({"b1", "a1", "a0"}));
}

// ---- Keys that start over

// Adds a file in a notification of an empty table, after which the keys start over.
class AddingObserver : public MUInterfaceExperimentDataObserver {
 public:
  AddingObserver(Table& table, const wxString& path) : m_table(table), m_path(path) {}
  void OnDataShapeChanged(unsigned rows, unsigned, unsigned long, int, int) override {
    if (rows == 0) m_table.AddExperimentOcurrence(wxFileName(m_path), false);
  }
  void OnRefreshRequest(wxCommandEvent&) override {}

 private:
  Table& m_table;
  wxString m_path;
};

TEST_F(TableRecords, OfRowsThatTakeThePlaceOfOthersAreWritten) {
  AddingObserver observer(table, m_paths[0]);
  table.AddObserver(&observer);
  table.IdleTimeProcessAllNotifications();
  table.IdleTimeProcessAllNotifications();
  EXPECT_EQ(Shown(), Texts({"a0", "a1"}));
  Load(1);
  EXPECT_EQ(Shown(), Texts({"b0", "b1"}));
  EXPECT_EQ(table.FindCurrentRowIndicesByPropertyFlag(0, Table::ALL_ROWS),
            std::list<unsigned long>({0, 1}));
}

}  // namespace
