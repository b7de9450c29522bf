// The three calls that the host makes, and what they leave in the report.
#include <gtest/gtest.h>
#include <unistd.h>

#include <stdexcept>

#include "framework/StimAreaData.h"
#include "plugin/DataHookOutputTestingPlugin.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "report/FakeJUnitPrinter.h"
#include "tests/support/Files.h"

namespace {

using Ombrelia::DataHookOutputTestingPlugin;
using Cases = std::vector<std::string>;

// Reports what it was handed.
class TellingVerifier : public Ombrelia::Interface_SpecificIndividualTestVerifier {
 public:
  void VerifyDatafile(const wxString& dataFilePath,
                      const std::vector<Ombrelia::StimAreaData>& stimAreas,
                      Ombrelia::FakeJUnitPrinter* printer) override {
    printer->NewTestSuite(wxT("telling"));
    printer->AddPassingTestResult(
        wxString::Format(wxT("_got_%s_with_%zu_areas"), dataFilePath, stimAreas.size()));
  }
};

// Opens a suite and then throws what it is made with.
template <typename THROWN>
class ThrowingVerifier : public Ombrelia::Interface_SpecificIndividualTestVerifier {
 public:
  explicit ThrowingVerifier(THROWN thrown) : m_thrown(thrown) {}
  void VerifyDatafile(const wxString&, const std::vector<Ombrelia::StimAreaData>&,
                      Ombrelia::FakeJUnitPrinter* printer) override {
    printer->NewTestSuite(wxT("throwing"));
    throw m_thrown;
  }

 private:
  THROWN m_thrown;
};

void RegisterTellingVerifier() {
  static TellingVerifier verifier;
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier({wxT("Dispatch_Test.om4"), &verifier});
}

class DispatchTest : public testing::Test {
 protected:
  DispatchTest() : m_directory(m_folder.Path()) {
    m_folder.MakeReportFolder();
    RegisterTellingVerifier();
  }
  std::string ReportPath() const {
    return m_folder.ReportFolder() + "/" + Tests::ReportName(getpid());
  }
  Cases CasesOnDisk() const { return Tests::TestCasesOf(Tests::ReadFile(ReportPath())); }

  Tests::ScratchFolder m_folder;
  Tests::WorkingDirectory m_directory;
};

const char* const DUMMY = "test001SingleDummyPassingTest";
const char* const CALLED = "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called";

TEST_F(DispatchTest, LoadingAloneRecordsOnePassingTest) {
  DataHookOutputTestingPlugin plugin;
  EXPECT_EQ(Tests::NamesIn(m_folder.ReportFolder()), Cases{Tests::FlagFileName(getpid())});
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(), Cases{DUMMY});
}

TEST_F(DispatchTest, HandsPathAndAreasToTheVerifier) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("/a/dispatch_test.om4 7.txt"),
                               std::vector<Ombrelia::StimAreaData>(3));
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(),
            (Cases{DUMMY, CALLED, "test003_got_/a/dispatch_test.om4 7.txt_with_3_areas"}));
}

TEST_F(DispatchTest, FindsAFileWithoutBlankAndInOtherCase) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("DISPATCH_test.OM4.txt"), {});
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(),
            (Cases{DUMMY, CALLED, "test003_got_DISPATCH_test.OM4.txt_with_0_areas"}));
}

TEST_F(DispatchTest, AFileWithoutVerifierAddsTwoTestsAndTheNextOneIsStillProcessed) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("/a/Nobody Knows this.txt"), {});
  plugin.PerformPostProcessing(wxT("dispatch_test.om4 1.txt"), {});
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(),
            (Cases{DUMMY, CALLED, "FAIL test003locating_verifier_for_Nobody Knows this",
                   "test004DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
                   "test005_got_dispatch_test.om4 1.txt_with_0_areas"}));
  EXPECT_NE(
      Tests::ReadFile(ReportPath())
          .find("        <testcase name=\"test003locating_verifier_for_Nobody Knows this\" "
                "status=\"run\" time=\"999\" >\n"
                "        <failure message=\"no logic was found to test this datafile. one cause "
                "could "
                "be DUPLICATE NAMES of datafiles\" type=\"\">\n\n"
                " <![CDATA[Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:162\n"
                "we should have found something mapped by name. it should have registered via "
                "DataHookOutputTestingPlugin::RegisterOneSingleVerifier]]>\n\n"
                "</failure>\n</testcase>\n"),
      std::string::npos);
}

TEST_F(DispatchTest, ANameThatBeginsWithABlankIsNotFound) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("/a/ dispatch_test.om4 1.txt"), {});
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(),
            (Cases{DUMMY, CALLED, "FAIL test003locating_verifier_for_ dispatch_test.om4 1"}));
}

// The next file's first result stands in the suite that is still open.
TEST_F(DispatchTest, TheCallIsRecordedInTheSuiteThatIsOpen) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("dispatch_test.om4 1.txt"), {});
  plugin.PerformPostProcessing(wxT("unknown"), {});
  plugin.FlushTestOutput();
  const std::string report = Tests::PidBlanked(Tests::ReadFile(ReportPath()), getpid());
  EXPECT_NE(
      report.find("    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_"
                  "@PID@\" tests=\"2\" failures=\"0\""),
      std::string::npos);
  EXPECT_NE(report.find("    <testsuite name=\"telling_pid_@PID@\" tests=\"3\" failures=\"1\""),
            std::string::npos);
}

