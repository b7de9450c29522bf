// Column matching and stimulus areas.
#include "framework/CommonTestHelperLogic.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/StimAreaTesting.h"
#include "tests/Deployment.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {
namespace {

using Ombrelia::CommonTestHelperLogic;
using Ombrelia::StimAreaData;
using Ombrelia::StimAreaTesting;

// A file in the working folder of the test program, and the table over it.
class OpenedFile {
 public:
  OpenedFile(const std::string& name, const std::string& bytes) : m_path(name) {
    FILE* const file = std::fopen(m_path.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
  }
  ~OpenedFile() { std::remove(m_path.c_str()); }
  boost::shared_ptr<MUExperimentTextReaderMultiFile> Open(bool expectFailure = false) {
    return CommonTestHelperLogic::GetReaderOrElseLogAnError(
        &m_printer, wxString::FromUTF8(m_path.c_str()), expectFailure);
  }
  RecordingPrinter m_printer;

 private:
  std::string m_path;
};

std::string FileOf(const std::vector<std::string>& cells) {
  std::string text = "p\nt\nd\n\nEvent\nName\n";
  for (const std::string& cell : cells) text += cell + "\n";
  return text;
}

struct Match {
  bool matches;
  unsigned int index;
  bool operator==(const Match& other) const {
    return matches == other.matches && index == other.index;
  }
};

Match MatchOf(const std::vector<std::string>& cells, const std::vector<wxString>& expected) {
  OpenedFile file("match.txt", FileOf(cells));
  unsigned int index = 77;
  const auto reader = file.Open();
  const bool matches = CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
      reader, wxT("Event\nName"), expected, &index);
  EXPECT_EQ(CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
                reader, wxT("Event\nName"), expected, nullptr),
            matches);
  return {matches, index};
}

TEST(ColumnContents, MatchUpToTheLengthOfTheVector) {
  EXPECT_EQ(MatchOf({"a", "b", "c"}, {wxT("a"), wxT("b")}), (Match{true, 9999999}));
  EXPECT_EQ(MatchOf({"a", "b"}, {wxT("a"), wxT("b")}), (Match{true, 9999999}));
  EXPECT_EQ(MatchOf({"a"}, {}), (Match{true, 9999999}));
}

TEST(ColumnContents, NameTheRowAtWhichTheyDiffer) {
  EXPECT_EQ(MatchOf({"a", "b", "c"}, {wxT("a"), wxT("x")}), (Match{false, 1}));
  EXPECT_EQ(MatchOf({"a", "b", "c"}, {wxT("x")}), (Match{false, 0}));
}

TEST(ColumnContents, RunOutBeforeTheVector) {
  EXPECT_EQ(MatchOf({"a"}, {wxT("a"), wxT("b")}), (Match{false, 1}));
}

TEST(ColumnContents, NeverMatchWithoutRows) {
  const boost::shared_ptr<MUExperimentTextReaderMultiFile> empty(
      new MUExperimentTextReaderMultiFile(nullptr));
  unsigned int index = 77;
  EXPECT_FALSE(CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
      empty, wxT("Event\nName"), {}, &index));
  EXPECT_EQ(index, 0U);
}

TEST(ColumnContentsDeathTest, AbortOnANullReader) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(CommonTestHelperLogic::ColumnContentsMatchGivenVectorUpTilVectorLength(
                   boost::shared_ptr<MUExperimentTextReaderMultiFile>(), wxT("x"), {}, nullptr),
               "px != 0");
}

TEST(Reader, IsReturnedForAGoodFileWithoutAnyResult) {
  OpenedFile file("good.txt", FileOf({"a", "b"}));
  const auto reader = file.Open();
  ASSERT_TRUE(reader);
  EXPECT_EQ(reader->GetNumberOfDataRows(), 2);
  EXPECT_EQ(reader->GetDataCellValue(1, 0), wxT("b"));
  EXPECT_TRUE(file.Open(true));
  EXPECT_EQ(file.m_printer.m_lines, Lines{});
}

