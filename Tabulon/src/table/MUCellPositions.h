// Where the cells of the displayed columns stand in the block of each file.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUCELLPOSITIONS_H
#define OMBRELIA_TABULON_SRC_TABLE_MUCELLPOSITIONS_H

#include <wx/string.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"

// Looks all columns up when a file's first cell is asked for, so that every further cell of the file costs
// no search for a name. To be cleared whenever the displayed columns change. It keeps the blocks that it
// knows alive, so that none of them can be taken for another one at the same address.
class MUCellPositions {
 public:
  // A column whose cell is not in the block's lines but a hidden one, the same on every row.
  static constexpr std::size_t HIDDEN = MUDataFileBlock::NOT_FOUND - 1;

  // One position per name, in the order of names; NOT_FOUND for a column that the file does not have.
  const std::vector<std::size_t>& In(const MUDataFileBlock& block,
                                     const std::vector<wxString>& names) {
    if (m_lastBlock != &block) LookUp(block, names);
    return *m_lastPositions;
  }
  void Clear();

 private:
  struct Entry {
    boost::intrusive_ptr<const MUDataFileBlock> block;
    std::vector<std::size_t> positions;
  };

  void LookUp(const MUDataFileBlock& block, const std::vector<wxString>& names);

  std::unordered_map<const MUDataFileBlock*, Entry> m_entries;
  const MUDataFileBlock* m_lastBlock = nullptr;
  const std::vector<std::size_t>* m_lastPositions = nullptr;
};

#endif
