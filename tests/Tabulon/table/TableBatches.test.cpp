// File batches, observers, idle work, the hooks of a derived viewer and the order of slots.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <numeric>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/queries/MUQueryCachingBroker.h"
#include "Tabulon/src/queries/MUQueryKeys.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::RecordingStatusPrinter;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Texts = std::vector<std::string>;

class RecordingObserver : public MUInterfaceExperimentDataObserver {
 public:
  RecordingObserver(Texts& log, const std::string& name) : m_log(log), m_name(name) {}
  void OnDataShapeChanged(unsigned rows, unsigned columns, unsigned long active, int lastRow,
                          int lastColumn) override {
    m_log.push_back(m_name + " shape " + std::to_string(rows) + " x " + std::to_string(columns) +
                    " of " + std::to_string(active) + " keeps " + std::to_string(lastRow) + ", " +
                    std::to_string(lastColumn));
  }
  void OnRefreshRequest(wxCommandEvent& event) override {
    m_log.push_back(
        m_name + " refresh" +
        (event.GetEventType() == wxEVT_COMMAND_REFRESH_REQUEST ? "" : " of another type"));
  }

 private:
  Texts& m_log;
  std::string m_name;
};

class TableBatches : public testing::Test {
 protected:
  void SetUp() override {
    pathA = folder.WriteData("a.txt", {"A", "B"}, {{"a1", "b1"}, {"a2", "b2"}});
    pathB = folder.WriteData("b.txt", {"A", "C"}, {{"a3", "c3"}});
    bad = folder.Write("bad.txt", "bad");
  }
  void AddOrRemove(std::initializer_list<DichotomousFileRequest> requests) {
    table.SimultaneousFileRequestsAddAndRemove(requests);
  }
  void Switch(std::initializer_list<DichotomousFileRequest> requests) {
    table.SimultaneousFileRequestsSuppressAndUnsuppress(requests);
  }

  TemporaryFolder folder;
  wxString pathA;
  wxString pathB;
  wxString bad;
  ProbeTable table;
};

TEST_F(TableBatches, ABatchIsSeenAfterOneIdleCall) {
  AddOrRemove({{pathA, true}, {pathB, true}});
  EXPECT_TRUE(table.m_notificationPending);
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({Utf8(pathA), Utf8(pathB)}));
  table.OnIdle();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a1", "a2", "a3"}));
  AddOrRemove({{pathB, false}});
  EXPECT_EQ(table.GetNumberOfDataRows(), 3);
  table.OnIdle();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a1", "a2"}));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B"}));
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({Utf8(pathA)}));
}

TEST_F(TableBatches, RequestsThatAskForWhatIsChangeNothingButNotify) {
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  AddOrRemove({{pathB, false}, {pathA, true}});
  EXPECT_TRUE(table.m_notificationPending);
  EXPECT_EQ(table.m_rows.size(), 2u);
  EXPECT_EQ(table.m_files.size(), 1u);
  table.OnIdle();
  AddOrRemove({});
  EXPECT_TRUE(table.m_notificationPending);
}

TEST_F(TableBatches, FilesAreRemovedBeforeOthersAreAdded) {
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  AddOrRemove({{pathB, true}, {pathA, false}, {bad, true}});
  EXPECT_EQ(
      printer.lines,
      Texts({"Removing 1 file(s)... @7 ^-1", "Done removing 1 file(s). N milliseconds. @7 ^100",
             "Adding 2 file(s)... @7 ^-1", "Done adding 2 file(s). N milliseconds. @7 ^102"}));
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({Utf8(pathB)}));
  table.OnIdle();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a3"}));
}

TEST_F(TableBatches, EmptyListsPrintNothing) {
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.AddMultipleFiles({});
  table.RemoveMultipleFiles({});
  EXPECT_EQ(printer.lines, Texts());
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableBatches, AddingDoesNotNotifyAndRemovingDoes) {
  table.AddMultipleFiles({pathA});
  EXPECT_FALSE(table.m_notificationPending);
  table.RemoveMultipleFiles({pathA});
  EXPECT_TRUE(table.m_notificationPending);
}

TEST_F(TableBatches, RemovingTheLastFileEmptiesTheTable) {
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  EXPECT_EQ(table.m_nextRowKey, 2u);
  AddOrRemove({{pathA, false}});
  EXPECT_TRUE(table.m_columns.empty());
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 0);
  EXPECT_EQ(table.m_nextRowKey, 0u);
  EXPECT_TRUE(table.m_emptySearchFinished);
  AddOrRemove({{pathB, true}});
  table.OnIdle();
  EXPECT_EQ(table.m_allRowKeys, ProbeTable::RowKeys({0}));
  EXPECT_EQ(table.Column(wxT("C")), Texts({"c3"}));
}

