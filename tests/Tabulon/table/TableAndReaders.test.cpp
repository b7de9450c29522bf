// How the table uses a reader, seen from a reader that keeps account.
#include <gtest/gtest.h>

#include <memory>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "tests/Tabulon/reading/ReaderBench.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using namespace Tests;
using Texts = std::vector<std::string>;

// Hands everything to another reader and writes down what was asked.
class AccountingReader : public ReaderBench::Reader {
 public:
  explicit AccountingReader(std::unique_ptr<ReaderBench::Reader> reader)
      : m_reader(std::move(reader)) {}

  wxString GetExperimentTitle() const override { return m_reader->GetExperimentTitle(); }
  wxString GetExperimentDateTimeString() const override {
    return m_reader->GetExperimentDateTimeString();
  }
  std::uint32_t GetDataRowCount() const override {
    m_calls.push_back("count");
    return m_reader->GetDataRowCount();
  }
  void GoToDataRow(int row) override {
    m_calls.push_back("go to " + std::to_string(row));
    m_reader->GoToDataRow(row);
  }
  bool ErrorStatusIsPresent() const override { return m_reader->ErrorStatusIsPresent(); }
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override {
    m_calls.push_back("columns");
    return m_reader->CreateAndReturnPositionallyOrderedColumnObjects();
  }
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override {
    m_calls.push_back(advance ? "row, and on" : "row");
    return m_reader->CreateAndReturnCurrentRowObject(advance);
  }

  mutable Texts m_calls;

 private:
  std::unique_ptr<ReaderBench::Reader> m_reader;
};

class TableAndReaders : public testing::Test {
 protected:
  TemporaryFolder folder;
  ProbeTable table;
};

TEST_F(TableAndReaders, PutTheCursorOnTheFirstRowBeforeTheyTakeAny) {
  AccountingReader reader(ReaderBench::Stream(ReaderBench::Header("A", "x") + "1\n2\n"));
  reader.GoToDataRow(1);
  reader.m_calls.clear();
  table.ExtractAll(&reader);
  EXPECT_EQ(reader.m_calls, Texts({"count", "go to 0", "row, and on", "row, and on"}));
  table.MergeNewHeadingsWithOldHeadings(&reader, wxT("/reader bench.txt"));
  EXPECT_EQ(reader.m_calls.back(), "columns");
  table.Notify();
  EXPECT_EQ(table.Column(wxT("A\nx")), Texts({"1", "2"}));
}

// Keeps the rows that it handed out, and may write to them later.
class KeepingReader : public AccountingReader {
 public:
  using AccountingReader::AccountingReader;
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override {
    rows.push_back(AccountingReader::CreateAndReturnCurrentRowObject(advance));
    return rows.back();
  }

  std::vector<MUSingleRowDataPlusRowProperties*> rows;
};

TEST_F(TableAndReaders, SeeWhatAReaderWritesToItsRowsLater) {
  MUExperimentTextReaderMultiFile itself(nullptr);
  KeepingReader reader(ReaderBench::Stream(ReaderBench::Header("A", "x") + "1\n2\n"));
  itself.ExtractAll(&reader);
  itself.MergeNewHeadingsWithOldHeadings(&reader, wxT("/reader bench.txt"));
  itself.IdleTimeProcessAllNotifications();
  ASSERT_TRUE(LoadAndShow(itself, folder.WriteData("a.txt", {"A\nx"}, {{"3"}})));
  reader.rows[0]->m_rowPropertyFlags |= MU_ROW_FLAG_HIDDEN_BY_USER;
  ASSERT_TRUE(LoadAndShow(itself, folder.WriteData("b.txt", {"A\nx"}, {{"4"}})));
  EXPECT_EQ(ColumnOf(itself, wxT("A\nx")), Texts({"2", "3", "4"}));
}

// Hands over columns whose shares are suppressed.
class SuppressingReader : public AccountingReader {
 public:
  using AccountingReader::AccountingReader;
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override {
    auto* columns = AccountingReader::CreateAndReturnPositionallyOrderedColumnObjects();
    for (MUColumnNamePlusProperties* column : *columns) {
      for (FileStatusStruct& share : column->m_fileStatuses) share.m_suppressed = 1;
    }
    return columns;
  }
};

TEST_F(TableAndReaders, MakeSharesLiveThatAReaderSuppressed) {
  MUExperimentTextReaderMultiFile itself(nullptr);
  SuppressingReader reader(ReaderBench::Stream(ReaderBench::Header("A", "x") + "1\n"));
  itself.MergeNewHeadingsWithOldHeadings(&reader, wxT("/reader bench.txt"));
  const FileStatusStruct& share =
      (itself.*&Tests::ProbeTable::m_columns).front()->m_fileStatuses.front();
  EXPECT_EQ(share.m_suppressed, 1);
  itself.UnsuppressColumnsBasedOnMultipleFileNames({share.m_fullFileName});
  EXPECT_EQ(share.m_suppressed, 0);
}

