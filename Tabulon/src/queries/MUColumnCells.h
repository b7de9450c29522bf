// One column's cells by row key, side by side, for reading in any order.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNCELLS_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNCELLS_H

#include <wx/string.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstddef>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUCellText.h"

class MURowStore;

// Effect: finds a cell by the row's key alone.
// Cost: a walk over all rows to make, 16 bytes per row to keep; a cell is then one look at memory.
// Lifetime: it keeps the files of the rows that it was made of.
// Threads: one at a time while it is made, then any number.
// Failure: a key without a row has the text that was given for it; only memory can run out.
class MUColumnCells {
 public:
  // All rows must be mere lines of their files. undefinedText: of a key without a row; must outlive this object.
  MUColumnCells(const MURowStore& rows, const wxString& column, const MUCellText& undefinedText);

  MUCellText TextOf(unsigned long key) const {
    return key - m_firstKey < m_cells.size() ? m_cells[key - m_firstKey] : m_undefinedText;
  }
  // Whether the cells still match the rows; checks each file's version. rows: the same store.
  bool TellsTheCellsOf(const MURowStore& rows) const;
  std::size_t FileCount() const { return m_files.size(); }

 private:
  // A file and its version when its rows were read.
  struct File {
    boost::intrusive_ptr<const MUDataFileBlock> block;
    unsigned long versionOfRows;
  };

  MUCellText m_undefinedText;
  unsigned long m_versionOfRows;
  unsigned long m_firstKey;            // a key below it wraps beyond every other
  MUScratchArray<MUCellText> m_cells;  // by row key, from the first one on
  std::vector<File> m_files;
};

#endif
