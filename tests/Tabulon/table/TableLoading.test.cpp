// Files entering the table, the notification, status texts, plain access.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/file.h>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::Names;
using Tests::ProbeTable;
using Tests::RecordingStatusPrinter;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Texts = std::vector<std::string>;

void DeliverEvents() {
  if (wxAppConsole* app = wxAppConsole::GetInstance()) app->ProcessPendingEvents();
}

class TableLoading : public testing::Test {
 protected:
  TemporaryFolder folder;
  ProbeTable table;
};

TEST_F(TableLoading, StartsEmptyAndUnsorted) {
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 0);
  EXPECT_TRUE(table.GetNamesOfActiveFiles().empty());
  EXPECT_TRUE(table.GetNamesOfAllCurrentlyDisplayedColumns()->empty());
  wxString column(wxT("anything"));
  bool reverse = true;
  table.GetSortColumnInfo(column, &reverse);
  EXPECT_EQ(column, wxT(""));
  EXPECT_FALSE(reverse);
  EXPECT_TRUE(table.m_insertNewColumnsInPlace);
  EXPECT_EQ(table.m_lastStatusMessageId, -1);
  EXPECT_FALSE(table.m_emptySearchFinished);
  EXPECT_TRUE(table.TRIM_WHITESPACE_DURING_EMPTYSEARCH);
  EXPECT_TRUE(table.VerifyThatColumnCollectionHasNoDuplicateColumnNames());
}

TEST_F(TableLoading, AFirstFileIsQueryableWhenTheCallReturns) {
  const wxString path = folder.WriteData("a.txt", {"Event\nName", "Key", "Reaction\nTime"},
                                         {{"e1", "k1", "10"}, {"e2", "k2", "5"}});
  ASSERT_TRUE(table.Load(path));
  EXPECT_EQ(table.GetNumberOfDataRows(), 2);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 3);
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"Event\nName", "Key", "Reaction\nTime"}));
  EXPECT_EQ(table.Column(wxT("Event\nName")), Texts({"e1", "e2"}));
  EXPECT_EQ(table.Cell(1, 2), "5");
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({Utf8(path)}));
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableLoading, OutOfRangeReadsAsAQuestionMark) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}, {"c"}})));
  EXPECT_EQ(table.Cell(1, 0), "c");
  EXPECT_EQ(table.Cell(1, 1), "");
  EXPECT_EQ(table.Cell(2, 0), "?");
  EXPECT_EQ(table.Cell(0, 2), "?");
  EXPECT_EQ(table.Cell(-1, 0), "?");
  EXPECT_EQ(table.Cell(0, -1), "?");
  EXPECT_EQ(table.Cell(2147483647, 2147483647), "?");
  EXPECT_EQ(table.Cell(-2147483647 - 1, 0), "?");
  EXPECT_EQ(Utf8(table.GetColumnNameText(1)), "B");
  EXPECT_EQ(Utf8(table.GetColumnNameText(2)), "?");
  EXPECT_EQ(Utf8(table.GetColumnNameText(-1)), "?");
  EXPECT_EQ(table.GetColumnPositionNumberFromText(wxT("B")), 1);
  EXPECT_EQ(table.GetColumnPositionNumberFromText(wxT("b")), -1);
}

TEST_F(TableLoading, ACellThatOnlyAnotherFileHasReadsEmpty) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  ASSERT_TRUE(table.Load(folder.WriteData("b.txt", {"A", "B"}, {{"c", "d"}})));
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a", "c"}));
  EXPECT_EQ(table.Column(wxT("B")), Texts({"", "d"}));
}

TEST_F(TableLoading, HiddenCellsAreReadThroughTheRowAndNotListed) {
  using Reader = MUInterfaceExperimentDataFileInputReader;
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(table.Load(path));
  auto* row = table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ALL_ROWS);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->m_cells[Reader::STRING_FOR_FILENAME_SECRET_COL], path);
  EXPECT_EQ(row->m_cells[Reader::STRING_FOR_SHORTNAME_SECRET_COL], wxT("a.txt"));
  EXPECT_EQ(table.GetColumnPositionNumberFromText(Reader::STRING_FOR_FILENAME_SECRET_COL), -1);
  // The row now has its own entries, and reads as before.
  EXPECT_EQ(table.Cell(0, 0), "a");
}

