// Keeps all that one verification of a data file read, compared and recorded.
#ifndef OMBRELIA_HOST_RESULTS_VERIFICATIONRECORDER_H
#define OMBRELIA_HOST_RESULTS_VERIFICATIONRECORDER_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <list>
#include <variant>
#include <vector>

#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "framework/RowScan.h"
#include "framework/StimAreaData.h"
#include "framework/VerificationListener.h"
#include "host/results/RecordingTable.h"
#include "host/results/RunResults.h"
#include "report/FakeJUnitPrinter.h"

namespace OmbreliaHost {

// What a check compared the table with.
struct LengthComparison {
  wxString column;
  std::vector<wxString> expected;
};
struct CellsComparison {
  wxString column;
  int firstRow = 0;
  std::vector<wxString> expected;
};
struct ScanComparison {
  wxString column;
  Ombrelia::RowScan rule;
};
struct BoundComparison {
  int column = 0;
  int min = 0;
  int max = 0;
  long actual = 0;
};
struct AreasComparison {
  std::vector<Ombrelia::StimAreaData> actual;
  std::vector<Ombrelia::StimAreaData> expected;
};
using Comparison = std::variant<LengthComparison, CellsComparison, ScanComparison, BoundComparison,
                                AreasComparison>;

// One result, with what happened since the result before it.
struct RecordedCheck {
  wxString name;
  bool failed = false;
  wxString subject;  // this and the next two are empty for a passing test
  wxString location;
  wxString message;
  TableReads reads;
  std::vector<Comparison> comparisons;
};

// Listens from its construction to its end; one at a time. Takes the results as their printer.
class VerificationRecorder : public Ombrelia::FakeJUnitPrinter,
                             private Ombrelia::VerificationListener,
                             private MUInterfaceDataFileInputErrorHandler {
 public:
  // The bounds of this kind of machine apply, wherever the program runs.
  explicit VerificationRecorder(MachineKind machine);
  ~VerificationRecorder() override;
  VerificationRecorder(const VerificationRecorder&) = delete;
  VerificationRecorder& operator=(const VerificationRecorder&) = delete;

  MachineKind Machine() const { return m_machine; }
  const std::vector<RecordedCheck>& Checks() const { return m_checks; }
  // The table of the data file; null before one is made.
  const RecordingTable* Table() const { return m_table.get(); }
  // Whether there is such a table and it holds the data file.
  bool DatafileWasRead() const { return m_datafileWasRead; }
  // What the reader said of a data file that it could not read; empty for a good one.
  const std::vector<wxString>& WordsOfReader() const { return m_wordsOfReader; }

  void NewTestSuite(const wxString& suiteName) override;
  void AddPassingTestResult(const wxString& testName) override;
  void AddFailingTestResult(const wxString& testName, const wxString& subject,
                            const wxString& location, const wxString& message) override;

 private:
  boost::shared_ptr<MUExperimentTextReaderMultiFile> NewTable() override;
  bool RunsOnMachine(const wxString& hostNameText) override;
  void OnLength(const wxString& columnName, const std::vector<wxString>& expected) override;
  void OnCells(const wxString& columnName, int firstRow,
               const std::vector<wxString>& expected) override;
  void OnScan(const wxString& columnName, const Ombrelia::RowScan& rule) override;
  void OnBound(int column, int min, int max, long actual) override;
  void OnStimAreas(const std::vector<Ombrelia::StimAreaData>& actual,
                   const std::vector<Ombrelia::StimAreaData>& expected) override;
  void OnDataFileInputReports(
      std::list<MUInterfaceExperimentDataFileInputReader::DataFileInputError> reports) override;

  void Keep(RecordedCheck check);

  MachineKind m_machine;
  std::vector<RecordedCheck> m_checks;
  std::vector<Comparison> m_comparisons;  // since the last result
  boost::shared_ptr<RecordingTable> m_table;
  bool m_datafileWasRead = false;
  std::vector<wxString> m_wordsOfReader;
};

}  // namespace OmbreliaHost

#endif