TEST_F(DispatchTest, AnAssertionFailureCountsToTheVerifierThatRanLast) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("dispatch_test.om4 1.txt"), {});
  EXPECT_TRUE(plugin.LogAssertionFailureAsTestFailure(wxT("some assertion")));
  plugin.FlushTestOutput();
  const std::string report = Tests::PidBlanked(Tests::ReadFile(ReportPath()), getpid());
  const std::size_t suite =
      report.find("    <testsuite name=\"telling_pid_@PID@\" tests=\"2\" failures=\"1\"");
  ASSERT_NE(suite, std::string::npos) << report;
  EXPECT_NE(report.find("TestingPluginDH_AssertionFailure_", suite), std::string::npos);
}

// The host sees no exception; the report does, in the suite of the verifier that threw it.
TEST_F(DispatchTest, AnExceptionIsAFailingTestOfTheVerifierThatThrewIt) {
  static ThrowingVerifier<std::runtime_error> standard(std::runtime_error("caf\xC3\xA9 is closed"));
  static ThrowingVerifier<int> number(7);
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier({wxT("throws_standard.om4"), &standard});
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier({wxT("throws_number.om4"), &number});
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("throws_standard.om4 1.txt"), {});
  plugin.PerformPostProcessing(wxT("throws_number.om4 1.txt"), {});
  plugin.FlushTestOutput();
  const auto failure = [](const std::string& testNumber, const std::string& what) {
    return "        <testcase name=\"test" + testNumber +
           "TestingPluginDH_Exception_in_PerformPostProcessing\" status=\"run\" time=\"999\" >\n"
           "        <failure message=\"an exception ended this operation, later checks did not "
           "run\" "
           "type=\"\">\n\n"
           " <![CDATA[Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:210\n"
           "the exception is: " +
           what + "]]>\n\n</failure>\n</testcase>\n";
  };
  EXPECT_EQ(
      Tests::PidBlanked(Tests::ReadFile(ReportPath()), getpid()),
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites tests=\"5\" failures=\"2\" disabled=\"0\" errors=\"0\" time=\"4995\" "
      "name=\"AllTests\">\n"
      "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
      "tests=\"2\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"1998\">\n"
      "        <testcase name=\"test001SingleDummyPassingTest\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
      "status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "    <testsuite name=\"throwing_pid_@PID@\" tests=\"2\" failures=\"1\" disabled=\"0\" "
      "errors=\"0\" time=\"1998\">\n" +
          failure("003", "caf\xC3\xA9 is closed") +
          "        <testcase "
          "name=\"test004DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
          "status=\"run\" time=\"999\" />\n"
          "    </testsuite>\n"
          "    <testsuite name=\"throwing_pid_@PID@\" tests=\"1\" failures=\"1\" "
          "disabled=\"0\" errors=\"0\" time=\"999\">\n" +
          failure("005", "unknown") +
          "    </testsuite>\n"
          "</testsuites>\n");
}

TEST_F(DispatchTest, ASecondFlushInARowDoesNothing) {
  DataHookOutputTestingPlugin plugin;
  plugin.FlushTestOutput();
  ASSERT_EQ(unlink(ReportPath().c_str()), 0);
  plugin.FlushTestOutput();
  EXPECT_FALSE(Tests::Exists(ReportPath()));
}

TEST_F(DispatchTest, AResultAfterTheFlushStartsANewReportThatReplacesTheFirst) {
  DataHookOutputTestingPlugin plugin;
  plugin.PerformPostProcessing(wxT("unknown"), {});
  plugin.FlushTestOutput();
  const std::string first = Tests::ReadFile(ReportPath());
  plugin.PerformPostProcessing(wxT("dispatch_test.om4 1.txt"), {});
  EXPECT_EQ(Tests::ReadFile(ReportPath()), first);
  plugin.FlushTestOutput();
  EXPECT_EQ(CasesOnDisk(),
            (Cases{DUMMY, CALLED, "test003_got_dispatch_test.om4 1.txt_with_0_areas"}));
}

TEST_F(DispatchTest, DestructionWritesWhatWasNotFlushed) {
  { DataHookOutputTestingPlugin plugin; }
  EXPECT_EQ(CasesOnDisk(), Cases{DUMMY});
}

TEST_F(DispatchTest, NamesItselfByNumberAndLeavesTextsAlone) {
  const DataHookOutputTestingPlugin plugin;
  EXPECT_EQ(plugin.GetPlugInID(), -7654);
  EXPECT_EQ(static_cast<unsigned>(plugin.GetPlugInID()), 0xFFFFE21Au);
  wxString text = wxT("untouched");
  plugin.GetString(0, text);
  plugin.GetString(-1, text);
  EXPECT_EQ(text, wxString(wxT("untouched")));
}

}  // namespace
