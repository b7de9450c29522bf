#include "Tabulon/src/reading/MUDataRowMaking.h"

#include <cstdint>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace {

// The number that the text is if it is a short run of digits, the ordinary case, which a double holds exactly; -1 for
// any other text. length: at least 1.
template <typename CHAR>
std::int64_t ShortInteger(const CHAR* digit, std::size_t length) {
  constexpr std::size_t DIGITS_THAT_ARE_EXACT = 15;
  if (length > DIGITS_THAT_ARE_EXACT) return -1;
  std::int64_t integer = 0;
  for (const CHAR* const end = digit + length; digit != end; ++digit) {
    if (*digit < CHAR('0') || *digit > CHAR('9')) return -1;
    integer = integer * 10 + (*digit - CHAR('0'));
  }
  return integer;
}

}  // namespace

void MUAppendColumnsForCellsBeyondHeadings(MUDataFileBlock* block, std::size_t row,
                                           MUUniqueNameIndex* namesInUse, const MUColumnMaker& make,
                                           MUColumns* columns) {
  const std::size_t cellCount = block->CellCount(row);
  while (block->ColumnCount() < cellCount) {
    const wxString name = namesInUse->AddUniqueForm(
        MUInterfaceExperimentDataFileInputReader::COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING);
    if (columns) columns->push_back(make(name));
    block->AppendColumnName(name);
  }
}

MUSingleRowDataPlusRowProperties* MUNewRow(const MUDataFileBlockPtr& block, std::size_t row,
                                           std::size_t reactionTimePosition,
                                           MUPooledPieces* places) {
  void* const place = places->Take(block->RowCount() - row);
  auto* made = new (place) MUSingleRowDataPlusRowProperties(block, row, block->ColumnCount());
  made->m_reactionTime = MUReactionTimeOf(made->CellAt(reactionTimePosition));
  return made;
}

double MUReactionTimeOf(const MUCellText& cell) {
  if (cell.IsEmpty()) return MUSingleRowDataPlusRowProperties::NO_REACTION_TIME;
  const std::int64_t integer = cell.Narrow() != nullptr ? ShortInteger(cell.Narrow(), cell.Length())
                                                        : ShortInteger(cell.Wide(), cell.Length());
  if (integer >= 0) return static_cast<double>(integer);
  double number = 0.0;
  return cell.ToString().ToDouble(&number) ? number
                                           : MUSingleRowDataPlusRowProperties::NO_REACTION_TIME;
}
