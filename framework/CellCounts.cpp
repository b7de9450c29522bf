#include "framework/CellCounts.h"

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace Ombrelia {

int CountCells(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName,
               const wxString& text) {
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  const int rows = reader.GetNumberOfDataRows();
  int count = 0;
  for (int row = 0; row < rows; ++row) {
    if (reader.GetDataCellValue(row, column) == text) ++count;
  }
  return count;
}

std::vector<int> CountCellsByPrefix(const MUExperimentTextReaderMultiFile& reader,
                                    const wxString& columnName,
                                    const std::vector<wxString>& prefixes) {
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  const int rows = reader.GetNumberOfDataRows();
  std::vector<int> counts(prefixes.size(), 0);
  for (int row = 0; row < rows; ++row) {
    const wxString cell = reader.GetDataCellValue(row, column);
    for (std::size_t i = 0; i < prefixes.size(); ++i) {
      if (!cell.StartsWith(prefixes[i])) continue;
      ++counts[i];
      break;
    }
  }
  return counts;
}

}  // namespace Ombrelia
