#include "Tabulon/src/rows/MUDataFileBlock.h"

#include <algorithm>
#include <numeric>

MUDataFileBlock::MUDataFileBlock() : m_references(0), m_isWide(false), m_rows{{0, 0}} {}

std::size_t MUDataFileBlock::LargestCellCount() const {
  std::size_t largest = 0;
  for (std::size_t row = 0; row < RowCount(); ++row) {
    largest = std::max(largest, CellCount(row));
  }
  return largest;
}

std::size_t MUDataFileBlock::PositionOf(const wxString& name) const {
  const auto found = std::lower_bound(m_positionsByName.begin(), m_positionsByName.end(), name,
                                      [this](std::uint32_t position, const wxString& wanted) {
                                        return m_columnNames[position].compare(wanted) < 0;
                                      });
  if (found == m_positionsByName.end() || m_columnNames[*found] != name) return NOT_FOUND;
  return *found;
}

void MUDataFileBlock::AppendColumnName(const wxString& name) {
  const auto place = std::upper_bound(m_positionsByName.begin(), m_positionsByName.end(), name,
                                      [this](const wxString& wanted, std::uint32_t position) {
                                        return wanted.compare(m_columnNames[position]) < 0;
                                      });
  m_positionsByName.insert(place, static_cast<std::uint32_t>(m_columnNames.size()));
  m_columnNames.push_back(name);
}

void MUDataFileBlock::AppendColumnNames(const std::vector<wxString>& names) {
  m_columnNames.insert(m_columnNames.end(), names.begin(), names.end());
  m_positionsByName.resize(m_columnNames.size());
  std::iota(m_positionsByName.begin(), m_positionsByName.end(), 0u);
  std::stable_sort(m_positionsByName.begin(), m_positionsByName.end(),
                   [this](std::uint32_t a, std::uint32_t b) {
                     return m_columnNames[a].compare(m_columnNames[b]) < 0;
                   });
}

const wxString* MUDataFileBlock::FindHiddenCell(const wxString& name) const {
  for (const HiddenCell& cell : m_hiddenCells) {
    if (cell.first == name) return &cell.second;
  }
  return nullptr;
}