TEST_F(TableBatches, AFileThatWasLoadedTwiceLosesOneShareForEachName) {
  ASSERT_TRUE(table.AddExperimentOcurrence(wxFileName(pathA), false));
  ASSERT_TRUE(table.AddExperimentOcurrence(wxFileName(pathA), false));
  table.RemoveColumnsBasedOnMultipleFileNames({pathA});
  ASSERT_EQ(table.m_columns.size(), 2u);
  EXPECT_EQ(table.m_columns[0]->m_fileStatuses.size(), 1u);
  EXPECT_EQ(table.m_columns[0]->m_columnPropertyFlags, 8u);
  table.RemoveColumnsBasedOnMultipleFileNames({pathA, pathA});
  EXPECT_TRUE(table.m_columns.empty());
}

TEST_F(TableBatches, OneFilesColumnsAreRemovedWithoutANotification) {
  ASSERT_TRUE(table.Load(pathA));
  ASSERT_TRUE(table.Load(pathB));
  ASSERT_TRUE(table.Load(pathB));
  table.RemoveColumnsBasedOnFileName(wxFileName(pathB));
  EXPECT_FALSE(table.m_notificationPending);
  table.Notify();
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B"}));
  EXPECT_EQ(table.m_columns[0]->m_fileStatuses.size(), 1u);
  EXPECT_EQ(table.GetNumberOfDataRows(), 4);
  table.RemoveColumnsBasedOnFileName(wxFileName(pathB));
  table.RemoveColumnsBasedOnFileName(wxFileName(pathA));
  EXPECT_TRUE(table.m_columns.empty());
}

TEST_F(TableBatches, AColumnThatLostItsLiveFileStaysSuppressed) {
  ASSERT_TRUE(table.Load(pathA));
  ASSERT_TRUE(table.Load(pathB));
  Switch({{pathA, false}});
  table.RemoveMultipleFiles({pathB});
  table.OnIdle();
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts());
  EXPECT_EQ(table.m_columns.size(), 2u);
}

TEST_F(TableBatches, AShareAmongManyIsLiveAgainAfterItsFileIs) {
  ProbeTable many;
  std::deque<wxString> paths;
  for (int i = 0; i < 70; ++i) {
    paths.push_back(folder.WriteData("many" + std::to_string(100 + i) + ".txt", {"A"}, {{"x"}}));
    ASSERT_TRUE(many.Load(paths.back()));
  }
  const MUColumnNamePlusProperties& column = *many.m_columns.front();
  ASSERT_EQ(column.m_fileStatuses.size(), 70u);
  const auto isSuppressed = [&](std::size_t file) {
    return std::next(column.m_fileStatuses.begin(), static_cast<std::ptrdiff_t>(file))
               ->m_suppressed == 1;
  };
  for (int round = 0; round < 2; ++round) {
    many.SuppressColumnsBasedOnMultipleFileNames({paths[3], paths[66]});
    EXPECT_TRUE(isSuppressed(3));
    EXPECT_TRUE(isSuppressed(66));
    many.UnsuppressColumnsBasedOnMultipleFileNames({paths[66]});
    EXPECT_TRUE(isSuppressed(3));
    EXPECT_FALSE(isSuppressed(66));
    many.UnsuppressColumnsBasedOnMultipleFileNames({paths[3]});
    EXPECT_FALSE(isSuppressed(3));
  }
  many.SuppressColumnsBasedOnMultipleFileNames(paths);
  EXPECT_EQ(column.m_columnPropertyFlags & 8u, 8u);
  many.UnsuppressColumnsBasedOnMultipleFileNames({paths[0]});
  EXPECT_EQ(column.m_columnPropertyFlags & 8u, 0u);
  EXPECT_TRUE(isSuppressed(1));
}

// ---- Suppressing

TEST_F(TableBatches, AnUnknownFileIsLoadedAndTheRequestDecides) {
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  Switch({{pathA, true}, {pathB, false}});
  EXPECT_TRUE(table.m_notificationPending);
  EXPECT_EQ(printer.lines, Texts({"Updating file selection... @1 ^-1",
                                  "File selection updated. N milliseconds. @7 ^100"}));
  EXPECT_EQ(table.m_files, (std::map<wxString, bool>({{pathA, true}, {pathB, false}})));
  table.OnIdle();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a1", "a2"}));
  EXPECT_EQ(Utf8(table.ColumnNames()), Texts({"A", "B"}));
  EXPECT_EQ(table.m_allRowKeys.size(), 3u);
}

