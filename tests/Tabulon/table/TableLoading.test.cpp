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
  TemporaryFolder m_folder;
  ProbeTable m_table;
};

TEST_F(TableLoading, StartsEmptyAndUnsorted) {
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 0);
  EXPECT_TRUE(m_table.GetNamesOfActiveFiles().empty());
  EXPECT_TRUE(m_table.GetNamesOfAllCurrentlyDisplayedColumns()->empty());
  wxString column(wxT("anything"));
  bool reverse = true;
  m_table.GetSortColumnInfo(column, &reverse);
  EXPECT_EQ(column, wxT(""));
  EXPECT_FALSE(reverse);
  EXPECT_TRUE(m_table.m_insertNewColumnsInPlace);
  EXPECT_EQ(m_table.m_lastStatusMessageId, -1);
  EXPECT_FALSE(m_table.m_emptySearchFinished);
  EXPECT_TRUE(m_table.TRIM_WHITESPACE_DURING_EMPTYSEARCH);
  EXPECT_TRUE(m_table.VerifyThatColumnCollectionHasNoDuplicateColumnNames());
}

TEST_F(TableLoading, AFirstFileIsQueryableWhenTheCallReturns) {
  const wxString path = m_folder.WriteData("a.txt", {"Event\nName", "Key", "Reaction\nTime"},
                                           {{"e1", "k1", "10"}, {"e2", "k2", "5"}});
  ASSERT_TRUE(m_table.Load(path));
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 2);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 3);
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"Event\nName", "Key", "Reaction\nTime"}));
  EXPECT_EQ(m_table.Column(wxT("Event\nName")), Texts({"e1", "e2"}));
  EXPECT_EQ(m_table.Cell(1, 2), "5");
  EXPECT_EQ(Utf8(m_table.GetNamesOfActiveFiles()), Texts({Utf8(path)}));
  EXPECT_FALSE(m_table.m_notificationPending);
}

TEST_F(TableLoading, OutOfRangeReadsAsAQuestionMark) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}, {"c"}})));
  EXPECT_EQ(m_table.Cell(1, 0), "c");
  EXPECT_EQ(m_table.Cell(1, 1), "");
  EXPECT_EQ(m_table.Cell(2, 0), "?");
  EXPECT_EQ(m_table.Cell(0, 2), "?");
  EXPECT_EQ(m_table.Cell(-1, 0), "?");
  EXPECT_EQ(m_table.Cell(0, -1), "?");
  EXPECT_EQ(m_table.Cell(2147483647, 2147483647), "?");
  EXPECT_EQ(m_table.Cell(-2147483647 - 1, 0), "?");
  EXPECT_EQ(Utf8(m_table.GetColumnNameText(1)), "B");
  EXPECT_EQ(Utf8(m_table.GetColumnNameText(2)), "?");
  EXPECT_EQ(Utf8(m_table.GetColumnNameText(-1)), "?");
  EXPECT_EQ(m_table.GetColumnPositionNumberFromText(wxT("B")), 1);
  EXPECT_EQ(m_table.GetColumnPositionNumberFromText(wxT("b")), -1);
}

TEST_F(TableLoading, ACellThatOnlyAnotherFileHasReadsEmpty) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("b.txt", {"A", "B"}, {{"c", "d"}})));
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a", "c"}));
  EXPECT_EQ(m_table.Column(wxT("B")), Texts({"", "d"}));
}

TEST_F(TableLoading, HiddenCellsAreReadThroughTheRowAndNotListed) {
  using Reader = MUInterfaceExperimentDataFileInputReader;
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(m_table.Load(path));
  auto* row = m_table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ALL_ROWS);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->m_cells[Reader::STRING_FOR_FILENAME_SECRET_COL], path);
  EXPECT_EQ(row->m_cells[Reader::STRING_FOR_SHORTNAME_SECRET_COL], wxT("a.txt"));
  EXPECT_EQ(m_table.GetColumnPositionNumberFromText(Reader::STRING_FOR_FILENAME_SECRET_COL), -1);
  // The row now has its own entries, and reads as before.
  EXPECT_EQ(m_table.Cell(0, 0), "a");
}

TEST_F(TableLoading, WhatIsWrittenIntoARowIsRead) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}, {"c", "d"}})));
  m_table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS)->m_cells[wxT("B")] =
      wxT("new");
  EXPECT_EQ(m_table.Column(wxT("B")), Texts({"b", "new"}));
  EXPECT_EQ(
      Utf8(m_table.GetAllFromCol_X_WhereField_Y_Matches_Z(wxT("A"), wxT("B"), wxT("new"), false)),
      Texts({"c"}));
}

