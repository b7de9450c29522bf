// Merging the column orders of several files.
#include <gtest/gtest.h>

#include <memory>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/table/MUColumnMerge.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Order = std::vector<std::string>;

class Columns {
 public:
  ~Columns() {
    for (auto* column : m_columns) delete column;
  }

  void Merge(const Order& names, const std::string& file, bool inPlace = true) {
    std::deque<MUColumnNamePlusProperties*> arrivals;
    for (const std::string& name : names) {
      auto column = std::make_unique<MUColumnNamePlusProperties>();
      column->m_columnName = wxString::FromUTF8(name);
      column->m_fileStatuses.push_back(FileStatusStruct(wxString::FromUTF8(file), 0));
      arrivals.push_back(column.release());
    }
    MergeColumnOrders(m_columns, arrivals, wxString::FromUTF8(file), inPlace);
    EXPECT_TRUE(arrivals.empty());
  }

  Order Names() const {
    Order names;
    for (const auto* column : m_columns) names.push_back(Tests::Utf8(column->m_columnName));
    return names;
  }

  Order FilesOf(const std::string& name) const {
    Order files;
    for (const auto* column : m_columns) {
      if (column->m_columnName != wxString::FromUTF8(name)) continue;
      for (const auto& status : column->m_fileStatuses) {
        EXPECT_EQ(status.m_suppressed, 0);
        files.push_back(Tests::Utf8(status.m_fullFileName));
      }
    }
    return files;
  }

 private:
  std::deque<MUColumnNamePlusProperties*> m_columns;
};

Order MergedOrder(std::initializer_list<Order> files, bool inPlace = true) {
  Columns columns;
  for (const Order& file : files) columns.Merge(file, "f", inPlace);
  return columns.Names();
}

TEST(ColumnMerge, AFirstFileKeepsItsOrder) {
  EXPECT_EQ(MergedOrder({{"C", "A", "B"}}), Order({"C", "A", "B"}));
}

TEST(ColumnMerge, ANewColumnLandsBehindTheOneThatPrecedesIt) {
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {"B", "X", "C", "Y"}}), Order({"A", "B", "X", "C", "Y"}));
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {"B", "X", "Y", "C"}}), Order({"A", "B", "X", "Y", "C"}));
}

TEST(ColumnMerge, ANewColumnWithoutAPredecessorLandsAtTheVeryFront) {
  EXPECT_EQ(MergedOrder({{"A", "B"}, {"X", "Y", "B"}}), Order({"X", "Y", "A", "B"}));
  EXPECT_EQ(MergedOrder({{"A", "B"}, {"X", "Y"}}), Order({"X", "Y", "A", "B"}));
}

TEST(ColumnMerge, ASubsetInAnyOrderChangesNothing) {
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {"C", "A"}}), Order({"A", "B", "C"}));
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {}}), Order({"A", "B", "C"}));
}

TEST(ColumnMerge, TheInsertionPointFollowsTheLastHitBackwardsToo) {
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {"C", "X", "A", "Y"}}), Order({"A", "Y", "B", "C", "X"}));
}

TEST(ColumnMerge, NamesAreComparedExactly) {
  EXPECT_EQ(MergedOrder({{"A", "b"}, {"A", "B", "b "}}), Order({"A", "B", "b ", "b"}));
}

TEST(ColumnMerge, AnEmptyNameVanishes) {
  EXPECT_EQ(MergedOrder({{"", "A"}}), Order({"A"}));
  EXPECT_EQ(MergedOrder({{"A", "", "B"}}), Order({"A", "B"}));
  // What follows the empty name stands behind the table's invisible front, so it comes before A too.
  EXPECT_EQ(MergedOrder({{"A"}, {"", "X", "A", "Y"}}), Order({"X", "A", "Y"}));
}

TEST(ColumnMerge, AfterAnEmptyNameTheSearchLeavesBehindWhatItHasHit) {
  // Empty, A and B are each hit without a step, so that the search then starts behind B. A second A is
  // not found there and becomes a column of its own, behind the last hit.
  EXPECT_EQ(MergedOrder({{"A", "B", "C"}, {"", "A", "B", "A"}}), Order({"A", "B", "A", "C"}));
}

TEST(ColumnMerge, AnExhaustedSearchBeginsAgainAtTheHead) {
  // After "", A, B the search range is empty. X is new there, and with it the search comes round to the
  // head: the second A is found again.
  Columns columns;
  columns.Merge({"A", "B"}, "first");
  columns.Merge({"", "A", "B", "X", "A", "Y"}, "second");
  EXPECT_EQ(columns.Names(), Order({"A", "Y", "B", "X"}));
  EXPECT_EQ(columns.FilesOf("A"), Order({"first", "second", "second"}));
}

TEST(ColumnMerge, ARepeatedNewNameBeforeEveryKnownColumnIsNotFoundAgain) {
  // The search never looks at what stands before the front.
  EXPECT_EQ(MergedOrder({{"A", "A"}}), Order({"A", "A"}));
}

TEST(ColumnMerge, ARepeatedNameBehindAHitIsFoundAgain) {
  EXPECT_EQ(MergedOrder({{"A"}, {"A", "X", "X", "Y"}}), Order({"A", "X", "Y"}));
}

TEST(ColumnMerge, WithoutInsertionInPlaceNewColumnsGoToTheEnd) {
  EXPECT_EQ(MergedOrder({{"A", "B"}, {"X", "A", "Y"}}, false), Order({"A", "B", "X", "Y"}));
  EXPECT_EQ(MergedOrder({{"", "A"}}, false), Order({"A"}));
}

TEST(ColumnMerge, AHitAddsTheFileAndANewColumnKeepsItsOwn) {
  Columns columns;
  columns.Merge({"A", "B"}, "one");
  columns.Merge({"B", "X"}, "two");
  columns.Merge({"B"}, "two");
  EXPECT_EQ(columns.FilesOf("A"), Order({"one"}));
  EXPECT_EQ(columns.FilesOf("B"), Order({"one", "two", "two"}));
  EXPECT_EQ(columns.FilesOf("X"), Order({"two"}));
}

}  // namespace
