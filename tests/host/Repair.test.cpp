// The subcommand that makes a well-formed copy of a report that a host has left.
#include <sys/stat.h>
#include <unistd.h>

#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class RepairTest : public VerifyDatafilesTest {
 protected:
  // A report of one data file with one failing test besides.
  static std::string ReportWithFailure(const std::string& subject, const std::string& message) {
    return ReportWith(4, 1,
                      FirstResults() + Passing("test003VerifyDatafile_was_called_for_bells.om5") +
                          Failing("test004bells_ring", subject, "Whichever/File:7", message));
  }
  // The failing test as the copy has it.
  XmlElement FailureIn(const std::string& copy) {
    const std::vector<XmlElement> failures =
        ElementsOf(ReadXml(ReadFile(m_folder / copy)), "failure");
    EXPECT_EQ(failures.size(), 1u);
    return failures.empty() ? XmlElement() : failures[0];
  }
};

TEST_F(RepairTest, ABrokenMessageIsNamedAndTheCopyHoldsIt) {
  const std::string report = ReportWithFailure("s", "first line\nwe saw {a]]>b} there");
  File("r.xml", report);
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "r.xml:12: the report is not well-formed XML (not well-formed (invalid token)); broken "
            "by test test004bells_ring\n"
            "r.xml: broken by ]]> in the message of test test004bells_ring, among the results of "
            "bells.om5\n"
            "    we saw {a]]>b} there\n"
            "r.repaired.xml: a well-formed copy, 4 tests, 1 failing\n");
  EXPECT_NE(FailureIn("r.repaired.xml").text.find("first line\nwe saw {a]]>b} there"),
            std::string::npos);
  EXPECT_EQ(ReadFile(m_folder / "r.xml"), report);
}

TEST_F(RepairTest, ABrokenSubjectIsNamedAndTheCopyHoldsIt) {
  File("r.xml", ReportWithFailure("a \"b\" & <c", "m"));
  const Finished finished = Verify({"repair", "r.xml", "--output", "copy.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("broken by \" in the subject of test test004bells_ring"),
            std::string::npos)
      << finished.out;
  EXPECT_NE(finished.out.find("\n    a \"b\" & <c\ncopy.xml: a well-formed copy"),
            std::string::npos)
      << finished.out;
  EXPECT_EQ(FailureIn("copy.xml")["message"], "a \"b\" & <c");
  EXPECT_FALSE(Exists(m_folder / "r.repaired.xml"));
}

TEST_F(RepairTest, BytesThatAreNoUtf8AreShown) {
  File("r.xml", ReportWithFailure("s", "\xC3\xA4 and \xA4 and \x1B"));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("broken by \\xA4 in the message"), std::string::npos) << finished.out;
  EXPECT_NE(finished.out.find("\n    \xC3\xA4 and \\xA4 and \\x1B\n"), std::string::npos)
      << finished.out;
  EXPECT_NE(FailureIn("r.repaired.xml").text.find("\xC3\xA4 and \\xA4 and \\x1B"),
            std::string::npos);
}

// The frame of a test, but not its number.
TEST_F(RepairTest, ATextThatImitatesATestIsNone) {
  const std::string imitated = "x]]>\n\n</failure>\n</testcase>\n" + Passing("test007imitated");
  File("r.xml", ReportWithFailure("s", imitated));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("broken by ]]> in the message of test test004bells_ring"),
            std::string::npos)
      << finished.out;
  EXPECT_NE(FailureIn("r.repaired.xml").text.find(imitated), std::string::npos);
}

// Nothing tells it from a test but the count in the report's head.
TEST_F(RepairTest, ATextThatImitatesATestWithItsNumberIsSaidToBeOneTooMany) {
  File("r.xml", ReportWithFailure("s", "x]]>\n\n</failure>\n</testcase>\n" +
                                           Passing("test005imitated") + "<![CDATA["));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_NE(finished.err.find("the report's head counts 4 tests, 1 failing, its entries are 5 "
                              "tests, 1 failing"),
            std::string::npos)
      << finished.err;
  EXPECT_EQ(ReadXml(ReadFile(m_folder / "r.repaired.xml")).name, "testsuites");
}

TEST_F(RepairTest, AGoodReportIsSaidToBeSoAndLeftAlone) {
  File("r.xml", ReportWithFailure("s", "m"));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "r.xml: the report is well-formed, 4 tests, 1 failing\n");
  EXPECT_EQ(NamesIn(m_folder.Path()), std::vector<std::string>{"r.xml"});
}