// A reader of a file without header is good when the file is empty.
TEST_F(TableAndReaders, TakeNothingFromAReaderOfNoRows) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"Key"}, {{"left"}})));
  AccountingReader reader(ReaderBench::StreamWithoutHeader(""));
  ASSERT_FALSE(reader.ErrorStatusIsPresent());
  table.ExtractAll(&reader);
  EXPECT_EQ(reader.m_calls, Texts({"count", "go to 0"}));
  table.MergeNewHeadingsWithOldHeadings(&reader, wxT("/none.txt"));
  table.Notify();
  EXPECT_EQ(table.GetNumberOfDataRows(), 1);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 15) << "the known columns have come, one was there";
  EXPECT_EQ(table.Column(wxT("Key")), Texts({"left"}));
}

TEST_F(TableAndReaders, StartEmptyWithAReaderOfNoRows) {
  AccountingReader reader(ReaderBench::StreamWithoutHeader(""));
  table.ExtractAll(&reader);
  table.MergeNewHeadingsWithOldHeadings(&reader, wxT("/none.txt"));
  table.Notify();
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(Utf8(table.GetDataCellValue(0, 0)), "?");
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"Key"}, {{"left"}})));
  EXPECT_EQ(table.Column(wxT("Key")), Texts({"left"}));
}

TEST_F(TableAndReaders, KeepTheShareOfAFileInAColumnWithoutHeading) {
  const wxString path = folder.Write("a.txt", "p\nt\nd\n\nA\nx\n1\t2\t3\n");
  ASSERT_TRUE(table.Load(path));
  ASSERT_EQ(table.m_columns.size(), 3u);
  for (const MUColumnNamePlusProperties* column : table.m_columns) {
    ASSERT_EQ(column->m_fileStatuses.size(), 1u) << column->m_columnName;
    EXPECT_EQ(column->m_fileStatuses.front().m_fullFileName, path);
    EXPECT_EQ(column->m_fileStatuses.front().m_suppressed, 0);
  }
}

TEST_F(TableAndReaders, StayAfterSetUpAnewOfATableInUse) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"b"}, {"a"}})));
  table.SetSortColumn(wxT("A"), false);
  ASSERT_EQ(table.Column(wxT("A")), Texts({"a", "b"}));
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.m_emptySearchColumn = 3;
  table.m_emptySearchRow = 4;
  table.m_emptySearchFinished = true;
  table.m_lastStatusMessageId = 77;

  EXPECT_TRUE(table.PerformSetup(wxFileName()));

  wxString sortColumn = wxT("untouched");
  bool reverse = true;
  table.GetSortColumnInfo(sortColumn, &reverse);
  EXPECT_EQ(sortColumn, wxString());
  EXPECT_FALSE(table.m_sortRanSinceNotification);
  EXPECT_EQ(table.m_emptySearchColumn, 0u);
  EXPECT_EQ(table.m_emptySearchRow, 0u);
  EXPECT_FALSE(table.m_emptySearchFinished);
  EXPECT_EQ(table.m_lastStatusMessageId, -1);
  EXPECT_TRUE(table.m_insertNewColumnsInPlace);
  table.SendStartMessageToStatusBar(wxT("id"), wxT("Begin..."), -1);
  EXPECT_TRUE(printer.lines.empty()) << "the printer was let go";
  EXPECT_EQ(table.m_rows.size(), 2u) << "rows and columns stay";

  table.Notify();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"b", "a"})) << "in load order again";
  ASSERT_TRUE(table.Load(folder.WriteData("b.txt", {"A"}, {{"c"}})));
  EXPECT_EQ(table.Column(wxT("A")), Texts({"b", "a", "c"}));
  table.SetSortColumn(wxT("A"), true);
  EXPECT_EQ(table.Column(wxT("A")), Texts({"c", "b", "a"}));
}

// No file is so long that this could be seen from outside.
class CountingTable : public ProbeTable {
 public:
  using MUExperimentTextReaderMultiFile::m_shownColumnCount;
  using MUExperimentTextReaderMultiFile::m_shownRowCount;
};

TEST(NumbersBeyondInt, AreTheGreatestIntAsCountsOfTheTable) {
  CountingTable table;
  table.m_shownRowCount = 2147483647ul;
  table.m_shownColumnCount = 2147483646ul;
  EXPECT_EQ(table.GetNumberOfDataRows(), 2147483647);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 2147483646);
  table.m_shownRowCount = 2147483648ul;
  table.m_shownColumnCount = 4294967297ul;
  EXPECT_EQ(table.GetNumberOfDataRows(), 2147483647);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 2147483647);
  table.m_shownRowCount = 0;
  table.m_shownColumnCount = 0;
}

class CountedObserver : public MUInterfaceExperimentDataObserver {
 public:
  void OnDataShapeChanged(unsigned rows, unsigned columns, unsigned long active, int,
                          int) override {
    counts = {rows, columns, active};
  }
  void OnRefreshRequest(wxCommandEvent&) override {}

  std::vector<unsigned long> counts;
};

TEST(NumbersBeyondInt, AreTheGreatestUnsignedAsCountsForObservers) {
  CountingTable table;
  CountedObserver observer;
  table.AddObserver(&observer);
  table.m_shownRowCount = 4294967296ul;
  table.m_shownColumnCount = 4294967295ul;
  table.IterateThroughTheNotificationLoops();
  EXPECT_EQ(observer.counts, std::vector<unsigned long>({4294967295ul, 4294967295ul, 0ul}));
  table.m_shownRowCount = 0;
  table.m_shownColumnCount = 0;
}

}  // namespace
