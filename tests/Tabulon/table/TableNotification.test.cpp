// A notification after which rows have only arrived appends to the lists; after anything else it makes
// them anew. Nobody can tell the difference by what the table answers.
#include <gtest/gtest.h>

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::TemporaryFolder;
using Texts = std::vector<std::string>;
using Keys = ProbeTable::RowKeys;

class TableNotification : public testing::Test {
 protected:
  TableNotification() {
    for (const char* name : {"a", "b", "c"}) {
      m_paths.push_back(folder.WriteData(std::string(name) + ".txt", {"Event\nName"},
                                         {{std::string(name) + "0"}, {std::string(name) + "1"}}));
    }
  }

  void Load(std::size_t file) { ASSERT_TRUE(table.Load(m_paths[file])); }
  Texts Shown() { return table.Column(wxT("Event\nName")); }

  // The three lists and the indices that rows hold, against what the rows' own flags say.
  void ExpectConsistentLists() {
    Keys all, active, shown;
    for (const auto& [key, row] : table.m_rows) {
      EXPECT_EQ(row->m_indexAmongAllRows, all.size());
      all.push_back(key);
      if ((row->m_rowPropertyFlags & 28) != 0) continue;
      EXPECT_EQ(row->m_indexAmongActiveRows, active.size());
      active.push_back(key);
      if ((row->m_rowPropertyFlags & 60) != 0) continue;
      EXPECT_EQ(row->m_indexAmongShownRows, shown.size());
      shown.push_back(key);
    }
    EXPECT_EQ(table.m_allRowKeys, all);
    EXPECT_EQ(table.m_activeRowKeys, active);
    EXPECT_EQ(*table.m_currentShownRowKeys, shown);
    EXPECT_EQ(static_cast<std::size_t>(table.GetNumberOfDataRows()), shown.size());
  }

  TemporaryFolder folder;
  ProbeTable table;
  std::vector<wxString> m_paths;
};

TEST_F(TableNotification, AppendsWhatArrived) {
  for (std::size_t file = 0; file < 3; ++file) {
    Load(file);
    ExpectConsistentLists();
  }
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableNotification, AppendsAfterIdleMomentsThatFreedTheOldLists) {
  Load(0);
  table.OnIdle();
  table.OnIdle();
  Load(1);
  table.OnIdle();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableNotification, TellsThatTheOldRowsWerePreserved) {
  Load(0);
  Load(1);
  int row = 0;
  int column = 0;
  table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, 1);
  EXPECT_EQ(column, 0);
}

TEST_F(TableNotification, SeesARowHiddenBeforeTheArrival) {
  Load(0);
  table.HideOneSingleRowPerArbitraryUserRequest(0);
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a1", "b0", "b1"}));
  table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown().size(), 6U);
}

TEST_F(TableNotification, SeesAFileDeselectedBeforeTheArrival) {
  Load(0);
  Load(1);
  table.SimultaneousFileRequestsSuppressAndUnsuppress({{m_paths[0], false}});
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"b0", "b1", "c0", "c1"}));
}

TEST_F(TableNotification, SeesRowsDeletedBeforeTheArrival) {
  Load(0);
  Load(1);
  table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("Event\nName"), wxT("a1"));
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
}

// Whoever holds a row's record may change its flags without a word.
TEST_F(TableNotification, SeesFlagsThatWereChangedThroughARecord) {
  Load(0);
  auto* row = table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS);
  ASSERT_NE(row, nullptr);
  Load(1);
  row->m_rowPropertyFlags |= 16;
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableNotification, MakesTheUnsortedOrderAnewAfterASort) {
  Load(0);
  table.SetSortColumn(wxT("Event\nName"), true);
  Load(1);
  EXPECT_EQ(Shown(), Texts({"b1", "b0", "a1", "a0"}));
  table.RevertAnyAndAllSortOptions();
  ExpectConsistentLists();
  Load(2);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1", "c0", "c1"}));
}

TEST_F(TableNotification, MakesTheListsAnewWhenTheBufferThatHeldThemIsGone) {
  Load(0);
  table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  table.IdleTimeFreeMemoryUsedForRowCopies();
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"a0", "a1", "b0", "b1"}));
}

TEST_F(TableNotification, StartsOverAfterTheLastFileLeft) {
  Load(0);
  table.SimultaneousFileRequestsAddAndRemove({{m_paths[0], false}});
  table.Notify();
  EXPECT_EQ(table.m_nextRowKey, 0U);
  Load(1);
  ExpectConsistentLists();
  EXPECT_EQ(Shown(), Texts({"b0", "b1"}));
}

}  // namespace