TEST_F(TableLoading, WhatIsWrittenIntoARowIsRead) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}, {"c", "d"}})));
  table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS)->m_cells[wxT("B")] =
      wxT("new");
  EXPECT_EQ(table.Column(wxT("B")), Texts({"b", "new"}));
  EXPECT_EQ(
      Utf8(table.GetAllFromCol_X_WhereField_Y_Matches_Z(wxT("A"), wxT("B"), wxT("new"), false)),
      Texts({"c"}));
}

TEST_F(TableLoading, RowsAreServedForThreeSetsOnly) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}})));
  table.HideOneSingleRowPerArbitraryUserRequest(0);
  table.Notify();
  auto* hidden = table.m_rows.find(0);
  auto* shown = table.m_rows.find(1);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ONLY_FULLY_SHOWN_ROWS), shown);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ONLY_FULLY_SHOWN_ROWS),
            nullptr);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ALL_ROWS), hidden);
  EXPECT_EQ(
      table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN),
      shown);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::CALLER_GIVEN_ROWS), nullptr);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(
                0, static_cast<ProbeTable::TARGETED_ROW_SEARCH_SET>(5)),
            nullptr);
  EXPECT_EQ(table.GetRowByRowIndexAndVisibilityFilter(static_cast<unsigned long>(-1),
                                                      ProbeTable::ALL_ROWS),
            nullptr);
}

TEST_F(TableLoading, AFileWithoutRowsStillMergesItsColumns) {
  // The line behind the headings is there, and empty: one row without cells. A file of six lines is bad.
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A", "B"}, {{}})));
  EXPECT_EQ(table.GetNumberOfDataRows(), 1);
  EXPECT_FALSE(table.Load(folder.WriteData("b.txt", {"A", "C"}, {})));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B"}));
}

TEST_F(TableLoading, LoadingAFileTwiceDoublesItsRowsAndNoColumn) {
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}});
  EXPECT_TRUE(table.AddExperimentOcurrence(wxFileName(path), true));
  EXPECT_TRUE(table.AddExperimentOcurrence(wxFileName(path), true));
  table.OnIdle();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a", "b", "a", "b"}));
  ASSERT_EQ(table.m_columns.size(), 1u);
  EXPECT_EQ(table.m_columns[0]->m_fileStatuses.size(), 2u);
  EXPECT_TRUE(table.m_files.empty());
}

TEST_F(TableLoading, OrdersOfColumnsAreMerged) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A", "B", "C"}, {{}})));
  ASSERT_TRUE(table.Load(folder.WriteData("b.txt", {"B", "X", "C", "Y"}, {{}})));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B", "X", "C", "Y"}));
  ASSERT_TRUE(table.Load(folder.WriteData("c.txt", {"C", "A"}, {{}})));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B", "X", "C", "Y"}));
}

TEST_F(TableLoading, AnEmptyHeadingVanishesFromTheTableAndRepeatedOnesStay) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A", "", "A", "B"}, {{"1", "2", "3", "4"}})));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "A#", "B"}));
  EXPECT_EQ(table.Cell(0, 1), "3");
}

TEST_F(TableLoading, MoreCellsThanHeadingsMakeAColumn) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"1"}, {"2", "extra"}})));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "[Missing\nCol Name]"}));
  EXPECT_EQ(table.Column(wxT("[Missing\nCol Name]")), Texts({"", "extra"}));
}

TEST_F(TableLoading, KeysGrowOverAllFiles) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}})));
  ASSERT_TRUE(table.Load(folder.WriteData("b.txt", {"A"}, {{"c"}})));
  EXPECT_EQ(table.m_nextRowKey, 3u);
  EXPECT_EQ(table.m_allRowKeys, ProbeTable::RowKeys({0, 1, 2}));
}

TEST_F(TableLoading, ABadFileLeavesTheListOfFilesAndTheTable) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  const wxString bad = folder.Write("bad.txt", "too\nshort\n");
  EXPECT_FALSE(table.Load(bad));
  EXPECT_FALSE(table.Load(folder.PathOf("missing.txt")));
  EXPECT_EQ(table.m_files.size(), 1u);
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a"}));
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableLoading, NotifyIsHeededForBadFilesToo) {
  EXPECT_FALSE(table.AddExperimentOcurrence(wxFileName(folder.PathOf("missing.txt")), true));
  EXPECT_TRUE(table.m_notificationPending);
}

TEST_F(TableLoading, ABadFileTakesAKnownOneOffTheList) {
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(table.Load(path));
  folder.Write("a.txt", "short");
  EXPECT_FALSE(table.Load(path));
  EXPECT_TRUE(table.m_files.empty());
  EXPECT_EQ(table.GetNumberOfDataRows(), 1);
}

