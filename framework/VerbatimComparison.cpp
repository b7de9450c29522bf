#include "framework/VerbatimComparison.h"

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CheckReport.h"
#include "framework/CommonTestHelperLogic.h"
#include "framework/VerificationListener.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {
namespace VerbatimComparison {

bool CheckLength(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, const wxString& columnName,
                 const std::vector<wxString>& expected) {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnLength(columnName, expected);
  static const wxString testName = wxT("Correct_quantity_of_data_cells");
  const std::size_t rows = static_cast<std::size_t>(reader.GetNumberOfDataRows());
  if (rows > expected.size()) {
    ReportFailure(printer, name, testName,
                  {wxT("Too many data cells. More than expected."), 89, wxT("No extra info.")});
    return false;
  }
  if (rows < expected.size()) {
    ReportFailure(printer, name, testName,
                  {wxT("Too few data cells. Fewer than expected."), 98, wxT("No extra info.")});
    return false;
  }
  return true;
}

bool CheckContent(boost::shared_ptr<MUExperimentTextReaderMultiFile> reader,
                  FakeJUnitPrinter* printer, const wxString& name, const wxString& columnName,
                  const std::vector<wxString>& expected) {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnCells(columnName, 0, expected);
  static const wxString testName = wxT("Data_appears_completely_and_in_order");
  unsigned int mismatchIndex = 0;
  if (CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
          reader, columnName, expected, &mismatchIndex)) {
    printer->AddPassingTestResult(testName);
    return true;
  }
  wxString expectedText = wxT("ERRORERROR");
  if (mismatchIndex < expected.size()) expectedText = expected[mismatchIndex];
  ReportFailure(printer, name, testName,
                {wxT("Mismatch in the ordering of data cells in datafile."), 144,
                 wxString::Format(
                     wxT("At datafile row index %d we expected {%s}, but that was not the actual "
                         "content."),
                     static_cast<int>(mismatchIndex), expectedText)});
  return false;
}

}  // namespace VerbatimComparison
}  // namespace Ombrelia
