#include "Tabulon/src/MURowSort.h"

#include <algorithm>

#include "Tabulon/src/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/MUSortFunctors.h"

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;

void SortByReactionTime(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse) {
  if (reverse) {
    std::stable_sort(begin, end, CustomComparatorByRowReactionTimeFunctorReverse(column));
  } else {
    std::stable_sort(begin, end, CustomComparatorByRowReactionTimeFunctor(column));
  }
}

void SortAscending(MURowIterator begin, MURowIterator end, const wxString& column) {
  const RowCompareLessStringCompare byText(column);
  const auto endOfFitting =
      std::stable_partition(begin, end, CustomUnPredCellTextFitsInHash(column));
  std::stable_sort(endOfFitting, end, byText);
  if (endOfFitting == begin) return;
  std::stable_sort(begin, end, CustomComparatorCellTextHash03(column));
  std::stable_sort(begin, end, CustomComparatorCellTextHash02(column));
  std::stable_sort(begin, end, CustomComparatorCellTextHash01(column));
}

void SortDescending(MURowIterator begin, MURowIterator end, const wxString& column) {
  const RowCompareLessStringCompareReverse byText(column);
  const auto endOfLong =
      std::stable_partition(begin, end, CustomUnPredCellTextFitsInHashReverse(column));
  std::stable_sort(begin, endOfLong, byText);
  if (endOfLong == end) return;
  std::stable_sort(begin, end, CustomComparatorCellTextHash03Reverse(column));
  std::stable_sort(begin, end, CustomComparatorCellTextHash02Reverse(column));
  std::stable_sort(begin, end, CustomComparatorCellTextHash01Reverse(column));
}

}  // namespace

void SortRowsByPasses(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse) {
  if (reverse) {
    SortDescending(begin, end, column);
  } else {
    SortAscending(begin, end, column);
  }
}

void SortRows(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse) {
  if (column == Reader::GetStandardizedDataFileStringValue(Reader::RTIME_COLUMN_HEADING)) {
    SortByReactionTime(begin, end, column, reverse);
  } else {
    SortRowsByPasses(begin, end, column, reverse);
  }
}
