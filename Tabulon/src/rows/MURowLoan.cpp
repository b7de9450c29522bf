#include "Tabulon/src/rows/MURowLoan.h"

#include <algorithm>
#include <cstring>

namespace {

template <typename MAPPED>
bool IsUntouched(const MURowOverlay<MAPPED>& overlay) {
  return overlay.m_entries.empty() && !overlay.m_complete;
}

}  // namespace

void MURowLoan::Lend(Row& row) {
  m_numbers = NumbersOf(row);
  m_block = row.HasOverlay() ? nullptr : row.Block();
  if (m_block == nullptr) return;
  m_line = row.m_text.RowInBlock();
  m_version = m_block->VersionOfRows();
  m_changeCount = m_block->ChangeCount();
  if (m_overlays == nullptr) return;
  for (Entry& entry : m_entries) {
    const auto cell = entry.column.TextInLine(row);
    if (!cell) return;
    cell->CopyInto(*entry.text);
  }
  row.m_text.LendOverlays(std::move(m_overlays));
}

bool MURowLoan::Return(const Row& row) {
  if (m_block != nullptr && row.HasOverlay()) {
    if (m_overlays != nullptr) {  // the row could not take those, and made its own
      m_overlays.reset();
      m_entries.clear();
    }
    if (LineIsAsItWas(row) && EntriesSayWhatTheLineSays(row)) {
      m_overlays = row.m_text.TakeOverlaysBack(m_version);
    }
  }
  if (m_overlays == nullptr) m_entries.clear();
  return NumbersOf(row) == m_numbers;
}

MURowLoan::Numbers MURowLoan::NumbersOf(const Row& row) {
  // Compared by its bits: a reaction time that is no number is not equal to itself.
  std::uint64_t reactionTime;
  static_assert(sizeof(reactionTime) == sizeof(row.m_reactionTime));
  std::memcpy(&reactionTime, &row.m_reactionTime, sizeof(reactionTime));
  return {row.m_rowPropertyFlags,    row.m_rowKey,
          row.m_indexAmongAllRows,   row.m_indexAmongActiveRows,
          row.m_indexAmongShownRows, reactionTime};
}

// Whether nothing has happened to the file's rows but that this one got entries.
bool MURowLoan::LineIsAsItWas(const Row& row) const {
  return row.Block() == m_block && row.m_text.RowInBlock() == m_line &&
         m_block->ChangeCount() == m_changeCount + 1;
}

bool MURowLoan::EntriesSayWhatTheLineSays(const Row& row) {
  MURowOverlays& overlays = row.m_text.MakeOverlays();  // those that are there
  if (overlays.m_cells.m_complete || !IsUntouched(overlays.m_hash01) ||
      !IsUntouched(overlays.m_hash02) || !IsUntouched(overlays.m_hash03) ||
      !IsUntouched(overlays.m_textFitsInHash)) {
    return false;
  }
  auto& cells = overlays.m_cells.m_entries;
  if (cells.size() != m_entries.size()) {
    m_entries.clear();
    for (auto& [name, text] : cells) m_entries.push_back({&text, MUColumnReader(name)});
  }
  return std::all_of(m_entries.begin(), m_entries.end(), [&](Entry& entry) {
    const auto cell = entry.column.TextInLine(row);
    return cell && cell->Equals(*entry.text);
  });
}