TEST_F(TableLoading, RowsAreServedForThreeSetsOnly) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}})));
  m_table.HideOneSingleRowPerArbitraryUserRequest(0);
  m_table.Notify();
  auto* hidden = m_table.m_rows.find(0);
  auto* shown = m_table.m_rows.find(1);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ONLY_FULLY_SHOWN_ROWS),
            shown);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ONLY_FULLY_SHOWN_ROWS),
            nullptr);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::ALL_ROWS), hidden);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(
                1, ProbeTable::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN),
            shown);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(0, ProbeTable::CALLER_GIVEN_ROWS), nullptr);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(
                0, static_cast<ProbeTable::TARGETED_ROW_SEARCH_SET>(5)),
            nullptr);
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(static_cast<unsigned long>(-1),
                                                        ProbeTable::ALL_ROWS),
            nullptr);
}

TEST_F(TableLoading, AFileWithoutRowsStillMergesItsColumns) {
  // The line behind the headings is there, and empty: one row without cells. A file of six lines is bad.
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A", "B"}, {{}})));
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 1);
  EXPECT_FALSE(m_table.Load(m_folder.WriteData("b.txt", {"A", "C"}, {})));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B"}));
}

TEST_F(TableLoading, LoadingAFileTwiceDoublesItsRowsAndNoColumn) {
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}});
  EXPECT_TRUE(m_table.AddExperimentOcurrence(wxFileName(path), true));
  EXPECT_TRUE(m_table.AddExperimentOcurrence(wxFileName(path), true));
  m_table.OnIdle();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a", "b", "a", "b"}));
  ASSERT_EQ(m_table.m_columns.size(), 1u);
  EXPECT_EQ(m_table.m_columns[0]->m_fileStatuses.size(), 2u);
  EXPECT_TRUE(m_table.m_files.empty());
}

TEST_F(TableLoading, OrdersOfColumnsAreMerged) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A", "B", "C"}, {{}})));
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("b.txt", {"B", "X", "C", "Y"}, {{}})));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B", "X", "C", "Y"}));
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("c.txt", {"C", "A"}, {{}})));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B", "X", "C", "Y"}));
}

TEST_F(TableLoading, AnEmptyHeadingVanishesFromTheTableAndRepeatedOnesStay) {
  ASSERT_TRUE(
      m_table.Load(m_folder.WriteData("a.txt", {"A", "", "A", "B"}, {{"1", "2", "3", "4"}})));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "A#", "B"}));
  EXPECT_EQ(m_table.Cell(0, 1), "3");
}

TEST_F(TableLoading, MoreCellsThanHeadingsMakeAColumn) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"1"}, {"2", "extra"}})));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "[Missing\nCol Name]"}));
  EXPECT_EQ(m_table.Column(wxT("[Missing\nCol Name]")), Texts({"", "extra"}));
}

TEST_F(TableLoading, KeysGrowOverAllFiles) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}})));
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("b.txt", {"A"}, {{"c"}})));
  EXPECT_EQ(m_table.m_nextRowKey, 3u);
  EXPECT_EQ(m_table.m_allRowKeys, ProbeTable::RowKeys({0, 1, 2}));
}

TEST_F(TableLoading, ABadFileLeavesTheListOfFilesAndTheTable) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  const wxString bad = m_folder.Write("bad.txt", "too\nshort\n");
  EXPECT_FALSE(m_table.Load(bad));
  EXPECT_FALSE(m_table.Load(m_folder.PathOf("missing.txt")));
  EXPECT_EQ(m_table.m_files.size(), 1u);
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a"}));
  EXPECT_FALSE(m_table.m_notificationPending);
}

TEST_F(TableLoading, NotifyIsHeededForBadFilesToo) {
  EXPECT_FALSE(m_table.AddExperimentOcurrence(wxFileName(m_folder.PathOf("missing.txt")), true));
  EXPECT_TRUE(m_table.m_notificationPending);
}

TEST_F(TableLoading, ABadFileTakesAKnownOneOffTheList) {
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(m_table.Load(path));
  m_folder.Write("a.txt", "short");
  EXPECT_FALSE(m_table.Load(path));
  EXPECT_TRUE(m_table.m_files.empty());
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 1);
}

TEST_F(TableLoading, WithoutTheIdleLoopRowsWaitForTheNotification) {
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}});
  EXPECT_TRUE(m_table.AddExperimentOcurrence(wxFileName(path), false));
  EXPECT_FALSE(m_table.m_notificationPending);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(m_table.m_rows.size(), 1u);
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
  m_table.NotifyMyObservers();
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 1);
  EXPECT_FALSE(m_table.m_notificationPending);
}

