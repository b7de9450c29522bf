// The text of one data file, stored once for all its rows.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCK_H
#define OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCK_H

#include <wx/string.h>

#include <algorithm>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/text/MUCellText.h"

// Holds the cells of all data rows of one file as one run of characters with an offset for each cell. It also
// holds the names of the columns by position, and the hidden cells, which are the same on every row. Rows and
// positions are counted from 0, data rows only.
//
// Cost: a cell is found in constant time and never copied; a column's name in the logarithm of their number.
// Lifetime: rows and the reader share the block by reference count, and it is deleted with the last of them. The
// views that Cell gives are valid as long as the block.
// Threads: the count is not atomic, so a block and all that share it belong to one thread.
// Failure: std::bad_alloc where names or hidden cells are stored; a place that does not exist has no cell.
class MUDataFileBlock {
 public:
  using HiddenCell = std::pair<wxString, wxString>;
  static constexpr std::size_t NOT_FOUND = static_cast<std::size_t>(-1);

  MUDataFileBlock();
  MUDataFileBlock(const MUDataFileBlock&) = delete;
  MUDataFileBlock& operator=(const MUDataFileBlock&) = delete;

  std::size_t RowCount() const { return m_rows.size() - 1; }
  // Number of cells in the row's line; 0 for an unknown row.
  std::size_t CellCount(std::size_t row) const {
    return row < RowCount() ? m_rows[row + 1].firstCell - m_rows[row].firstCell : 0;
  }
  // The cell's text; an empty one for an unknown row and beyond the row's last cell.
  MUCellText Cell(std::size_t row, std::size_t position) const {
    if (position >= CellCount(row)) return MUCellText();
    const Row& place = m_rows[row];
    const std::size_t cell = place.firstCell + position;
    const std::size_t start = position == 0 ? 0 : CellEnd(cell - 1) + 1;
    const std::size_t offset = place.textStart + start;
    const std::size_t length = CellEnd(cell) - start;
    return m_isWide ? MUCellText(m_wideText.data() + offset, length)
                    : MUCellText(m_narrowText.data() + offset, length);
  }
  // Calls action(text, isThere) for the cell at the position in each of the rows from firstRow up to endRow, which
  // is not one of them. isThere: whether the row's line reaches to the position; the text is empty where it does
  // not. The rows must be the block's; any position will do.
  template <typename ACTION>
  void ForEachCell(std::size_t position, std::size_t firstRow, std::size_t endRow,
                   ACTION action) const {
    const auto walk = [&](const auto& text, const auto& cellEnds) {
      for (std::size_t row = firstRow; row != endRow; ++row) {
        const Row& place = m_rows[row];
        if (position >= m_rows[row + 1].firstCell - place.firstCell) {
          action(MUCellText(), false);
          continue;
        }
        const std::size_t cell = place.firstCell + position;
        const std::size_t start = position == 0 ? 0 : std::size_t{cellEnds[cell - 1]} + 1;
        if (endRow - row > ROWS_AHEAD) {
          // The cell that comes will be found about as far from its row's start as this one.
          const Row& ahead = m_rows[row + ROWS_AHEAD];
          MUPrefetch(&text[std::min(ahead.textStart + start, text.size() - 1)]);
          MUPrefetch(&cellEnds[std::min(ahead.firstCell + position, cellEnds.size() - 1)]);
        }
        action(MUCellText(text.data() + place.textStart + start, cellEnds[cell] - start), true);
      }
    };
    const auto walkText = [&](const auto& text) {
      if (m_longCellEnds.empty()) {
        walk(text, m_shortCellEnds);
      } else {
        walk(text, m_longCellEnds);
      }
    };
    if (m_isWide) {
      walkText(m_wideText);
    } else {
      walkText(m_narrowText);
    }
  }
  // Call up into the cache what Cell reads. PrefetchCell reads what PrefetchRow called, so it comes some time
  // later. The row must be one of the block's.
  void PrefetchRow(std::size_t row) const { MUPrefetch(&m_rows[row]); }
  void PrefetchCell(std::size_t row, std::size_t position) const {
    if (position >= CellCount(row)) return;
    const std::size_t cell = m_rows[row].firstCell + position;
    if (m_longCellEnds.empty()) {
      MUPrefetch(&m_shortCellEnds[cell]);
    } else {
      MUPrefetch(&m_longCellEnds[cell]);
    }
  }
  // The number of cells in the row that has most; looks at all rows.
  std::size_t LargestCellCount() const;

