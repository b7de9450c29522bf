#include "framework/CommonTestHelperLogic.h"

#include <wx/filename.h>
#include <wx/utils.h>

#include <cstdio>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/HostNames.h"
#include "framework/VerificationListener.h"
#include "report/FailureLocation.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

bool CommonTestHelperLogic::RunningOnMacOSX() { return true; }

boost::shared_ptr<MUExperimentTextReaderMultiFile> CommonTestHelperLogic::GetReaderOrElseLogAnError(
    FakeJUnitPrinter* printer, const wxString& dataFilePath, bool expectFailureToRead) {
  VerificationListener* const listener = VerificationListener::Current();
  const auto reader = listener != nullptr ? listener->NewTable()
                                          : boost::shared_ptr<MUExperimentTextReaderMultiFile>(
                                                new MUExperimentTextReaderMultiFile(nullptr));
  const wxFileName file(dataFilePath);
  if (reader->AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(file, false,
                                                                                     nullptr)) {
    return reader;
  }
  if (!expectFailureToRead) {
    printer->AddFailingTestResult(
        wxT("open_and_parse_") + file.GetName(), wxT("this datafile was not open-able/parse-able"),
        GetFileStringForLine(49, wxT("CommonTestHelperLogic_GetReaderOrElseLogAnError")),
        wxT("unable to construct a MUExperimentTextReaderMultiFile for this datafile"));
  }
  return boost::shared_ptr<MUExperimentTextReaderMultiFile>();
}

wxString CommonTestHelperLogic::GetFileStringForLine(long line, const wxString& fileName) {
  return FailureLocationText(line, fileName);
}

bool CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
    boost::shared_ptr<MUExperimentTextReaderMultiFile> reader, const wxString& columnName,
    const std::vector<wxString>& expected, unsigned int* mismatchIndex) {
  unsigned int unused = 0;
  unsigned int& mismatch = mismatchIndex ? *mismatchIndex : unused;
  const int column = reader->GetColumnPositionNumberFromText(columnName);
  const int rows = reader->GetNumberOfDataRows();
  mismatch = 9999999;
  bool matches = rows > 0;
  if (!matches) mismatch = 0;
  int row = 0;
  for (; row < rows && static_cast<std::size_t>(row) < expected.size(); ++row) {
    if (reader->GetDataCellValue(row, column).compare(expected[static_cast<std::size_t>(row)]) !=
        0) {
      matches = false;
      mismatch = static_cast<unsigned int>(row);
      break;
    }
  }
  if (static_cast<std::size_t>(row) < expected.size()) {
    // Either a cell differed at this row, or the data ran out before the vector did.
    matches = false;
    mismatch = static_cast<unsigned int>(row);
  }
  return matches;
}

void CommonTestHelperLogic::PrintStimAreaDataNicelyFormatted(
    const std::vector<StimAreaData>& areas) {
  for (const StimAreaData& area : areas) {
    std::fprintf(stderr,
                 "x:%5d | y:%5d | width:%6d | height:%6d | response_id:%6d | area_name:[%s]\n",
                 area.x, area.y, area.width, area.height, area.response_id,
                 static_cast<const char*>(area.area_name.ToAscii()));
  }
}

bool CommonTestHelperLogic::VerifyEqualLengths(const std::vector<StimAreaData>& actual,
                                               const std::vector<StimAreaData>& expected,
                                               FakeJUnitPrinter* printer, wxString location) {
  static const wxString testName = wxT("Correct_quantity_of_stim_areas");
  if (actual.size() > expected.size()) {
    printer->AddFailingTestResult(testName, wxT("Too many data stim areas. More than expected."),
                                  location, wxT("No extra info."));
    return false;
  }
  if (actual.size() < expected.size()) {
    printer->AddFailingTestResult(testName, wxT("Too few stim areas. Fewer than expected."),
                                  location, wxT("No extra info."));
    return false;
  }
  return true;
}

void CommonTestHelperLogic::BothPlatforms_VerifySequentialStimData(
    const std::vector<StimAreaData>& actual, const std::vector<StimAreaData>& expected,
    FakeJUnitPrinter* printer, wxString location) {
  MacOSX_VerifySequentialStimData(actual, expected, printer, location);
  Win32_VerifySequentialStimData(actual, expected, printer, location);
}

void CommonTestHelperLogic::MacOSX_VerifySequentialStimData(
    const std::vector<StimAreaData>& actual, const std::vector<StimAreaData>& expected,
    FakeJUnitPrinter* printer, wxString location) {
  Internal_VerifySequentialStimData(actual, expected, printer, location);
}

void CommonTestHelperLogic::Win32_VerifySequentialStimData(const std::vector<StimAreaData>&,
                                                           const std::vector<StimAreaData>&,
                                                           FakeJUnitPrinter*, wxString) {}

void CommonTestHelperLogic::Internal_VerifySequentialStimData(
    const std::vector<StimAreaData>& actual, const std::vector<StimAreaData>& expected,
    FakeJUnitPrinter* printer, wxString location) {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnStimAreas(actual, expected);
  if (!VerifyEqualLengths(actual, expected, printer, location)) return;
  static const wxString testName = wxT("StimArea_vector_is_complete_and_in_order");
  for (std::size_t k = 0; k < actual.size(); ++k) {
    if (!actual[k].SatisfiesLooseEqualityWith(expected[k])) {
      printer->AddFailingTestResult(
          testName, wxT("Unexpected info in the vector of stim areas."), location,
          wxString::Format(
              wxT("Stim area problem in the %d_th position in the stim area sequence."),
              static_cast<int>(k)));
      return;
    }
  }
  printer->AddPassingTestResult(testName);
}

void CommonTestHelperLogic::ForceEntryIntoEndlessLoop_SoWeCanDebugBuildNode() {
  if (wxGetHostName().Upper().Find(BUILD_NODE_HOST_PREFIX) == wxNOT_FOUND) return;
  volatile bool keepWaiting = true;
  while (keepWaiting) wxMilliSleep(500);
}

}  // namespace Ombrelia
