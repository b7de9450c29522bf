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

// The time of a suite or of the whole report, from its number of tests and the time of each. A product beyond int wraps
// round.
int TimeOfTests(std::uint32_t tests, int perTestTime);

// The writer uses these files, all below the working directory in "./scons-out/opt/tests/" + subDirectory:
//   special_flag_file_<pid>.dat   written at construction: a process of this run has started
//   <fileBaseName>.xml            placed there in advance, to be found as the report of a process that
//                                 dies; renamed to the next name at construction
//   <fileBaseName>_<pid>.xml      the report, written by the destructor and by nothing else
// The directory must exist. Without it, and if the destructor lacks the memory to put the report
// together, the report is lost and no exception leaves the destructor; wx may log the loss. Every test's
// time is the constant 999: durations of the report are no measurements.
class ConcreteFakeJUnitPrinter : public FakeJUnitPrinter {
 public:
  // renameUnconditionally: rename a report placed in advance even if flag files show that other processes
  // of this run have started.
  ConcreteFakeJUnitPrinter(const wxString& fileBaseName, const wxString& subDirectory,
                           bool renameUnconditionally);
  ~ConcreteFakeJUnitPrinter() override;
  ConcreteFakeJUnitPrinter(const ConcreteFakeJUnitPrinter&) = delete;
  ConcreteFakeJUnitPrinter& operator=(const ConcreteFakeJUnitPrinter&) = delete;

  // Puts the report together, so that the destructor needs no memory for that. If it throws, for want of
  // memory, the report takes further results and the call can be repeated. Otherwise it takes no more
  // results, and further calls do nothing.
  void FinalizeTheTotalContentOfOurArray();

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
  // The last piece, which takes the next entry.
  std::string& PieceForAnEntry();
  // The beginning of the next test's entry, up to its time.
  void AppendStart(std::string& text, const wxString& testName) const;
  void AppendHeadOfTheOpenSuite(std::string& text) const;
  // The attributes of a suite, or of the whole report, that count.
  std::string Counts(std::uint32_t tests, std::uint32_t failures) const;
  void CloseTheCurrentSuite();
  void FlushFileAndSaveToFinalDestination();
  bool PrintArrayIntoFile(wxTempFile* file);  // false if the file did not take all

  int m_perTestTime;
  std::uint32_t m_closedTests;
  std::uint32_t m_openTests;
  std::uint32_t m_closedFailures;
  std::uint32_t m_openFailures;
  // The bytes of the file in order. The heads of the report and of each suite hold counts that are known
  // only at its end, so each head is a separate piece, and no bytes are moved when it is filled in.
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
  wxString m_finalPath;  // of the report, once it is put together; empty before
  bool m_arrayPrinted;   // the report was handed to its file; prescribed, and nothing reads it
};

}  // namespace Ombrelia

#endif
