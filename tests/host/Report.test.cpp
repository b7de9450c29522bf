// Reading the report back: reports that are missing, malformed, or not what they say.
#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class ReportTest : public VerifyDatafilesTest {
 protected:
  ReportTest() {
    File("a.txt");
    File("b.txt");
  }
  // Status 3, the words after the report's path, and results of both data files all the same.
  void ExpectMalformed(const std::string& report, const std::string& words) {
    const Finished finished = VerifyWithReport(report, {"a.txt", "b.txt"});
    EXPECT_EQ(finished.status, 3);
    ExpectFirstLine(finished, words);
    for (const char* head : {"a.txt: ", "b.txt: ", "\nData files: 2"}) {
      EXPECT_NE(finished.out.find(head), std::string::npos) << finished.out;
    }
  }
  // On standard error, after the report's path.
  void ExpectFirstLine(const Finished& finished, const std::string& words) const {
    const std::string first = "verify-datafiles: " + ReportPath() + words + "\n";
    EXPECT_EQ(finished.err.substr(0, first.size()), first);
  }
  std::string A() const { return ", among the results of " + (m_folder / "a.txt"); }
  std::string B() const { return ", among the results of " + (m_folder / "b.txt"); }
};

const std::string SECOND_START =
    Passing("test003DataHookOutputTestingPlugin_PerformPostProcessing_was_called");

TEST_F(ReportTest, NoReportIsStatusFour) {
  const Finished finished = VerifyWithFake({"a.txt"}, {});
  EXPECT_EQ(finished.status, 4);
  EXPECT_EQ(finished.err,
            "verify-datafiles: " + ReportPath() + ": the report could not be written\n");
  // Once more without a data file, since it could be the data file's doing.
  EXPECT_EQ(Calls(), "process " + (m_folder / "a.txt") + "\nflush\nflush\n");
}

// A report of an earlier process with this id, or one that was placed in advance.
TEST_F(ReportTest, AnOlderReportIsNotTakenForThisRuns) {
  File("old", ReportWith(2, 0, FirstResults()));
  const Finished finished = VerifyWithFake({"a.txt"}, {"FAKE_STALE_REPORT=" + (m_folder / "old")});
  EXPECT_EQ(finished.status, 4);
  EXPECT_EQ(finished.err,
            "verify-datafiles: " + ReportPath() + ": the report could not be written\n");
}

TEST_F(ReportTest, AQuoteInASubjectIsBlamedOnItsTest) {
  ExpectMalformed(
      ReportWith(3, 1, FirstResults() + Failing("test003Bad_Subject", "say \"no\"", "l", "m")),
      ":7: the report is not well-formed XML (not well-formed (invalid token)); broken by test "
      "test003Bad_Subject" +
          A());
}

TEST_F(ReportTest, AMessageThatEndsTheCharacterDataIsBlamedOnItsTest) {
  ExpectMalformed(
      ReportWith(5, 1,
                 FirstResults() + SECOND_START + Failing("test004Bad_Message", "s", "l", "a]]>b") +
                     Passing("test005After")),
      ":11: the report is not well-formed XML (not well-formed (invalid token)); broken by test "
      "test004Bad_Message" +
          B());
}

TEST_F(ReportTest, AControlCharacterInAMessageIsBlamedOnItsTest) {
  ExpectMalformed(
      ReportWith(3, 1, FirstResults() + Failing("test003Control", "s", "l", "\x1B[1m")),
      ":10: the report is not well-formed XML (not well-formed (invalid token)); broken by test "
      "test003Control" +
          A());
}

TEST_F(ReportTest, ANameThatBreaksTheReportIsShownByItsLine) {
  ExpectMalformed(
      ReportWith(3, 0, FirstResults() + Passing("test003a<b")),
      ":6: the report is not well-formed XML (not well-formed (invalid token)); broken by the "
      "test after test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called" +
          A() + ":         <testcase name=\"test003a<b\" status=\"run\" time=\"999\" />");
}

TEST_F(ReportTest, ATruncatedReportIsMalformed) {
  const std::string whole = ReportWith(2, 0, FirstResults());
  ExpectMalformed(
      whole.substr(0, whole.find("    </testsuite>")),
      ":6: the report is not well-formed XML (no element found); broken by the test after "
      "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called" +
          A() + ": ");
  ExpectMalformed("", ":1: the report is not well-formed XML (no element found): ");
}

// Well-formed, and yet not what the plug-in recorded.
TEST_F(ReportTest, AMessageThatReadsAsFurtherTestsIsBlamedOnItsTest) {
  const std::string injection =
      "m]]></failure></testcase><testcase name=\"x\"/><testcase name=\"y\"><failure "
      "message=\"\"><![CDATA[";
  ExpectMalformed(
      ReportWith(4, 1,
                 FirstResults() + Failing("test003Injecting", "s", "l", injection) +
                     Passing("test004After")),
      ": the report is not as the plug-in counted it; broken by test test003Injecting" + A());
}

TEST_F(ReportTest, AnEntryWithoutANameIsBlamedOnTheTestBeforeIt) {
  ExpectMalformed(ReportWith(3, 0, FirstResults() + "<testcase/>"),
                  ": the report is not as the plug-in counted it; broken by test "
                  "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called" +
                      A());
}