TEST_F(RepairTest, AGoodReportIsCopiedWhereAnOutputIsNamed) {
  const std::string report = ReportWithFailure("s", "m");
  File("r.xml", report);
  const Finished finished = Verify({"repair", "r.xml", "--output", "copy.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out,
            "r.xml: the report is well-formed, 4 tests, 1 failing\n"
            "copy.xml: a copy of it, byte for byte\n");
  EXPECT_EQ(ReadFile(m_folder / "copy.xml"), report);
}

TEST_F(RepairTest, TheReportIsNeverOverwritten) {
  const std::string report = ReportWithFailure("s", "a]]>b");
  File("r.xml", report);
  ASSERT_EQ(symlink("r.xml", (m_folder / "link.xml").c_str()), 0);
  ASSERT_EQ(link((m_folder / "r.xml").c_str(), (m_folder / "other.xml").c_str()), 0);
  for (const char* output : {"r.xml", "./r.xml", "link.xml", "other.xml"}) {
    const Finished finished = Verify({"repair", "r.xml", "--output", output});
    EXPECT_EQ(finished.status, 2);
    EXPECT_NE(finished.err.find("is the report itself, which is never overwritten"),
              std::string::npos)
        << finished.err;
    EXPECT_EQ(ReadFile(m_folder / "r.xml"), report);
  }
}

// Cut off in the middle of the last test.
TEST_F(RepairTest, ATruncatedReportIsMadeWellFormedAndSaidToBeShort) {
  const std::string report = ReportWithFailure("s", "m");
  File("r.xml", report.substr(0, report.find("Whichever")));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.err,
            "verify-datafiles: r.repaired.xml: the report's head counts 4 tests, 1 failing, its "
            "entries are 3 tests, 0 failing; the copy holds the tests that could be told apart\n");
  EXPECT_EQ(ElementsOf(ReadXml(ReadFile(m_folder / "r.repaired.xml")), "testcase").size(), 3u);
}

TEST_F(RepairTest, EveryTruncationEndsWithAWellFormedCopyOrAWord) {
  const std::string report = ReportWithFailure("a<b", "c]]>d");
  for (std::size_t length = 0; length < report.size(); length += 41) {
    File("r.xml", report.substr(0, length));
    unlink((m_folder / "r.repaired.xml").c_str());
    const Finished finished = Verify({"repair", "r.xml"});
    EXPECT_NE(finished.err, "") << length;
    if (finished.status == 2) {
      EXPECT_FALSE(Exists(m_folder / "r.repaired.xml")) << length;
    } else {
      EXPECT_EQ(finished.status, 3) << length;
      EXPECT_EQ(ReadXml(ReadFile(m_folder / "r.repaired.xml")).name, "testsuites") << length;
    }
  }
}

TEST_F(RepairTest, AMegabyteOfTextIsCutWhereItIsShown) {
  const std::string much(1000000, 'x');
  File("r.xml", ReportWithFailure("s", much + "]]>" + much));
  const Finished finished = Verify({"repair", "r.xml"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_LT(finished.out.size(), 1000u);
  EXPECT_NE(finished.out.find("xx]]>xx"), std::string::npos) << finished.out;
  EXPECT_NE(FailureIn("r.repaired.xml").text.find(much + "]]>" + much), std::string::npos);
}

// Starts of tests without end, and ends of tests that end none.
TEST_F(RepairTest, AMegabyteOfImitatedMarkupIsWorkedThrough) {
  for (const std::string& piece :
       {std::string("\n        <testcase name=\"test004"),
        std::string("\n        <testcase name=\"test005"),
        std::string("]]>\n\n</failure>\n</testcase>\n"),
        std::string("]]>\n\n</failure>\n</testcase>\n        <testcase name=\"test005x\" status=\""
                    "run\" time=\"")}) {
    std::string text;
    while (text.size() < 1000000) text += piece;
    for (const std::string& report : {ReportWithFailure("s", text), ReportWithFailure(text, "m"),
                                      ReportWithFailure("s", "m").substr(0, 400) + text}) {
      File("r.xml", report);
      const Finished finished = Verify({"repair", "r.xml"});
      EXPECT_NE(finished.status, 2) << finished.err.substr(0, 1000);
      // Character data may hold markup.
      const bool good = finished.out.find("the report is well-formed") != std::string::npos;
      EXPECT_EQ(ReadXml(ReadFile(m_folder / (good ? "r.xml" : "r.repaired.xml"))).name,
                "testsuites");
    }
  }
}

TEST_F(RepairTest, WhatIsNoReportIsRefused) {
  for (const std::string& content :
       {std::string(), std::string("\n"), std::string("not a report\n"), std::string("<html/>"),
        std::string(100000, '\0'), std::string("<a>").append(100000, '<')}) {
    File("r.xml", content);
    const Finished finished = Verify({"repair", "r.xml"});
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err,
              "verify-datafiles: r.xml: holds no result of any test; it is no report of the "
              "plug-in, or was cut off before the first one\n");
    EXPECT_EQ(finished.out, "");
    EXPECT_EQ(NamesIn(m_folder.Path()), std::vector<std::string>{"r.xml"});
  }
  EXPECT_EQ(Verify({"repair", "missing.xml"}).status, 2);
  EXPECT_EQ(Verify({"repair", "."}).status, 2);
  EXPECT_EQ(Verify({"repair"}).status, 2);
}

TEST_F(RepairTest, ACopyThatCannotBeWrittenLeavesWhatWasThere) {
  File("r.xml", ReportWithFailure("s", "a]]>b"));
  EXPECT_EQ(Verify({"repair", "r.xml", "--output", "no/such/folder.xml"}).status, 2);
  if (Exists("/dev/full")) {
    EXPECT_EQ(Verify({"repair", "r.xml", "--output", "/dev/full"}).status, 4);
  }
  File("copy.xml", "former");
  ASSERT_EQ(Verify({"repair", "r.xml", "--output", "copy.xml"}).status, 0);
  EXPECT_EQ(NamesIn(m_folder.Path()), (std::vector<std::string>{"copy.xml", "r.xml"}));
  EXPECT_NE(ReadFile(m_folder / "copy.xml"), "former");
}

TEST_F(RepairTest, AFileOfThatNameIsReachedByItsPath) {
  File("repair");
  EXPECT_EQ(Verify({"./repair"}).status, 1);
}

}  // namespace
}  // namespace Tests
