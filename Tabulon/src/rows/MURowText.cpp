#include "Tabulon/src/rows/MURowText.h"

#include <atomic>
#include <utility>

#include "Tabulon/src/rows/MURowOverlays.h"

namespace {

// For all tables together, so that no row need know its table.
std::atomic<unsigned long> versionOfOverlays{0};

}  // namespace

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
  versionOfOverlays.fetch_add(1, std::memory_order_relaxed);
  return *this;
}

MURowText::~MURowText() { delete m_overlays; }

MURowOverlays& MURowText::MakeOverlays() const {
  if (!m_overlays) {
    m_overlays = new MURowOverlays;
    versionOfOverlays.fetch_add(1, std::memory_order_relaxed);
  }
  return *m_overlays;
}

unsigned long MURowText::VersionOfOverlays() {
  return versionOfOverlays.load(std::memory_order_relaxed);
}
