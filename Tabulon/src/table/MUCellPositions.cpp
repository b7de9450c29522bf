#include "Tabulon/src/table/MUCellPositions.h"

void MUCellPositions::LookUp(const MUDataFileBlock& block) {
  const auto [place, isNew] = m_entries.try_emplace(&block);
  Entry& entry = place->second;
  if (isNew) {
    entry.block = &block;
    entry.positions.reserve(m_names.size());
    for (const wxString& name : m_names) {
      entry.positions.push_back(block.FindHiddenCell(name) != nullptr ? HIDDEN
                                                                      : block.PositionOf(name));
    }
  }
  m_lastBlock = &block;
  m_lastPositions = &entry.positions;
}

void MUCellPositions::Clear() {
  m_names.clear();
  m_entries.clear();
  m_lastBlock = nullptr;
  m_lastPositions = nullptr;
}
