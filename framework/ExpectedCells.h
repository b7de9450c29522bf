// Builds the expected cells of a column from runs, so that a long column reads as it was designed.
#ifndef OMBRELIA_FRAMEWORK_EXPECTEDCELLS_H
#define OMBRELIA_FRAMEWORK_EXPECTEDCELLS_H

#include <wx/string.h>

#include <cstddef>
#include <vector>

namespace Ombrelia {

// Either grows from nothing by Add, Repeat and their forms for whole sequences, or starts from
// Blank(rows) and is filled by row numbers. Rows count from 0, and ranges hold both their ends. A row
// beyond the end is an error of the table's writer: it is left out and makes the table invalid, which
// the tests of each table see, because Cells() then gives no cells at all.
class ExpectedCells {
 public:
  ExpectedCells() = default;
  static ExpectedCells Blank(size_t rows);

  ExpectedCells& Add(const wxString& cell);
  ExpectedCells& AddAll(const std::vector<wxString>& cells);
  ExpectedCells& Repeat(size_t count, const wxString& cell);
  // The same sequence, count times.
  ExpectedCells& RepeatAll(size_t count, const std::vector<wxString>& cells);

  ExpectedCells& Row(size_t row, const wxString& cell);
  ExpectedCells& Range(size_t first, size_t last, const wxString& cell);
  // One cell per row, from row first on.
  ExpectedCells& From(size_t first, const std::vector<wxString>& cells);
  // The rows of the range whose number leaves this remainder by the divisor.
  ExpectedCells& Remainder(size_t first, size_t last, size_t divisor, size_t remainder,
                           const wxString& cell);
  // Groups of groupSize rows from row first on, one for each of cells: the group's cell stands in
  // its rows firstInGroup to lastInGroup, counted from 0 within the group.
  ExpectedCells& Groups(size_t first, size_t groupSize, size_t firstInGroup, size_t lastInGroup,
                        const std::vector<wxString>& cells);

  std::vector<wxString> Cells() const;

 private:
  std::vector<wxString> m_cells;
  bool m_valid = true;
};

}  // namespace Ombrelia

#endif
