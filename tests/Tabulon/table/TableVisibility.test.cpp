// Hiding, suppression, empty columns, red flags, moving columns, the preserved range, deleting rows.
#include <gtest/gtest.h>
#include <wx/app.h>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::RecordingStatusPrinter;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Texts = std::vector<std::string>;
using Keys = ProbeTable::RowKeys;

class TableVisibility : public testing::Test {
 protected:
  void SetUp() override {
    m_pathA = m_folder.WriteData("a.txt", {"A", "B"}, {{"a1", "b1"}, {"a2", "b2"}, {"a3", "b3"}});
    m_pathB = m_folder.WriteData("b.txt", {"A", "C"}, {{"a4", "c4"}, {"a5", "c5"}});
  }
  void LoadBoth() {
    ASSERT_TRUE(m_table.Load(m_pathA));
    ASSERT_TRUE(m_table.Load(m_pathB));
  }
  void Switch(const wxString& path, bool wanted) {
    m_table.SimultaneousFileRequestsSuppressAndUnsuppress({DichotomousFileRequest{path, wanted}});
    m_table.OnIdle();
  }
  unsigned FlagsOf(unsigned long key) { return m_table.m_rows.find(key)->m_rowPropertyFlags; }

  TemporaryFolder m_folder;
  wxString m_pathA;
  wxString m_pathB;
  ProbeTable m_table;
};

TEST_F(TableVisibility, AHiddenRowStaysActive) {
  LoadBoth();
  m_table.HideOneSingleRowPerArbitraryUserRequest(1);
  EXPECT_TRUE(m_table.m_notificationPending);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 5);
  m_table.OnIdle();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "a3", "a4", "a5"}));
  EXPECT_EQ(m_table.m_activeRowKeys, Keys({0, 1, 2, 3, 4}));
  EXPECT_EQ(FlagsOf(1), 32u);
  // The index counts the rows that are shown now.
  m_table.HideOneSingleRowPerArbitraryUserRequest(1);
  m_table.OnIdle();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "a4", "a5"}));
}

TEST_F(TableVisibility, HidingARowPastTheEndStillNotifies) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.HideOneSingleRowPerArbitraryUserRequest(3);
  EXPECT_TRUE(m_table.m_notificationPending);
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 3);
}

TEST_F(TableVisibility, RowsAreWhatTheTwoMasksSay) {
  const std::vector<std::pair<unsigned, std::pair<bool, bool>>> cases = {
      {0, {true, true}},    {4, {false, false}}, {8, {false, false}}, {16, {false, false}},
      {32, {true, false}},  {64, {true, true}},  {1, {true, true}},   {2, {true, true}},
      {40, {false, false}}, {96, {true, false}}};
  ASSERT_TRUE(m_table.Load(m_pathA));
  for (const auto& [flags, activeAndShown] : cases) {
    m_table.m_rows.find(1)->m_rowPropertyFlags = flags;
    for (const bool sorted : {false, true}) {
      if (sorted) {
        m_table.SetSortColumn(wxT("A"), false);
      } else {
        m_table.RevertAnyAndAllSortOptions();
      }
      m_table.Notify();
      EXPECT_EQ(m_table.m_allRowKeys.size(), 3u) << flags;
      EXPECT_EQ(m_table.m_activeRowKeys.size(), activeAndShown.first ? 3u : 2u) << flags;
      EXPECT_EQ(m_table.GetNumberOfDataRows(), activeAndShown.second ? 3 : 2) << flags;
    }
  }
}

TEST_F(TableVisibility, ColumnsAreWhatTheMaskSays) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  for (const unsigned flags : {0u, 1u, 2u, 3u, 64u}) {
    m_table.m_columns[0]->m_columnPropertyFlags = flags;
    m_table.Notify();
    EXPECT_EQ(m_table.GetNumberOfDataColumns(), 2) << flags;
  }
  for (const unsigned flags : {4u, 8u, 16u, 32u, 60u, 33u}) {
    m_table.m_columns[0]->m_columnPropertyFlags = flags;
    m_table.Notify();
    EXPECT_EQ(m_table.GetNumberOfDataColumns(), 1) << flags;
  }
}

