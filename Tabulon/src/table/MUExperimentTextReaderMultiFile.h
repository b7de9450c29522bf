// The merged table over one or many experiment data files.
//
// Effect: everything that changes the table changes records and sets a bit; the lists by which queries by
// index answer are rebuilt once, by the notification. Without a viewer that happens inside
// AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown, with one inside OnIdle.
// Cost: a notification walks over all rows, and sorts them if a sort column is set. An object of this class
// itself, not a derived one, appends arrived rows if no other row can have changed.
// Lifetime: rows, columns and results by pointer belong to the table; observers, printer and error handler are
// borrowed and must outlive it.
// Threads: one, that of the event loop; no lock. Const operations write caches.
// Failure: as the interfaces say; a file that cannot be read never reaches the table.
//
// Each section says which source holds it: MUExperimentTextReaderMultiFile*.cpp.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUEXPERIMENTTEXTREADERMULTIFILE_H
#define OMBRELIA_TABULON_SRC_TABLE_MUEXPERIMENTTEXTREADERMULTIFILE_H

#include <wx/event.h>
#include <wx/filename.h>

#include <deque>
#include <list>
#include <map>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/queries/MUCachingKeySelectedData.h"
#include "Tabulon/src/queries/MUSelectedTexts.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/table/MUColumnTexts.h"
#include "Tabulon/src/table/MUFileFlags.h"
#include "Tabulon/src/table/MUInterfaceFileObserver.h"
#include "Tabulon/src/table/MUInterfaceMultiExperimentDataSource.h"
#include "Tabulon/src/table/MULoadOrder.h"
#include "Tabulon/src/table/TriStateTrueFalseUnknown.h"
#include "Tabulon/src/text/MUCellText.h"

struct MUColumnNamePlusProperties;
class MUInterfaceDataFileInputErrorHandler;
class MUInterfaceExperimentDataFileInputReader;
class MUQueryCachingBroker;
class MURowKeySet;
class wxFile;

