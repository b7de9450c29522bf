// The frame of every verifier. It leads each data file through the same steps inside the plug-in.
#ifndef OMBRELIA_FRAMEWORK_INDIVIDUALTESTCASE_T_H
#define OMBRELIA_FRAMEWORK_INDIVIDUALTESTCASE_T_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CheckReport.h"
#include "framework/CommonTestHelperLogic.h"
#include "framework/RowScan.h"
#include "framework/RunTimes.h"
#include "framework/VerificationNecessities.h"
#include "plugin/DataHookOutputTestingPlugin.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

// X is the verifier's own class, so that each verifier has its own singleton.
// EXPECT_EMPTY_DATAFILE says that the experiment is to leave a data file that cannot be read. X must
// then override OnNotifyUnableToReadDatafile and report success there.
//
// Each data file gets a test suite, a passing entry test, X's checks and two records of run times.
// No step is skipped because a check failed, and no check throws. Between data files the frame keeps
// the printer pointer and the last table. X resets its own members at the start of its checks.
template <typename X, bool EXPECT_EMPTY_DATAFILE>
class IndividualTestCase_T : public Interface_SpecificIndividualTestVerifier {
 public:
  // name is the experiment file's name. The verifier is registered under it unless skipRegistration.
  IndividualTestCase_T(const wxString& name, bool skipRegistration)
      : m_printer(nullptr), m_name(name) {
    if (!skipRegistration) {
      DataHookOutputTestingPlugin::RegisterOneSingleVerifier(VerifierRegistrationInfo{name, this});
    }
  }

  void VerifyDatafile(const wxString& dataFilePath, const std::vector<StimAreaData>& stimAreas,
                      FakeJUnitPrinter* printer) override {
    m_printer = printer;
    printer->NewTestSuite(m_name);
    printer->AddPassingTestResult(wxT("VerifyDatafile_was_called_for_") + m_name);
    m_reader = CommonTestHelperLogic::GetReaderOrElseLogAnError(printer, dataFilePath,
                                                                EXPECT_EMPTY_DATAFILE);
    if (m_reader) {
      m_singletonVerifier->RunAllVerificationTests(
          VerificationNecessities{m_reader, printer, &stimAreas});
      RecordTotalDurationOfTheExperiment(m_reader);
      RecordExpansionTimeOfTheExperiment(m_reader);
    } else {
      m_singletonVerifier->OnNotifyUnableToReadDatafile(printer);
    }
  }

  // X's checks, called once for each readable data file. m_reader and m_printer are set.
  virtual void RunAllVerificationTests(VerificationNecessities necessities) = 0;

  // Called instead of the checks for a data file that cannot be read.
  virtual void OnNotifyUnableToReadDatafile(FakeJUnitPrinter* printer) {
    if (!EXPECT_EMPTY_DATAFILE) return;
    Ombrelia::ReportFailure(
        printer, m_name, wxT("Failed_To_Override_Notifier_Function_OnNotifyUnableToReadDatafile"),
        {wxT("Incorrect subclass of IndividualTestCase_T."), 310,
         wxT("You set EXPECT_EMPTY_DATAFILE to true, which means you MUST override "
             "OnNotifyUnableToReadDatafile.")});
  }

  // Owns the one instance of X, which verifies every data file. Null until OMBRELIA_DEFINE_VERIFIER.
  static boost::shared_ptr<X> m_singletonVerifier;

 protected:
  // Each records one result of a check. A failure's location names this experiment.
  void ReportPass(const wxString& testName) { m_printer->AddPassingTestResult(testName); }
  void ReportCheck(bool passed, const wxString& testName, const CheckFailure& failure) {
    Ombrelia::ReportCheck(m_printer, m_name, passed, testName, failure);
  }
  void ReportFailure(const wxString& testName, const CheckFailure& failure) {
    Ombrelia::ReportFailure(m_printer, m_name, testName, failure);
  }

  // Records one result: does the column "Event\nName" keep the rule? These checks share a subject.
  void CheckEventNames(const RowScan& rule, const wxString& testName, long line,
                       const wxString& message) {
    ReportCheck(rule.HoldsFor(*m_reader, wxT("Event\nName")), testName,
                {wxT("Something bad happened instead."), line, message});
  }

