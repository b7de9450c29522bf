// Where the cells of the displayed columns stand in the block of each file.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUCELLPOSITIONS_H
#define OMBRELIA_TABULON_SRC_TABLE_MUCELLPOSITIONS_H

#include <wx/string.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"

// Effect: remembers column positions per file; only a file's first cell searches for names.
// Cost: a position per file and column; the first cell of a file looks all columns up, and so does the first one
// after the file gained a column. A change of a name costs all that was remembered.
// Lifetime: it keeps the blocks that it knows alive until Clear, so that none of them can be taken for
// another one at the same address.
// Threads: one at a time.
// Failure: a column that a file lacks is at NOT_FOUND.
class MUCellPositions {
 public:
  // The column's cell is not in the block's lines but a hidden one, the same on every row.
  static constexpr std::size_t HIDDEN = MUDataFileBlock::NOT_FOUND - 1;

  // The position of the column names[place] in the block. place: below names.size().
  std::size_t Of(const MUDataFileBlock& block, const std::vector<wxString>& names,
                 std::size_t place) {
    if (place >= m_names.size() || m_names[place] != names[place]) {
      Clear();
      m_names = names;
    }
    if (m_lastBlock != &block || m_lastColumnCount != block.ColumnCount()) LookUp(block);
    return (*m_lastPositions)[place];
  }
  void Clear();

 private:
  struct Entry {
    boost::intrusive_ptr<const MUDataFileBlock> block;
    std::size_t columnCount = 0;  // a block may gain columns while its rows are made
    std::vector<std::size_t> positions;
  };

  void LookUp(const MUDataFileBlock& block);

  std::vector<wxString> m_names;  // that the positions belong to
  std::unordered_map<const MUDataFileBlock*, Entry> m_entries;
  const MUDataFileBlock* m_lastBlock = nullptr;
  std::size_t m_lastColumnCount = 0;
  const std::vector<std::size_t>* m_lastPositions = nullptr;
};

#endif