TEST(Reader, IsNullForABadFile) {
  OpenedFile file("bad.name.txt", "too short");
  EXPECT_FALSE(file.Open());
  EXPECT_EQ(file.m_printer.m_lines,
            Lines{Fail("open_and_parse_bad.name", "this datafile was not open-able/parse-able",
                       "CommonTestHelperLogic_GetReaderOrElseLogAnError", 49,
                       "unable to construct a MUExperimentTextReaderMultiFile for this datafile")});
}

TEST(Reader, IsNullWithoutAnyResultWhenFailureIsExpected) {
  OpenedFile file("bad.txt", "too short");
  EXPECT_FALSE(file.Open(true));
  EXPECT_EQ(file.m_printer.m_lines, Lines{});
}

TEST(Location, PretendsToBeASourcePosition) {
  EXPECT_EQ(CommonTestHelperLogic::GetFileStringForLine(162, wxT("DataHookOutputTestingPlugin")),
            wxT("Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:162"));
  EXPECT_EQ(CommonTestHelperLogic::GetFileStringForLine(-1, wxT("a %s b")),
            wxT("Whichever/File/Focuses/On/Verifying/a %s b:-1"));
}

const StimAreaData AREA = {1, 2, 3, 4, wxT("name"), 5};

TEST(StimArea, IsBuiltWithItsArgumentsInAnotherOrderThanItsFields) {
  const StimAreaData area = StimAreaTesting::ExpectedData(1, 2, 3, 4, 5, wxT("name"));
  EXPECT_EQ(area.x, 1);
  EXPECT_EQ(area.y, 2);
  EXPECT_EQ(area.width, 3);
  EXPECT_EQ(area.height, 4);
  EXPECT_EQ(area.response_id, 5);
  EXPECT_EQ(area.area_name, wxT("name"));
}

TEST(StimArea, SatisfiesWhatAgreesOrDoesNotMatter) {
  EXPECT_TRUE(AREA.SatisfiesLooseEqualityWith(AREA));
  EXPECT_TRUE(AREA.SatisfiesLooseEqualityWith(
      StimAreaTesting::ExpectedData(98765, 98765, 98765, 98765, 98765, wxT("\t\t\t"))));
  for (int field = 0; field < 5; ++field) {
    int values[5] = {1, 2, 3, 4, 5};
    values[field] = 98765;
    EXPECT_TRUE(AREA.SatisfiesLooseEqualityWith(StimAreaTesting::ExpectedData(
        values[0], values[1], values[2], values[3], values[4], wxT("name"))));
    values[field] = 98764;
    EXPECT_FALSE(AREA.SatisfiesLooseEqualityWith(StimAreaTesting::ExpectedData(
        values[0], values[1], values[2], values[3], values[4], wxT("name"))));
  }
  EXPECT_FALSE(
      AREA.SatisfiesLooseEqualityWith(StimAreaTesting::ExpectedData(1, 2, 3, 4, 5, wxT("Name"))));
  EXPECT_FALSE(
      AREA.SatisfiesLooseEqualityWith(StimAreaTesting::ExpectedData(1, 2, 3, 4, 5, wxT("\t\t"))));
}

TEST(StimArea, MayBeAnythingOnTheExpectedSideAlone) {
  StimAreaData actual = AREA;
  actual.x = 98765;
  StimAreaData expected = AREA;
  expected.x = 0;
  EXPECT_FALSE(actual.SatisfiesLooseEqualityWith(expected));
  actual = AREA;
  actual.area_name = wxT("\t\t\t");
  EXPECT_FALSE(actual.SatisfiesLooseEqualityWith(AREA));
}

using Areas = std::vector<StimAreaData>;

Lines SequenceRecord(const Areas& actual, const Areas& expected) {
  RecordingPrinter printer;
  CommonTestHelperLogic::BothPlatforms_VerifySequentialStimData(actual, expected, &printer,
                                                                wxT("here:7"));
  return printer.m_lines;
}

TEST(StimAreas, PassOnceWhenAllAgree) {
  EXPECT_EQ(SequenceRecord({AREA, AREA}, {AREA, AREA}),
            Lines{"pass StimArea_vector_is_complete_and_in_order"});
  EXPECT_EQ(SequenceRecord({}, {}), Lines{"pass StimArea_vector_is_complete_and_in_order"});
}

