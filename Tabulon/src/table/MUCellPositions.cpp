#include "Tabulon/src/table/MUCellPositions.h"

void MUCellPositions::LookUp(const MUDataFileBlock& block) {
  Entry& entry = m_entries[&block];
  if (entry.block == nullptr || entry.columnCount != block.ColumnCount()) {
    entry.block = &block;
    entry.columnCount = block.ColumnCount();
    entry.positions.clear();
    entry.positions.reserve(m_names.size());
    for (const wxString& name : m_names) {
      entry.positions.push_back(block.FindHiddenCell(name) != nullptr ? HIDDEN
                                                                      : block.PositionOf(name));
    }
  }
  m_lastBlock = &block;
  m_lastColumnCount = entry.columnCount;
  m_lastPositions = &entry.positions;
}

void MUCellPositions::Clear() {
  m_names.clear();
  m_entries.clear();
  m_lastBlock = nullptr;
  m_lastPositions = nullptr;
}
