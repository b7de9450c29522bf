#include "framework/RowRuns.h"

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/VerificationListener.h"

namespace Ombrelia {

bool RunEquals(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName, int first,
               const std::vector<wxString>& texts) {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnCells(columnName, first, texts);
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  int row = first;
  for (const wxString& text : texts) {
    if (reader.GetDataCellValue(row, column) != text) return false;
    ++row;
  }
  return true;
}

}  // namespace Ombrelia
