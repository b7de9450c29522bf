#include "Tabulon/src/rows/MURowText.h"

#include <utility>

#include "Tabulon/src/rows/MURowOverlays.h"

MURowText::MURowText(const MURowText& other) : m_place(other.m_place) {
  if (m_place.hasOverlays) {
    m_place.overlays = new MURowOverlays(*other.m_place.overlays);
  } else if (m_place.block != nullptr) {
    intrusive_ptr_add_ref(m_place.block);
  }
}

MURowText& MURowText::operator=(const MURowText& other) {
  MURowText copy(other);
  if (const MUDataFileBlock* const block = Block()) block->NoteChangedRow();
  std::swap(m_place, copy.m_place);
  return *this;
}

MURowText::~MURowText() {
  if (m_place.hasOverlays) {
    delete m_place.overlays;
  } else if (m_place.block != nullptr) {
    intrusive_ptr_release(m_place.block);
  }
}

const MUDataFileBlock* MURowText::BlockBesideOverlays() const {
  return m_place.overlays->m_block.get();
}

MURowOverlays& MURowText::MakeOverlays() const {
  if (!m_place.hasOverlays) LendOverlays(std::make_unique<MURowOverlays>());
  return *m_place.overlays;
}

void MURowText::LendOverlays(std::unique_ptr<MURowOverlays> overlays) const {
  if (m_place.block != nullptr) m_place.block->NoteChangedRow();
  overlays->m_block.reset(m_place.block, false);
  m_place.overlays = overlays.release();
  m_place.hasOverlays = 1;
}

std::unique_ptr<MURowOverlays> MURowText::TakeOverlaysBack(unsigned long version) const {
  std::unique_ptr<MURowOverlays> overlays(m_place.overlays);
  m_place.block = overlays->m_block.detach();
  m_place.hasOverlays = 0;
  m_place.block->NoteChangeTakenBack(version);
  return overlays;
}
