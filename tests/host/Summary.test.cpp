// What the program prints of a run, whole.
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class SummaryTest : public VerifyDatafilesTest {};

TEST_F(SummaryTest, GivesEachFileItsResultsAcrossSuites) {
  File("a.txt");
  File("b.txt");
  const std::string report = ReportWith(
      7, 3,
      FirstResults() +
          Failing("test003First", "short &amp; clear", "the/location:7", "one\ntwo\n\nthree") +
          "    </testsuite>\n    <testsuite name=\"t\">\n" + Passing("test004Good") +
          Passing("test005DataHookOutputTestingPlugin_PerformPostProcessing_was_called") +
          Failing("test006Second", "", "l", "") +
          Failing("test007Third", "s", "l:1", "\xC3\xA4\xE4\xB8\xAD"));
  const Finished finished = VerifyWithReport(report, {"a.txt", "b.txt"});
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "ok    (plug-in loaded): 1 passed, 0 failed\n"
            "FAIL  a.txt: 2 passed, 1 failed\n"
            "    The second verification, which gives the evidence, has other results (1 passed, 1 "
            "failed); "
            "the plug-in's count.\n"
            "  a.txt: First\n"
            "    short & clear\n"
            "    one\n"
            "    two\n"
            "    \n"
            "    three\n"
            "    the/location:7\n"
            "FAIL  b.txt: 1 passed, 2 failed\n"
            "    The second verification, which gives the evidence, has other results (1 passed, 1 "
            "failed); "
            "the plug-in's count.\n"
            "  b.txt: Second\n"
            "    l\n"
            "  b.txt: Third\n"
            "    s\n"
            "    \xC3\xA4\xE4\xB8\xAD\n"
            "    l:1\n"
            "\n"
            "Not passed:\n"
            "  a.txt: 1 failed\n"
            "  b.txt: 2 failed\n"
            "\n"
            "Data files: 2; tests: 7, 4 passed, 3 failed\n"
            "Machine: ordinary\n"
            "Report: " +
                ReportPath() + "\n");
}

TEST_F(SummaryTest, ResultsBeforeTheFirstFileAreThePluginsOwn) {
  File("a.txt");
  const Finished finished = VerifyWithReport(
      ReportWith(
          3, 1,
          Passing("test001SingleDummyPassingTest") +
              Failing("test002TestingPluginDH_AssertionFailure_00001", "s", "l", "m") +
              Passing("test003DataHookOutputTestingPlugin_PerformPostProcessing_was_called")),
      {"a.txt"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out,
            "FAIL  (plug-in loaded): 1 passed, 1 failed\n"
            "  (plug-in loaded): TestingPluginDH_AssertionFailure_00001\n"
            "    s\n"
            "    m\n"
            "    l\n"
            "ok    a.txt: 1 passed, 0 failed\n"
            "\n"
            "Not passed:\n"
            "  (plug-in loaded): 1 failed\n"
            "\n"
            "Data files: 1; tests: 3, 2 passed, 1 failed\n"
            "Machine: ordinary\n"
            "Report: " +
                ReportPath() + "\n");
}

// A failing test of that name does not begin a data file, nor does a longer name.
TEST_F(SummaryTest, OnlyThePluginsOwnResultBeginsADataFile) {
  File("a.txt");
  const Finished finished = VerifyWithReport(
      ReportWith(
          4, 1,
          FirstResults() +
              Failing("test003DataHookOutputTestingPlugin_PerformPostProcessing_was_called", "s",
                      "l", "m") +
              Passing("test004DataHookOutputTestingPlugin_PerformPostProcessing_was_called_twice")),
      {"a.txt"});
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_NE(finished.out.find("FAIL  a.txt: 2 passed, 1 failed\n"), std::string::npos)
      << finished.out;
}

TEST_F(SummaryTest, ARealRunWithoutFailure) {
  const std::string name = "2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt";
  File(name,
       "Robot\nMacro exit\nMon Apr 02 2012 10:41:07\nOmbrelia data file\n"
       "Event\tCumulative\tExpansion Time(ms): 23\nName\tTime\t\nevent 1\t812\t-\n");
  const Finished finished = Verify({name});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "ok    (plug-in loaded): 1 passed, 0 failed\n"
            "ok    2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt: 7 passed, 0 failed\n"
            "\n"
            "Data files: 1; tests: 8, 8 passed, 0 failed\n"
            "Machine: ordinary\n"
            "Report: " +
                ReportPath() + "\n");
}

TEST_F(SummaryTest, ABrokenDataFileIsAFailingTestAndNoErrorOfTheProgram) {
  const std::string name = "2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt";
  File(name, std::string("\0\xFF\xFE\x01garbage", 12));
  const Finished finished = Verify({name});
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(
      finished.out,
      "ok    (plug-in loaded): 1 passed, 0 failed\n"
      "FAIL  2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt: 2 passed, 1 failed\n"
      "  2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt: "
      "open_and_parse_2012_3_9_tolmey_2668_macro_exit_experiment.om4 1\n"
      "    this datafile was not open-able/parse-able\n"
      "    Input file is missing an experiment name.  The first line of the file should contain "
      "the title of the experiment.\n"
      "    unable to construct a MUExperimentTextReaderMultiFile for this datafile\n"
      "\n"
      "Not passed:\n"
      "  2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt: unreadable\n"
      "\n"
      "Data files: 1; tests: 4, 3 passed, 1 failed\n"
      "Machine: ordinary\n"
      "Report: " +
          ReportPath() + "\n");
}

