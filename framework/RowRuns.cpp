#include "framework/RowRuns.h"

#include <algorithm>
#include <cstddef>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/VerificationListener.h"

namespace Ombrelia {

bool RunEquals(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName, int first,
               const std::vector<wxString>& texts) {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnCells(columnName, first, texts);
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  bool equal = true;
  int row = first;
  for (const wxString& text : texts) {
    if (reader.GetDataCellValue(row, column) != text) equal = false;
    ++row;
  }
  return equal;
}

bool RunEqualsInAnyOrder(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName,
                         int first, const std::vector<wxString>& texts) {
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  std::vector<wxString> cells;
  for (std::size_t i = 0; i < texts.size(); ++i)
    cells.push_back(reader.GetDataCellValue(first + static_cast<int>(i), column));
  return std::is_permutation(cells.begin(), cells.end(), texts.begin());
}

}  // namespace Ombrelia