TEST_F(TableBatches, StatusTextsDoNotGrowFromCallToCall) {
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  Switch({});
  Switch({});
  EXPECT_EQ(printer.lines[1], "File selection updated. N milliseconds. @7 ^100");
  EXPECT_EQ(printer.lines[3], "File selection updated. N milliseconds. @7 ^102");
}

TEST_F(TableBatches, AFileThatDoesNotOpenIsDroppedSilently) {
  Switch({{bad, true}, {folder.PathOf("missing.txt"), true}, {pathA, true}});
  table.OnIdle();
  EXPECT_EQ(Utf8(table.GetNamesOfActiveFiles()), Texts({Utf8(pathA)}));
  EXPECT_EQ(table.m_files.size(), 1u);
  EXPECT_EQ(table.GetNumberOfDataRows(), 2);
}

TEST_F(TableBatches, OfTwoRequestsForOneFileTheRowsHeedTheFirstAndTheRestTheLast) {
  Switch({{pathA, true}});
  Switch({{pathA, false}, {pathA, true}});
  table.OnIdle();
  EXPECT_TRUE(table.m_files[pathA]);
  EXPECT_EQ(table.GetNumberOfDataColumns(), 2);
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
}

TEST_F(TableBatches, ALastMinuteFileStartsInactive) {
  table.LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(wxFileName(pathA));
  EXPECT_FALSE(table.m_files[pathA]);
  EXPECT_EQ(table.m_rows.size(), 2u);
  EXPECT_FALSE(table.m_notificationPending);
}

// ---- Observers and idle work

TEST_F(TableBatches, EveryObserverHasTheShapeBeforeAnyRepaints) {
  Texts log;
  RecordingObserver first(log, "first");
  RecordingObserver second(log, "second");
  EXPECT_TRUE(table.AddObserver(&first));
  EXPECT_TRUE(table.AddObserver(&second));
  EXPECT_TRUE(table.AddObserver(&first));
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  const std::string shape = " shape 2 x 2 of 2 keeps -1, -1";
  EXPECT_EQ(log, Texts({"first" + shape, "second" + shape, "first" + shape, "first refresh",
                        "second refresh", "first refresh"}));
}

TEST_F(TableBatches, ObserversHearOfTheActiveRowsAndThePreservedRange) {
  Texts log;
  RecordingObserver observer(log, "o");
  table.AddObserver(&observer);
  AddOrRemove({{pathA, true}, {pathB, true}});
  table.OnIdle();
  table.HideOneSingleRowPerArbitraryUserRequest(1);
  table.OnIdle();
  EXPECT_EQ(log, Texts({"o shape 3 x 3 of 3 keeps -1, -1", "o refresh",
                        "o shape 2 x 3 of 3 keeps 0, 2", "o refresh"}));
  log.clear();
  table.OnIdle();
  table.SetRowFlag(0, true);
  table.OnIdle();
  EXPECT_EQ(log, Texts());
}

TEST_F(TableBatches, NoObserverIsNoTrouble) {
  EXPECT_TRUE(table.AddObserver(nullptr));
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  EXPECT_EQ(table.GetNumberOfDataRows(), 2);
}

TEST_F(TableBatches, AnIdleCallDoesOneOfTwoThings) {
  AddOrRemove({{pathA, true}});
  table.OnIdle();
  AddOrRemove({{pathB, true}});
  table.OnIdle();
  // The notification alone: the previous lists are still there and the search has not begun.
  EXPECT_EQ(table.m_previousShownRowKeys->size(), 2u);
  EXPECT_EQ(table.m_columnHasText, std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>(3, TRI_STATE_UNKNOWN));
  table.OnIdle();
  EXPECT_TRUE(table.m_previousShownRowKeys->empty());
  EXPECT_EQ(table.m_columnHasText, std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN>(3, TRI_STATE_TRUE));
  EXPECT_TRUE(table.m_emptySearchFinished);
}

// ---- Hooks

// Notes each step that the table calls through the virtual table, in the order of the calls.
class HookedTable : public ProbeTable {
 public:
  using ProbeTable::ProbeTable;
  mutable Texts calls;

