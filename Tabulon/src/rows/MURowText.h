// What a row knows of its text: the block of its file and its place in it.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWTEXT_H

#include <cstddef>
#include <cstdint>

#include "Tabulon/src/rows/MUDataFileBlock.h"

struct MURowOverlays;

// Copying copies what was changed in the row and shares the block.
class MURowText {
 public:
  // No block: a row whose maps hold what is put into them and nothing else.
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

  // The entries of the row's maps that were asked for by reference or put in; null if none.
  const MURowOverlays* Overlays() const { return m_overlays; }
  MURowOverlays& MakeOverlays() const;
  // Another number whenever any row has got its first entry, or has become another one.
  static unsigned long VersionOfOverlays();

 private:
  MUDataFileBlockPtr m_block;
  mutable MURowOverlays* m_overlays;
  std::uint32_t m_row;
  std::uint32_t m_columnCount;
};

#endif