  std::size_t ColumnCount() const { return m_columnNames.size(); }
  // The position must be below ColumnCount(). The reference holds until a column is appended.
  const wxString& ColumnName(std::size_t position) const { return m_columnNames[position]; }
  // Position of the first column of exactly that name, or NOT_FOUND. Positions never change.
  std::size_t PositionOf(const wxString& name) const;
  // Append columns on the right. References from ColumnName end here; positions stay. One name costs the time
  // to move the others aside, many at once are sorted once.
  void AppendColumnName(const wxString& name);
  void AppendColumnNames(const std::vector<wxString>& names);

  // The cells, name and text, that every row has and no column stands for, in the order in which they were set.
  // Borrowed, as what FindHiddenCell answers, until the next SetHiddenCells.
  const std::vector<HiddenCell>& HiddenCells() const { return m_hiddenCells; }
  void SetHiddenCells(std::vector<HiddenCell> cells) { m_hiddenCells = std::move(cells); }
  // The text of the first hidden cell of that name, or null.
  const wxString* FindHiddenCell(const wxString& name) const;

  // Changes when a row gets its first own entry or is assigned to; compare it to detect stale facts. Rows
  // call NoteChangedRow.
  unsigned long VersionOfRows() const { return m_versionOfRows; }
  void NoteChangedRow() const { m_versionOfRows = ++m_changeCount; }
  // How many such changes there have been; no two of them lead to the same version.
  unsigned long ChangeCount() const { return m_changeCount; }
  // Restores the version from before the last change, which was undone.
  void NoteChangeTakenBack(unsigned long version) const { m_versionOfRows = version; }

 private:
  friend class MUDataFileBlockBuilder;
  friend void intrusive_ptr_add_ref(const MUDataFileBlock* block) { ++block->m_references; }
  friend void intrusive_ptr_release(const MUDataFileBlock* block) {
    if (--block->m_references == 0) delete block;
  }

  ~MUDataFileBlock() = default;

  static constexpr std::size_t ROWS_AHEAD = 16;  // are called up into the cache during a walk

  std::size_t CellEnd(std::size_t cell) const {
    return m_longCellEnds.empty() ? m_shortCellEnds[cell] : m_longCellEnds[cell];
  }

  // Where a row's text begins, and which cell is its first. Its last cell stands before the next row's first.
  struct Row {
    std::uint32_t textStart;
    std::uint32_t firstCell;
  };

  mutable std::size_t m_references;
  mutable unsigned long m_versionOfRows = 0;
  mutable unsigned long m_changeCount = 0;
  bool m_isWide;
  MUPoolVector<char> m_narrowText;
  MUPoolVector<wchar_t> m_wideText;
  MUPoolVector<Row> m_rows;  // and a last one, where a further row would begin
  // Where each cell ends, counted from its row's start; one separator stands between cells. The ends are short
  // unless a row is too long for that, and only one of the two is filled.
  MUPoolVector<std::uint16_t> m_shortCellEnds;
  MUPoolVector<std::uint32_t> m_longCellEnds;
  std::vector<wxString> m_columnNames;
  std::vector<std::uint32_t> m_positionsByName;  // sorted by name, then by position
  std::vector<HiddenCell> m_hiddenCells;
};

using MUDataFileBlockPtr = boost::intrusive_ptr<MUDataFileBlock>;

#endif
