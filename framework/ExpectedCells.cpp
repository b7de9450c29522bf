#include "framework/ExpectedCells.h"

namespace Ombrelia {

ExpectedCells ExpectedCells::Blank(std::size_t rows) {
  ExpectedCells cells;
  cells.m_cells.resize(rows);
  return cells;
}

ExpectedCells& ExpectedCells::Add(const wxString& cell) {
  m_cells.push_back(cell);
  return *this;
}

ExpectedCells& ExpectedCells::AddAll(const std::vector<wxString>& cells) {
  return RepeatAll(1, cells);
}

ExpectedCells& ExpectedCells::Repeat(std::size_t count, const wxString& cell) {
  m_cells.insert(m_cells.end(), count, cell);
  return *this;
}

ExpectedCells& ExpectedCells::RepeatAll(std::size_t count, const std::vector<wxString>& cells) {
  for (std::size_t i = 0; i < count; ++i) m_cells.insert(m_cells.end(), cells.begin(), cells.end());
  return *this;
}

ExpectedCells& ExpectedCells::Row(std::size_t row, const wxString& cell) {
  if (row < m_cells.size()) {
    m_cells[row] = cell;
  } else {
    m_valid = false;
  }
  return *this;
}

ExpectedCells& ExpectedCells::Range(std::size_t first, std::size_t last, const wxString& cell) {
  return Remainder(first, last, 1, 0, cell);
}

ExpectedCells& ExpectedCells::From(std::size_t first, const std::vector<wxString>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) Row(first + i, cells[i]);
  return *this;
}

ExpectedCells& ExpectedCells::Remainder(std::size_t first, std::size_t last, std::size_t divisor,
                                        std::size_t remainder, const wxString& cell) {
  if (first > last || divisor == 0) m_valid = false;
  for (std::size_t row = first; m_valid && row <= last; ++row) {
    if (row % divisor == remainder) Row(row, cell);
  }
  return *this;
}

ExpectedCells& ExpectedCells::Groups(std::size_t first, std::size_t groupSize,
                                     std::size_t firstInGroup, std::size_t lastInGroup,
                                     const std::vector<wxString>& cells) {
  if (firstInGroup > lastInGroup || lastInGroup >= groupSize) m_valid = false;
  for (std::size_t group = 0; m_valid && group < cells.size(); ++group) {
    const std::size_t start = first + group * groupSize;
    Range(start + firstInGroup, start + lastInGroup, cells[group]);
  }
  return *this;
}

std::vector<wxString> ExpectedCells::Cells() const {
  return m_valid ? m_cells : std::vector<wxString>();
}

}  // namespace Ombrelia