TEST_F(ReportTest, CountsMustAgreeWithTheHead) {
  ExpectMalformed(
      ReportWith(4, 0, FirstResults() + SECOND_START),
      ": the report's head counts 4 tests, 0 failing, its entries are 3 tests, 0 failing, of 2 "
      "data files; 2 were handed over");
  ExpectMalformed(
      ReportWith(3, 1, FirstResults() + SECOND_START),
      ": the report's head counts 3 tests, 1 failing, its entries are 3 tests, 0 failing, of 2 "
      "data files; 2 were handed over");
}

TEST_F(ReportTest, EveryDataFileMustBeAccountedFor) {
  ExpectMalformed(
      ReportWith(2, 0, FirstResults()),
      ": the report's head counts 2 tests, 0 failing, its entries are 2 tests, 0 failing, of 1 "
      "data files; 2 were handed over");
}

TEST_F(ReportTest, ADeeplyNestedReportIsNoDanger) {
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  const Finished finished = VerifyWithReport(deep, {"a.txt"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.signal, 0);
}

TEST_F(ReportTest, ABigReportIsReadWhole) {
  std::string entries = FirstResults();
  for (int i = 3; i <= 20000; ++i) {
    const std::string number = (i < 10 ? "00" : i < 100 ? "0" : "") + std::to_string(i);
    entries += Passing("test" + number + "_t");
  }
  const Finished finished = VerifyWithReport(ReportWith(20000, 0, entries), {"a.txt"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("ok    a.txt: 19999 passed, 0 failed\n"), std::string::npos)
      << finished.out;
}

// With the real plug-in: a file's name reaches a test's name as it is.
TEST_F(ReportTest, AFileNameCanBreakTheRealReport) {
  File("x<y.txt");
  const Finished finished = Verify({"a.txt", "x<y.txt"});
  EXPECT_EQ(finished.status, 3);
  ExpectFirstLine(
      finished,
      ":15: the report is not well-formed XML (not well-formed (invalid token)); broken by the "
      "test after test004DataHookOutputTestingPlugin_PerformPostProcessing_was_called, among "
      "the "
      "results of " +
          (m_folder / "x<y.txt") +
          ":         <testcase name=\"test005locating_verifier_for_x<y\" status=\"run\" "
          "time=\"999\" >");
  EXPECT_NE(finished.err.find("broken by < in the name of test test005locating_verifier_for_x<y"),
            std::string::npos)
      << finished.err;
  EXPECT_NE(finished.out.find("FAIL  x<y.txt: 1 passed, 1 failed\n"), std::string::npos)
      << finished.out;
}

// With the real plug-in: this experiment's verifier quotes the cells of its file in a message.
class QuotedCellTest : public ReportTest {
 protected:
  // The sample of a correct host with another text in place of its second event's name.
  Finished VerifyWithEvent(const std::string& event) {
    const std::string was = "feedback event a";
    std::string content = ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles/" + NAME);
    const std::size_t cell = content.find(was);
    EXPECT_NE(cell, std::string::npos);
    if (cell != std::string::npos) content.replace(cell, was.size(), event);
    return Verify({File(NAME, content)});
  }
  // The cell is named, the results are those of the plug-in, and a copy of the report is good XML.
  void ExpectToldAllTheSame(const Finished& finished) const {
    EXPECT_NE(finished.err.find("from the cell of column Event Name, row 1, line 8, "),
              std::string::npos)
        << finished.err;
    EXPECT_NE(finished.out.find(std::string(NAME) + ": 6 passed, 1 failed\n"), std::string::npos)
        << finished.out;
    EXPECT_EQ(finished.out.find("other results"), std::string::npos) << finished.out;
    Arguments copies;
    for (const std::string& name : NamesIn(m_folder.ReportFolder())) {
      if (name.find(".repaired.xml") != std::string::npos) copies.push_back(name);
    }
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(TestCasesOf(ReadFile(m_folder.ReportFolder() + "/" + copies[0])).size(), 8u);
  }
  static constexpr const char* NAME = "fake_input_when_resp_is_fb_test.om5 1.txt";
  static inline const std::string TEST =
      "test004Use the fake input plugin to trigger feedback events when appropriate.";
};

TEST_F(QuotedCellTest, ACellThatEndsTheCharacterDataIsStatusThree) {
  const Finished finished = VerifyWithEvent("feed]]>back");
  EXPECT_EQ(finished.status, 3);
  ExpectFirstLine(finished,
                  ":16: the report is not well-formed XML (not well-formed (invalid token)); "
                  "broken by test " +
                      TEST + ", among the results of " + (m_folder / NAME));
  ExpectToldAllTheSame(finished);
}

// The report is good XML, but not what the plug-in recorded.
TEST_F(QuotedCellTest, ACellThatReadsAsAFurtherTestIsStatusThree) {
  const Finished finished = VerifyWithEvent(
      "]]></failure></testcase><testcase name=\"x\"><failure message=\"\"><![CDATA[");
  EXPECT_EQ(finished.status, 3);
  ExpectFirstLine(finished, ": the report is not as the plug-in counted it; broken by test " +
                                TEST + ", among the results of " + (m_folder / NAME));
  ExpectToldAllTheSame(finished);
}

TEST_F(QuotedCellTest, OtherMarkupInACellIsAnOrdinaryFailure) {
  const Finished finished = VerifyWithEvent("<feed & \"back\">");
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "");
  EXPECT_NE(
      finished.out.find("non-fb-event1, should show one fb; <feed & \"back\">; non-fb-event2"),
      std::string::npos)
      << finished.out;
}

}  // namespace
}  // namespace Tests
