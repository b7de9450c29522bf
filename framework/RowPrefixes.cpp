#include "framework/RowPrefixes.h"

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace Ombrelia {

std::vector<int> CountRowsByPrefix(const MUExperimentTextReaderMultiFile& reader,
                                   const wxString& columnName,
                                   const std::vector<wxString>& prefixes) {
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  const int rows = reader.GetNumberOfDataRows();
  std::vector<int> counts(prefixes.size(), 0);
  for (int row = 0; row < rows; ++row) {
    const wxString cell = reader.GetDataCellValue(row, column);
    for (size_t kind = 0; kind < prefixes.size(); ++kind) {
      if (!cell.StartsWith(prefixes[kind])) continue;
      ++counts[kind];
      break;
    }
  }
  return counts;
}

}  // namespace Ombrelia
