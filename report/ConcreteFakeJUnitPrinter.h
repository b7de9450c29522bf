// Keeps test results as text lines in memory and writes them as a JUnit-shaped XML report.
#ifndef OMBRELIA_REPORT_CONCRETEFAKEJUNITPRINTER_H
#define OMBRELIA_REPORT_CONCRETEFAKEJUNITPRINTER_H

#include <wx/arrstr.h>
#include <wx/string.h>

#include <cstdint>

#include "report/FakeJUnitPrinter.h"

class wxTextFile;

namespace Ombrelia {

// Files, all below the working directory in "./scons-out/opt/tests/" + subDirectory:
//   special_flag_file_<pid>.dat   left at construction: a process of this run has started
//   <fileBaseName>.xml            a report that speaks for a process that dies; moved at construction
//   <fileBaseName>_<pid>.xml      the report, written by the destructor and by nothing else
// The directory must exist; without it the report is lost quietly. Every test's time is the constant
// 999: durations of the report are no measurements. No argument is escaped.
class ConcreteFakeJUnitPrinter : public FakeJUnitPrinter {
 public:
  // renameUnconditionally: moves a pre-existing report to the final name even if flag files show
  // that other processes of this run have started.
  ConcreteFakeJUnitPrinter(const wxString& fileBaseName, const wxString& subDirectory,
                           bool renameUnconditionally);
  ~ConcreteFakeJUnitPrinter() override;
  ConcreteFakeJUnitPrinter(const ConcreteFakeJUnitPrinter&) = delete;
  ConcreteFakeJUnitPrinter& operator=(const ConcreteFakeJUnitPrinter&) = delete;

  void NewTestSuite(const wxString& suiteName) override;
  void AddPassingTestResult(const wxString& testName) override;
  void AddFailingTestResult(const wxString& testName, const wxString& subject,
                            const wxString& location, const wxString& message) override;

 private:
  static bool PreviousFlagFilesWereFound(const wxString& directory);
  void CreateOurFlagFile();
  void CreateNewFileOnDisk(const wxString& path);
  wxString ExpectedNameOfPreexistingFile() const;
  wxString NameForOurFinalResultsFile() const;
  // An entry up to its time, with room for length characters in all.
  wxString StartOfEntry(const wxString& testName, size_t length) const;
  int TimeOf(std::uint32_t tests) const;
  void CloseTheCurrentSuite();
  void FinalizeTheTotalContentOfOurArray();
  void FlushFileAndSaveToFinalDestination();
  void PrintArrayIntoFile(wxTextFile* file);

  int m_perTestTime;
  wxString m_perTestTimeText;
  std::uint32_t m_closedTests;
  std::uint32_t m_openTests;
  std::uint32_t m_closedFailures;
  std::uint32_t m_openFailures;
  // An entry may hold line feeds. Entry 0 of either array is kept free for the head that is known
  // only at the end, so that closing a suite does not move all its entries by one.
  wxArrayString m_reportLines;
  wxArrayString m_openSuiteLines;
  wxString m_openSuiteName;  // with the process suffix; empty until the first suite
  bool m_renameUnconditionally;
  wxString m_directory;  // with a trailing separator
  bool m_previousFlagFilesFound;
  unsigned long m_processId;
  wxString m_processIdText;
  wxString m_fileBaseName;
  bool m_unattended;
  bool m_arrayPrinted;
};

}  // namespace Ombrelia

#endif
