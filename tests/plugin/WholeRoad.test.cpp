// The whole road: data files go through the built library in a process of its own, and the report is
// compared byte for byte. Files and reports are written out by hand.
#include <gtest/gtest.h>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/HostNameIs.h"
#include "tests/support/Process.h"

namespace {

const char* const ONE_TRIAL =
    "Robot\n"
    "Macro exit\n"
    "Mon Apr 02 2012 10:41:07\n"
    "Ombrelia data file\n"
    "Event\tCumulative\tExpansion Time(ms): 23\n"
    "Name\tTime\t\n"
    "event 1\t812\t-\n";

const char* const TWO_TRIALS_TOO_LONG =
    "Robot\n"
    "Macro exit\n"
    "Mon Apr 02 2012 10:41:07\n"
    "Ombrelia data file\n"
    "Event\tCumulative\tExpansion Time(ms): 5001\n"
    "Name\tTime\t\n"
    "event 1\t812\t-\n"
    "event 2\t1624\t-\n";

class WholeRoadTest : public testing::Test {
 protected:
  WholeRoadTest() { m_folder.MakeReportFolder(); }

  std::string File(const std::string& name, const std::string& content) {
    Tests::WriteFile(m_folder / name, content);
    return name;
  }
  std::string ReportOf(const std::vector<std::string>& files) {
    std::vector<std::string> steps = {"load"};
    for (const std::string& file : files) {
      steps.push_back("process");
      steps.push_back(file);
    }
    steps.push_back("flush");
    const Tests::Finished finished = Tests::DrivePlugin(m_folder.Path(), steps);
    EXPECT_EQ(finished.status, 0) << finished.err;
    return Tests::PidBlanked(
        Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(finished.pid)),
        finished.pid);
  }

  Tests::ScratchFolder m_folder;
};

TEST_F(WholeRoadTest, AGoodFileAnUnknownOneAFailingOneAndABrokenOne) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_exit_experiment.om4";
  const std::string report =
      ReportOf({File("2012_3_9_TOLMEY_2668_macro_exit_experiment.om4 1.txt", ONE_TRIAL),
                File("No Such experiment.om4 1.txt", ONE_TRIAL),
                File(experiment + " 2.txt", TWO_TRIALS_TOO_LONG), File(experiment + " 3.txt", "")});
  EXPECT_EQ(
      report,
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites tests=\"20\" failures=\"5\" disabled=\"0\" errors=\"0\" time=\"19980\" "
      "name=\"AllTests\">\n"
      "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
      "tests=\"2\" "
      "failures=\"0\" disabled=\"0\" errors=\"0\" time=\"1998\">\n"
      "        <testcase name=\"test001SingleDummyPassingTest\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
      "status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "    <testsuite name=\"2012_3_9_tolmey_2668_macro_exit_experiment.om4_pid_@PID@\" "
      "tests=\"9\" "
      "failures=\"1\" disabled=\"0\" errors=\"0\" time=\"8991\">\n"
      "        <testcase "
      "name=\"test003VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_exit_"
      "experiment.om4\" status=\"run\" time=\"999\" />\n"
      "        <testcase name=\"test004Experiment_exited_after_one_trial_as_expected\" "
      "status=\"run\" "
      "time=\"999\" />\n"
      "        <testcase "
      "name=\"test005Experiment_duration_2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test006Expansion_duration_2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test007__TIMING__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4__812_ms\" status=\"run\" time=\"999\" />\n"
      "        <testcase name=\"test008__EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_exit_"
      "experiment.om4__23_ms\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test009DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
      "status=\"run\" time=\"999\" />\n"
      "        <testcase name=\"test010locating_verifier_for_No Such experiment.om4 1\" "
      "status=\"run\" "
      "time=\"999\" >\n"
      "        <failure message=\"no logic was found to test this datafile. one cause could be "
      "DUPLICATE NAMES of datafiles\" type=\"\">\n"
      "\n"
      " <![CDATA[Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:162\n"
      "we should have found something mapped by name. it should have registered via "
      "DataHookOutputTestingPlugin::RegisterOneSingleVerifier]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "        <testcase "
      "name=\"test011DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
      "status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "    <testsuite name=\"2012_3_9_tolmey_2668_macro_exit_experiment.om4_pid_@PID@\" "
      "tests=\"7\" "
      "failures=\"3\" disabled=\"0\" errors=\"0\" time=\"6993\">\n"
      "        <testcase "
      "name=\"test012VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_exit_"
      "experiment.om4\" status=\"run\" time=\"999\" />\n"
      "        <testcase name=\"test013Experiment_exited_after_one_trial_as_expected\" "
      "status=\"run\" "
      "time=\"999\" >\n"
      "        <failure message=\"Something bad happened instead.\" type=\"\">\n"
      "\n"
      " <![CDATA[Whichever/File/Focuses/On/Verifying/"
      "2012_3_9_tolmey_2668_macro_exit_experiment.om4:43\n"
      "We expected the experiment to exit after one trial.]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "        <testcase "
      "name=\"test014Experiment_duration_2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4\" status=\"run\" time=\"999\" >\n"
      "        <failure message=\"Experiment duration is weird. Too short or too long (see details "
      "below).\" type=\"\">\n"
      "\n"
      " <![CDATA[Whichever/File/Focuses/On/Verifying/2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4:228\n"
      "Expected a duration between 800 and 900. Instead, we got a duration of 1624.]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "        <testcase "
      "name=\"test015Expansion_duration_2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4\" status=\"run\" time=\"999\" >\n"
      "        <failure message=\"Experiment duration is weird. Too short or too long (see details "
      "below).\" type=\"\">\n"
      "\n"
      " <![CDATA[Whichever/File/Focuses/On/Verifying/2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4:228\n"
      "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "        <testcase "
      "name=\"test016__TIMING__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment."
      "om4__1624_ms\" status=\"run\" time=\"999\" />\n"
      "        <testcase name=\"test017__EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_exit_"
      "experiment.om4__5001_ms\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test018DataHookOutputTestingPlugin_PerformPostProcessing_was_called\" "
      "status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "    <testsuite name=\"2012_3_9_tolmey_2668_macro_exit_experiment.om4_pid_@PID@\" "
      "tests=\"2\" "
      "failures=\"1\" disabled=\"0\" errors=\"0\" time=\"1998\">\n"
      "        <testcase "
      "name=\"test019VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_exit_"
      "experiment.om4\" status=\"run\" time=\"999\" />\n"
      "        <testcase "
      "name=\"test020open_and_parse_2012_3_9_tolmey_2668_macro_exit_experiment.om4 "
      "3\" status=\"run\" time=\"999\" >\n"
      "        <failure message=\"this datafile was not open-able/parse-able\" type=\"\">\n"
      "\n"
      " <![CDATA[Whichever/File/Focuses/On/Verifying/"
      "CommonTestHelperLogic_GetReaderOrElseLogAnError:"
      "49\n"
      "unable to construct a MUExperimentTextReaderMultiFile for this datafile]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "    </testsuite>\n"
      "</testsuites>\n");
}

