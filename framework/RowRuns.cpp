#include "framework/RowRuns.h"

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace Ombrelia {

bool RunsAreEqual(const MUExperimentTextReaderMultiFile& reader, int column, int first, int other,
                  int length) {
  for (int i = 0; i < length; ++i) {
    if (reader.GetDataCellValue(first + i, column) != reader.GetDataCellValue(other + i, column)) {
      return false;
    }
  }
  return true;
}

bool RunEquals(const MUExperimentTextReaderMultiFile& reader, int column, int first,
               const std::vector<wxString>& texts) {
  int row = first;
  for (const wxString& text : texts) {
    if (reader.GetDataCellValue(row, column) != text) return false;
    ++row;
  }
  return true;
}

}  // namespace Ombrelia
