// Keeps borrowed texts of rows valid beyond their rows.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUTEXTKEEPER_H
#define OMBRELIA_TABULON_SRC_ROWS_MUTEXTKEEPER_H

#include <wx/string.h>

#include <deque>
#include <unordered_set>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUCellText.h"

struct MUSingleRowDataPlusRowProperties;

// Texts of a file's block are kept by keeping the block; a text that stands in the row itself is copied.
class MUTextKeeper {
 public:
  // text: of a cell of the row. The answer is the same text and valid as long as the keeper.
  MUCellText Keep(const MUSingleRowDataPlusRowProperties& row, const MUCellText& text);
  // Keeps all texts of the block.
  void KeepAll(const MUDataFileBlock& block);

 private:
  const MUDataFileBlock* m_lastBlock = nullptr;
  std::unordered_set<const MUDataFileBlock*> m_known;
  std::vector<boost::intrusive_ptr<const MUDataFileBlock>> m_blocks;
  std::deque<wxString> m_ownTexts;
};

#endif
