#include "Tabulon/src/table/MUColumnMerge.h"

#include <iterator>
#include <list>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"

namespace {

using ColumnList = std::list<MUColumnNamePlusProperties*>;

// The list is taken as a ring: behind its end comes its head again.
ColumnList::iterator NextInRing(ColumnList& list, ColumnList::iterator place) {
  return place == list.end() ? list.begin() : std::next(place);
}

FileStatusStruct LiveStatusOf(const wxString& fileName) {
  FileStatusStruct status;
  status.m_fullFileName = fileName;
  status.m_suppressed = 0;
  return status;
}

}  // namespace

void MergeColumnOrders(std::deque<MUColumnNamePlusProperties*>& columns,
                       std::deque<MUColumnNamePlusProperties*>& arrivals, const wxString& fileName,
                       bool insertInPlace) {
  ColumnList merged(columns.begin(), columns.end());
  // Columns before the dummy are outside of the search: what a file brings before any known column keeps
  // its order there.
  MUColumnNamePlusProperties dummyColumn;
  const auto dummy = merged.insert(merged.begin(), &dummyColumn);
  auto searchStart = dummy;
  auto insertionPoint = insertInPlace ? dummy : merged.end();

  while (!arrivals.empty()) {
    MUColumnNamePlusProperties* arrival = arrivals.front();
    auto hit = searchStart;
    while (hit != merged.end() && (*hit)->m_columnName != arrival->m_columnName) ++hit;
    const bool noStepTaken = hit == searchStart;
    if (hit != merged.end()) {
      (*hit)->m_fileStatuses.push_back(LiveStatusOf(fileName));
      insertionPoint = std::next(hit);
      delete arrival;
    } else if (insertInPlace) {
      merged.insert(insertionPoint, arrival);
    } else {
      merged.push_back(arrival);
      insertionPoint = merged.end();
    }
    if (noStepTaken) searchStart = NextInRing(merged, searchStart);
    arrivals.pop_front();
  }

  merged.erase(dummy);
  columns.assign(merged.begin(), merged.end());
}