TEST_F(TableVisibility, UnhidingRowsLeavesThoseOfInactiveFilesAlone) {
  LoadBoth();
  m_table.HideOneSingleRowPerArbitraryUserRequest(0);
  m_table.HideOneSingleRowPerArbitraryUserRequest(3);
  Switch(m_pathB, false);
  EXPECT_EQ(FlagsOf(3), 40u);
  m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  EXPECT_TRUE(m_table.m_notificationPending);
  EXPECT_EQ(FlagsOf(0), 0u);
  EXPECT_EQ(FlagsOf(3), 40u);
  Switch(m_pathB, true);
  EXPECT_EQ(FlagsOf(3), 32u);
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "a2", "a3", "a5"}));
  m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  EXPECT_EQ(FlagsOf(3), 0u);
}

TEST_F(TableVisibility, UnhidingKeepsTheOtherFlags) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.m_rows.find(0)->m_rowPropertyFlags = 32 + 64 + 4;
  m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  EXPECT_EQ(FlagsOf(0), 68u);
}

TEST_F(TableVisibility, AColumnIsHiddenAndShownByItsExactName) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("a"));
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("A"));
  EXPECT_TRUE(m_table.m_notificationPending);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 2);
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"B"}));
  m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("nobody"));
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("A"));
  EXPECT_TRUE(m_table.m_notificationPending);
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B"}));
}

TEST_F(TableVisibility, ASharedColumnStaysUntilBothFilesAreSuppressed) {
  LoadBoth();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "C", "B"}));
  Switch(m_pathA, false);
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "C"}));
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a4", "a5"}));
  EXPECT_EQ(m_table.m_activeRowKeys, Keys({3, 4}));
  EXPECT_EQ(m_table.m_allRowKeys.size(), 5u);
  Switch(m_pathB, false);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 0);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
  Switch(m_pathA, true);
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B"}));
  EXPECT_EQ(m_table.Column(wxT("B")), Texts({"b1", "b2", "b3"}));
}

TEST_F(TableVisibility, SuppressingByNameSetsWhatUnsuppressingClears) {
  LoadBoth();
  m_table.SuppressColumnsBasedOnMultipleFileNames({m_pathA, m_pathB});
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.Notify();
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 0);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 5);
  m_table.UnsuppressColumnsBasedOnMultipleFileNames({m_pathB});
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.Notify();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "C"}));
}

TEST_F(TableVisibility, RowsAndColumnsCanBeSuppressedApart) {
  LoadBoth();
  const std::deque<DichotomousFileRequest> offA = {{m_pathA, false}};
  m_table.SimultaneousRowsSuppressAndUnsuppress(offA);
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.Notify();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 2);
  EXPECT_EQ(m_table.GetNumberOfDataColumns(), 3);
  m_table.SimultaneousColumnsSuppressAndUnsuppress(offA);
  m_table.Notify();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "C"}));
}

// ---- Empty columns

TEST_F(TableVisibility, HidesColumnsOfBlanksOnly) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData(
      "e.txt", {"Empty", "Blank", "Mixed", "Same", "Text"},
      {{"", " ", "", "x", "1"}, {"", "   ", " ", "x", "2"}, {"", " ", "y", "x", "3"}})));
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  EXPECT_TRUE(m_table.m_notificationPending);
  EXPECT_TRUE(m_table.m_emptySearchFinished);
  EXPECT_EQ(printer.lines,
            Texts({"Hiding empty columns... @1 ^-1", "2 columns hidden. N milliseconds. @7 ^100"}));
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"Mixed", "Same", "Text"}));
  // It is ordinary hiding.
  m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("Blank"));
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"Blank", "Mixed", "Same", "Text"}));
}

