// What the report says, whole.
#include "report/ConcreteFakeJUnitPrinter.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "tests/support/Files.h"

namespace {

using Ombrelia::ConcreteFakeJUnitPrinter;
using Ombrelia::TimeOfTests;
using Tests::ScratchFolder;
using Tests::WorkingDirectory;

class PrinterTest : public testing::Test {
 protected:
  PrinterTest() : m_directory(m_folder.Path()), m_printer(Made()) {}

  static std::unique_ptr<ConcreteFakeJUnitPrinter> Made() {
    return std::make_unique<ConcreteFakeJUnitPrinter>(wxT("FakeUnitTestsDataHookExperimentRunning"),
                                                      wxT("auto_experiment_tests"), true);
  }
  // Ends the printer and gives its report, process ids blanked.
  std::string Report() {
    m_printer.reset();
    return Tests::PidBlanked(
        Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(getpid())), getpid());
  }

  struct Folder : ScratchFolder {
    Folder() { MakeReportFolder(); }
  } m_folder;
  WorkingDirectory m_directory;
  std::unique_ptr<ConcreteFakeJUnitPrinter> m_printer;
};

TEST_F(PrinterTest, WithoutResultsWritesOneEmptySuite) {
  EXPECT_EQ(Report(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\" "
            "name=\"AllTests\">\n"
            "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
            "tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\">\n"
            "    </testsuite>\n"
            "</testsuites>\n");
}

TEST_F(PrinterTest, WritesPassingAndFailingTestsInOrderAndNumbersThemAcrossSuites) {
  m_printer->AddPassingTestResult(wxT("SingleDummyPassingTest"));
  m_printer->NewTestSuite(wxT("some_experiment.om4"));
  m_printer->AddFailingTestResult(wxT("Name_Of_Test"), wxT("the subject"), wxT("the/location:7"),
                                  wxT("the message,\nin two lines"));
  m_printer->AddPassingTestResult(wxT("Another"));
  EXPECT_EQ(
      Report(),
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites tests=\"3\" failures=\"1\" disabled=\"0\" errors=\"0\" time=\"2997\" "
      "name=\"AllTests\">\n"
      "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
      "tests=\"1\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"999\">\n"
      "        <testcase name=\"test001SingleDummyPassingTest\" status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "    <testsuite name=\"some_experiment.om4_pid_@PID@\" "
      "tests=\"2\" failures=\"1\" disabled=\"0\" errors=\"0\" time=\"1998\">\n"
      "        <testcase name=\"test002Name_Of_Test\" status=\"run\" time=\"999\" >\n"
      "        <failure message=\"the subject\" type=\"\">\n"
      "\n"
      " <![CDATA[the/location:7\n"
      "the message,\n"
      "in two lines]]>\n"
      "\n"
      "</failure>\n"
      "</testcase>\n"
      "        <testcase name=\"test003Another\" status=\"run\" time=\"999\" />\n"
      "    </testsuite>\n"
      "</testsuites>\n");
}

TEST_F(PrinterTest, NewSuiteClosesTheEmptyDefaultSuite) {
  m_printer->NewTestSuite(wxT("next"));
  EXPECT_EQ(Report(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\" "
            "name=\"AllTests\">\n"
            "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
            "tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\">\n"
            "    </testsuite>\n"
            "    <testsuite name=\"next_pid_@PID@\" "
            "tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\">\n"
            "    </testsuite>\n"
            "</testsuites>\n");
}

TEST_F(PrinterTest, TheThousandthTestHasAFourDigitNumber) {
  for (int i = 0; i < 1000; ++i) m_printer->AddPassingTestResult(wxT("_t"));
  const std::string report = Report();
  EXPECT_NE(report.find("\"test009_t\""), std::string::npos);
  EXPECT_NE(report.find("\"test099_t\""), std::string::npos);
  EXPECT_NE(report.find("\"test999_t\""), std::string::npos);
  EXPECT_NE(report.find("\"test1000_t\""), std::string::npos);
  EXPECT_NE(report.find("tests=\"1000\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"999000\" "
                        "name=\"AllTests\""),
            std::string::npos);
}

TEST_F(PrinterTest, TheHeadCountsAllSuitesAlsoTheOneClosedLast) {
  m_printer->AddFailingTestResult(wxT("a"), wxT("s"), wxT("l"), wxT("m"));
  m_printer->NewTestSuite(wxT("one"));
  m_printer->AddPassingTestResult(wxT("b"));
  m_printer->AddFailingTestResult(wxT("c"), wxT("s"), wxT("l"), wxT("m"));
  m_printer->NewTestSuite(wxT("two"));
  m_printer->AddFailingTestResult(wxT("d"), wxT("s"), wxT("l"), wxT("m"));
  m_printer->AddPassingTestResult(wxT("e"));
  const std::string report = Report();
  EXPECT_NE(report.find("<testsuites tests=\"5\" failures=\"3\" disabled=\"0\" errors=\"0\" "
                        "time=\"4995\" name=\"AllTests\">"),
            std::string::npos);
  EXPECT_NE(report.find("<testsuite name=\"two_pid_@PID@\" tests=\"2\" failures=\"1\" "
                        "disabled=\"0\" errors=\"0\" time=\"1998\">"),
            std::string::npos);
  EXPECT_EQ(Tests::TestCasesOf(report),
            (std::vector<std::string>{"FAIL test001a", "test002b", "FAIL test003c", "FAIL test004d",
                                      "test005e"}));
}

TEST_F(PrinterTest, EscapesNothing) {
  m_printer->AddPassingTestResult(wxT("<&\">"));
  m_printer->AddFailingTestResult(wxT("n"), wxT("\"<&>"), wxT("l"), wxT("]]>"));
  const std::string report = Report();
  EXPECT_NE(report.find("<testcase name=\"test001<&\">\" status"), std::string::npos);
  EXPECT_NE(report.find("<failure message=\"\"<&>\" type=\"\">"), std::string::npos);
  EXPECT_NE(report.find(" <![CDATA[l\n]]>]]>\n"), std::string::npos);
}

TEST_F(PrinterTest, TakesFormatCharactersAsText) {
  m_printer->NewTestSuite(wxT("100%s%n"));
  m_printer->AddPassingTestResult(wxT("%d%s"));
  m_printer->AddFailingTestResult(wxT("%n"), wxT("%s"), wxT("%u"), wxT("%"));
  const std::string report = Report();
  EXPECT_NE(report.find("<testsuite name=\"100%s%n_pid_@PID@\""), std::string::npos);
  EXPECT_NE(report.find("<testcase name=\"test001%d%s\" status"), std::string::npos);
  EXPECT_NE(report.find("<failure message=\"%s\" type=\"\">\n\n <![CDATA[%u\n%]]>"),
            std::string::npos);
}

TEST_F(PrinterTest, WritesUtf8WithoutAByteOrderMark) {
  m_printer->AddPassingTestResult(wxT("\u00e4\u4e2d\U0001F600"));
  const std::string report = Report();
  EXPECT_EQ(report.compare(0, 5, "<?xml"), 0);
  EXPECT_NE(report.find("\"test001\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80\""), std::string::npos);
}

// Values that are no characters come out of data files in UTF-32; none may cost the other results.
TEST_F(PrinterTest, ReplacesValuesThatUtf8CannotHold) {
  const wchar_t name[] = {L'a',
                          static_cast<wchar_t>(0x110000),
                          static_cast<wchar_t>(0xD800),
                          static_cast<wchar_t>(0xDFFF),
                          static_cast<wchar_t>(0x10FFFF),
                          static_cast<wchar_t>(0xD7FF),
                          L'z',
                          L'\0'};
  m_printer->AddPassingTestResult(wxString(name));
  m_printer->AddPassingTestResult(wxT("another"));
  const std::string report = Report();
  EXPECT_NE(report.find("test001a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF4\x8F\xBF\xBF\xED\x9F\xBF"
                        "z\""),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("test002another\""), std::string::npos);
}

TEST_F(PrinterTest, KeepsLineEndsAndNulCharactersOfATextAsTheyAre) {
  m_printer->AddFailingTestResult(wxT("a\r\nb"), wxT("\r"), wxT("\n\r"), wxString(L"x\0y", 3));
  const std::string report = Report();
  EXPECT_NE(report.find("\"test001a\r\nb\" status"), std::string::npos);
  EXPECT_NE(report.find("<failure message=\"\r\" type=\"\">\n\n <![CDATA[\n\r\nx"),
            std::string::npos);
  EXPECT_NE(report.find(std::string("\nx") + '\0' + "y]]>\n\n</failure>\n</testcase>\n"),
            std::string::npos);
}

// A report far larger than any one block of memory that it may be kept in, and so is a single text of it.
TEST_F(PrinterTest, WritesALargeReportWholeAndInOrder) {
  const std::size_t large = 200000;
  std::string expected =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites tests=\"6003\" failures=\"3\" disabled=\"0\" errors=\"0\" time=\"5996997\" "
      "name=\"AllTests\">\n"
      "    <testsuite name=\"DefaultInitialTestSuite_ConcreteFakeJUnitPrinter_pid_@PID@\" "
      "tests=\"0\" failures=\"0\" disabled=\"0\" errors=\"0\" time=\"0\">\n"
      "    </testsuite>\n";
  int number = 0;
  const auto start = [&number] {
    char text[64];
    std::snprintf(text, sizeof text, "        <testcase name=\"test%03d", ++number);
    return std::string(text);
  };
  for (const std::string suite : {"one", "two", "three"}) {
    m_printer->NewTestSuite(suite);
    expected += "    <testsuite name=\"" + suite +
                "_pid_@PID@\" tests=\"2001\" failures=\"1\" "
                "disabled=\"0\" errors=\"0\" time=\"1998999\">\n";
    for (int i = 0; i < 1000; ++i) {
      m_printer->AddPassingTestResult(wxT("_before"));
      expected += start() + "_before\" status=\"run\" time=\"999\" />\n";
    }
    m_printer->AddFailingTestResult(wxT("n"), wxT("s"), wxString(L'l', large),
                                    wxString(L'\u4e2d', large));
    expected += start() +
                "n\" status=\"run\" time=\"999\" >\n        <failure message=\"s\" type=\"\">\n\n "
                "<![CDATA[" +
                std::string(large, 'l') + "\n";
    for (std::size_t i = 0; i < large; ++i) expected += "\xE4\xB8\xAD";
    expected += "]]>\n\n</failure>\n</testcase>\n";
    for (int i = 0; i < 1000; ++i) {
      m_printer->AddPassingTestResult(wxT("_after\u00e4"));
      expected += start() + "_after\xC3\xA4\" status=\"run\" time=\"999\" />\n";
    }
    expected += "    </testsuite>\n";
  }
  expected += "</testsuites>\n";
  EXPECT_TRUE(Report() == expected);  // too long to be shown
}

TEST_F(PrinterTest, TheSwitchForAHumanChangesNothing) {
  m_printer.reset();
  for (const char* value : {"1", ""}) {
    setenv("MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN", value, 1);
    m_printer = Made();
    m_printer->AddFailingTestResult(wxT("n"), wxT("s"), wxT("l"), wxT("m"));
    const std::string switched = Report();
    unsetenv("MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN");
    m_printer = Made();
    m_printer->AddFailingTestResult(wxT("n"), wxT("s"), wxT("l"), wxT("m"));
    EXPECT_EQ(switched, Report());
    EXPECT_EQ(
        Tests::NamesIn(m_folder.ReportFolder()),
        (std::vector<std::string>{Tests::ReportName(getpid()), Tests::FlagFileName(getpid())}));
  }
}

// Some 24 days of 999 ms each are the most that an int holds.
TEST(TimeOfTests, WrapsRoundBeyondInt) {
  EXPECT_EQ(TimeOfTests(0, 999), 0);
  EXPECT_EQ(TimeOfTests(2149633, 999), 2147483367);
  EXPECT_EQ(TimeOfTests(2149634, 999), -2147482930);
}

}  // namespace
