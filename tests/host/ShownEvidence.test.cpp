// What a user sees of a sample in which one thing is changed, from the data file to the printed text.
#include <gtest/gtest.h>

#include <sstream>

#include "host/print/JUnitPrinter.h"
#include "host/print/TerminalPrinter.h"
#include "host/results/ReportRepair.h"
#include "host/results/SecondVerification.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

const char* const TAGGING = "two_sublists_tagging.om5";

class ShownEvidenceTest : public VerifyDatafilesTest {
 protected:
  DatafileResult Result(const std::string& experiment, const DataFile& file) {
    return ResultOf(experiment, file.Text());
  }
  DatafileResult ResultOf(const std::string& experiment, const std::string& bytes) {
    const std::string name = File(experiment + " 3.txt", bytes);
    const OwnVerdict verdict = VerifyInThisProcess(m_folder / name, {}, MachineKind::Ordinary);
    DatafileResult result;
    result.path = name;
    result.experiment = verdict.experiment;
    result.outcome = verdict.outcome;
    result.tests = verdict.tests;
    return result;
  }
  // All that is shown of one failing test below the data file's line.
  static std::string Shown(const DatafileResult& result) {
    std::ostringstream out;
    TerminalPrinter(out, MachineKind::Ordinary, Verbosity::Normal, false).PrintDatafile(result);
    return out.str().substr(out.str().find('\n') + 1);
  }
};

TEST_F(ShownEvidenceTest, AWrongCellOfTwoComparedColumns) {
  EXPECT_EQ(
      Shown(Result(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", "blue"))),
      "  two_sublists_tagging.om5 3.txt:11: Data_appears_completely_and_in_order\n"
      "    Mismatch in the ordering of data cells in datafile.\n"
      "      line  row  color  expected  direction\n"
      "         9    2  blue             down\n"
      "        10    3  red              down\n"
      "    >   11    4  blue   red       down\n"
      "        12    5  blue             up\n"
      "        13    6  blue             down\n"
      "    At datafile row index 4 we expected {red}, but that was not the actual content.\n");
}

TEST_F(ShownEvidenceTest, ATrailingBlankAndALookAlike) {
  EXPECT_NE(Shown(Result(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", "red\xC2\xA0")))
                .find("    >   11    4  red\\u{A0}  red       down\n"),
            std::string::npos);
  const std::string shown = Shown(Result(TAGGING, DataFile::Sample(TAGGING).Set(4, "color",
                                                                                "r\xD0\xB5"
                                                                                "d")));
  EXPECT_NE(shown.find("character 2: U+0435 (\xD0\xB5) stands there, U+0065 (e) is expected.\n"),
            std::string::npos)
      << shown;
}

TEST_F(ShownEvidenceTest, ACellOf200Kb) {
  const DatafileResult result =
      Result(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", std::string(200 * 1024, 'r')));
  const std::string shown = Shown(result);
  EXPECT_LT(shown.size(), 2000u);
  EXPECT_NE(shown.find("\xE2\x80\xA6 (204800 characters)"), std::string::npos) << shown;
  EXPECT_EQ(result.tests.size(), 8u);
}

TEST_F(ShownEvidenceTest, ARowTooFewInTheMiddle) {
  const std::string shown = Shown(Result(TAGGING, DataFile::Sample(TAGGING).RemoveRow(4)));
  EXPECT_NE(shown.find("Correct_quantity_of_data_cells\n"
                       "    Too few data cells. Fewer than expected.\n"),
            std::string::npos)
      << shown;
  EXPECT_NE(shown.find(" rows, where "), std::string::npos) << shown;
  EXPECT_NE(shown.find("    Further cells that differ:\n"), std::string::npos) << shown;
}

TEST_F(ShownEvidenceTest, ADurationOutsideItsBounds) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_exit_experiment.om4";
  const std::string shown =
      Shown(Result(experiment, DataFile::Sample(experiment).SetDuration("99999")));
  EXPECT_NE(shown.find(" 3.txt:7: Experiment_duration_" + experiment + "\n"), std::string::npos)
      << shown;
  EXPECT_NE(shown.find("=] "), std::string::npos) << shown;
  EXPECT_NE(shown.find("* 99999\n    99999 is above the bounds of "), std::string::npos) << shown;
  EXPECT_NE(shown.find(", on an ordinary machine.\n"), std::string::npos) << shown;
}

TEST_F(ShownEvidenceTest, TheReadersOwnWords) {
  const std::string shown = Shown(ResultOf(TAGGING, std::string("\0\xFF\xFE\x01garbage", 12)));
  const std::string subject = "    this datafile was not open-able/parse-able\n";
  const std::size_t words = shown.find(subject);
  ASSERT_NE(words, std::string::npos) << shown;
  // Something stands between the subject and the message.
  EXPECT_NE(shown.find("    unable to construct"), words + subject.size()) << shown;
}

TEST_F(ShownEvidenceTest, HostileCellsLeaveTheJUnitReportWellFormed) {
  for (const char* hostile : {"<&\"'>", "a]]>b", "\x1B[31m", "\xFF\xC3", "::error::x"}) {
    RunResults results;
    results.datafiles = {Result(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", hostile))};
    std::ostringstream out;
    JUnitPrinter(out, "here").Print(results);
    EXPECT_EQ(ReadXml(out.str())["failures"], "1") << hostile;
  }
}

// The plug-in's own report, which the cell has broken, and the program's second verification.
TEST_F(ShownEvidenceTest, TheCellThatBrokeARealReportIsNamed) {
  const std::string experiment = "fake_input_when_resp_is_fb_test.om5";
  const DatafileResult result =
      Result(experiment, DataFile::Sample(experiment).Set(1, "Event\nName", "feed]]>back"));
  const Finished finished = Verify({result.path});
  EXPECT_EQ(finished.status, 3) << finished.err;
  const RepairedReport repaired = RepairReport(Reports().at(0), {result});
  ASSERT_EQ(repaired.faults.size(), 1u);
  EXPECT_EQ(DescribeFault(repaired.faults[0], {result}),
            "broken by ]]> in the message of test test004Use the fake input plugin to trigger "
            "feedback events when appropriate., from the cell of column Event Name, row 1, line 8, "
            "among the results of fake_input_when_resp_is_fb_test.om5 3.txt");
  const XmlElement report = ReadXml(repaired.text);
  EXPECT_EQ(ElementsOf(report, "testcase").size(), result.tests.size() + 1);
  EXPECT_NE(ElementsOf(report, "failure")[0].text.find("feed]]>back"), std::string::npos);
}

}  // namespace
}  // namespace Tests
