#include "Tabulon/src/rows/MUTextKeeper.h"

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

MUCellText MUTextKeeper::Keep(const MUSingleRowDataPlusRowProperties& row, const MUCellText& text) {
  const MUDataFileBlock* const block = row.Block();
  if (block == nullptr || row.HasOverlay()) {
    m_ownTexts.push_back(text.ToString());
    return {m_ownTexts.back().wc_str(), m_ownTexts.back().length()};
  }
  KeepAll(*block);
  return text;
}

void MUTextKeeper::KeepAll(const MUDataFileBlock& block) {
  if (&block == m_lastBlock) return;
  m_lastBlock = &block;
  if (m_known.insert(&block).second) m_blocks.emplace_back(&block);
}
