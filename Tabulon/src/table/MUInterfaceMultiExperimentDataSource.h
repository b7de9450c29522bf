// The read and visibility side of the merged table, as a viewer and the verifiers see it.
//
// Effect: queries by index answer from lists that are frozen at the last notification. Changes only set flags
// and become visible at the next one. Rows and columns count from 0.
// Cost: plain access takes constant time. A repeated query is one look-up until the next notification; a new
// one walks rows or columns. A notification walks over all rows; in the table itself, not a derived one, it
// walks over those that arrived if no other row can have changed.
// Lifetime: results by value are the caller's. Results by pointer are borrowed until the next notification
// or change of sort, and must not be held across the event loop, which may run one.
// Threads: one, that of the event loop. Const operations write caches and are not safe side by side.
// Failure: unknown names and indices out of range, negative ones included, are skipped or answered with "?",
// null or an empty list. Nothing is thrown but by memory that runs out.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEMULTIEXPERIMENTDATASOURCE_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEMULTIEXPERIMENTDATASOURCE_H

#include <wx/string.h>

#include <deque>
#include <list>
#include <map>
#include <vector>

#include "Tabulon/src/queries/MUQueryWords.h"
#include "Tabulon/src/table/CompactColumnInfoStruct.h"

class MUInterfaceExperimentDataObserver;
class MUInterfaceRowTruthDecider;
class MUInterfaceStatusTextPrinterManager;
struct MUSingleRowDataPlusRowProperties;

class MUInterfaceMultiExperimentDataSource : public MUQueryWords {
 public:
  virtual ~MUInterfaceMultiExperimentDataSource() = default;

  // Full paths, in order.
  virtual std::vector<wxString> GetNamesOfActiveFiles() const = 0;

  // Visibility. All of these ask for a notification and are seen after it. To ask sets a pending bit; lists and
  // observers hear of changes when the table next works the bit off. Where no such column is found, or none is
  // empty, nothing is asked for.
  virtual void HideOneSingleRowPerArbitraryUserRequest(unsigned long shownRow) = 0;
  virtual void RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles() = 0;
  virtual void HideOneSingleColumnPerArbitraryUserRequest(const wxString& name) = 0;
  virtual void UnhideOneSingleColumnPerArbitraryUserRequest(const wxString& name) = 0;
  // Puts the column before another one, or at the end if there is no such other column. With trim, names
  // are compared without the blanks on their left side.
  virtual void MoveColumnPosition(const wxString& moved, const wxString& beforeWhich,
                                  bool trim) = 0;
  // Hides the displayed columns whose cells in the shown rows are all empty or blank.
  virtual void HideEmptyColumnsBasedOnCurrentlyShownRows() = 0;

  // The user's mark on a shown row; it has no effect on visibility and is seen at once.
  virtual void SetRowFlag(int shownRow, bool value) = 0;
  virtual void ToggleRowFlag(int shownRow) = 0;
  virtual bool GetRowFlagStatus(int shownRow) const = 0;

  virtual bool IsColumnTrialVarColumn(const wxString& name) const = 0;
  virtual bool IsColumnCodeValColulmn(const wxString& name) const = 0;

  // Sorting. The order changes at once; observers are not told.
  virtual void SetSortColumn(const wxString& name, bool reverse) = 0;
  virtual void GetSortColumnInfo(wxString& name, bool* reverse) const = 0;
  virtual void RevertAnyAndAllSortOptions() = 0;

  // Plain access to the displayed columns of the fully shown rows.
  virtual int GetColumnPositionNumberFromText(
      const wxString& name) const = 0;  // -1 if not displayed
  virtual int GetNumberOfDataRows() const = 0;
  virtual int GetNumberOfDataColumns() const = 0;
  virtual wxString GetDataCellValue(int row, int column) const = 0;
  virtual wxString GetColumnNameText(int column) const = 0;
  // Borrowed until the row is deleted. Flags that are written through it are seen after the next
  // notification. Null for an index out of range, a deleted row, and CALLER_GIVEN_ROWS.
  virtual MUSingleRowDataPlusRowProperties* GetRowByRowIndexAndVisibilityFilter(
      unsigned long index, TARGETED_ROW_SEARCH_SET set) const = 0;

