// The frame of every verifier: the fixed life of one data file inside the plug-in.
#ifndef OMBRELIA_FRAMEWORK_INDIVIDUALTESTCASE_T_H
#define OMBRELIA_FRAMEWORK_INDIVIDUALTESTCASE_T_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CommonTestHelperLogic.h"
#include "framework/RunTimes.h"
#include "framework/VerificationNecessities.h"
#include "plugin/DataHookOutputTestingPlugin.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

// X: the verifier's own class, so that each has a singleton of its own.
// EXPECT_EMPTY_DATAFILE: the experiment is to leave a data file that cannot be read; X must override
// OnNotifyUnableToReadDatafile and report success there.
//
// For each data file: a test suite, a passing entry test, the table, X's checks, and two records of
// run times. No step is skipped because a check failed, and no check throws. Between data files a
// verifier keeps the printer pointer and the last table, nothing else; X resets members of its own.
template <class X, bool EXPECT_EMPTY_DATAFILE>
class IndividualTestCase_T : public Interface_SpecificIndividualTestVerifier {
 public:
  // name: the experiment file's name, under which the verifier is registered unless the flag is set.
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

  // X's checks. Called once for each readable data file.
  virtual void RunAllVerificationTests(VerificationNecessities necessities) = 0;

  // Called instead of the checks for a data file that cannot be read.
  virtual void OnNotifyUnableToReadDatafile(FakeJUnitPrinter* printer) {
    if (!EXPECT_EMPTY_DATAFILE) return;
    printer->AddFailingTestResult(
        wxT("Failed_To_Override_Notifier_Function_OnNotifyUnableToReadDatafile"),
        wxT("Incorrect subclass of IndividualTestCase_T."),
        CommonTestHelperLogic::GetFileStringForLine(310, m_name),
        wxT("You set EXPECT_EMPTY_DATAFILE to true, which means you MUST override "
            "OnNotifyUnableToReadDatafile."));
  }

  // Holds the one instance of X. Each verifier defines it by OMBRELIA_DEFINE_VERIFIER.
  static boost::shared_ptr<X> m_singletonVerifier;

 protected:
  // Bounds, in milliseconds, both ends inclusive. exceptTestMachines: not on the two machines that
  // have bounds of their own, which the calls with a machine in their name give.
  void PerformBoundsTest(int min, int max, const wxString& columnName, bool isExpansion,
                         bool exceptTestMachines) {
    RunTimes::CheckBounds(*m_reader, m_printer, m_name, min, max, columnName, isExpansion,
                          exceptTestMachines);
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

  int GetColumnIndexFromText_StartsWith(const wxString& text) const {
    return RunTimes::ColumnIndexFromText_StartsWith(*m_reader, text);
  }
  int GetExpansionTime() const { return RunTimes::ExpansionTime(*m_reader); }

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

}  // namespace Ombrelia

// Defines the singleton of a verifier, whose constructor registers it. It stands at the end of the
// verifier's file, behind the texts that the constructor reads: as an explicit specialisation it is
// initialised in the order of the file, which a static of the generic template would not be.
#define OMBRELIA_DEFINE_VERIFIER(X, EXPECT_EMPTY_DATAFILE)                                     \
  template <>                                                                                  \
  boost::shared_ptr<Ombrelia::X>                                                               \
      Ombrelia::IndividualTestCase_T<Ombrelia::X, EXPECT_EMPTY_DATAFILE>::m_singletonVerifier( \
          new Ombrelia::X)

#endif
