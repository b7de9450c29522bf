#include "host/results/ChangedDatafile.h"

#include <gtest/gtest.h>

namespace {

using OmbreliaHost::ChangedDatafile;

const std::string HEADER = "who\nwhat\nwhen\nfree\n";

// Two columns; the second row ends before the second one.
const std::string FILE_OF_THREE =
    HEADER + "Event\tExpansion Time(ms): 20\nName\n" + "a\t1\nb\nc\t2\n";

TEST(ChangedDatafile, KnowsRowsAndCells) {
  const ChangedDatafile file(FILE_OF_THREE);
  ASSERT_EQ(file.RowCount(), 3u);
  EXPECT_EQ(file.Cell(0, 1), "1");
  EXPECT_EQ(file.Cell(1, 1), "");
  EXPECT_EQ(file.Cell(2, 0), "c");
}

TEST(ChangedDatafile, ChangesOneCell) {
  const ChangedDatafile file(FILE_OF_THREE);
  const std::string headings = HEADER + "Event\tExpansion Time(ms): 20\nName\n";
  EXPECT_EQ(file.WithCell(0, 0, "x"), headings + "x\t1\nb\nc\t2\n");
  EXPECT_EQ(file.WithCell(2, 1, ""), headings + "a\t1\nb\nc\t\n");
  EXPECT_EQ(file.WithCell(1, 3, "x"), headings + "a\t1\nb\t\t\tx\nc\t2\n");
}

TEST(ChangedDatafile, EmptiesAndRemovesAColumn) {
  const ChangedDatafile file(FILE_OF_THREE);
  EXPECT_EQ(file.WithEmptyColumn(1),
            HEADER + "Event\tExpansion Time(ms): 20\nName\n" + "a\t\nb\nc\t\n");
  EXPECT_EQ(file.WithoutColumn(0), HEADER + "Expansion Time(ms): 20\n\n" + "1\n\n2\n");
  EXPECT_EQ(file.WithoutColumn(1), HEADER + "Event\nName\n" + "a\nb\nc\n");
}

TEST(ChangedDatafile, DropsAndDoublesARow) {
  const ChangedDatafile file(HEADER + "Event\nName\na\nb");
  EXPECT_EQ(file.WithoutRow(0), HEADER + "Event\nName\nb");
  EXPECT_EQ(file.WithRowTwice(0), HEADER + "Event\nName\na\na\nb");
  EXPECT_EQ(file.WithRowTwice(1), HEADER + "Event\nName\na\nb\nb");
}

TEST(ChangedDatafile, AddsARowToWhatMayLackHeadings) {
  EXPECT_EQ(ChangedDatafile(HEADER + "Event\nName").WithOneMoreRow(),
            HEADER + "Event\nName\none row more\n");
  const std::string seven = ChangedDatafile("").WithOneMoreRow();
  EXPECT_EQ(ChangedDatafile(seven).RowCount(), 1u);
}

TEST(ChangedDatafile, SetsTheExpansionTimeInEitherHeadingRow) {
  EXPECT_EQ(ChangedDatafile(FILE_OF_THREE).WithExpansionTime(1, -1),
            HEADER + "Event\tExpansion Time(ms): -1\nName\n" + "a\t1\nb\nc\t2\n");
  EXPECT_EQ(
      ChangedDatafile(HEADER + "Event\nName\tExpansion Time(ms): 20\na\n").WithExpansionTime(1, 7),
      HEADER + "Event\nName\tExpansion Time(ms): 7\na\n");
}

TEST(ChangedDatafile, KeepsEachLineEnd) {
  const ChangedDatafile file("who\rwhat\r\nwhen\nfree\r\nEvent\r\nName\r\na\r\nb\r");
  EXPECT_EQ(file.WithCell(0, 0, "x"), "who\rwhat\r\nwhen\nfree\r\nEvent\r\nName\r\nx\r\nb\r");
}

TEST(ChangedDatafile, ProposesACloseText) {
  const ChangedDatafile file(HEADER + "A\tB\tC\tD\n\n" + "blue\t-1\t\t99999999999999999999\n");
  EXPECT_EQ(file.NearText(0, 0), "blue 2");
  EXPECT_EQ(file.NearText(0, 1), "0");
  EXPECT_EQ(file.NearText(0, 2), " 2");
  EXPECT_EQ(file.NearText(0, 3), "99999999999999999999 2");
}

TEST(ChangedDatafile, ProposesTheNextOtherTextOfTheColumn) {
  const ChangedDatafile file(HEADER + "A\tB\n\n" + "a\tx\na\tx\n\nb\tx\n");
  EXPECT_EQ(file.OtherText(0, 0), "b");
  EXPECT_EQ(file.OtherText(3, 0), "a");
  EXPECT_EQ(file.OtherText(2, 0), "b");
  EXPECT_EQ(file.OtherText(0, 1), std::nullopt);
}

}  // namespace
