#include "Tabulon/src/queries/MUColumnDictionary.h"

#include <algorithm>
#include <utility>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MURowStore.h"

namespace {

// Enough slots that a few texts are nearly all found at the first look.
constexpr std::size_t FIRST_SLOTS = 1024;
// With this number of texts, memory is taken for as many as there can be.
constexpr std::size_t MANY_TEXTS = 65536;
// Up to this number, the slots are in the cache anyhow.
constexpr std::size_t NEAR_SLOTS = 4096;

// The slots take the high bits, which depend on all of the text.
std::uint32_t HashOf(const MUCellText& text) {
  return static_cast<std::uint32_t>(text.Hash() >> 32);
}

}  // namespace

MUColumnDictionary::MUColumnDictionary(const MURowStore& rows, const wxString& column,
                                       std::size_t mostTexts)
    : m_column(column),
      m_rowCount(rows.size()),
      m_firstKey(rows.Runs().empty() ? 0 : rows.Runs().front().firstKey),
      m_numbers(rows.Runs().empty() ? 0 : rows.Runs().back().endKey - m_firstKey),
      m_slots(FIRST_SLOTS),
      m_mostTexts(mostTexts) {
  std::fill(m_numbers.begin(), m_numbers.end(), NONE);
  std::fill(m_slots.begin(), m_slots.end(), Slot{0, NONE});

  MUColumnReader reader(column);
  for (const MURowStore::Run& run : rows.Runs()) {
    if (run.block != nullptr && (m_files.empty() || m_files.back().block != run.block)) {
      m_files.push_back({run.block, run.versionOfRows});
    }
    if (HasGivenUp()) break;
    unsigned long key = run.firstKey;
    if (run.block != nullptr && run.block->FindHiddenCell(column) == nullptr) {
      m_keeper.KeepAll(*run.block);
      run.block->ForEachCell(run.block->PositionOf(column), run.firstRow, run.LineOf(run.endKey),
                             [&](const MUCellText& text, bool isThere) {
                               m_everyRowHasTheCell = m_everyRowHasTheCell && isThere;
                               Add(key++, text);
                             });
    } else {
      m_everyRowHasTheCell = false;
      for (; key != run.endKey; ++key) {
        const MUSingleRowDataPlusRowProperties& row = *rows.find(key);
        if (run.block == nullptr) m_ownRows.push_back(key);
        Add(key, m_keeper.Keep(row, reader.TextOf(row)));
      }
    }
  }
  NumberWaiting();
}

bool MUColumnDictionary::TellsTheTextsOf(const MURowStore& rows) const {
  const bool filesStand = std::all_of(m_files.begin(), m_files.end(), [](const File& file) {
    return file.block->VersionOfRows() == file.versionOfRows;
  });
  MUColumnReader reader(m_column);
  return filesStand && std::all_of(m_ownRows.begin(), m_ownRows.end(), [&](unsigned long key) {
           return reader.TextOf(*rows.find(key)) == Text(NumberOfRow(key));
         });
}

void MUColumnDictionary::Add(unsigned long key, const MUCellText& text) {
  const Cell cell = {key, text, HashOf(text)};
  if (m_slots.size() <= NEAR_SLOTS) {
    Number(cell);
    return;
  }
  MUPrefetch(&m_slots[cell.hash & (m_slots.size() - 1)]);
  m_waiting[m_waitingCount] = cell;
  if (++m_waitingCount == m_waiting.size()) NumberWaiting();
}

void MUColumnDictionary::NumberWaiting() {
  // The text that each one will be compared with can lie anywhere, too.
  std::array<std::uint32_t, WAITING_CELLS> candidates;
  for (std::size_t i = 0; i < m_waitingCount; ++i) {
    const Slot& slot = m_slots[m_waiting[i].hash & (m_slots.size() - 1)];
    candidates[i] = slot.hash == m_waiting[i].hash ? slot.number : NONE;
    if (candidates[i] != NONE) MUPrefetch(&m_texts[candidates[i]]);
  }
  for (std::size_t i = 0; i < m_waitingCount; ++i) {
    if (candidates[i] != NONE) m_texts[candidates[i]].Prefetch();
  }
  for (std::size_t i = 0; i < m_waitingCount; ++i) Number(m_waiting[i]);
  m_waitingCount = 0;
}

void MUColumnDictionary::Number(const Cell& cell) {
  Slot* slot = &m_slots[FindSlot(cell.text, cell.hash)];
  if (slot->number == NONE) {
    if (2 * (m_texts.size() + 1) > m_slots.size()) {
      MakeRoom();
      slot = &m_slots[FindSlot(cell.text, cell.hash)];
    }
    *slot = {cell.hash, static_cast<std::uint32_t>(m_texts.size())};
    // Many texts may be one for every row; fresh memory is dear, so it is taken once.
    if (m_texts.size() == MANY_TEXTS) m_texts.reserve(std::max(m_rowCount, MANY_TEXTS + 1));
    m_texts.push_back(cell.text);
  }
  m_numbers[cell.key - m_firstKey] = slot->number;
}

std::uint32_t MUColumnDictionary::NumberOfText(const MUCellText& text) const {
  return m_slots[FindSlot(text, HashOf(text))].number;
}

// The text's slot, or else the free one where it belongs.
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
  std::size_t slotCount = 4 * m_slots.size();
  while (m_texts.size() >= MANY_TEXTS && slotCount < 2 * m_rowCount) slotCount *= 2;
  MUScratchArray<Slot> slots(slotCount);
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