TEST_F(TableVisibility, OnlyShownRowsCountForEmptiness) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("e.txt", {"A", "B"}, {{"1", ""}, {"2", "x"}})));
  m_table.HideOneSingleRowPerArbitraryUserRequest(1);
  m_table.OnIdle();
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A"}));
}

TEST_F(TableVisibility, AnEmptyTableHidesNothing) {
  RecordingStatusPrinter printer;
  m_table.SetLinkToStatusBar(&printer);
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  EXPECT_TRUE(m_table.m_emptySearchFinished);
  EXPECT_FALSE(m_table.m_notificationPending);
  EXPECT_EQ(printer.lines.back(), "0 columns hidden. N milliseconds. @7 ^100");
}

TEST_F(TableVisibility, ATableOfColumnsWithoutShownRowsHidesNothing) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("e.txt", {"A"}, {{""}})));
  m_table.HideOneSingleRowPerArbitraryUserRequest(0);
  m_table.OnIdle();
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  EXPECT_FALSE(m_table.m_notificationPending);
}

TEST_F(TableVisibility, WhatTheSearchHasSettledIsNotAskedAgain) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("e.txt", {"A", "B"}, {{"1", ""}})));
  m_table.OnIdle();
  EXPECT_EQ(m_table.m_columnHasText,
            std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>({TRI_STATE_TRUE, TRI_STATE_FALSE}));
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  EXPECT_TRUE(m_table.m_cacheStringSelects.empty());
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A"}));
  EXPECT_EQ(m_table.m_columnHasText, std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>({TRI_STATE_UNKNOWN}));
}

TEST_F(TableVisibility, TheSearchWorksInSlicesOf2000Cells) {
  Tests::Cells rows(1500, {"", "", "x", ""});
  rows.back() = {"", "x", "x", ""};
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("e.txt", {"A", "B", "C", "D"}, rows)));
  const auto U = TRI_STATE_UNKNOWN;
  const auto T = TRI_STATE_TRUE;
  const auto F = TRI_STATE_FALSE;
  using States = std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>;
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_columnHasText, States({F, U, U, U}));
  EXPECT_EQ(m_table.m_emptySearchColumn, 1u);
  EXPECT_EQ(m_table.m_emptySearchRow, 500u);
  EXPECT_FALSE(m_table.m_emptySearchFinished);
  // 1000 cells are left of the second column, one is enough in the third.
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_columnHasText, States({F, T, T, U}));
  EXPECT_EQ(m_table.m_emptySearchColumn, 3u);
  EXPECT_EQ(m_table.m_emptySearchRow, 999u);
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_columnHasText, States({F, T, T, F}));
  EXPECT_TRUE(m_table.m_emptySearchFinished);
  m_table.m_columnHasText[0] = U;
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_columnHasText, States({U, T, T, F}));
}

TEST_F(TableVisibility, ANotificationStartsTheSearchOver) {
  Tests::Cells rows(1500, {"", ""});
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("e.txt", {"A", "B"}, rows)));
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_emptySearchColumn, 1u);
  m_table.Notify();
  EXPECT_EQ(m_table.m_emptySearchColumn, 0u);
  EXPECT_EQ(m_table.m_emptySearchRow, 0u);
  EXPECT_EQ(m_table.m_columnHasText,
            std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>(2, TRI_STATE_UNKNOWN));
  m_table.m_emptySearchFinished = true;
  m_table.Notify();
  EXPECT_FALSE(m_table.m_emptySearchFinished);
}

TEST_F(TableVisibility, TheNotificationOfAnEmptyTableEndsTheSearch) {
  m_table.Notify();
  EXPECT_TRUE(m_table.m_emptySearchFinished);
}

TEST_F(TableVisibility, TheSearchSkipsDeletedRows) {
  LoadBoth();
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("A"), {wxT("a4"), wxT("a5")}, false);
  m_table.PerformOneTimesliceOfEmptyColumnSearch();
  EXPECT_EQ(m_table.m_columnHasText, std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>(
                                         {TRI_STATE_TRUE, TRI_STATE_FALSE, TRI_STATE_TRUE}));
}

