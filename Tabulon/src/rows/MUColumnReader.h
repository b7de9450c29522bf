// Reads one column's cells, row after row, without a copy.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNREADER_H
#define OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNREADER_H

#include <wx/string.h>

#include <cstddef>
#include <optional>
#include <unordered_map>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/text/MUCellText.h"

// Effect: reads the cells of one column in any rows, hidden cells like any other.
// Cost: looks the column up once per file; then each cell takes constant time. A row with own entries is searched.
// Lifetime: what it answers is borrowed from the row: valid until the cell is written or the row deleted. While the
// reader is in use, no row may be deleted and no file may gain a column.
// Threads: one.
// Failure: a row without such a cell has the empty text. Throws std::bad_alloc.
class MUColumnReader {
 public:
  explicit MUColumnReader(const wxString& name) : m_name(name) {}

  // The text of the row's cell; empty if the row has no such cell.
  MUCellText TextOf(const MUSingleRowDataPlusRowProperties& row) {
    if (row.Block() == nullptr || row.HasOverlay()) return TextOfRecord(row);
    if (row.Block() != m_block) LookUpIn(*row.Block());
    return m_hiddenText != nullptr ? ViewOf(*m_hiddenText) : row.CellAt(m_position);
  }

  // The cell's text in the file's line, ignoring the row's own entries. No value if the column was unknown when the
  // row was read. The row must have a block.
  std::optional<MUCellText> TextInLine(const MUSingleRowDataPlusRowProperties& row) {
    if (row.Block() != m_block) LookUpIn(*row.Block());
    if (m_hiddenText != nullptr) return ViewOf(*m_hiddenText);
    if (m_position >= row.m_text.ColumnCount()) return std::nullopt;
    return row.CellAt(m_position);
  }

  // The text of the cell in a line of a file, whose row must be a mere view of it.
  MUCellText TextOf(const MUDataFileBlock& block, std::size_t line) {
    if (&block != m_block) LookUpIn(block);
    return m_hiddenText != nullptr ? ViewOf(*m_hiddenText) : block.Cell(line, m_position);
  }

  // Prefetches what TextOf will read of a later line, if that is in the file that was met last.
  void Prefetch(const MUDataFileBlock& block, std::size_t line) const {
    block.PrefetchCell(line, m_position);
  }

  // A view of the text, valid as long as that is neither changed nor deleted.
  static MUCellText ViewOf(const wxString& text) { return {text.wc_str(), text.length()}; }

 private:
  MUCellText TextOfRecord(const MUSingleRowDataPlusRowProperties& row) const;
  void LookUpIn(const MUDataFileBlock& block);

  struct Place {
    std::size_t position;
    const wxString* hiddenText;
  };

  const wxString m_name;
  std::unordered_map<const MUDataFileBlock*, Place> m_places;  // in the files that were met so far
  // The file that was met last.
  const MUDataFileBlock* m_block = nullptr;
  std::size_t m_position = MUDataFileBlock::NOT_FOUND;
  const wxString* m_hiddenText = nullptr;
};

#endif
