// The different texts of a column, numbered, and the number of every row.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARY_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARY_H

#include <wx/string.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/rows/MUTextKeeper.h"
#include "Tabulon/src/text/MUCellText.h"

class MURowStore;

// Effect: tells of the rows as they were when it was made. A row without such a cell has the empty text.
// Cost: a walk over all rows to make, four bytes per row and some forty per different text to keep.
// Lifetime: texts are borrowed from it; it keeps what they point to and may outlive the rows.
// Threads: one at a time while it is made, then any number.
// Failure: an unknown key or text has the number NONE.
class MUColumnDictionary {
 public:
  // The number of a key without a row, and of a text that no row has.
  static constexpr std::uint32_t NONE = static_cast<std::uint32_t>(-1);

  // mostTexts: it gives up, and is of no use, when the column has more different texts.
  MUColumnDictionary(const MURowStore& rows, const wxString& column, std::size_t mostTexts = NONE);
  bool HasGivenUp() const { return m_texts.size() > m_mostTexts; }

  // Texts are numbered from 0 by first occurrence in row-key order.
  std::size_t TextCount() const { return m_texts.size(); }
  // number: below TextCount().
  const MUCellText& Text(std::uint32_t number) const { return m_texts[number]; }
  std::uint32_t NumberOfRow(unsigned long key) const {
    return key - m_firstKey < m_numbers.size() ? m_numbers[key - m_firstKey] : NONE;
  }
  std::uint32_t NumberOfText(const MUCellText& text) const;
  // Whether no row had entries of its own, which may be written at any time.
  bool RowsArePlain() const { return m_ownRows.empty(); }
  // Whether the rows still have these texts. rows: the same store, nothing inserted or erased.
  bool TellsTheTextsOf(const MURowStore& rows) const;
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

  // A file and its version when its rows were read.
  struct File {
    boost::intrusive_ptr<const MUDataFileBlock> block;
    unsigned long versionOfRows;
  };

  wxString m_column;
  std::size_t m_rowCount;
  unsigned long m_firstKey;                 // of all rows; a key below it wraps beyond every other
  MUScratchArray<std::uint32_t> m_numbers;  // by row key, from the first one on
  MULargeVector<MUCellText> m_texts;        // by number
  MUScratchArray<Slot> m_slots;             // a power of two of them, at most half of them in use
  MUTextKeeper m_keeper;
  std::vector<File> m_files;
  MULargeVector<unsigned long> m_ownRows;     // keys of the rows with entries of their own
  std::array<Cell, WAITING_CELLS> m_waiting;  // cells whose slots are being fetched
  std::size_t m_waitingCount = 0;
  std::size_t m_mostTexts;
  bool m_everyRowHasTheCell = true;
};

#endif