TEST_F(TableLoading, WithoutTheIdleLoopRowsWaitForTheNotification) {
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}});
  EXPECT_TRUE(table.AddExperimentOcurrence(wxFileName(path), false));
  EXPECT_FALSE(table.m_notificationPending);
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(table.m_rows.size(), 1u);
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  table.NotifyMyObservers();
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 1);
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableLoading, AnOpenFileIsReadInMemory) {
  const wxString path = folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}});
  wxFile open(path);
  ASSERT_TRUE(open.IsOpened());
  open.Seek(5);
  ASSERT_TRUE(table.AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
      wxFileName(path), false, &open));
  EXPECT_EQ(open.Tell(), 5);
  EXPECT_EQ(table.Cell(0, 1), "b^J");
  // Its rows do not know their file.
  const DichotomousFileRequest off{path, false};
  table.SimultaneousFileRequestsSuppressAndUnsuppress({off});
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 1);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 0);
}

TEST_F(TableLoading, AKnownFileKeepsItsState) {
  table.MaintainRunningListOfExperimentFiles(wxT("/x"), false, false);
  table.MaintainRunningListOfExperimentFiles(wxT("/x"), false, true);
  table.MaintainRunningListOfExperimentFiles(wxT("/c"), false, true);
  table.MaintainRunningListOfExperimentFiles(wxT("/b"), false, true);
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({"/b", "/c"}));
  EXPECT_EQ(table.m_files.size(), 3u);
  table.MaintainRunningListOfExperimentFiles(wxT("/b"), true, true);
  table.MaintainRunningListOfExperimentFiles(wxT("/nobody"), true, true);
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({"/c"}));
}

TEST_F(TableLoading, LoadingAgainLiftsTheSuppressionOfItsColumns) {
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(table.Load(path));
  table.SuppressColumnsBasedOnMultipleFileNames({path});
  EXPECT_FALSE(table.m_notificationPending);
  table.Notify();
  EXPECT_EQ(table.GetNumberOfDataColumns(), 0);
  ASSERT_TRUE(table.Load(path));
  EXPECT_EQ(table.GetNumberOfDataColumns(), 1);
}

TEST_F(TableLoading, ColumnFlagsAreFoundInHiddenColumnsToo) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"Font\n(Trial Variable)", "A"}, {{"a", "b"}})));
  EXPECT_TRUE(table.IsColumnTrialVarColumn(wxT("Font\n(Trial Variable)")));
  EXPECT_FALSE(table.IsColumnCodeValColulmn(wxT("Font\n(Trial Variable)")));
  EXPECT_FALSE(table.IsColumnTrialVarColumn(wxT("A")));
  EXPECT_FALSE(table.IsColumnTrialVarColumn(wxT("nobody")));
  table.HideOneSingleColumnPerArbitraryUserRequest(wxT("Font\n(Trial Variable)"));
  table.Notify();
  EXPECT_TRUE(table.IsColumnTrialVarColumn(wxT("Font\n(Trial Variable)")));
  EXPECT_TRUE(table.CheckColumnForFlagBits(wxT("Font\n(Trial Variable)"), 33));
  EXPECT_FALSE(table.CheckColumnForFlagBits(wxT("Font\n(Trial Variable)"), 35));
  EXPECT_TRUE(table.CheckColumnForFlagBits(wxT("A"), 0));
  EXPECT_FALSE(table.CheckColumnForFlagBits(wxT("nobody"), 0));
}

TEST_F(TableLoading, ACodeColumnIsKnown) {
  ASSERT_TRUE(table.Load(folder.Write("a.txt", "p\nt\nd\n\nA\nB\tC\na\tc\n")));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A\nB", "C"}));
  EXPECT_TRUE(table.IsColumnCodeValColulmn(wxT("C")));
}

TEST_F(TableLoading, SetUpAnewLeavesOneBindingAndNoLeak) {
  EXPECT_TRUE(table.PerformSetup(wxFileName()));
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  table.SetSortColumn(wxT("A"), false);
  printer.lines.clear();
  wxCommandEvent event(wxEVT_COMMAND_REFRESH_REQUEST);
  table.ProcessEvent(event);
  EXPECT_EQ(printer.lines, Texts({"Finished sorting by \"A\". N milliseconds. @7 ^-1"}));
}

