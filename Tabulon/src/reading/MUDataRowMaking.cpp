#include "Tabulon/src/reading/MUDataRowMaking.h"

#include <cstdint>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

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
  // A short run of digits, the ordinary case, is exact as an integer.
  const std::size_t digitsThatAreExact = 15;
  std::int64_t integer = 0;
  std::size_t digits = 0;
  while (digits < cell.Length() && digits < digitsThatAreExact && cell[digits] >= wxT('0') &&
         cell[digits] <= wxT('9')) {
    integer = integer * 10 + (cell[digits] - wxT('0'));
    ++digits;
  }
  if (digits > 0 && digits == cell.Length()) return static_cast<double>(integer);

  double number = 0.0;
  return !cell.IsEmpty() && cell.ToString().ToDouble(&number)
             ? number
             : MUSingleRowDataPlusRowProperties::NO_REACTION_TIME;
}
