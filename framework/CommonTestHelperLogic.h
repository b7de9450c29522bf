// What all verifiers share: opening a data file, comparing a column, checking stimulus areas.
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
  // Constant true: the host that is verified runs there, wherever its data files are looked at.
  static bool RunningOnMacOSX();

  // A table over this one file, loaded and ready for queries; null if the file cannot be read. Then
  // one failing test is recorded, unless expectFailureToRead. A good file records nothing.
  static boost::shared_ptr<MUExperimentTextReaderMultiFile> GetReaderOrElseLogAnError(
      FakeJUnitPrinter* printer, const wxString& dataFilePath, bool expectFailureToRead);

  static wxString GetFileStringForLine(long line, const wxString& fileName);

  // Do the first cells of the column equal expected, text by text? Rows beyond expected do not
  // matter; a table without rows never matches. mismatchIndex may be null; it receives the row of
  // the first difference, the row count when the rows run out first, and 9999999 on a match.
  static bool ColumnContentsMatchGivenVectorUpTilVectorLength(
      boost::shared_ptr<MUExperimentTextReaderMultiFile> reader, const wxString& columnName,
      const std::vector<wxString>& expected, unsigned int* mismatchIndex);

  // One line per area on standard error, for a person who reads the log.
  static void PrintStimAreaDataNicelyFormatted(const std::vector<StimAreaData>& areas);

  // Records a failing test if the lengths differ, and nothing if they agree.
  static bool VerifyEqualLengths(const std::vector<StimAreaData>& actual,
                                 const std::vector<StimAreaData>& expected,
                                 FakeJUnitPrinter* printer, wxString location);

  // The name says on which platforms the expectation holds. Each records at most one result.
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

  // On the build node: sleeps until a person at a debugger clears its local flag. Elsewhere: returns.
  static void ForceEntryIntoEndlessLoop_SoWeCanDebugBuildNode();
};

}  // namespace Ombrelia

#endif