// ---- Red flags

TEST_F(TableVisibility, ARedFlagIsSeenAtOnceAndChangesNoList) {
  LoadBoth();
  EXPECT_FALSE(m_table.GetRowFlagStatus(2));
  m_table.SetRowFlag(2, true);
  EXPECT_TRUE(m_table.GetRowFlagStatus(2));
  EXPECT_EQ(FlagsOf(2), 64u);
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.ToggleRowFlag(2);
  EXPECT_FALSE(m_table.GetRowFlagStatus(2));
  m_table.ToggleRowFlag(2);
  EXPECT_TRUE(m_table.GetRowFlagStatus(2));
  m_table.Notify();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 5);
  m_table.SetRowFlag(2, false);
  EXPECT_EQ(FlagsOf(2), 0u);
}

TEST_F(TableVisibility, RedFlagsOutOfRangeAreFalseAndStay) {
  EXPECT_FALSE(m_table.GetRowFlagStatus(0));
  m_table.SetRowFlag(0, true);
  ASSERT_TRUE(m_table.Load(m_pathA));
  EXPECT_FALSE(m_table.GetRowFlagStatus(-1));
  EXPECT_FALSE(m_table.GetRowFlagStatus(3));
  m_table.SetRowFlag(-1, true);
  m_table.SetRowFlag(3, true);
  m_table.ToggleRowFlag(-1);
  m_table.ToggleRowFlag(2147483647);
  for (unsigned long key = 0; key < 3; ++key) EXPECT_EQ(FlagsOf(key), 0u);
}

TEST_F(TableVisibility, ADeletedRowHasNoFlag) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.SetRowFlag(1, true);
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a2"));
  EXPECT_FALSE(m_table.GetRowFlagStatus(1));
  m_table.SetRowFlag(1, true);
  m_table.HideOneSingleRowPerArbitraryUserRequest(1);
  EXPECT_EQ(m_table.Cell(1, 0), "?");
  EXPECT_EQ(m_table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS), nullptr);
}

TEST_F(TableVisibility, EverySettingOfAFlagIsToldToTheApplication) {
  wxAppConsole* const app = wxAppConsole::GetInstance();
  ASSERT_NE(app, nullptr);
  ASSERT_TRUE(m_table.Load(m_pathA));
  app->ProcessPendingEvents();
  std::vector<int> ids;
  const wxEventTypeTag<wxCommandEvent> type(wxEVT_FLAGGED_ROW_COUNT_CHANGED);
  const auto record = [&ids](wxCommandEvent& event) { ids.push_back(event.GetId()); };
  app->Bind(type, record);
  m_table.SetRowFlag(0, true);
  m_table.SetRowFlag(-1, true);
  m_table.ToggleRowFlag(99);
  EXPECT_TRUE(ids.empty());
  app->ProcessPendingEvents();
  app->Unbind(type, record);
  EXPECT_EQ(ids, std::vector<int>({-1, -1, -1}));
}

// ---- Moving columns

TEST_F(TableVisibility, AColumnMovesBeforeAnotherOrToTheEnd) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("m.txt", {"A", "B", "C", "D"}, {{}})));
  const auto orderAfter = [this](const wxString& moved, const wxString& before) {
    m_table.MoveColumnPosition(moved, before, false);
    EXPECT_TRUE(m_table.m_notificationPending);
    m_table.OnIdle();
    return Utf8(m_table.ColumnNames());
  };
  EXPECT_EQ(orderAfter(wxT("D"), wxT("B")), Texts({"A", "D", "B", "C"}));
  EXPECT_EQ(orderAfter(wxT("A"), wxT("C")), Texts({"D", "B", "A", "C"}));
  EXPECT_EQ(orderAfter(wxT("D"), ProbeTable::SPECIAL_CODE_FOR_COL_INSERTION_AT_END),
            Texts({"B", "A", "C", "D"}));
  EXPECT_EQ(orderAfter(wxT("B"), wxT("nobody")), Texts({"A", "C", "D", "B"}));
  EXPECT_EQ(orderAfter(wxT("C"), wxT("C")), Texts({"A", "D", "B", "C"}));
}

