// The table of a data file that notes what is read of it.
#ifndef OMBRELIA_HOST_RESULTS_RECORDINGTABLE_H
#define OMBRELIA_HOST_RESULTS_RECORDINGTABLE_H

#include <wx/string.h>

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace OmbreliaHost {

// A cell that was asked for. Either number may lie outside the table; a column of -1 is that of a name
// that the table has not.
struct CellPlace {
  int row = 0;
  int column = 0;
};

// A column that was asked for by its name.
struct ColumnLookup {
  wxString name;
  int column = -1;  // -1: there is none
};

struct TableReads {
  std::vector<CellPlace> cells;       // each once, the one that was read last in front
  std::vector<ColumnLookup> lookups;  // each name once, in the order of their first use
  bool headings = false;              // names of columns were asked for by their places
};

// Reads as the class that it derives from does. The notes stay small however often a cell is read.
class RecordingTable : public MUExperimentTextReaderMultiFile {
 public:
  using MUExperimentTextReaderMultiFile::MUExperimentTextReaderMultiFile;

  int GetColumnPositionNumberFromText(const wxString& name) const override;
  wxString GetDataCellValue(int row, int column) const override;
  wxString GetColumnNameText(int column) const override;

  // What was read since the last call, or since the table was made.
  TableReads TakeReads();

 private:
  mutable std::map<std::pair<int, int>, std::uint64_t> m_lastReads;  // by row and column
  mutable std::uint64_t m_readCount = 0;
  mutable std::vector<ColumnLookup> m_lookups;
  mutable bool m_headings = false;
};

}  // namespace OmbreliaHost

#endif