class MUExperimentTextReaderMultiFile : public wxEvtHandler,
                                        public MUInterfaceFileObserver,
                                        public MUInterfaceMultiExperimentDataSource {
 public:
  // Blanks around a cell do not keep its column from counting as empty.
  static const bool TRIM_WHITESPACE_DURING_EMPTYSEARCH;

  // ---- Loading: the two ways in (…Loading.cpp) ---------------------------------------------------
  // For a live viewer, which has put the file into the list of files before. Rows and columns are merged
  // at once and seen after the next notification. True when the file was read; a file that was not leaves
  // the list of files, and its reader tells the error handler why. notify: whether to ask for a notification, also
  // where the file was not read; it runs in OnIdle.
  virtual bool AddExperimentOcurrence(const wxFileName& file, bool notify);
  // For everything without a viewer: also records the file as active, and runs the notification at once.
  // openFile may be null; otherwise the bytes come from it, and it stays open and where it was. For a file that was
  // read the notification runs whatever notify says; for one that was not, notify asks for one.
  virtual bool AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
      const wxFileName& file, bool notify, wxFile* openFile);

  // ---- Life and flags (MUExperimentTextReaderMultiFile.cpp) --------------------------------------
  // The handler receives the reports of all readers; not owned, may be null.
  explicit MUExperimentTextReaderMultiFile(MUInterfaceDataFileInputErrorHandler* errorHandler);
  // Frees the rows, the columns and all results that were handed out by pointer.
  ~MUExperimentTextReaderMultiFile() override;

  bool IsColumnTrialVarColumn(const wxString& name) const override;
  bool IsColumnCodeValColulmn(const wxString& name) const override;

  // Hooks for a debug build: the first answers true without looking, the second does nothing.
  bool VerifyThatColumnCollectionHasNoDuplicateColumnNames() const { return true; }
  void DebugAssertFunctionThatIsEmptyInReleaseBuild() const {}

  // ---- Loading, notification and status texts (…Loading.cpp) -------------------------------------
  std::vector<wxString> GetNamesOfActiveFiles() const override;
  void SetLinkToStatusBar(MUInterfaceStatusTextPrinterManager* printer) override;

  // Removes the file from the list of files, or adds it; a file that is there keeps its state.
  void MaintainRunningListOfExperimentFiles(const wxString& fullName, bool remove, bool active);

  // A text at the beginning of some work and one at its end, which replaces the first and tells the time
  // between them. The identifier names the stopwatch. A slot of -1 means the printer's default one.
  // Without a printer neither does anything.
  void SendStartMessageToStatusBar(const wxString& identifier, const wxString& text, int slot);
  void SendFinishMessageToStatusBar(const wxString& identifier, const wxString& text);
  // Says once how long the last sort took. The event is not looked at.
  void HandleQueuedEventAfterNotifications(wxCommandEvent& event);

  // ---- Plain access (…Access.cpp) ----------------------------------------------------------------
  int GetColumnPositionNumberFromText(const wxString& name) const override;
  int GetNumberOfDataRows() const override;
  int GetNumberOfDataColumns() const override;
  wxString GetDataCellValue(int row, int column) const override;
  // The same text without a copy, for many cells. Borrowed until the next notification, or until the row's
  // cell is written or the row deleted.
  MUCellText GetDataCellText(int row, int column) const;
  // The same for one column in rowCount rows from firstRow on, for a window or a whole column: the rows' memory
  // is fetched side by side. texts: room for rowCount of them; the caller's.
  void GetDataColumnTexts(int column, int firstRow, int rowCount, MUCellText* texts) const;
  wxString GetColumnNameText(int column) const override;
  MUSingleRowDataPlusRowProperties* GetRowByRowIndexAndVisibilityFilter(
      unsigned long index, TARGETED_ROW_SEARCH_SET set) const override;
  std::vector<wxString>* GetNamesOfAllCurrentlyDisplayedColumns() override;

  // ---- Visibility (…Visibility.cpp) --------------------------------------------------------------
  void HideOneSingleRowPerArbitraryUserRequest(unsigned long shownRow) override;
  void RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles() override;
  void HideOneSingleColumnPerArbitraryUserRequest(const wxString& name) override;
  void UnhideOneSingleColumnPerArbitraryUserRequest(const wxString& name) override;
  void MoveColumnPosition(const wxString& moved, const wxString& beforeWhich, bool trim) override;
  void HideEmptyColumnsBasedOnCurrentlyShownRows() override;
  void SetRowFlag(int shownRow, bool value) override;
  void ToggleRowFlag(int shownRow) override;
  bool GetRowFlagStatus(int shownRow) const override;
  bool DeleteAllRows_WhereField_Y_Matches_Z(const wxString& fieldY,
                                            const wxString& valueZ) override;
  bool DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      const wxString& fieldY, const std::deque<wxString>& valuesZ, bool notify) override;

  // Drops the cached answers that mention the red flag, and no others.
  void ClearRowRedFlagCacheMemory();
  // Examines 2000 cells at most in search of columns without any text, and continues there the next time.
  void PerformOneTimesliceOfEmptyColumnSearch();
  // The last row and column up to which the last notification left everything as it was; -1 for none.
  void GetOuterLimitsOfPreservedRange(int* row, int* column) const;

  // ---- Queries and their cache (…Queries.cpp) ----------------------------------------------------
  void SelectDistinctPerColumn(const wxString& column, std::vector<wxString>& values,
                               TARGETED_ROW_SEARCH_SET set, bool trim) const override;
  std::vector<wxString> GetAllFromCol_X_WhereField_Y_Matches_Z(const wxString& columnX,
                                                               const wxString& fieldY,
                                                               const wxString& valueZ,
                                                               bool includeAllRows) override;
  const std::vector<std::map<wxString, wxString>*>* GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
      const std::deque<wxString>& columnsX, const wxString& fieldY, const wxString& valueZ,
      bool includeAllRows) override;
  const std::list<unsigned long>* FindCurrentRowIndicesMatchingRowTruthPredicate(
      MUInterfaceRowTruthDecider* decider, bool includeAllRows) override;
  const std::list<unsigned long>* FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(
      MUInterfaceRowTruthDecider* decider, bool includeAllRows, int first, int last) override;
  const std::list<unsigned long>* FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
      MUInterfaceRowTruthDecider* decider, const std::list<unsigned long>& indices,
      bool includeAllRows) override;
  std::deque<wxString> FindColumnNamesByPropertyFlag(unsigned flags) const override;
  std::deque<wxString> FindColumnNamesWherePropertyFlagIsAbsent(unsigned flags) const override;
  std::deque<wxString> FindColumnNamesHavingFlagsX_andAbsentFlagsY(unsigned x,
                                                                   unsigned y) const override;
  std::list<CompactColumnInfoStruct> FindColumnInformationWherePropertyFlagIsAbsent(
      unsigned flags) override;
  std::list<unsigned long> FindCurrentRowIndicesByPropertyFlag(
      unsigned flags, TARGETED_ROW_SEARCH_SET set) const override;
  std::list<unsigned long> FindCurrentRowIndicesWherePropertyFlagIsAbsent(
      unsigned flags, TARGETED_ROW_SEARCH_SET set) const override;
  std::list<unsigned long> FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(
      unsigned x, unsigned y) const override;

  // Delete the lists that predicate searches gave out. The entries stay, to be filled again.
  void SafeClearCachesOfRowIndicesSetsPointers();
  void SafeClearStoredNonCachedConstPointers();

  // ---- Sorting (…Sorting.cpp) --------------------------------------------------------------------
  void SetSortColumn(const wxString& name, bool reverse) override;
  void GetSortColumnInfo(wxString& name, bool* reverse) const override;
  void RevertAnyAndAllSortOptions() override;

  // ---- File batches, observers and idle work (…Batches.cpp) --------------------------------------
  void SimultaneousFileRequestsAddAndRemove(
      const std::deque<DichotomousFileRequest>& requests) override;
  void SimultaneousFileRequestsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) override;
  bool AddObserver(MUInterfaceExperimentDataObserver* observer) const override;
  void OnIdle() override;
  // False when a further OnIdle would do nothing.
  bool IdleWorkRemains() const;

  // Tells every observer of the new shape, and then every one to repaint.
  void IterateThroughTheNotificationLoops();
  // Frees the lists from before the last notification.
  void IdleTimeFreeMemoryUsedForRowCopies();
  // Swaps the current lists with the previous ones.
  void RotateQueuedCopiesOfRowCollectionAndColCollection();

  // ---- Steps, each a hook for a derived viewer ---------------------------------------------------
  // The class calls them through the virtual table. Their order is that of the slots, so they stand here
  // together; behind each the source that holds it.
  virtual void NotifyMyObservers();  // Loading
  // Puts the table into its first state; called by the constructor. Always true.
  virtual bool PerformSetup(const wxFileName& unused);  // life
  // Takes the reader's columns over.
  virtual void MergeNewHeadingsWithOldHeadings(MUInterfaceExperimentDataFileInputReader* reader,
                                               const wxString& fullName);  // Loading
  // Takes the reader's rows over. A row whose key is taken replaces the old one, which is deleted.
  virtual void ExtractAll(MUInterfaceExperimentDataFileInputReader* reader);  // Loading
  virtual void EraseCachesOfQueries();                                        // Queries
  // Rebuild the lists of row keys, in load order or sorted.
  virtual void ResetKeysIntoCurrentRowsAll();                // Access
  virtual void ResetKeysUsingSortSettings();                 // Sorting
  virtual void EraseAllCachedStatefulOptimizedStoredData();  // Access
  // A column that none of the remaining files has is freed. These two do not notify.
  virtual void RemoveColumnsBasedOnFileName(const wxFileName& file);  // Batches
  virtual void RemoveColumnsBasedOnMultipleFileNames(
      const std::deque<wxString>& fullNames);  // Batches
  virtual void SuppressColumnsBasedOnMultipleFileNames(
      const std::deque<wxString>& fullNames);  // Visibility
  virtual void UnsuppressColumnsBasedOnMultipleFileNames(
      const std::deque<wxString>& fullNames);  // Loading
  virtual void SimultaneousRowsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests);  // Visibility
  virtual void SimultaneousColumnsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests);  // Visibility
  // Loads a file that is not known yet as an inactive one; the rest of the batch decides about it.
  virtual void LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(
      const wxFileName& file);                                              // Batches
  virtual void AddMultipleFiles(const std::deque<wxString>& fullNames);     // Batches
  virtual void RemoveMultipleFiles(const std::deque<wxString>& fullNames);  // Batches
  // The notification: all changes become visible.
  virtual void IdleTimeProcessAllNotifications();  // Loading
  // Whether the first column of that name, also a hidden one, has all of the bits.
  virtual bool CheckColumnForFlagBits(const wxString& name, unsigned int bits) const;  // life

 protected:
  using RowKeys = MURowKeyLists::RowKeys;
  using RowIndexList = std::list<unsigned long>;

  // For a derived viewer that hooks the steps; it may write all of it, rows and columns included. What queries
  // write is mutable.
  const RowIndexList m_emptyIndexList;  // the answer of a predicate search without rows to search
  std::deque<MUColumnNamePlusProperties*> m_columns;  // in display order; owned
  MURowStore m_rows;                                  // the rows are owned
  mutable std::list<MUCachingKeySelectedData> m_redFlagDependentKeys;
  unsigned long m_nextRowKey = 0;  // m_rows takes memory for all keys below it
  bool m_insertNewColumnsInPlace = true;
  bool m_notificationPending = false;
  mutable std::list<MUInterfaceExperimentDataObserver*> m_observers;  // not owned
  std::deque<TRI_STATE_TRUE_FALSE_UNKNOWN> m_columnHasText;  // one entry per displayed column
  wxUint32 m_emptySearchColumn = 0;
  wxUint32 m_emptySearchRow = 0;
  bool m_emptySearchFinished = false;
  mutable std::map<MUCachingKeySelectedData, MUSelectedTexts> m_cacheStringSelects;
  mutable std::map<MUCachingKeySelectedData, std::deque<wxString>> m_cacheColumnNames;
  mutable std::map<MUCachingKeySelectedData, RowIndexList> m_cacheRowIndicesByFlags;
  // A holder outlives the list that it points to: clearing nulls it, and the next search fills it again.
  mutable std::map<MUCachingKeySelectedData, const RowIndexList**> m_cacheRowIndexHolders;
  std::map<wxString, bool> m_files;  // every known file's full path, and whether it is active
  MUQueryCachingBroker* m_broker = nullptr;  // owned
  // The frozen size that queries by index see.
  unsigned long m_shownRowCount = 0;
  unsigned long m_shownColumnCount = 0;
  unsigned long m_activeRowCount = 0;
  RowKeys m_activeRowKeys;
  RowKeys m_allRowKeys;
  RowKeys m_givenRowKeys;
  // Two buffers each, so that the old lists survive until the new ones have been compared with them.
  RowKeys m_shownRowKeysA;
  RowKeys m_shownRowKeysB;
  RowKeys* m_currentShownRowKeys = nullptr;
  RowKeys* m_previousShownRowKeys = nullptr;
  std::vector<wxString> m_columnNamesA;
  std::vector<wxString> m_columnNamesB;
  std::vector<wxString>* m_currentColumnNames = nullptr;
  std::vector<wxString>* m_previousColumnNames = nullptr;
  std::deque<wxString> m_scratchFileNames;  // reused argument of calls for one file
  MUInterfaceStatusTextPrinterManager* m_statusPrinter = nullptr;  // not owned
  long m_lastStatusMessageId = -1;
  wxString m_sortColumnName;  // empty: not sorted
  bool m_sortReverse = false;
  bool m_sortRanSinceNotification = false;
  unsigned long m_sortMilliseconds = 0;
  MUInterfaceDataFileInputErrorHandler* m_errorHandler;  // not owned
  mutable std::list<const RowIndexList**> m_nonCachedHolders;

 private:
  // Loading
  bool AddExperimentOcurrence_private(const wxFileName& file, bool notify, bool simulateIdle,
                                      wxFile* openFile);
  // Access
  MUColumnNamePlusProperties* FindColumn(const wxString& name) const;
  MUSingleRowDataPlusRowProperties* FindShownRow(int shownRow) const;
  const RowKeys* KeysOfSet(TARGETED_ROW_SEARCH_SET set) const;
  bool SortColumnHasAnActiveFile() const;
  bool RowsAreOurs() const;
  MURowKeyLists KeyLists() { return {m_allRowKeys, m_activeRowKeys, *m_currentShownRowKeys}; }
  // Queries
  void NoteRedFlagDependence(const MUCachingKeySelectedData& key, unsigned flags) const;
  const RowIndexList* InternalFindCurrentRowIndicesMatchingRowTruthPredicate(
      MUInterfaceRowTruthDecider* decider, TARGETED_ROW_SEARCH_SET set, unsigned long first,
      unsigned long last);
  void SafeStoreNewValueInCachesOfRowIndicesSetsPointers(const MUCachingKeySelectedData& key,
                                                         const RowIndexList* indices);
  void SafeStoreNonCachedConstPointerToDeleteLater(const RowIndexList* indices);
  MUSelectedTexts DistinctTexts(const wxString& column, const RowKeys& keys, bool trim) const;
  MURowKeySet RowsWhere(const wxString& column, const wxString& text, const RowKeys& keys) const;
  // Sorting
  void DropAnswersThatDependOnRowOrder();
  // Batches
  void DeleteColumnsWithoutFile();

  bool m_columnsAreOurs = true;  // no reader that may keep its columns has handed them over
  // Every file of which this class has suppressed a column's share, and perhaps some whose shares are live again.
  MUFileNames m_filesThatWereSuppressed;
  mutable MUColumnTexts m_columnTexts{CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED};
  mutable MULoadOrder m_loadOrder;  // of the three lists of row keys
};

#endif