  // Values and row indices.
  //
  // Replaces values by each text once, in the order of its first appearance. With trim, blanks on both sides
  // do not count.
  virtual void SelectDistinctPerColumn(const wxString& column, std::vector<wxString>& values,
                                       TARGETED_ROW_SEARCH_SET set, bool trim) const = 0;
  virtual std::vector<wxString> GetAllFromCol_X_WhereField_Y_Matches_Z(const wxString& columnX,
                                                                       const wxString& fieldY,
                                                                       const wxString& valueZ,
                                                                       bool includeAllRows) = 0;
  // One map per row, with an entry for each of the columns. SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS as the
  // value matches every row.
  virtual const std::vector<std::map<wxString, wxString>*>*
  GetAllFromMultiCols_X_WhereField_Y_Matches_Z(const std::deque<wxString>& columnsX,
                                               const wxString& fieldY, const wxString& valueZ,
                                               bool includeAllRows) = 0;
  // Indices among all rows or among the fully shown ones. first and last are inclusive; a negative first
  // means the first row, a negative last the last one, and either past the end gives no rows at all.
  virtual const std::list<unsigned long>* FindCurrentRowIndicesMatchingRowTruthPredicate(
      MUInterfaceRowTruthDecider* decider, bool includeAllRows) = 0;
  virtual const std::list<unsigned long>* FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(
      MUInterfaceRowTruthDecider* decider, bool includeAllRows, int first, int last) = 0;
  virtual const std::list<unsigned long>*
  FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
      MUInterfaceRowTruthDecider* decider, const std::list<unsigned long>& indices,
      bool includeAllRows) = 0;

  // Deleting rows. Both answer true. The first asks for a notification, the second only where notify is true.
  // Until a notification has run, the lists still count the deleted rows.
  virtual bool DeleteAllRows_WhereField_Y_Matches_Z(const wxString& fieldY,
                                                    const wxString& valueZ) = 0;
  virtual bool DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      const wxString& fieldY, const std::deque<wxString>& valuesZ, bool notify) = 0;

  // Borrowed until the next notification. A caller that writes a name into it reads that column's cells and name.
  virtual std::vector<wxString>* GetNamesOfAllCurrentlyDisplayedColumns() = 0;

  // Searches by property flags: all of the given bits set, none of them set, or all of x and none of y.
  virtual std::deque<wxString> FindColumnNamesByPropertyFlag(unsigned flags) const = 0;
  virtual std::deque<wxString> FindColumnNamesWherePropertyFlagIsAbsent(unsigned flags) const = 0;
  virtual std::deque<wxString> FindColumnNamesHavingFlagsX_andAbsentFlagsY(unsigned x,
                                                                           unsigned y) const = 0;
  virtual std::list<CompactColumnInfoStruct> FindColumnInformationWherePropertyFlagIsAbsent(
      unsigned flags) = 0;
  // The row's index among the rows of the set.
  virtual std::list<unsigned long> FindCurrentRowIndicesByPropertyFlag(
      unsigned flags, TARGETED_ROW_SEARCH_SET set) const = 0;
  virtual std::list<unsigned long> FindCurrentRowIndicesWherePropertyFlagIsAbsent(
      unsigned flags, TARGETED_ROW_SEARCH_SET set) const = 0;
  // The row's index among all rows.
  virtual std::list<unsigned long> FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(
      unsigned x, unsigned y) const = 0;

  // The observer is not owned and must outlive the table. Always true; added twice, it is told twice.
  virtual bool AddObserver(MUInterfaceExperimentDataObserver* observer) const = 0;
  // To be called from the viewer's event loop while it is idle.
  virtual void OnIdle() = 0;
  // Not owned; null for no status texts.
  virtual void SetLinkToStatusBar(MUInterfaceStatusTextPrinterManager* printer) = 0;
};

#endif