TEST_F(TableLoading, StatusTextsHaveTheirSlotsAndReplaceEachOther) {
  RecordingStatusPrinter printer;
  table.SendStartMessageToStatusBar(wxT("id"), wxT("Begin..."), -1);
  table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  EXPECT_EQ(table.m_lastStatusMessageId, -1);
  table.SetLinkToStatusBar(&printer);
  table.SendStartMessageToStatusBar(wxT("id"), wxT("Begin..."), -1);
  EXPECT_EQ(table.m_lastStatusMessageId, 100);
  table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  table.SendStartMessageToStatusBar(wxT("id"), wxT("Again..."), 3);
  table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  EXPECT_EQ(printer.lines, Texts({"Begin... @7 ^-1", "End. N milliseconds. @7 ^100",
                                  "Again... @3 ^-1", "End. N milliseconds. @7 ^102"}));
}

TEST_F(TableLoading, TheQueuedEventTellsOfASort) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.Notify();
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts());
  table.SetSortColumn(wxT("A"), false);
  EXPECT_EQ(printer.lines.size(), 1u);
  table.Notify();
  EXPECT_EQ(printer.lines.size(), 1u);
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts(2, "Finished sorting by \"A\". N milliseconds. @7 ^-1"));
  DeliverEvents();
  EXPECT_EQ(printer.lines.size(), 2u);
}

TEST_F(TableLoading, WithoutAPrinterNothingIsPrintedOrPosted) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  table.SetSortColumn(wxT("A"), false);
  table.Notify();
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts());
}

TEST_F(TableLoading, NoSortNoText) {
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  wxCommandEvent event;
  table.HandleQueuedEventAfterNotifications(event);
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  table.SetSortColumn(wxT("no such column"), false);
  EXPECT_EQ(printer.lines.size(), 1u);
  // The notification finds no such column and does not sort.
  table.Notify();
  table.HandleQueuedEventAfterNotifications(event);
  EXPECT_EQ(printer.lines.size(), 1u);
  EXPECT_FALSE(table.m_sortRanSinceNotification);
}

// Stands for a program that has no application object.
class NoApplication {
 public:
  NoApplication() : m_app(wxAppConsole::GetInstance()) { wxAppConsole::SetInstance(nullptr); }
  ~NoApplication() { wxAppConsole::SetInstance(m_app); }

 private:
  wxAppConsole* m_app;
};

TEST_F(TableLoading, WorksWithoutAnApplicationObject) {
  const NoApplication none;
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  table.SetRowFlag(0, true);
  table.SetSortColumn(wxT("A"), true);
  table.Notify();
  EXPECT_EQ(printer.lines.size(), 1u);
}

TEST_F(TableLoading, EventsThatWaitGoWithTheTable) {
  RecordingStatusPrinter printer;
  {
    ProbeTable other;
    other.SetLinkToStatusBar(&printer);
    ASSERT_TRUE(other.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
    other.SetSortColumn(wxT("A"), false);
    other.Notify();
  }
  DeliverEvents();
  EXPECT_EQ(printer.lines.size(), 1u);
}

TEST_F(TableLoading, AnEmptiedTableStartsItsKeysOver) {
  const wxString path = folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}});
  ASSERT_TRUE(table.Load(path));
  table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a"));
  table.OnIdle();
  EXPECT_EQ(table.m_nextRowKey, 2u);
  table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("b"));
  EXPECT_EQ(table.m_nextRowKey, 2u);
  table.OnIdle();
  EXPECT_EQ(table.m_nextRowKey, 0u);
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 1);
}

TEST_F(TableLoading, TheTwoBuffersTakeTurns) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  const auto* first = table.GetNamesOfAllCurrentlyDisplayedColumns();
  ASSERT_TRUE(table.Load(folder.WriteData("b.txt", {"B"}, {{"b"}})));
  const auto* second = table.GetNamesOfAllCurrentlyDisplayedColumns();
  EXPECT_NE(first, second);
  EXPECT_EQ(Utf8(*second), Texts({"B", "A"}));
  EXPECT_EQ(Utf8(*first), Texts({"A"}));
  EXPECT_EQ(first, table.m_previousColumnNames);
  table.OnIdle();
  EXPECT_TRUE(first->empty());
  EXPECT_TRUE(table.m_previousShownRowKeys->empty());
  EXPECT_EQ(table.GetNumberOfDataRows(), 2);
}

TEST_F(TableLoading, RotatedListsDoNotBreakPlainAccess) {
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"A"}, {{"a"}})));
  table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  EXPECT_EQ(table.Cell(0, 0), "?");
  EXPECT_EQ(Utf8(table.GetColumnNameText(0)), "?");
  table.PerformOneTimesliceOfEmptyColumnSearch();
  table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  EXPECT_EQ(table.Cell(0, 0), "a");
}

}  // namespace
