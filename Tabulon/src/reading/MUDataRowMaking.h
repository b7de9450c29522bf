// What both readers do alike to make a row of a line.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAROWMAKING_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAROWMAKING_H

#include <cstddef>

#include "Tabulon/src/reading/MUDataFileColumns.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUCellText.h"

struct MUSingleRowDataPlusRowProperties;

// Sees to it that every cell of the row has a column: those beyond the block's last column get new ones
// named after a missing heading. namesInUse holds all names of the block, before and after. The new
// columns are appended to columns as well, unless that is null.
void MUAppendColumnsForCellsBeyondHeadings(MUDataFileBlock* block, std::size_t row,
                                           MUUniqueNameIndex* namesInUse, const MUColumnMaker& make,
                                           MUColumns* columns);

// A new row, the caller's, over all columns that the block has now. Its reaction time is that of the
// cell at reactionTimePosition, which may be MUDataFileBlock::NOT_FOUND.
MUSingleRowDataPlusRowProperties* MUNewRow(const MUDataFileBlockPtr& block, std::size_t row,
                                           std::size_t reactionTimePosition);

// The cell as a number of milliseconds, as wxString's own conversion reads it in the current locale;
// MUSingleRowDataPlusRowProperties::NO_REACTION_TIME if any of it is no number.
double MUReactionTimeOf(const MUCellText& cell);

#endif