  // The table in hand. Rows and columns count from 0. ColumnOf wants the exact name and returns -1
  // if no column has it. CellAt returns "?" out of range.
  int RowCount() const { return m_reader->GetNumberOfDataRows(); }
  int ColumnOf(const wxString& columnName) const {
    return m_reader->GetColumnPositionNumberFromText(columnName);
  }
  wxString CellAt(int row, int column) const { return m_reader->GetDataCellValue(row, column); }

  // Bounds in milliseconds, both ends inclusive. With exceptTestMachines, nothing is checked on the two
  // test machines, which the _SmallTestBox and _MacServer calls are for.
  void PerformBoundsTest(int min, int max, const wxString& columnName, bool isExpansion,
                         bool exceptTestMachines) {
    if (exceptTestMachines && RunTimes::RunningOnATestMachine()) return;
    RunTimes::CheckBounds(*m_reader, m_printer, m_name, min, max, columnName, isExpansion);
  }
  void PerformDurationBoundsTest(int min, int max, bool exceptTestMachines) {
    PerformBoundsTest(min, max, wxT("Cumulative\nTime"), false, exceptTestMachines);
  }
  void PerformDurationBoundsTest_SmallTestBox(int min, int max) {
    if (RunTimes::RunningOnSmallTestBox()) PerformDurationBoundsTest(min, max, false);
  }
  void PerformDurationBoundsTest_MacServer(int min, int max) {
    if (RunTimes::RunningOnMacServer()) PerformDurationBoundsTest(min, max, false);
  }
  void PerformExpansionBoundsTest_MacServer(int min, int max) {
    if (RunTimes::RunningOnMacServer()) {
      PerformBoundsTest(min, max, EXPANSION_TIME_COLUMN_NAME, true, false);
    }
  }

  // Returns the place of the first displayed column whose name starts with text, case-sensitively, or
  // -1 if there is none.
  int GetColumnIndexFromText_StartsWith(const wxString& text) const {
    return RunTimes::ColumnIndexFromText_StartsWith(*m_reader, text);
  }
  // Returns the milliseconds in the expansion column's name, clamped to int, or -123 without a number.
  int GetExpansionTime() const { return RunTimes::ExpansionTime(*m_reader); }

  // Each records one passing test with the measured time in its name, or a failing one if the table
  // has no column for that time. The reader is not null and is not kept.
  void RecordTotalDurationOfTheExperiment(
      boost::shared_ptr<MUExperimentTextReaderMultiFile> reader) {
    RunTimes::RecordTotalDuration(*reader, m_printer, m_name);
  }
  void RecordExpansionTimeOfTheExperiment(
      boost::shared_ptr<MUExperimentTextReaderMultiFile> reader) {
    RunTimes::RecordExpansionTime(*reader, m_printer, m_name);
  }

  FakeJUnitPrinter* m_printer;                                  // not owned
  boost::shared_ptr<MUExperimentTextReaderMultiFile> m_reader;  // null after an unreadable file
  wxString m_name;
};

// Null from the start of the program. An initialiser of this variable would run in no fixed order, and could
// come after the one that makes the instance.
template <typename X, bool EXPECT_EMPTY_DATAFILE>
MU_CONSTANT_INITIALIZED boost::shared_ptr<X>
    IndividualTestCase_T<X, EXPECT_EMPTY_DATAFILE>::m_singletonVerifier;

}  // namespace Ombrelia

// Makes the one instance of a verifier, whose constructor registers it. The macro stands at the end of
// the verifier's file: initialisers of one file run in order, so the texts above it are there.
#define OMBRELIA_DEFINE_VERIFIER(X, EXPECT_EMPTY_DATAFILE)                                     \
  [[maybe_unused]] static const bool OMBRELIA_VERIFIER_OF_##X =                                \
      (Ombrelia::IndividualTestCase_T<Ombrelia::X, EXPECT_EMPTY_DATAFILE>::m_singletonVerifier \
           .reset(new Ombrelia::X),                                                            \
       true)

#endif