TEST_F(TableLoading, AnOpenFileIsReadInMemory) {
  const wxString path = m_folder.WriteData("a.txt", {"A", "B"}, {{"a", "b"}});
  wxFile open(path);
  ASSERT_TRUE(open.IsOpened());
  open.Seek(5);
  ASSERT_TRUE(m_table.AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
      wxFileName(path), false, &open));
  EXPECT_EQ(open.Tell(), 5);
  EXPECT_EQ(m_table.Cell(0, 1), "b^J");
  // Its rows do not know their file.
  const DichotomousFileRequest off{path, false};
  m_table.SimultaneousFileRequestsSuppressAndUnsuppress({off});
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 1);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 0);
}

TEST_F(TableLoading, AKnownFileKeepsItsState) {
  m_table.MaintainRunningListOfExperimentFiles(wxT("/x"), false, false);
  m_table.MaintainRunningListOfExperimentFiles(wxT("/x"), false, true);
  m_table.MaintainRunningListOfExperimentFiles(wxT("/c"), false, true);
  m_table.MaintainRunningListOfExperimentFiles(wxT("/b"), false, true);
  EXPECT_EQ(Utf8(m_table.GetNamesOfActiveFiles()), Texts({"/b", "/c"}));
  EXPECT_EQ(m_table.m_files.size(), 3u);
  m_table.MaintainRunningListOfExperimentFiles(wxT("/b"), true, true);
  m_table.MaintainRunningListOfExperimentFiles(wxT("/nobody"), true, true);
  EXPECT_EQ(Utf8(m_table.GetNamesOfActiveFiles()), Texts({"/c"}));
}

TEST_F(TableLoading, LoadingAgainLiftsTheSuppressionOfItsColumns) {
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}});
  ASSERT_TRUE(m_table.Load(path));
  m_table.SuppressColumnsBasedOnMultipleFileNames({path});
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.Notify();
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 0);
  ASSERT_TRUE(m_table.Load(path));
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 1);
}

TEST_F(TableLoading, ColumnFlagsAreFoundInHiddenColumnsToo) {
  ASSERT_TRUE(
      m_table.Load(m_folder.WriteData("a.txt", {"Font\n(Trial Variable)", "A"}, {{"a", "b"}})));
  EXPECT_TRUE(m_table.IsColumnTrialVarColumn(wxT("Font\n(Trial Variable)")));
  EXPECT_FALSE(m_table.IsColumnCodeValColulmn(wxT("Font\n(Trial Variable)")));
  EXPECT_FALSE(m_table.IsColumnTrialVarColumn(wxT("A")));
  EXPECT_FALSE(m_table.IsColumnTrialVarColumn(wxT("nobody")));
  m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("Font\n(Trial Variable)"));
  m_table.Notify();
  EXPECT_TRUE(m_table.IsColumnTrialVarColumn(wxT("Font\n(Trial Variable)")));
  EXPECT_TRUE(m_table.CheckColumnForFlagBits(wxT("Font\n(Trial Variable)"), 33));
  EXPECT_FALSE(m_table.CheckColumnForFlagBits(wxT("Font\n(Trial Variable)"), 35));
  EXPECT_TRUE(m_table.CheckColumnForFlagBits(wxT("A"), 0));
  EXPECT_FALSE(m_table.CheckColumnForFlagBits(wxT("nobody"), 0));
}

TEST_F(TableLoading, ACodeColumnIsKnown) {
  ASSERT_TRUE(m_table.Load(m_folder.Write("a.txt", "p\nt\nd\n\nA\nB\tC\na\tc\n")));
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A\nB", "C"}));
  EXPECT_TRUE(m_table.IsColumnCodeValColulmn(wxT("C")));
}

TEST_F(TableLoading, SetUpAnewLeavesOneBindingAndNoLeak) {
  EXPECT_TRUE(m_table.PerformSetup(wxFileName()));
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  m_table.SetSortColumn(wxT("A"), false);
  printer.lines.clear();
  wxCommandEvent event(wxEVT_COMMAND_REFRESH_REQUEST);
  m_table.ProcessEvent(event);
  EXPECT_EQ(printer.lines, Texts({"Finished sorting by \"A\". N milliseconds. @7 ^-1"}));
}

