// A walk over one column of all rows.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNWALK_H
#define OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNWALK_H

#include <wx/string.h>

#include <cstddef>

#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MURowStore.h"

// Effect: calls action(key, text) for the column's cell in every row, in key order.
// Cost: rows that are mere lines of a file are not looked at, only the file's text is, as it lies in memory.
// Lifetime: a text is borrowed until the cell is written or the row deleted; the action must do neither.
// Threads: one at a time for the rows.
// Failure: a cell that is not there is an empty text. Throws std::bad_alloc and what action throws.
template <typename ACTION>
void MUForEachCell(const MURowStore& rows, const wxString& column, ACTION action) {
  MUColumnReader reader(column);
  for (const MURowStore::Run& run : rows.Runs()) {
    unsigned long key = run.firstKey;
    if (run.block != nullptr && run.block->FindHiddenCell(column) == nullptr) {
      run.block->ForEachCell(run.block->PositionOf(column), run.firstRow, run.LineOf(run.endKey),
                             [&](const MUCellText& text, bool) { action(key++, text); });
    } else {
      for (; key != run.endKey; ++key) action(key, reader.TextOf(*rows.find(key)));
    }
  }
}

#endif