  bool AddExperimentOcurrence(const wxFileName& file, bool notify) override {
    calls.push_back("AddExperimentOcurrence");
    return ProbeTable::AddExperimentOcurrence(file, notify);
  }
  void NotifyMyObservers() override {
    calls.push_back("NotifyMyObservers");
    ProbeTable::NotifyMyObservers();
  }
  void MergeNewHeadingsWithOldHeadings(MUInterfaceExperimentDataFileInputReader* reader,
                                       const wxString& name) override {
    calls.push_back("MergeNewHeadingsWithOldHeadings");
    ProbeTable::MergeNewHeadingsWithOldHeadings(reader, name);
  }
  void ExtractAll(MUInterfaceExperimentDataFileInputReader* reader) override {
    calls.push_back("ExtractAll");
    ProbeTable::ExtractAll(reader);
  }
  void EraseCachesOfQueries() override {
    calls.push_back("EraseCachesOfQueries");
    ProbeTable::EraseCachesOfQueries();
  }
  void ResetKeysIntoCurrentRowsAll() override {
    calls.push_back("ResetKeysIntoCurrentRowsAll");
    NoteWhatStands();
    ProbeTable::ResetKeysIntoCurrentRowsAll();
  }
  void ResetKeysUsingSortSettings() override {
    calls.push_back("ResetKeysUsingSortSettings");
    NoteWhatStands();
    ProbeTable::ResetKeysUsingSortSettings();
  }
  void EraseAllCachedStatefulOptimizedStoredData() override {
    calls.push_back("EraseAllCachedStatefulOptimizedStoredData");
    ProbeTable::EraseAllCachedStatefulOptimizedStoredData();
  }
  void RemoveColumnsBasedOnMultipleFileNames(const std::deque<wxString>& names) override {
    calls.push_back("RemoveColumnsBasedOnMultipleFileNames");
    ProbeTable::RemoveColumnsBasedOnMultipleFileNames(names);
  }
  void SuppressColumnsBasedOnMultipleFileNames(const std::deque<wxString>& names) override {
    calls.push_back("SuppressColumnsBasedOnMultipleFileNames");
    ProbeTable::SuppressColumnsBasedOnMultipleFileNames(names);
  }
  void UnsuppressColumnsBasedOnMultipleFileNames(const std::deque<wxString>& names) override {
    calls.push_back("UnsuppressColumnsBasedOnMultipleFileNames");
    ProbeTable::UnsuppressColumnsBasedOnMultipleFileNames(names);
  }
  void SimultaneousRowsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) override {
    calls.push_back("SimultaneousRowsSuppressAndUnsuppress");
    ProbeTable::SimultaneousRowsSuppressAndUnsuppress(requests);
  }
  void SimultaneousColumnsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) override {
    calls.push_back("SimultaneousColumnsSuppressAndUnsuppress");
    ProbeTable::SimultaneousColumnsSuppressAndUnsuppress(requests);
  }
  void LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(const wxFileName& file) override {
    calls.push_back("LastMinuteFileAddition");
    ProbeTable::LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(file);
  }
  void AddMultipleFiles(const std::deque<wxString>& names) override {
    calls.push_back("AddMultipleFiles");
    ProbeTable::AddMultipleFiles(names);
  }
  void RemoveMultipleFiles(const std::deque<wxString>& names) override {
    calls.push_back("RemoveMultipleFiles");
    ProbeTable::RemoveMultipleFiles(names);
  }
  void IdleTimeProcessAllNotifications() override {
    calls.push_back("IdleTimeProcessAllNotifications");
    ProbeTable::IdleTimeProcessAllNotifications();
  }
  bool CheckColumnForFlagBits(const wxString& name, unsigned int bits) const override {
    calls.push_back("CheckColumnForFlagBits " + std::to_string(bits));
    return ProbeTable::CheckColumnForFlagBits(name, bits);
  }
  void HideOneSingleColumnPerArbitraryUserRequest(const wxString& name) override {
    calls.push_back("HideOneSingleColumn " + Utf8(name));
    ProbeTable::HideOneSingleColumnPerArbitraryUserRequest(name);
  }
  void SelectDistinctPerColumn(const wxString& column, std::vector<wxString>& values,
                               TARGETED_ROW_SEARCH_SET set, bool trim) const override {
    calls.push_back("SelectDistinctPerColumn " + Utf8(column) + " " + std::to_string(set) +
                    (trim ? " trimmed" : ""));
    ProbeTable::SelectDistinctPerColumn(column, values, set, trim);
  }
  bool GetRowFlagStatus(int row) const override {
    calls.push_back("GetRowFlagStatus");
    return ProbeTable::GetRowFlagStatus(row);
  }
  void SetRowFlag(int row, bool value) override {
    calls.push_back(value ? "SetRowFlag" : "ClearRowFlag");
    ProbeTable::SetRowFlag(row, value);
  }
  bool DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      const wxString& field, const std::deque<wxString>& values, bool notify) override {
    calls.push_back("DeleteAllRows");
    return ProbeTable::DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(field, values,
                                                                                   notify);
  }
  std::deque<wxString> FindColumnNamesWherePropertyFlagIsAbsent(unsigned flags) const override {
    calls.push_back("FindColumnNames");
    return ProbeTable::FindColumnNamesWherePropertyFlagIsAbsent(flags);
  }

  Texts Taken() {
    Texts taken;
    taken.swap(calls);
    return taken;
  }

 private:
  // Before the lists are made anew, a notification has emptied all that tells of the old ones.
  void NoteWhatStands() const {
    const auto standing = {
        Standing(m_shownRowCount != 0 || m_shownColumnCount != 0, "counts"),
        Standing(!m_currentColumnNames->empty(), "names"),
        Standing(!m_columnHasText.empty(), "columns with text"),
        Standing(m_emptySearchColumn != 0 || m_emptySearchRow != 0, "cursors"),
        Standing(m_emptySearchFinished, "finished search"),
        Standing(!m_cacheStringSelects.empty(), "selected texts"),
        Standing(m_broker->GetSharedPointerToMultiSelect(SelectionOfA()) != nullptr, "maps"),
        Standing(!m_cacheColumnNames.empty(), "found names"),
        Standing(!m_cacheRowIndicesByFlags.empty(), "rows by flags"),
        Standing(std::any_of(m_cacheRowIndexHolders.begin(), m_cacheRowIndexHolders.end(),
                             [](const auto& entry) { return *entry.second != nullptr; }),
                 "found rows"),
        Standing(std::any_of(m_nonCachedHolders.begin(), m_nonCachedHolders.end(),
                             [](const auto* holder) { return *holder != nullptr; }),
                 "rows found once")};
    std::string note = std::accumulate(standing.begin(), standing.end(), std::string());
    calls.push_back(note.empty() ? "nothing stands" : "stands:" + note);
  }
  static std::string Standing(bool stands, const std::string& what) {
    return stands ? " " + what + "," : "";
  }
  static MUCachingKeySelectedData SelectionOfA() {
    return MUQueryKeys::SeveralColumnsWhere(
        {wxT("A")}, wxString(), MUQueryWords::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS, true);
  }
};