TEST(StimAreas, FailByLengthAlone) {
  EXPECT_EQ(SequenceRecord({AREA, AREA}, {AREA}),
            Lines{"FAIL Correct_quantity_of_stim_areas | Too many data stim areas. More than "
                  "expected. | here:7 | No extra info."});
  EXPECT_EQ(SequenceRecord({}, {AREA}),
            Lines{"FAIL Correct_quantity_of_stim_areas | Too few stim areas. Fewer than expected. "
                  "| here:7 | No extra info."});
}

TEST(StimAreas, NameTheFirstPlaceThatDiffers) {
  StimAreaData other = AREA;
  other.height = 40;
  EXPECT_EQ(SequenceRecord({AREA, other, other}, {AREA, AREA, AREA}),
            Lines{"FAIL StimArea_vector_is_complete_and_in_order | Unexpected info in the vector "
                  "of stim areas. | here:7 | Stim area problem in the 1_th position in the stim "
                  "area sequence."});
}

TEST(StimAreas, AreCheckedOnTheMacAndNotOnWindows) {
  RecordingPrinter printer;
  CommonTestHelperLogic::Win32_VerifySequentialStimData({AREA}, {}, &printer, wxT("here:7"));
  EXPECT_EQ(printer.m_lines, Lines{});
  CommonTestHelperLogic::MacOSX_VerifySequentialStimData({AREA}, {AREA}, &printer, wxT("here:7"));
  EXPECT_EQ(printer.m_lines, Lines{"pass StimArea_vector_is_complete_and_in_order"});
  EXPECT_TRUE(CommonTestHelperLogic::RunningOnMacOSX());
}

TEST(StimAreas, ArePrintedOneToALine) {
  testing::internal::CaptureStderr();
  CommonTestHelperLogic::PrintStimAreaDataNicelyFormatted({AREA, AREA});
  const std::string line =
      "x:    1 | y:    2 | width:     3 | height:     4 | response_id:     5 | area_name:[name]\n";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), line + line);
}

// Does the process sleep?
bool Sleeps(pid_t process) {
  const std::string stat = ReadFile("/proc/" + std::to_string(process) + "/stat");
  const std::size_t state = stat.rfind(") ");
  return state != std::string::npos && stat[state + 2] == 'S';
}

// A process takes this host name, says that it has it, and asks for the loop. Returns its exit status,
// or WAITING once it sleeps, which only the loop does.
const int WAITING = 300;
int StatusOnHost(const std::string& name) {
  int said[2] = {};
  EXPECT_EQ(pipe(said), 0);
  const pid_t child = fork();
  if (child == 0) {
    const int status = TakeHostName(name.c_str());
    if (status != 0) _exit(status);
    if (write(said[1], "x", 1) != 1) _exit(1);
    CommonTestHelperLogic::ForceEntryIntoEndlessLoop_SoWeCanDebugBuildNode();
    _exit(0);
  }
  close(said[1]);
  char byte = 0;
  const bool asked = read(said[0], &byte, 1) == 1;
  close(said[0]);
  int status = 0;
  while (asked && waitpid(child, &status, WNOHANG) == 0) {
    if (Sleeps(child)) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return WAITING;
    }
  }
  if (!asked) waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Upper-cased by the function, since the configured text is in capitals.
const std::string BUILD_NODE = OMBRELIA_BUILD_NODE_HOST_PREFIX_IN_LOWER_CASE;

TEST(BuildNode, IsWaitedForWhereverItsTextStandsInTheName) {
  for (const std::string& name : {BUILD_NODE, BUILD_NODE + "-7", "the-" + BUILD_NODE}) {
    const int status = StatusOnHost(name);
    if (status == NOT_PERMITTED) GTEST_SKIP() << "no host name of its own is permitted here";
    EXPECT_EQ(status, WAITING) << name;
  }
}

TEST(BuildNode, IsNotWaitedForElsewhere) {
  const int status = StatusOnHost(ORDINARY_MACHINE);
  if (status == NOT_PERMITTED) GTEST_SKIP() << "no host name of its own is permitted here";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace Tests
