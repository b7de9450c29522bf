// Opening a data file, comparing a column and checking stimulus areas, for all verifiers.
#ifndef OMBRELIA_FRAMEWORK_COMMONTESTHELPERLOGIC_H
#define OMBRELIA_FRAMEWORK_COMMONTESTHELPERLOGIC_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

#include "framework/StimAreaData.h"

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;

class CommonTestHelperLogic {
 public:
  // Returns true: the host that is verified runs there, whichever machine verifies its data files.
  static bool RunningOnMacOSX();

  // Returns a table that has loaded this one file, or null if the file cannot be read. An unreadable
  // file records one failing test unless expectFailureToRead; a good file records nothing.
  static boost::shared_ptr<MUExperimentTextReaderMultiFile> GetReaderOrElseLogAnError(
      FakeJUnitPrinter* printer, const wxString& dataFilePath, bool expectFailureToRead);

  // Returns the location text of a failure. fileName: an experiment's file name or a class's name. line:
  // a fixed number that identifies the check in the report.
  static wxString GetFileStringForLine(long line, const wxString& fileName);

  // Do the first cells of the column equal expected, text by text? Rows beyond expected do not
  // matter. A table without rows never matches. mismatchIndex may be null. It receives the row of the
  // first difference, the row count if the rows run out first, or 9999999 on a match.
  static bool ColumnContentsMatchGivenVectorUpTilVectorLength(
      boost::shared_ptr<MUExperimentTextReaderMultiFile> reader, const wxString& columnName,
      const std::vector<wxString>& expected, unsigned int* mismatchIndex);

  // Writes one line per area to standard error, for a person who reads the log.
  static void PrintStimAreaDataNicelyFormatted(const std::vector<StimAreaData>& areas);

  // Do both have the same length? Records a failing test if not, otherwise nothing.
  static bool VerifyEqualLengths(const std::vector<StimAreaData>& actual,
                                 const std::vector<StimAreaData>& expected,
                                 FakeJUnitPrinter* printer, wxString location);

  // Each compares the areas one by one and records one result, except that Win32 records nothing.
  // The name says on which platforms the expectation holds.
  static void BothPlatforms_VerifySequentialStimData(const std::vector<StimAreaData>& actual,
                                                     const std::vector<StimAreaData>& expected,
                                                     FakeJUnitPrinter* printer, wxString location);
  static void MacOSX_VerifySequentialStimData(const std::vector<StimAreaData>& actual,
                                              const std::vector<StimAreaData>& expected,
                                              FakeJUnitPrinter* printer, wxString location);
  static void Win32_VerifySequentialStimData(const std::vector<StimAreaData>& actual,
                                             const std::vector<StimAreaData>& expected,
                                             FakeJUnitPrinter* printer, wxString location);
  static void Internal_VerifySequentialStimData(const std::vector<StimAreaData>& actual,
                                                const std::vector<StimAreaData>& expected,
                                                FakeJUnitPrinter* printer, wxString location);

  // On the build node this sleeps until a person at a debugger clears its local flag. On any other
  // machine it returns at once.
  static void ForceEntryIntoEndlessLoop_SoWeCanDebugBuildNode();
};

}  // namespace Ombrelia

#endif
