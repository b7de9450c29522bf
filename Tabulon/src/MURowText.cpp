#include "Tabulon/src/MURowText.h"

#include <utility>

#include "Tabulon/src/MURowMap.h"

MURowText::MURowText(const MURowText& other)
    : m_block(other.m_block),
      m_overlays(other.m_overlays ? new MURowOverlays(*other.m_overlays) : nullptr),
      m_row(other.m_row),
      m_columnCount(other.m_columnCount) {}

MURowText& MURowText::operator=(const MURowText& other) {
  MURowText copy(other);
  std::swap(m_block, copy.m_block);
  std::swap(m_overlays, copy.m_overlays);
  std::swap(m_row, copy.m_row);
  std::swap(m_columnCount, copy.m_columnCount);
  return *this;
}

MURowText::~MURowText() { delete m_overlays; }

MURowOverlays& MURowText::MakeOverlays() const {
  if (!m_overlays) m_overlays = new MURowOverlays;
  return *m_overlays;
}
