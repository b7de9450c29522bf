#include "Tabulon/src/rows/MURowText.h"

#include <utility>

#include "Tabulon/src/rows/MURowOverlays.h"

MURowText::MURowText(const MURowText& other)
    : m_block(other.m_block),
      m_overlays(other.m_overlays ? new MURowOverlays(*other.m_overlays) : nullptr),
      m_row(other.m_row),
      m_columnCount(other.m_columnCount) {}

MURowText& MURowText::operator=(const MURowText& other) {
  MURowText copy(other);
  if (m_block) m_block->NoteChangedRow();
  std::swap(m_block, copy.m_block);
  std::swap(m_overlays, copy.m_overlays);
  std::swap(m_row, copy.m_row);
  std::swap(m_columnCount, copy.m_columnCount);
  return *this;
}

MURowText::~MURowText() { delete m_overlays; }

MURowOverlays& MURowText::MakeOverlays() const {
  if (!m_overlays) {
    m_overlays = new MURowOverlays;
    if (m_block) m_block->NoteChangedRow();
  }
  return *m_overlays;
}

void MURowText::LendOverlays(std::unique_ptr<MURowOverlays> overlays) const {
  m_overlays = overlays.release();
  m_block->NoteChangedRow();
}

std::unique_ptr<MURowOverlays> MURowText::TakeOverlaysBack(unsigned long version) const {
  m_block->NoteChangeTakenBack(version);
  return std::unique_ptr<MURowOverlays>(std::exchange(m_overlays, nullptr));
}
