// Building the expected cells of a long column from runs.
#ifndef OMBRELIA_FRAMEWORK_EXPECTEDCELLS_H
#define OMBRELIA_FRAMEWORK_EXPECTEDCELLS_H

#include <wx/string.h>

#include <cstddef>
#include <vector>

namespace Ombrelia {

// A table grows from nothing by Add, AddAll, Repeat and RepeatAll, or it starts with Blank(rows) and
// the other operations fill it by row. Rows count from 0, and ranges include both ends. A row beyond
// the end, an empty range or a divisor of 0 is an error of the table's writer. Cells() then returns
// no cells at all, so that the test of the table fails.
class ExpectedCells {
 public:
  ExpectedCells() = default;
  static ExpectedCells Blank(std::size_t rows);

  ExpectedCells& Add(const wxString& cell);
  ExpectedCells& AddAll(const std::vector<wxString>& cells);
  ExpectedCells& Repeat(std::size_t count, const wxString& cell);
  // Adds the whole sequence count times.
  ExpectedCells& RepeatAll(std::size_t count, const std::vector<wxString>& cells);

  ExpectedCells& Row(std::size_t row, const wxString& cell);
  ExpectedCells& Range(std::size_t first, std::size_t last, const wxString& cell);
  // Puts one cell into each row from first on.
  ExpectedCells& From(std::size_t first, const std::vector<wxString>& cells);
  // Fills the rows of the range whose number leaves this remainder by the divisor.
  ExpectedCells& Remainder(std::size_t first, std::size_t last, std::size_t divisor,
                           std::size_t remainder, const wxString& cell);
  // Takes groupSize rows per cell, from row first on. The cell fills rows firstInGroup to lastInGroup
  // of its group, counted from 0.
  ExpectedCells& Groups(std::size_t first, std::size_t groupSize, std::size_t firstInGroup,
                        std::size_t lastInGroup, const std::vector<wxString>& cells);

  std::vector<wxString> Cells() const;

 private:
  std::vector<wxString> m_cells;
  bool m_valid = true;
};

}  // namespace Ombrelia

#endif