class EveryRow : public MUInterfaceRowTruthDecider {
 public:
  explicit EveryRow(bool isCached) : m_isCached(isCached) {}
  int DecideRow(MUSingleRowDataPlusRowProperties*) override { return 1; }
  bool ResultMayBeCached() override { return m_isCached; }
  wxString GetIdentityString() override { return wxT("every row"); }

 private:
  bool m_isCached;
};

Texts operator+(Texts left, const Texts& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

const Texts NOTIFICATION = {"IdleTimeProcessAllNotifications",
                            "EraseAllCachedStatefulOptimizedStoredData",
                            "EraseCachesOfQueries",
                            "ResetKeysIntoCurrentRowsAll",
                            "nothing stands",
                            "FindColumnNames"};
const Texts SORTED_NOTIFICATION = {"IdleTimeProcessAllNotifications",
                                   "EraseAllCachedStatefulOptimizedStoredData",
                                   "EraseCachesOfQueries",
                                   "ResetKeysUsingSortSettings",
                                   "nothing stands",
                                   "FindColumnNames"};
const Texts READING = {"ExtractAll", "MergeNewHeadingsWithOldHeadings",
                       "UnsuppressColumnsBasedOnMultipleFileNames"};

class TableHooks : public TableBatches {
 protected:
  // Fills all that a notification empties.
  void AskAll() {
    std::vector<wxString> values;
    hooked.SelectDistinctPerColumn(wxT("A"), values, ProbeTable::ALL_ROWS, false);
    hooked.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
        {wxT("A")}, wxT("A"), MUQueryWords::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS, true);
    hooked.FindColumnNamesByPropertyFlag(0);
    hooked.FindCurrentRowIndicesByPropertyFlag(0, ProbeTable::ALL_ROWS);
    for (const bool isCached : {true, false}) {
      EveryRow decider(isCached);
      hooked.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
    }
    hooked.m_emptySearchColumn = 1;
    hooked.m_emptySearchRow = 1;
    hooked.m_emptySearchFinished = true;
    hooked.Taken();
  }

  HookedTable hooked;
};

TEST_F(TableHooks, OfALoadAreCalledInOrder) {
  hooked.Load(pathA);
  EXPECT_EQ(hooked.Taken(), READING + NOTIFICATION);
  hooked.Load(bad);
  EXPECT_EQ(hooked.Taken(), Texts());
  hooked.AddExperimentOcurrence(wxFileName(pathB), true);
  EXPECT_EQ(hooked.Taken(),
            Texts({"AddExperimentOcurrence"}) + READING + Texts({"NotifyMyObservers"}));
  hooked.AddExperimentOcurrence(wxFileName(bad), true);
  EXPECT_EQ(hooked.Taken(), Texts({"AddExperimentOcurrence", "NotifyMyObservers"}));
}