TEST_F(TableLoading, StatusTextsHaveTheirSlotsAndReplaceEachOther) {
  RecordingStatusPrinter printer;
  m_table.SendStartMessageToStatusBar(wxT("id"), wxT("Begin..."), -1);
  m_table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  EXPECT_EQ(m_table.m_lastStatusMessageId, -1);
  m_table.SetLinkToStatusBar(&printer);
  m_table.SendStartMessageToStatusBar(wxT("id"), wxT("Begin..."), -1);
  EXPECT_EQ(m_table.m_lastStatusMessageId, 100);
  m_table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  m_table.SendStartMessageToStatusBar(wxT("id"), wxT("Again..."), 3);
  m_table.SendFinishMessageToStatusBar(wxT("id"), wxT("End."));
  EXPECT_EQ(printer.lines, Texts({"Begin... @7 ^-1", "End. N milliseconds. @7 ^100",
                                  "Again... @3 ^-1", "End. N milliseconds. @7 ^102"}));
}

TEST_F(TableLoading, TheQueuedEventTellsOfASort) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  m_table.Notify();
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts());
  m_table.SetSortColumn(wxT("A"), false);
  EXPECT_EQ(printer.lines.size(), 1u);
  m_table.Notify();
  EXPECT_EQ(printer.lines.size(), 1u);
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts(2, "Finished sorting by \"A\". N milliseconds. @7 ^-1"));
  DeliverEvents();
  EXPECT_EQ(printer.lines.size(), 2u);
}

TEST_F(TableLoading, WithoutAPrinterNothingIsPrintedOrPosted) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  m_table.SetSortColumn(wxT("A"), false);
  m_table.Notify();
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  DeliverEvents();
  EXPECT_EQ(printer.lines, Texts());
}

TEST_F(TableLoading, NoSortNoText) {
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  wxCommandEvent event;
  m_table.HandleQueuedEventAfterNotifications(event);
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  m_table.SetSortColumn(wxT("no such column"), false);
  EXPECT_EQ(printer.lines.size(), 1u);
  // The notification finds no such column and does not sort.
  m_table.Notify();
  m_table.HandleQueuedEventAfterNotifications(event);
  EXPECT_EQ(printer.lines.size(), 1u);
  EXPECT_FALSE(m_table.m_sortRanSinceNotification);
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
  m_table.SetLinkToStatusBar(&printer);
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  m_table.SetRowFlag(0, true);
  m_table.SetSortColumn(wxT("A"), true);
  m_table.Notify();
  EXPECT_EQ(printer.lines.size(), 1u);
}

TEST_F(TableLoading, EventsThatWaitGoWithTheTable) {
  RecordingStatusPrinter printer;
  {
    ProbeTable other;
    other.SetLinkToStatusBar(&printer);
    ASSERT_TRUE(other.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
    other.SetSortColumn(wxT("A"), false);
    other.Notify();
  }
  DeliverEvents();
  EXPECT_EQ(printer.lines.size(), 1u);
}

TEST_F(TableLoading, AnEmptiedTableStartsItsKeysOver) {
  const wxString path = m_folder.WriteData("a.txt", {"A"}, {{"a"}, {"b"}});
  ASSERT_TRUE(m_table.Load(path));
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a"));
  m_table.OnIdle();
  EXPECT_EQ(m_table.m_nextRowKey, 2u);
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("b"));
  EXPECT_EQ(m_table.m_nextRowKey, 2u);
  m_table.OnIdle();
  EXPECT_EQ(m_table.m_nextRowKey, 0u);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 1);
}

TEST_F(TableLoading, TheTwoBuffersTakeTurns) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  const auto* first = m_table.GetNamesOfAllCurrentlyDisplayedColumns();
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("b.txt", {"B"}, {{"b"}})));
  const auto* second = m_table.GetNamesOfAllCurrentlyDisplayedColumns();
  EXPECT_NE(first, second);
  EXPECT_EQ(Utf8(*second), Texts({"B", "A"}));
  EXPECT_EQ(Utf8(*first), Texts({"A"}));
  EXPECT_EQ(first, m_table.m_previousColumnNames);
  m_table.OnIdle();
  EXPECT_TRUE(first->empty());
  EXPECT_TRUE(m_table.m_previousShownRowKeys->empty());
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 2);
}

TEST_F(TableLoading, RotatedListsDoNotBreakPlainAccess) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("a.txt", {"A"}, {{"a"}})));
  m_table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  EXPECT_EQ(m_table.Cell(0, 0), "?");
  EXPECT_EQ(Utf8(m_table.GetColumnNameText(0)), "?");
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  m_table.RotateQueuedCopiesOfRowCollectionAndColCollection();
  EXPECT_EQ(m_table.Cell(0, 0), "a");
}

}  // namespace