TEST_F(SummaryTest, NonAsciiNamesAreRightInEveryLocale) {
  const std::string stem =
      "\xC3\x9C"
      "bung_\xE5\xAE\x9F\xE9\xA8\x93";
  File(stem + ".om4 1.txt");
  for (const char* locale :
       {"LC_ALL=C", "LC_ALL=POSIX", "LC_ALL=C.UTF-8", "LC_ALL=no_SUCH.locale"}) {
    const Finished finished = Verify({stem + ".om4 1.txt"}, {locale});
    EXPECT_EQ(finished.status, 1) << finished.err;
    EXPECT_NE(finished.out.find("FAIL  " + stem +
                                ".om4 1.txt: 1 passed, 1 failed\n"
                                "  " +
                                stem + ".om4 1.txt: locating_verifier_for_" + stem + ".om4 1\n"),
              std::string::npos)
        << locale << "\n"
        << finished.out;
  }
  EXPECT_EQ(Reports().size(), 4u);
  for (const std::string& report : Reports()) {
    EXPECT_NE(report.find("\"test003locating_verifier_for_" + stem + ".om4 1\""),
              std::string::npos);
  }
}

// The plug-in must find the very file, so its path must survive the way there and back.
TEST_F(SummaryTest, ADataFileBelowANonAsciiFolderIsReadInEveryLocale) {
  const std::string folder =
      "\xC3\x9C"
      "bung";
  ScratchFolder elsewhere;
  ASSERT_EQ(rename(elsewhere.Path().c_str(), (m_folder / folder).c_str()), 0);
  const std::string name =
      folder + "/2012_3_9_tolmey_2668_macro_exit_experiment.om4 \xE5\xAE\x9F.txt";
  File(name,
       "Robot\nMacro exit\nMon Apr 02 2012 10:41:07\nOmbrelia data file\n"
       "Event\tCumulative\tExpansion Time(ms): 23\nName\tTime\t\nevent 1\t812\t-\n");
  for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"}) {
    const Finished finished = Verify({folder}, {locale});
    EXPECT_EQ(finished.status, 0) << locale << "\n" << finished.out << finished.err;
  }
}

TEST_F(SummaryTest, ANameThatIsNoUtf8StillFindsItsFile) {
  const std::string name = "2012_3_9_tolmey_2668_macro_exit_experiment.om4 \xE4.txt";
  File(name,
       "Robot\nMacro exit\nMon Apr 02 2012 10:41:07\nOmbrelia data file\n"
       "Event\tCumulative\tExpansion Time(ms): 23\nName\tTime\t\nevent 1\t812\t-\n");
  const Finished finished = Verify({name});
  EXPECT_EQ(finished.status, 0) << finished.out << finished.err;
  // The program's own words name the file by its bytes.
  EXPECT_NE(finished.out.find("ok    " + name + ": 7 passed, 0 failed\n"), std::string::npos)
      << finished.out;
}

// The byte gets a character of private use in the report, whose text is UTF-8 and stays well-formed.
TEST_F(SummaryTest, ANameThatIsNoUtf8MayFailLikeAnyOther) {
  const std::string name = "wrong \xE4 name.om4 1.txt";
  File(name);
  const Finished finished = Verify({name}, {"LC_ALL=C"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "ok    (plug-in loaded): 1 passed, 0 failed\n"
            "FAIL  wrong \xE4 name.om4 1.txt: 1 passed, 1 failed\n"
            "  wrong \xE4 name.om4 1.txt: locating_verifier_for_wrong \\u{1000E4} name.om4 1\n"
            "    no logic was found to test this datafile. one cause could be DUPLICATE NAMES of "
            "datafiles\n"
            "    we should have found something mapped by name. it should have registered via "
            "DataHookOutputTestingPlugin::RegisterOneSingleVerifier\n"
            "    Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:162\n"
            "\n"
            "Not passed:\n"
            "  wrong \xE4 name.om4 1.txt: unknown\n"
            "\n"
            "Data files: 1; tests: 3, 2 passed, 1 failed\n"
            "Machine: ordinary\n"
            "Report: " +
                ReportPath() + "\n");
}

TEST_F(SummaryTest, AssertionsReachThePluginOnce) {
  File("a.txt");
  WriteFile(m_folder / "report", ReportWith(2, 0, FirstResults()));
  const Finished finished =
      VerifyWithFake({"a.txt"}, {"FAKE_ASSERTION=1", "FAKE_REPORT=" + (m_folder / "report")});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const std::string calls = Calls();
  const std::size_t loading = calls.find("assertion ");
  const std::size_t processing = calls.find("assertion ", loading + 1);
  ASSERT_NE(processing, std::string::npos) << calls;
  EXPECT_EQ(calls.find("assertion ", processing + 1), std::string::npos) << calls;
  EXPECT_LT(loading, calls.find("process "));
  EXPECT_NE(calls.substr(loading, calls.find('\n', loading) - loading).find(": while loading"),
            std::string::npos)
      << calls;
  EXPECT_NE(calls.substr(processing).find("FakePlugin.cpp("), std::string::npos) << calls;
  EXPECT_NE(calls.substr(processing)
                .find("): assert \"false\" failed in PerformPostProcessing(): "
                      "while processing\nflush\n"),
            std::string::npos)
      << calls;
}

}  // namespace
}  // namespace Tests