TEST_F(TableHooks, OfABatchAreCalledInOrder) {
  hooked.SimultaneousFileRequestsAddAndRemove({{pathA, true}, {pathB, true}});
  EXPECT_EQ(hooked.Taken(),
            Texts({"RemoveMultipleFiles", "AddMultipleFiles", "AddExperimentOcurrence"}) + READING +
                Texts({"AddExperimentOcurrence"}) + READING + Texts({"NotifyMyObservers"}));
  hooked.OnIdle();
  EXPECT_EQ(hooked.Taken(), NOTIFICATION);
  hooked.OnIdle();
  EXPECT_EQ(hooked.Taken(), Texts());

  hooked.SimultaneousFileRequestsAddAndRemove({{pathB, false}});
  EXPECT_EQ(hooked.Taken(), Texts({"RemoveMultipleFiles", "DeleteAllRows", "NotifyMyObservers",
                                   "RemoveColumnsBasedOnMultipleFileNames",
                                   "SuppressColumnsBasedOnMultipleFileNames", "AddMultipleFiles",
                                   "NotifyMyObservers"}));

  hooked.SimultaneousFileRequestsSuppressAndUnsuppress({{pathB, false}});
  EXPECT_EQ(hooked.Taken(),
            Texts({"LastMinuteFileAddition", "AddExperimentOcurrence"}) + READING +
                Texts({"SimultaneousColumnsSuppressAndUnsuppress",
                       "SimultaneousRowsSuppressAndUnsuppress", "NotifyMyObservers"}));

  hooked.RemoveColumnsBasedOnFileName(wxFileName(pathB));
  EXPECT_EQ(hooked.Taken(), Texts({"SuppressColumnsBasedOnMultipleFileNames"}));
}

TEST_F(TableHooks, OfASortAndOfDeletingAreCalled) {
  const std::string answersKept =
      "stands: counts, names, columns with text, cursors, finished search, selected texts, maps, "
      "found names,";
  hooked.Load(pathA);
  AskAll();
  hooked.SetSortColumn(wxT("A"), false);
  EXPECT_EQ(hooked.Taken(), Texts({"ResetKeysUsingSortSettings", answersKept}));
  AskAll();
  hooked.Notify();
  EXPECT_EQ(hooked.Taken(), SORTED_NOTIFICATION);
  AskAll();
  hooked.RevertAnyAndAllSortOptions();
  EXPECT_EQ(hooked.Taken(), Texts({"ResetKeysIntoCurrentRowsAll", answersKept}));
  AskAll();
  hooked.ResetKeysIntoCurrentRowsAll();
  EXPECT_EQ(hooked.Taken(), Texts({"ResetKeysIntoCurrentRowsAll",
                                   answersKept + " rows by flags, found rows, rows found once,"}));
  hooked.Notify();
  EXPECT_EQ(hooked.Taken(), NOTIFICATION);
  hooked.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a1"));
  EXPECT_EQ(hooked.Taken(), Texts({"DeleteAllRows", "NotifyMyObservers"}));
}

TEST_F(TableHooks, OfFlagsAndVisibilityAreCalled) {
  hooked.Load(pathA);
  hooked.Taken();
  hooked.IsColumnTrialVarColumn(wxT("A"));
  hooked.IsColumnCodeValColulmn(wxT("A"));
  EXPECT_EQ(hooked.Taken(), Texts({"CheckColumnForFlagBits 1", "CheckColumnForFlagBits 2"}));

  hooked.ToggleRowFlag(0);
  hooked.ToggleRowFlag(0);
  EXPECT_EQ(hooked.Taken(),
            Texts({"GetRowFlagStatus", "SetRowFlag", "GetRowFlagStatus", "ClearRowFlag"}));

  hooked.HideOneSingleRowPerArbitraryUserRequest(0);
  hooked.HideOneSingleRowPerArbitraryUserRequest(99);
  hooked.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
  hooked.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("A"));
  hooked.MoveColumnPosition(wxT("B"), wxT("A"), false);
  EXPECT_EQ(hooked.Taken(), Texts(5, "NotifyMyObservers"));
  hooked.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("nobody"));
  hooked.MoveColumnPosition(wxT("nobody"), wxT("A"), false);
  EXPECT_EQ(hooked.Taken(), Texts());
  hooked.HideOneSingleColumnPerArbitraryUserRequest(wxT("A"));
  EXPECT_EQ(hooked.Taken(), Texts({"HideOneSingleColumn A", "NotifyMyObservers"}));
}