// The small test machine has a separate duration bound and no expansion bound.
TEST_F(WholeRoadTest, OnTheSmallTestMachineItsOwnBoundsCount) {
  std::string slow = ONE_TRIAL;
  slow.replace(slow.find("812"), 3, "881");
  const std::string file = File("2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt", slow);
  Tests::ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  setup.beforeStart = [] { return Tests::TakeHostName(Tests::TESTBOX_MACHINE); };
  const Tests::Finished finished =
      Tests::RunProgram({std::string(OMBRELIA_BIN_DIR) + "/drive-plugin", OMBRELIA_PLUGIN_FILE,
                         "load", "process", file, "flush"},
                        setup);
  if (finished.status == Tests::NOT_PERMITTED)
    GTEST_SKIP() << "no host name of its own is permitted here";
  ASSERT_EQ(finished.status, 0) << finished.err;
  const std::string report =
      Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(finished.pid));
  EXPECT_EQ(
      Tests::TestCasesOf(report),
      (std::vector<std::string>{
          "test001SingleDummyPassingTest",
          "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
          "test003VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
          "test004Experiment_exited_after_one_trial_as_expected",
          "FAIL test005Experiment_duration_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
          "test006__TIMING__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment.om4__881_ms",
          "test007__EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment.om4__23_ms"}));
  EXPECT_NE(
      report.find("Expected a duration between 800 and 880. Instead, we got a duration of 881."),
      std::string::npos);
}

TEST_F(WholeRoadTest, ARunWithoutDataFilesHoldsTheOneDummyTest) {
  EXPECT_EQ(
      ReportOf({}),
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites tests=\"1\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"999\" "
      "name=\"AllTests\">\n"
      "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
      "tests=\"1\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"999\">\n"
      "        <testcase name=\"test001SingleDummyPassingTest\" status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "</testsuites>\n");
}

}  // namespace
