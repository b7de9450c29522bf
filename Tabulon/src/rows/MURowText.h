// What a row knows of its text: the block of its file and its line in it.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "Tabulon/src/rows/MUDataFileBlock.h"

struct MURowOverlays;

// Effect: leads from a row to the cells of its line, and to the row's own entries.
// Cost: 24 bytes a row. A copy shares the block and copies the row's own entries.
// Lifetime: shares the ownership of the block and owns the entries; what is borrowed holds until the row
// dies, is assigned to, or the entry is erased.
// Threads: one at a time for all rows of a block; a const MakeOverlays writes to the row and the block.
// Failure: any row and position may be asked for and is then empty; only memory can run out.
class MURowText {
 public:
  // Without a block: a row whose maps hold what is put into them and nothing else.
  MURowText() : m_overlays(nullptr), m_row(0), m_columnCount(0) {}
  // columnCount: columns that were known when the row was read; later ones are not the row's.
  MURowText(const MUDataFileBlockPtr& block, std::size_t row, std::size_t columnCount)
      : m_block(block),
        m_overlays(nullptr),
        m_row(static_cast<std::uint32_t>(row)),
        m_columnCount(static_cast<std::uint32_t>(columnCount)) {}
  MURowText(const MURowText& other);
  MURowText& operator=(const MURowText& other);
  ~MURowText();

  // Null for a row that was made by hand.
  const MUDataFileBlock* Block() const { return m_block.get(); }
  std::size_t RowInBlock() const { return m_row; }
  std::size_t ColumnCount() const { return m_columnCount; }
  // Cells of the row's line; the columns beyond have an empty text and no sort keys.
  std::size_t CellCount() const { return m_block ? m_block->CellCount(m_row) : 0; }
  MUCellText Cell(std::size_t position) const {
    return m_block ? m_block->Cell(m_row, position) : MUCellText();
  }

  // The entries that were put into the row's maps or asked for by reference; null if there are none.
  const MURowOverlays* Overlays() const { return m_overlays; }
  // The same, made if there are none; the first call of a row changes its block's VersionOfRows.
  MURowOverlays& MakeOverlays() const;
  // Gives entries to a row of a block that has none of its own; changes the block's VersionOfRows, too.
  void LendOverlays(std::unique_ptr<MURowOverlays> overlays) const;
  // Removes all entries; the block returns to that version. The row must have had no entries then, and the block
  // must have seen no other change since.
  std::unique_ptr<MURowOverlays> TakeOverlaysBack(unsigned long version) const;

 private:
  MUDataFileBlockPtr m_block;
  mutable MURowOverlays* m_overlays;
  std::uint32_t m_row;
  std::uint32_t m_columnCount;
};

#endif
