// Keeps test results as UTF-8 text in memory and writes them as a JUnit-shaped XML report.
#ifndef OMBRELIA_REPORT_CONCRETEFAKEJUNITPRINTER_H
#define OMBRELIA_REPORT_CONCRETEFAKEJUNITPRINTER_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "report/FakeJUnitPrinter.h"

class wxTempFile;

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
  void AppendLine(std::string& piece, const wxString& line) const;
  // Appends an entry up to its time and gives the piece that takes the rest.
  std::string& StartEntry(const wxString& testName);
  int TimeOf(std::uint32_t tests) const;
  void CloseTheCurrentSuite();
  void FinalizeTheTotalContentOfOurArray();
  void FlushFileAndSaveToFinalDestination();
  bool PrintArrayIntoFile(wxTempFile* file);  // false if the file did not take all

  int m_perTestTime;
  std::uint32_t m_closedTests;
  std::uint32_t m_openTests;
  std::uint32_t m_closedFailures;
  std::uint32_t m_openFailures;
  // The bytes of the file in order. The head of the report and of each suite has a piece of its own,
  // since it is known only when all that follows it is there; so nothing is ever moved or put together.
  std::vector<std::string> m_reportPieces;
  std::size_t m_headOfOpenSuite;  // index of its piece
  std::string m_lineEnd;          // the platform's
  wxString m_openSuiteName;       // with the process suffix; empty until the first suite
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
