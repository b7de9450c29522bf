// What a row knows of its text: the block of its file and its line in it.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "Tabulon/src/rows/MUDataFileBlock.h"

struct MURowOverlays;

// Effect: leads from a row to the cells of its line, and to the row's own entries.
// Cost: 16 bytes a row. A copy shares the block and copies the row's own entries.
// Lifetime: shares the ownership of the block and owns the entries; what is borrowed holds until the row
// dies, is assigned to, or the entry is erased.
// Threads: one at a time for all rows of a block; a const MakeOverlays writes to the row and the block.
// Failure: any row and position may be asked for and is then empty; only memory can run out.
class MURowText {
 public:
  // Without a block: a row whose maps hold what is put into them and nothing else.
  MURowText() : MURowText(nullptr, 0, 0) {}
  // columnCount: columns that were known when the row was read; later ones are not the row's.
  MURowText(const MUDataFileBlockPtr& block, std::size_t row, std::size_t columnCount) {
    m_place.block = block.get();
    if (m_place.block != nullptr) intrusive_ptr_add_ref(m_place.block);
    m_place.row = static_cast<std::uint32_t>(row);
    m_place.columnCount = columnCount & 0x7FFFFFFF;
    m_place.hasOverlays = 0;
  }
  MURowText(const MURowText& other);
  MURowText& operator=(const MURowText& other);
  ~MURowText();

  // Null for a row that was made by hand.
  const MUDataFileBlock* Block() const {
    return m_place.hasOverlays ? BlockBesideOverlays() : m_place.block;
  }
  std::size_t RowInBlock() const { return m_place.row; }
  std::size_t ColumnCount() const { return m_place.columnCount; }
  // Cells of the row's line; the columns beyond have an empty text and no sort keys.
  std::size_t CellCount() const {
    const MUDataFileBlock* const block = Block();
    return block != nullptr ? block->CellCount(m_place.row) : 0;
  }
  MUCellText Cell(std::size_t position) const {
    const MUDataFileBlock* const block = Block();
    return block != nullptr ? block->Cell(m_place.row, position) : MUCellText();
  }

  // The entries that were put into the row's maps or asked for by reference; null if there are none.
  const MURowOverlays* Overlays() const { return m_place.hasOverlays ? m_place.overlays : nullptr; }
  // The same, made if there are none; the first call of a row changes its block's VersionOfRows.
  MURowOverlays& MakeOverlays() const;
  // Gives entries to a row that has none of its own; changes its block's VersionOfRows, too.
  void LendOverlays(std::unique_ptr<MURowOverlays> overlays) const;
  // Removes all entries; the block returns to that version. The row must have had no entries then, and the block
  // must have seen no other change since.
  std::unique_ptr<MURowOverlays> TakeOverlaysBack(unsigned long version) const;

 private:
  // Few rows have entries of their own, so these stand in the place of the block and lead to it.
  struct Place {
    union {
      const MUDataFileBlock* block;  // counted; may be null
      MURowOverlays* overlays;       // owned
    };
    std::uint32_t row;
    std::uint32_t columnCount : 31;
    std::uint32_t hasOverlays : 1;
  };

  const MUDataFileBlock* BlockBesideOverlays() const;

  mutable Place m_place;
};

#endif