TEST_F(TableVisibility, AnUnknownColumnDoesNotMove) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.MoveColumnPosition(wxT("nobody"), wxT("A"), false);
  m_table.MoveColumnPosition(wxT(" A"), wxT("B"), false);
  m_table.MoveColumnPosition(wxT("A "), wxT("B"), true);
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.Notify();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"A", "B"}));
}

TEST_F(TableVisibility, TrimmingWhenMovingIsOneSided) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("m.txt", {"A", "B", "C"}, {{}})));
  m_table.m_columns[2]->m_columnName = wxT("  C ");
  m_table.MoveColumnPosition(wxT("C"), wxT("A"), true);
  EXPECT_FALSE(m_table.m_notificationPending);
  m_table.MoveColumnPosition(wxT("   C "), wxT(" A"), true);
  EXPECT_TRUE(m_table.m_notificationPending);
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"  C ", "A", "B"}));
}

TEST_F(TableVisibility, HiddenColumnsCountWhenMoving) {
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("m.txt", {"A", "B", "C"}, {{}})));
  m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("B"));
  m_table.MoveColumnPosition(wxT("C"), wxT("B"), false);
  m_table.MoveColumnPosition(wxT("B"), wxT("A"), false);
  m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("B"));
  m_table.OnIdle();
  EXPECT_EQ(Utf8(m_table.ColumnNames()), Texts({"B", "A", "C"}));
}

// ---- Preserved range

TEST_F(TableVisibility, NothingIsPreservedByAFirstLoad) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  int row = 5;
  int column = 5;
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(column, -1);
}

TEST_F(TableVisibility, ThePreservedRangeEndsBeforeTheFirstDifference) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  ASSERT_TRUE(m_table.Load(m_pathB));
  int row = 0;
  int column = 0;
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, 2);
  EXPECT_EQ(column, 0);
  m_table.Notify();
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, 4);
  EXPECT_EQ(column, 2);
  m_table.HideOneSingleRowPerArbitraryUserRequest(0);
  m_table.MoveColumnPosition(wxT("B"), wxT("A"), false);
  m_table.OnIdle();
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(column, -1);
  m_table.OnIdle();
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(column, -1);
}

TEST_F(TableVisibility, AnEmptiedTablePreservesNothing) {
  ASSERT_TRUE(m_table.Load(m_pathA));
  m_table.SimultaneousFileRequestsAddAndRemove({DichotomousFileRequest{m_pathA, false}});
  m_table.OnIdle();
  int row = 5;
  int column = 5;
  m_table.GetOuterLimitsOfPreservedRange(&row, &column);
  EXPECT_EQ(row, -1);
  EXPECT_EQ(column, -1);
}

// ---- Deleting rows

TEST_F(TableVisibility, RowsAreDeletedByValue) {
  LoadBoth();
  EXPECT_TRUE(m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("A"), {wxT("a2"), wxT("a5"), wxT("nobody")}, false));
  EXPECT_FALSE(m_table.m_notificationPending);
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 5);
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "?", "a3", "a4", "?"}));
  m_table.Notify();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "a3", "a4"}));
  EXPECT_TRUE(m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a1")));
  EXPECT_TRUE(m_table.m_notificationPending);
  EXPECT_TRUE(m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("nobody")));
  m_table.OnIdle();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a3", "a4"}));
}

TEST_F(TableVisibility, AnAbsentCellIsAnEmptyOneWhenDeleting) {
  LoadBoth();
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("B"), wxT(""));
  m_table.OnIdle();
  EXPECT_EQ(m_table.Column(wxT("A")), Texts({"a1", "a2", "a3"}));
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(wxT("A"), {}, true);
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 3);
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("no such field"), wxT(""));
  m_table.OnIdle();
  EXPECT_EQ(m_table.GetNumberOfDataRows(), 0);
}

}  // namespace
