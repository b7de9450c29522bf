// Finds the texts of the table's columns, and remembers where they stand.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNTEXTS_H
#define OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNTEXTS_H

#include <wx/string.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "Tabulon/src/queries/MUColumnCells.h"
#include "Tabulon/src/queries/MUColumnDictionaries.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/table/MUCellPositions.h"
#include "Tabulon/src/text/MUCellText.h"

// Effect: reads cells by row key and column, and keeps the dictionaries of columns. What it remembers never
// changes an answer: it is held against the rows and names before it is used.
// Cost: a cell of a plain row costs no search for a name; the memory of a whole window's rows is fetched
// side by side. Once a good part of a column was read in one pass, all its cells are stored side by side.
// Lifetime: texts are borrowed until the cell is written or the row deleted. Files that were read are kept
// until ForgetStale.
// Threads: one at a time.
// Failure: a key without a row reads as undefinedText; only memory can run out.
class MUColumnTexts {
 public:
  // undefinedText: must outlive this object and the texts.
  explicit MUColumnTexts(const wxString& undefinedText) : m_undefinedText(undefinedText) {}

  // The cells of the column names[place] in the rows of the keys. place: below names.size().
  // texts: room for count of them; the caller's.
  void Read(const MURowStore& rows, const unsigned long* keys, std::size_t count,
            const std::vector<wxString>& names, std::size_t place, MUCellText* texts);
  // What a cell that is not there reads as.
  MUCellText UndefinedText() const;

  MUColumnDictionaries& Dictionaries() { return m_dictionaries; }
  // Lets go of files that are no longer needed for what is remembered.
  void ForgetStale(const MURowStore& rows);

 private:
  // The column that is being read in large windows, and how many of its cells have been so far.
  struct Scan {
    wxString column;
    std::size_t cellsRead = 0;
    std::optional<MUColumnCells> cells;
  };

  const MUColumnCells* CellsForScan(const MURowStore& rows, const wxString& column,
                                    std::size_t count);

  const wxString& m_undefinedText;
  MUCellPositions m_positions;
  Scan m_scan;
  MUColumnDictionaries m_dictionaries;
};

#endif
