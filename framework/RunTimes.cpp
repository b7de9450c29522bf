#include "framework/RunTimes.h"

#include <string>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CellNumbers.h"
#include "framework/CheckReport.h"
#include "framework/ClampedNumbers.h"
#include "framework/HostNames.h"
#include "framework/VerificationListener.h"
#include "plugin/HostProbes.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {
namespace RunTimes {

namespace {

const wxChar* const CUMULATIVE_TIME = wxT("Cumulative\nTime");
const long UNREADABLE_DURATION = -999;
const int UNREADABLE_EXPANSION_TIME = -123;

bool RunningOn(const wxChar* hostNameText) {
  VerificationListener* const listener = VerificationListener::Current();
  return listener != nullptr ? listener->RunsOnMachine(hostNameText)
                             : Halvex::CurrSystemMatchesLocalHostName(hostNameText);
}

}  // namespace

int ColumnIndexFromText_StartsWith(const MUExperimentTextReaderMultiFile& reader,
                                   const wxString& text) {
  const int columns = reader.GetNumberOfDataColumns();
  for (int column = 0; column < columns; ++column) {
    if (reader.GetColumnNameText(column).StartsWith(text)) return column;
  }
  return -1;
}

int ExpansionTime(const MUExperimentTextReaderMultiFile& reader) {
  const int column = ColumnIndexFromText_StartsWith(reader, EXPANSION_TIME_COLUMN_NAME);
  if (column < 0) return UNREADABLE_EXPANSION_TIME;
  long value = UNREADABLE_EXPANSION_TIME;
  if (!ReadLong(reader.GetColumnNameText(column).AfterFirst(wxT(':')), value)) {
    return UNREADABLE_EXPANSION_TIME;
  }
  return ClampedToInt(value);
}

void CheckBounds(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, int min, int max, const wxString& columnName,
                 bool isExpansion) {
  const int column = ColumnIndexFromText_StartsWith(reader, columnName);
  if (column < 0) return;
  wxString testName;
  long value = UNREADABLE_DURATION;
  if (isExpansion) {
    testName = wxT("Expansion_duration_") + name;
    value = ExpansionTime(reader);
  } else {
    testName = wxT("Experiment_duration_") + name;
    ReadLong(reader.GetDataCellValue(reader.GetNumberOfDataRows() - 1, column), value);
  }
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnBound(column, min, max, value);
  ReportCheck(printer, name, min <= value && value <= max, testName,
              {wxT("Experiment duration is weird. Too short or too long (see details below)."), 228,
               wxT("Expected a duration between ") + std::to_wstring(min) + wxT(" and ") +
                   std::to_wstring(max) + wxT(". Instead, we got a duration of ") +
                   std::to_wstring(value) + wxT(".")});
}

bool RunningOnSmallTestBox() { return RunningOn(SMALL_MACOSX_TESTBOX); }

bool RunningOnMacServer() { return RunningOn(BIG_MACOSX_SERVER); }

bool RunningOnATestMachine() { return RunningOnSmallTestBox() || RunningOnMacServer(); }

void RecordTotalDuration(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name) {
  const int column = reader.GetColumnPositionNumberFromText(CUMULATIVE_TIME);
  if (column < 0) {
    ReportFailure(
        printer, name, wxT("__TIMING__TRACKING__UNAVAILABLE__") + name,
        {wxT("Please add the Cumulative Time column to the output."), 326,
         wxT("We cannot monitor run-time duration without having the Cum Time column available.")});
    return;
  }
  const wxString duration = reader.GetDataCellValue(reader.GetNumberOfDataRows() - 1, column);
  printer->AddPassingTestResult(wxT("__TIMING__TRACKING__") + name + wxT("__") + duration +
                                wxT("_ms"));
}

void RecordExpansionTime(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name) {
  if (ColumnIndexFromText_StartsWith(reader, EXPANSION_TIME_COLUMN_NAME) < 0) {
    ReportFailure(
        printer, name, wxT("__EXPANSION__TRACKING__UNAVAILABLE__") + name,
        {wxT("Someting broke, there's no expansion time column."), 352,
         wxT("We cannot monitor run-time duration without having the expansion time column "
             "available.")});
    return;
  }
  printer->AddPassingTestResult(wxT("__EXPANSION__TRACKING__") + name + wxT("__") +
                                std::to_wstring(ExpansionTime(reader)) + wxT("_ms"));
}

}  // namespace RunTimes
}  // namespace Ombrelia
