#include "Tabulon/src/MUColumnDictionary.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Tabulon/src/MUColumnReader.h"
#include "Tabulon/src/MURowStore.h"

namespace {

constexpr std::size_t FIRST_SLOTS = 64;
// So many rows are read before their texts are searched for, that the slots are on their way meanwhile.
constexpr std::size_t ROWS_AT_ONCE = 32;

// The slots take the high bits, which depend on all of the text.
std::uint32_t HashOf(const MUCellText& text) {
  return static_cast<std::uint32_t>(text.Hash() >> 32);
}

}  // namespace

MUColumnDictionary::MUColumnDictionary(const MURowStore& rows, const wxString& column)
    : m_numbers(rows.KeyLimit()), m_slots(FIRST_SLOTS) {
  std::fill(m_numbers.begin(), m_numbers.end(), NONE);
  std::fill(m_slots.begin(), m_slots.end(), Slot{0, NONE});

  struct Cell {
    unsigned long key;
    const MUSingleRowDataPlusRowProperties* row;
    MUCellText text;
    std::uint32_t hash;
  };
  std::array<Cell, ROWS_AT_ONCE> cells;
  std::size_t count = 0;
  const auto number = [&] {
    for (std::size_t i = 0; i < count; ++i) {
      const Cell& cell = cells[i];
      Slot* slot = &m_slots[FindSlot(cell.text, cell.hash)];
      if (slot->number == NONE) {
        if (2 * (m_texts.size() + 1) > m_slots.size()) {
          MakeRoom();
          slot = &m_slots[FindSlot(cell.text, cell.hash)];
        }
        *slot = {cell.hash, static_cast<std::uint32_t>(m_texts.size())};
        m_texts.push_back(m_keeper.Keep(*cell.row, cell.text));
      }
      m_numbers[cell.key] = slot->number;
    }
    count = 0;
  };
  MUColumnReader reader(column);
  rows.ForEach([&](unsigned long key, const MUSingleRowDataPlusRowProperties* row) {
    Cell& cell = cells[count];
    cell.key = key;
    cell.row = row;
    cell.text = reader.TextOf(*row);
    m_rowsArePlain = m_rowsArePlain && row->Block() != nullptr && !row->HasOverlay();
    cell.hash = HashOf(cell.text);
    __builtin_prefetch(&m_slots[cell.hash & (m_slots.size() - 1)]);
    if (++count == cells.size()) number();
  });
  number();
}

std::uint32_t MUColumnDictionary::NumberOfText(const MUCellText& text) const {
  return m_slots[FindSlot(text, HashOf(text))].number;
}

// The text's slot, or else the free one where it would go.
std::size_t MUColumnDictionary::FindSlot(const MUCellText& text, std::uint32_t hash) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t place = hash & mask;
  for (;; place = (place + 1) & mask) {
    const Slot& slot = m_slots[place];
    if (slot.number == NONE) return place;
    if (slot.hash == hash && m_texts[slot.number] == text) return place;
  }
}

void MUColumnDictionary::MakeRoom() {
  MUScratchArray<Slot> slots(4 * m_slots.size());
  std::fill(slots.begin(), slots.end(), Slot{0, NONE});
  const std::size_t mask = slots.size() - 1;
  for (const Slot& slot : m_slots) {
    if (slot.number == NONE) continue;
    std::size_t place = slot.hash & mask;
    while (slots[place].number != NONE) place = (place + 1) & mask;
    slots[place] = slot;
  }
  m_slots = std::move(slots);
}