TEST_F(TableHooks, OfTheSearchForEmptyColumnsAreCalled) {
  hooked.Load(folder.WriteData("e.txt", {"E", "F", "G"}, {{"", "", "g"}}));
  hooked.Taken();
  hooked.m_columnHasText[0] = TRI_STATE_FALSE;
  hooked.HideEmptyColumnsBasedOnCurrentlyShownRows();
  EXPECT_EQ(hooked.Taken(), Texts({"HideOneSingleColumn E", "NotifyMyObservers",
                                   "SelectDistinctPerColumn F 1 trimmed", "HideOneSingleColumn F",
                                   "NotifyMyObservers", "SelectDistinctPerColumn G 1 trimmed"}));
}

// Notes what the steps behind the observers have not done yet.
class LookingObserver : public MUInterfaceExperimentDataObserver {
 public:
  explicit LookingObserver(const HookedTable& table) : m_table(table) {}
  void OnDataShapeChanged(unsigned, unsigned, unsigned long, int, int) override { Look(); }
  void OnRefreshRequest(wxCommandEvent&) override { Look(); }

  Texts seen;

 private:
  void Look() {
    seen.push_back((m_table.m_emptySearchFinished ? "finished, next key " : "next key ") +
                   std::to_string(m_table.m_nextRowKey));
  }

  const HookedTable& m_table;
};

TEST_F(TableHooks, ObserversOfAnEmptiedTableAreToldBeforeItsSearchAndItsKeysAreReset) {
  LookingObserver observer(hooked);
  hooked.Load(pathA);
  const std::string before = "next key " + std::to_string(hooked.m_nextRowKey);
  ASSERT_NE(before, "next key 0");
  hooked.SimultaneousFileRequestsAddAndRemove({{pathA, false}});
  hooked.AddObserver(&observer);
  hooked.OnIdle();
  EXPECT_EQ(observer.seen, Texts({before, before}));
  EXPECT_TRUE(hooked.m_emptySearchFinished);
  EXPECT_EQ(hooked.m_nextRowKey, 0u);
}

// Asks for another notification from inside of one.
class AskingObserver : public MUInterfaceExperimentDataObserver {
 public:
  AskingObserver(HookedTable& table) : m_table(table) {}
  void OnDataShapeChanged(unsigned, unsigned, unsigned long, int, int) override {
    m_table.calls.push_back("OnDataShapeChanged");
    m_table.NotifyMyObservers();
  }
  void OnRefreshRequest(wxCommandEvent&) override { m_table.calls.push_back("OnRefreshRequest"); }

 private:
  HookedTable& m_table;
};

TEST_F(TableHooks, ObserversComeLastAndAnIdleCallForgetsWhatTheyAskFor) {
  AskingObserver observer(hooked);
  hooked.AddObserver(&observer);
  hooked.AddExperimentOcurrence(wxFileName(pathA), true);
  hooked.Taken();
  hooked.OnIdle();
  EXPECT_EQ(hooked.Taken(),
            NOTIFICATION + Texts({"OnDataShapeChanged", "NotifyMyObservers", "OnRefreshRequest"}));
  EXPECT_FALSE(hooked.m_notificationPending);
  hooked.OnIdle();
  EXPECT_EQ(hooked.Taken(), Texts());
  // Outside of an idle call the request stands.
  hooked.Notify();
  EXPECT_TRUE(hooked.m_notificationPending);
}

// ---- Order of slots

// Where in the virtual table the operation stands, by the representation of member pointers that g++ and
// clang share.
template <typename OPERATION>
long SlotOf(OPERATION operation) {
  std::ptrdiff_t words[2];
  static_assert(sizeof(operation) == sizeof(words), "a member pointer is two words");
  std::memcpy(words, &operation, sizeof(words));
  EXPECT_EQ(words[0] % 8, 1) << "not virtual";
  return (words[0] - 1) / 8;
}

template <typename... OPERATION>
std::vector<long> SlotsOf(OPERATION... operations) {
  return {SlotOf(operations)...};
}

std::vector<long> Ascending(long first, std::size_t count) {
  std::vector<long> slots;
  for (std::size_t i = 0; i < count; ++i) slots.push_back(first + static_cast<long>(i));
  return slots;
}

