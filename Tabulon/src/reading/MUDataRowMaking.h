// What both readers do alike to make a row of a line.
//
// Cost: constant for a row, and a name for each cell beyond the headings.
// Lifetime: a row shares its block; all other arguments are borrowed for the call.
// Threads: one at a time for a block and its rows.
// Failure: throws std::bad_alloc, and what make throws. row must be below the block's count of rows.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAROWMAKING_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAROWMAKING_H

#include <cstddef>

#include "Tabulon/src/reading/MUDataFileColumns.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUCellText.h"

struct MUSingleRowDataPlusRowProperties;
class MUPooledPieces;

// Whether the row has cells beyond the block's last column.
inline bool MUHasCellsBeyondHeadings(const MUDataFileBlock& block, std::size_t row) {
  return block.CellCount(row) > block.ColumnCount();
}

// Gives the cells of the row that lie beyond the block's last column new columns, named after a missing heading.
// namesInUse holds all names of the block, before and after. The new columns are appended to columns as well, to
// which they then belong, unless that is null.
void MUAppendColumnsForCellsBeyondHeadings(MUDataFileBlock* block, std::size_t row,
                                           MUUniqueNameIndex* namesInUse, const MUColumnMaker& make,
                                           MUColumns* columns);

// A new row over all columns that the block has now; the caller deletes it. It shares the block. Its reaction time
// is that of the cell at reactionTimePosition, which may be MUDataFileBlock::NOT_FOUND. places: of a row's size.
MUSingleRowDataPlusRowProperties* MUNewRow(const MUDataFileBlockPtr& block, std::size_t row,
                                           std::size_t reactionTimePosition,
                                           MUPooledPieces* places);

// The cell as a number of milliseconds, as wxString's own conversion reads it in the current locale. A cell that is
// not a number as a whole gives MUSingleRowDataPlusRowProperties::NO_REACTION_TIME.
double MUReactionTimeOf(const MUCellText& cell);

#endif
