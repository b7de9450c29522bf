#include <sys/stat.h>

#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

const char* const HEADING = "x\ty\twidth\theight\tresponse_id\tarea_name\n";

class StimulusAreaTest : public VerifyDatafilesTest {
 protected:
  std::string CallFor(const std::string& areas) {
    File("d.om4 1.txt");
    File("d.om4 1.stimareas.tsv", areas);
    std::remove((m_folder / "calls").c_str());
    const Finished finished = VerifyWithReport(ReportWith(2, 0, FirstResults()), {"d.om4 1.txt"});
    EXPECT_EQ(finished.status, 0) << finished.err;
    return Calls();
  }
  std::string Expected(const std::string& areas) {
    return "process " + (m_folder / "d.om4 1.txt") + areas + "\nflush\n";
  }
  void ExpectRefused(const std::string& areas, const std::string& lineAndWhy) {
    File("good.txt");
    File("d.txt");
    File("d.stimareas.tsv", areas);
    const Finished finished = Verify({"good.txt", "d.txt"});
    EXPECT_EQ(finished.status, 2) << areas;
    EXPECT_EQ(finished.err,
              "verify-datafiles: " + (m_folder / "d.stimareas.tsv") + ":" + lineAndWhy + "\n");
    EXPECT_FALSE(AnythingRan());
  }
};

TEST_F(StimulusAreaTest, EveryFieldReachesThePlugin) {
  EXPECT_EQ(
      CallFor(std::string(HEADING) + "1\t-2\t300\t4\t5\tleft area\n98765\t0\t0\t0\t-1\t\xC3\xA4\n"),
      Expected(" [1,-2,300,4,5,left area] [98765,0,0,0,-1,\xC3\xA4]"));
}

TEST_F(StimulusAreaTest, NoFileMeansNone) {
  File("d.txt");
  EXPECT_EQ(VerifyWithReport(ReportWith(2, 0, FirstResults()), {"d.txt"}).status, 0);
  EXPECT_EQ(Calls(), "process " + (m_folder / "d.txt") + "\nflush\n");
}

TEST_F(StimulusAreaTest, TheHeadingAloneMeansNone) { EXPECT_EQ(CallFor(HEADING), Expected("")); }

TEST_F(StimulusAreaTest, AnEmptyNameAndOtherLineEndsAreFine) {
  EXPECT_EQ(
      CallFor(
          "x\ty\twidth\theight\tresponse_id\tarea_name\r\n1\t2\t3\t4\t5\t\r\n6\t7\t8\t9\t10\tn"),
      Expected(" [1,2,3,4,5,] [6,7,8,9,10,n]"));
}

TEST_F(StimulusAreaTest, OnlyTheExtensionTxtIsReplaced) {
  File("e.om4");
  File("e.om4.stimareas.tsv", std::string(HEADING) + "1\t2\t3\t4\t5\tn\n");
  File("e.stimareas.tsv", "not read");
  EXPECT_EQ(VerifyWithReport(ReportWith(2, 0, FirstResults()), {"e.om4"}).status, 0);
  EXPECT_EQ(Calls(), "process " + (m_folder / "e.om4") + " [1,2,3,4,5,n]\nflush\n");
}

TEST_F(StimulusAreaTest, AMalformedFileIsNamedWithItsLineBeforeAnythingRuns) {
  const std::string heading = HEADING;
  const std::string noHeading =
      "1: the heading line must be x, y, width, height, response_id, area_name, parted by tabs";
  ExpectRefused("", noHeading);
  ExpectRefused("1\t2\t3\t4\t5\tn\n", noHeading);
  ExpectRefused("x\ty\twidth\theight\tarea_name\tresponse_id\n", noHeading);
  ExpectRefused("x y width height response_id area_name\n", noHeading);
  ExpectRefused(heading + "1\t2\t3\t4\t5\n", "2: an area has 6 cells, this line has 5");
  ExpectRefused(heading + "1\t2\t3\t4\t5\tn\t6\n", "2: an area has 6 cells, this line has 7");
  ExpectRefused(heading + "1\t2\t3\t4\t5\tn\n\n", "3: an area has 6 cells, this line has 1");
  ExpectRefused(heading + "1\t2\t3\t4\t5\tn\n1\t\t3\t4\t5\tn\n",
                "3: y is \"\", which is no whole number");
  ExpectRefused(heading + "1.5\t2\t3\t4\t5\tn\n", "2: x is \"1.5\", which is no whole number");
  ExpectRefused(heading + "1\t2\t 3\t4\t5\tn\n", "2: width is \" 3\", which is no whole number");
  ExpectRefused(heading + "1\t2\t3\t2147483648\t5\tn\n",
                "2: height is \"2147483648\", which is no whole number");
  ExpectRefused(heading + "1\t2\t3\t4\tfive\tn\n",
                "2: response_id is \"five\", which is no whole number");
  ExpectRefused(heading + "1\t2\t3\t4\t5\t\xE4\n", "2: area_name is not UTF-8 text");
}

TEST_F(StimulusAreaTest, AFolderInItsPlaceIsRefused) {
  File("d.txt");
  ASSERT_EQ(mkdir((m_folder / "d.stimareas.tsv").c_str(), 0700), 0);
  const Finished finished = Verify({"d.txt"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_FALSE(AnythingRan());
}

}  // namespace
}  // namespace Tests
