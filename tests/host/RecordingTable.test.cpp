#include "host/results/RecordingTable.h"

#include <gtest/gtest.h>
#include <wx/filename.h>

#include "tests/support/DataFile.h"
#include "tests/support/Files.h"

namespace {

using OmbreliaHost::RecordingTable;
using OmbreliaHost::TableReads;

class RecordingTableTest : public testing::Test {
 protected:
  RecordingTableTest() {
    Tests::WriteFile(
        m_folder / "table.txt",
        Tests::DataFile::Of("table", {"color", "shape"}, {{"red", "round"}, {"blue", "square"}})
            .Text());
    EXPECT_TRUE(m_table.AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
        wxFileName(wxString::FromUTF8((m_folder / "table.txt").c_str())), false, nullptr));
  }

  // "row,column" of the cells, in order.
  std::vector<std::string> TakeCells() {
    std::vector<std::string> cells;
    for (const auto& cell : m_table.TakeReads().cells)
      cells.push_back(std::to_string(cell.row) + "," + std::to_string(cell.column));
    return cells;
  }

  using Cells = std::vector<std::string>;
  Tests::ScratchFolder m_folder;
  RecordingTable m_table{nullptr};
};

TEST_F(RecordingTableTest, ReadsAsAnyTable) {
  EXPECT_EQ(m_table.GetColumnPositionNumberFromText(wxT("shape")), 1);
  EXPECT_EQ(m_table.GetColumnPositionNumberFromText(wxT("size")), -1);
  EXPECT_EQ(m_table.GetColumnNameText(0), wxT("color"));
  EXPECT_EQ(m_table.GetDataCellValue(1, 1), wxT("square"));
  EXPECT_EQ(m_table.GetDataCellValue(2, 1), wxT("?"));
}

TEST_F(RecordingTableTest, NotesNothingWhileItLoads) {
  const TableReads reads = m_table.TakeReads();
  EXPECT_TRUE(reads.cells.empty());
  EXPECT_TRUE(reads.lookups.empty());
  EXPECT_FALSE(reads.headings);
}

TEST_F(RecordingTableTest, NotesEachCellOnceTheLastReadInFront) {
  for (const auto& [row, column] : {std::pair(0, 0), {1, 1}, {0, 1}, {0, 0}})
    m_table.GetDataCellValue(row, column);
  EXPECT_EQ(TakeCells(), (Cells{"0,0", "0,1", "1,1"}));
}

TEST_F(RecordingTableTest, NotesCellsOutOfRange) {
  m_table.GetDataCellValue(7, 1);
  m_table.GetDataCellValue(-1, 0);
  m_table.GetDataCellValue(0, -1);
  EXPECT_EQ(TakeCells(), (Cells{"0,-1", "-1,0", "7,1"}));
}

TEST_F(RecordingTableTest, ForgetsWhatWasTaken) {
  m_table.GetDataCellValue(0, 0);
  TakeCells();
  m_table.GetDataCellValue(1, 0);
  EXPECT_EQ(TakeCells(), (Cells{"1,0"}));
}

TEST_F(RecordingTableTest, NotesEachNameOnce) {
  for (const wxChar* const name : {wxT("size"), wxT("shape"), wxT("size")})
    m_table.GetColumnPositionNumberFromText(name);
  const TableReads reads = m_table.TakeReads();
  ASSERT_EQ(reads.lookups.size(), 2u);
  EXPECT_EQ(reads.lookups[0].name, wxT("size"));
  EXPECT_EQ(reads.lookups[0].column, -1);
  EXPECT_EQ(reads.lookups[1].name, wxT("shape"));
  EXPECT_EQ(reads.lookups[1].column, 1);
}

TEST_F(RecordingTableTest, NotesThatHeadingsWereRead) {
  m_table.GetColumnNameText(0);
  EXPECT_TRUE(m_table.TakeReads().headings);
  EXPECT_FALSE(m_table.TakeReads().headings);
}

TEST_F(RecordingTableTest, KeepsFewNotesOfAReaderThatNeverEnds) {
  for (int row = 0; row < 1'100'000; ++row) m_table.GetDataCellValue(row, 0);
  const TableReads reads = m_table.TakeReads();
  EXPECT_EQ(reads.cells.size(), 1'000'000u);
}

}  // namespace
