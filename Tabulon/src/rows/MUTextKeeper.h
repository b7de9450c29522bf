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

// Effect: keeps a file's block for the texts that stand in it, and copies the texts that stand in a row itself.
// Cost: a kept block costs all memory of its file.
// Lifetime: what it answers is valid as long as the keeper.
// Threads: one.
// Failure: throws std::bad_alloc.
class MUTextKeeper {
 public:
  // text: of a cell of the row. Answers the same text, valid as long as the keeper.
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
