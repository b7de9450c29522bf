// A notification before which rows have only arrived appends to the lists; after anything else, and always
// for a derived table, it makes them anew. Nobody can tell the difference by what the table answers.
#include <gtest/gtest.h>

#include <memory>

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ColumnOf;
using Tests::LoadAndShow;
using Tests::ProbeTable;
using Tests::TemporaryFolder;
using Table = MUExperimentTextReaderMultiFile;
using Texts = std::vector<std::string>;
using Keys = ProbeTable::RowKeys;

// Keeps what it was told last.
class ShapeObserver : public MUInterfaceExperimentDataObserver {
 public:
  void OnDataShapeChanged(unsigned rows, unsigned columns, unsigned long active, int lastRow,
                          int lastColumn) override {
    told = {static_cast<int>(rows), static_cast<int>(columns), static_cast<int>(active), lastRow,
            lastColumn};
  }
  void OnRefreshRequest(wxCommandEvent&) override {}

  std::vector<int> told;
};

// Parameter: whether the table is an object of a derived class.
class TableNotification : public testing::TestWithParam<bool> {
 protected:
  TableNotification()
      : m_ownedTable(GetParam() ? std::make_unique<ProbeTable>()
                                : std::make_unique<Table>(nullptr)),
        m_table(*m_ownedTable) {
    m_table.AddObserver(&m_observer);
    for (const char* name : {"a", "b", "c"}) {
      m_paths.push_back(m_folder.WriteData(std::string(name) + ".txt", {"Event\nName"},
                                           {{std::string(name) + "0"}, {std::string(name) + "1"}}));
    }
  }

  void Load(std::size_t file) { ASSERT_TRUE(LoadAndShow(m_table, m_paths[file])); }
  Texts Shown() { return ColumnOf(m_table, wxT("Event\nName")); }

  // The three lists and the indices that rows hold, against what the rows' own flags say.
  void ExpectConsistentLists() {
    Keys all, active, shown;
    for (const auto& [key, row] : m_table.*&ProbeTable::m_rows) {
      EXPECT_EQ(row->m_indexAmongAllRows, all.size());
      all.push_back(key);
      if ((row->m_rowPropertyFlags & 28) != 0) continue;
      EXPECT_EQ(row->m_indexAmongActiveRows, active.size());
      active.push_back(key);
      if ((row->m_rowPropertyFlags & 60) != 0) continue;
      EXPECT_EQ(row->m_indexAmongShownRows, shown.size());
      shown.push_back(key);
    }
    EXPECT_EQ(m_table.*&ProbeTable::m_allRowKeys, all);
    EXPECT_EQ(m_table.*&ProbeTable::m_activeRowKeys, active);
    EXPECT_EQ(*(m_table.*&ProbeTable::m_currentShownRowKeys), shown);
    EXPECT_EQ(static_cast<std::size_t>(m_table.GetNumberOfDataRows()), shown.size());
  }

  TemporaryFolder m_folder;
  ShapeObserver m_observer;
  const std::unique_ptr<Table> m_ownedTable;
  Table& m_table;
  std::vector<wxString> m_paths;
};

TEST_P(TableNotification, AppendsWhatArrived) {
  for (std::size_t file = 0; file < 3; ++file) {
    Load(file);
    ExpectConsistentLists();
  }
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_P(TableNotification, AppendsAfterIdleMomentsThatFreedTheOldLists) {
  Load(0);
  m_table.OnIdle();
  m_table.OnIdle();
  Load(1);
  m_table.OnIdle();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_P(TableNotification, TellsObserversWhatWasPreserved) {
  using Told = std::vector<int>;
  Load(0);
  EXPECT_EQ(m_observer.told, Told({2, 1, 2, -1, -1}));
  Load(1);
  EXPECT_EQ(m_observer.told, Told({4, 1, 4, 1, 0}));
  Load(2);
  EXPECT_EQ(m_observer.told, Told({6, 1, 6, 3, 0}));
  m_table.IdleTimeProcessAllNotifications();
  EXPECT_EQ(m_observer.told, Told({6, 1, 6, 5, 0}));
  m_table.HideOneSingleRowPerArbitraryUserRequest(3);
  m_table.OnIdle();
  EXPECT_EQ(m_observer.told, Told({5, 1, 6, 2, 0}));
  m_table.OnIdle();  // lets the old lists go
  Load(0);
  EXPECT_EQ(m_observer.told, Told({7, 1, 8, 4, 0}));
  m_table.IdleTimeFreeMemoryUsedForRowCopies();
  int row = 0;
  int column = 0;
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(column, -1);
  Load(1);
  EXPECT_EQ(m_observer.told, Told({9, 1, 10, 6, 0}));
  m_table.SetSortColumn(wxT("Event\nName"), true);
  Load(2);
  EXPECT_EQ(m_observer.told, Told({11, 1, 12, 0, 0}));
  m_table.RevertAnyAndAllSortOptions();
  Load(2);
  EXPECT_EQ(m_observer.told, Told({13, 1, 14, 10, 0}));
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("Event\nName"), wxT("a0"));
  Load(0);
  EXPECT_EQ(m_observer.told, Told({13, 1, 14, -1, 0}));
}

TEST_P(TableNotification, SeesARowHiddenBeforeTheArrival) {
  Load(0);
  m_table.HideOneSingleRowPerArbitraryUserRequest(0);
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1"}));
  m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown().size(), 6U);
}

TEST_P(TableNotification, SeesAFileDeselectedBeforeTheArrival) {
  Load(0);
  Load(1);
  m_table.SimultaneousFileRequestsSuppressAndUnsuppress({{m_paths[0], false}});
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"b0", "b1", "c0", "c1"}));
}

TEST_P(TableNotification, SeesRowsDeletedBeforeTheArrival) {
  Load(0);
  Load(1);
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("Event\nName"), wxT("a1"));
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
}

// A caller that holds a row's record may change its flags without telling the table.
TEST_P(TableNotification, SeesFlagsThatWereChangedThroughARecord) {
  Load(0);
  auto* row = m_table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS);
  ASSERT_NE(row, nullptr);
  Load(1);
  row->m_rowPropertyFlags |= 16;
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
}

TEST_P(TableNotification, MakesTheUnsortedOrderAnewAfterASort) {
  Load(0);
  m_table.SetSortColumn(wxT("Event\nName"), true);
  Load(1);
  EXPECT_EQ(Shown(), Texts({"b1", "b0", "a1", "a0"}));
  m_table.RevertAnyAndAllSortOptions();
  ExpectConsistentLists();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_P(TableNotification, MakesTheListsAnewWhenTheBufferThatHeldThemIsGone) {
  Load(0);
  m_table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  m_table.IdleTimeFreeMemoryUsedForRowCopies();
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
}

TEST_P(TableNotification, StartsOverAfterTheLastFileLeft) {
  Load(0);
  m_table.SimultaneousFileRequestsAddAndRemove({{m_paths[0], false}});
  m_table.IdleTimeProcessAllNotifications();
  EXPECT_EQ(m_table.*&ProbeTable::m_nextRowKey, 0U);
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"b0", "b1"}));
}

INSTANTIATE_TEST_SUITE_P(Table, TableNotification, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& kind) {
                           return kind.param ? "OfADerivedClass" : "OfTheClassItself";
                         });

}  // namespace