TEST(Slots, OfTheDataSourceFollowItsDestructor) {
  using S = MUInterfaceMultiExperimentDataSource;
  const auto slots = SlotsOf(
      &S::GetNamesOfActiveFiles, &S::HideOneSingleRowPerArbitraryUserRequest,
      &S::RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles,
      &S::HideOneSingleColumnPerArbitraryUserRequest,
      &S::UnhideOneSingleColumnPerArbitraryUserRequest, &S::MoveColumnPosition,
      &S::HideEmptyColumnsBasedOnCurrentlyShownRows, &S::SetRowFlag, &S::ToggleRowFlag,
      &S::GetRowFlagStatus, &S::IsColumnTrialVarColumn, &S::IsColumnCodeValColulmn,
      &S::SetSortColumn, &S::GetSortColumnInfo, &S::RevertAnyAndAllSortOptions,
      &S::GetColumnPositionNumberFromText, &S::GetNumberOfDataRows, &S::GetNumberOfDataColumns,
      &S::GetDataCellValue, &S::GetColumnNameText, &S::GetRowByRowIndexAndVisibilityFilter,
      &S::SelectDistinctPerColumn, &S::GetAllFromCol_X_WhereField_Y_Matches_Z,
      &S::GetAllFromMultiCols_X_WhereField_Y_Matches_Z,
      &S::FindCurrentRowIndicesMatchingRowTruthPredicate,
      &S::FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange,
      &S::FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices,
      &S::DeleteAllRows_WhereField_Y_Matches_Z,
      &S::DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z,
      &S::GetNamesOfAllCurrentlyDisplayedColumns, &S::FindColumnNamesByPropertyFlag,
      &S::FindColumnNamesWherePropertyFlagIsAbsent, &S::FindColumnNamesHavingFlagsX_andAbsentFlagsY,
      &S::FindColumnInformationWherePropertyFlagIsAbsent, &S::FindCurrentRowIndicesByPropertyFlag,
      &S::FindCurrentRowIndicesWherePropertyFlagIsAbsent,
      &S::FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY, &S::AddObserver, &S::OnIdle,
      &S::SetLinkToStatusBar);
  EXPECT_EQ(slots, Ascending(2, 40));
}

TEST(Slots, OfTheSmallInterfaces) {
  EXPECT_EQ(SlotsOf(&MUInterfaceFileObserver::SimultaneousFileRequestsAddAndRemove,
                    &MUInterfaceFileObserver::SimultaneousFileRequestsSuppressAndUnsuppress),
            Ascending(0, 2));
  EXPECT_EQ(SlotsOf(&MUInterfaceRowTruthDecider::DecideRow,
                    &MUInterfaceRowTruthDecider::ResultMayBeCached,
                    &MUInterfaceRowTruthDecider::GetIdentityString),
            std::vector<long>({0, 3, 4}));
  EXPECT_EQ(SlotsOf(&MUInterfaceExperimentDataObserver::OnDataShapeChanged,
                    &MUInterfaceExperimentDataObserver::OnRefreshRequest),
            Ascending(0, 2));
  EXPECT_EQ(SlotsOf(&MUInterfaceStatusTextPrinterManager::GetDefaultStatusSlot,
                    &MUInterfaceStatusTextPrinterManager::PrintStatusText),
            Ascending(0, 2));
}

TEST(Slots, OfTheTableItself) {
  using T = MUExperimentTextReaderMultiFile;
  const auto first =
      SlotsOf(&T::AddExperimentOcurrence,
              &T::AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown);
  EXPECT_EQ(first, Ascending(first[0], 2));
  const auto steps = SlotsOf(
      &T::NotifyMyObservers, &T::PerformSetup, &T::MergeNewHeadingsWithOldHeadings, &T::ExtractAll,
      &T::EraseCachesOfQueries, &T::ResetKeysIntoCurrentRowsAll, &T::ResetKeysUsingSortSettings,
      &T::EraseAllCachedStatefulOptimizedStoredData, &T::RemoveColumnsBasedOnFileName,
      &T::RemoveColumnsBasedOnMultipleFileNames, &T::SuppressColumnsBasedOnMultipleFileNames,
      &T::UnsuppressColumnsBasedOnMultipleFileNames, &T::SimultaneousRowsSuppressAndUnsuppress,
      &T::SimultaneousColumnsSuppressAndUnsuppress,
      &T::LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests, &T::AddMultipleFiles,
      &T::RemoveMultipleFiles, &T::IdleTimeProcessAllNotifications, &T::CheckColumnForFlagBits);
  EXPECT_EQ(steps, Ascending(steps[0], 19));
  EXPECT_GT(steps[0], first[1]);
}

TEST(Slots, TheBasesStandInOrder) {
  ProbeTable table;
  const auto* whole = reinterpret_cast<const char*>(static_cast<wxEvtHandler*>(&table));
  const auto* observer =
      reinterpret_cast<const char*>(static_cast<MUInterfaceFileObserver*>(&table));
  const auto* source =
      reinterpret_cast<const char*>(static_cast<MUInterfaceMultiExperimentDataSource*>(&table));
  EXPECT_LT(whole, observer);
  EXPECT_LT(observer, source);
}

}  // namespace
