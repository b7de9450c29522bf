// One data row: its cells by column name, their sort keys, its flags and its places in the table.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUSINGLEROWDATAPLUSROWPROPERTIES_H
#define OMBRELIA_TABULON_SRC_ROWS_MUSINGLEROWDATAPLUSROWPROPERTIES_H

#include <cstddef>
#include <cstdint>

#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/rows/MUPropertyFlags.h"
#include "Tabulon/src/rows/MURowMap.h"
#include "Tabulon/src/rows/MURowText.h"

// Effect: one row's record. A reader makes rows; the table owns and deletes them. A row made by the default
// constructor is a plain record that is filled through its maps.
// Cost: 64 bytes a row. Fast reading, without a copy: if HasOverlay() is false and Block() is not null, the
// row's cell in a column is CellAt(Block()->PositionOf(name)). A position that was found holds for all rows of
// the block; a name that was not found may get one, as the block gains columns while its rows are made. A name
// that Block()->FindHiddenCell knows has the hidden text instead, but the cell's
// sort keys.
// Lifetime: what the maps and CellAt lend holds until the row dies, is assigned to, or the entry is erased.
// Copies are independent of each other but share the block of the file.
// Threads: one at a time for all rows of a file; reading a map by reference writes to the row.
// Failure: a position that the row lacks has an empty text and no sort keys, which read as 0.0 and false.
struct MUSingleRowDataPlusRowProperties : MURowMaps {
  static constexpr unsigned long NO_INDEX = static_cast<unsigned long>(-1);
  static constexpr double NO_REACTION_TIME = -999999.0;

  MUSingleRowDataPlusRowProperties() = default;
  // columnCount: number of columns that the block has when the row is read.
  MUSingleRowDataPlusRowProperties(const MUDataFileBlockPtr& block, std::size_t row,
                                   std::size_t columnCount)
      : MURowMaps(block, row, columnCount) {}

  // Rows of one file lie side by side.
  static void* operator new(std::size_t bytes) { return MUAllocatePooled(bytes); }
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* row, std::size_t bytes) noexcept { MUFreePooled(row, bytes); }

  // Null for a row that was made by hand.
  const MUDataFileBlock* Block() const { return m_text.Block(); }
  // True once an entry was put into a map or asked for by reference: then only the maps tell the truth.
  bool HasOverlay() const { return m_text.Overlays() != nullptr; }
  // The text of the cell at a position of the block; empty beyond the line's last cell. Any position
  // may be asked for, MUDataFileBlock::NOT_FOUND included.
  MUCellText CellAt(std::size_t position) const { return m_text.Cell(position); }

  std::uint32_t m_rowPropertyFlags = 0;  // bits of MU_ROW_FLAG
  unsigned long m_rowKey = NO_INDEX;
  unsigned long m_indexAmongAllRows = NO_INDEX;
  unsigned long m_indexAmongActiveRows = NO_INDEX;
  unsigned long m_indexAmongShownRows = NO_INDEX;
  double m_reactionTime = NO_REACTION_TIME;  // milliseconds
};

#endif
