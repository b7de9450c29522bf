// The different texts of a column, numbered, and the number of every row.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARY_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARY_H

#include <wx/string.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/rows/MUTextKeeper.h"
#include "Tabulon/src/text/MUCellText.h"

class MURowStore;

// Tells of the rows as they were when it was made. A row without such a cell has the empty text. It keeps
// what its texts are borrowed from, so that it may outlive the rows.
class MUColumnDictionary {
 public:
  // Of a key without a row, and of a text that no row has.
  static constexpr std::uint32_t NONE = static_cast<std::uint32_t>(-1);

  // mostTexts: gives up, and is of no use, when the column has more different texts.
  MUColumnDictionary(const MURowStore& rows, const wxString& column, std::size_t mostTexts = NONE);
  bool HasGivenUp() const { return m_texts.size() > m_mostTexts; }

  // Numbers count from 0 in the order in which the texts come first in the order of the row keys.
  std::size_t TextCount() const { return m_texts.size(); }
  // number: below TextCount().
  const MUCellText& Text(std::uint32_t number) const { return m_texts[number]; }
  std::uint32_t NumberOfRow(unsigned long key) const {
    return key - m_firstKey < m_numbers.size() ? m_numbers[key - m_firstKey] : NONE;
  }
  std::uint32_t NumberOfText(const MUCellText& text) const;
  // Whether no row had entries of its own, which may be written at any time.
  bool RowsArePlain() const { return m_rowsArePlain; }
  // Whether the line of every row reaches to the column.
  bool EveryRowHasTheCell() const { return m_everyRowHasTheCell; }

 private:
  struct Slot {
    std::uint32_t hash;
    std::uint32_t number;  // NONE if the slot is free
  };

  struct Cell {
    unsigned long key;
    MUCellText text;
    std::uint32_t hash;
  };

  static constexpr std::size_t WAITING_CELLS = 32;

  void Add(unsigned long key, const MUCellText& text);
  void Number(const Cell& cell);
  void NumberWaiting();
  std::size_t FindSlot(const MUCellText& text, std::uint32_t hash) const;
  void MakeRoom();

  std::size_t m_rowCount;
  unsigned long m_firstKey;                 // of all rows; a key below it wraps beyond every other
  MUScratchArray<std::uint32_t> m_numbers;  // by row key, from the first one on
  MULargeVector<MUCellText> m_texts;        // by number
  MUScratchArray<Slot> m_slots;             // a power of two of them, at most half of them in use
  MUTextKeeper m_keeper;
  std::array<Cell, WAITING_CELLS> m_waiting;  // cells whose slots are being fetched
  std::size_t m_waitingCount = 0;
  std::size_t m_mostTexts;
  bool m_rowsArePlain = true;
  bool m_everyRowHasTheCell = true;
};

#endif
