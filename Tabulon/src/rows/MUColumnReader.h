// Reads one column's cells, row after row, without a copy.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNREADER_H
#define OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNREADER_H

#include <wx/string.h>

#include <cstddef>
#include <unordered_map>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/text/MUCellText.h"

// Looks the column up once per file instead of once per row. A hidden cell is read like any other. For the
// time of one walk over rows: none of them may be deleted while the reader is in use.
class MUColumnReader {
 public:
  explicit MUColumnReader(const wxString& name) : m_name(name) {}

  // Empty if the row has no such cell. Borrowed: valid until the cell is written or the row deleted.
  MUCellText TextOf(const MUSingleRowDataPlusRowProperties& row) {
    if (row.Block() == nullptr || row.HasOverlay()) return TextOfRecord(row);
    if (row.Block() != m_block) LookUpIn(*row.Block());
    return m_hiddenText != nullptr ? ViewOf(*m_hiddenText) : row.CellAt(m_position);
  }

  // The row's place of the cell in its file's block, if the row is nothing but a view of that block and
  // the cell is not a hidden one; else false, and only the row's maps can tell.
  bool FindPosition(const MUSingleRowDataPlusRowProperties& row, std::size_t& position) {
    if (row.Block() == nullptr || row.HasOverlay()) return false;
    if (row.Block() != m_block) LookUpIn(*row.Block());
    position = m_position;
    return m_hiddenText == nullptr;
  }

  // A view of a text, which must outlive it.
  static MUCellText ViewOf(const wxString& text) { return {text.wc_str(), text.length()}; }

 private:
  MUCellText TextOfRecord(const MUSingleRowDataPlusRowProperties& row) const;
  void LookUpIn(const MUDataFileBlock& block);

  struct Place {
    std::size_t position;
    const wxString* hiddenText;
  };

  const wxString m_name;
  std::unordered_map<const MUDataFileBlock*, Place> m_places;  // of the files that were read so far
  // The last one of them.
  const MUDataFileBlock* m_block = nullptr;
  std::size_t m_position = MUDataFileBlock::NOT_FOUND;
  const wxString* m_hiddenText = nullptr;
};

#endif
