// By what rows are sorted, and the sorting that the table does not do: as numbers and by several keys.
#ifndef OMBRELIA_TABULON_CLI_SORTKEYS_H
#define OMBRELIA_TABULON_CLI_SORTKEYS_H

#include <string>
#include <vector>

#include "Tabulon/cli/Columns.h"
#include "Tabulon/cli/Inputs.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace TabulonCli {

using DataRow = MUSingleRowDataPlusRowProperties;

struct SortKey {
  const Column* column = nullptr;
  bool descending = false;
  bool asNumbers = false;
};

// "a,-b,c:n": by a, then by b descending, then by c as numbers. A column's whole name comes before the signs,
// and it may hold commas. Ends the run (WrongUse) at an unknown column.
std::vector<SortKey> ParseSortKeys(const std::string& typed, const Columns& columns);

// The shown rows of the table in the order of the keys; rows that are equal in all of them stay in load order.
//
// A key that is a column of the table has the table's own order. As numbers, a cell that is no number comes after
// all numbers, in either direction. The path and the other columns of origin are ordered character by character,
// lines as numbers. The table is left sorted by the one key, if it can do that, or else unsorted.
std::vector<DataRow*> SortedRows(MUExperimentTextReaderMultiFile& table,
                                 const std::vector<SortKey>& keys, const Inputs& inputs);

// The shown rows in the table's present order.
std::vector<DataRow*> ShownRows(const MUExperimentTextReaderMultiFile& table);

}  // namespace TabulonCli

#endif
