// verify-datafiles explain.
#include <algorithm>

#include "host/results/Manifest.h"
#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/support/DataFile.h"

namespace {

using Tests::DataFile;
using Tests::Finished;

class ExplainTest : public Tests::VerifyDatafilesTest {
 protected:
  std::string Explain(const std::string& experiment) {
    const Finished explain = Verify({"explain", experiment});
    EXPECT_EQ(explain.status, 0) << explain.err;
    EXPECT_EQ(explain.err, "");
    return explain.out;
  }
};

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(ExplainTest, ShowsVerbatimColumnsAsRunsAndTheBoundsOfEachMachine) {
  EXPECT_EQ(Explain("two_sublists_tagging.om5"),
            R"(two_sublists_tagging.om5
  Tags of sublist items show in columns of their own.
  Verified by TwoSublistsTagging, explained by two_sublists_tagging.om5 1.txt.

Checks in order; rows count from 0:
  Data_appears_completely_and_in_order
    color holds these texts, in a table of 9 rows:
      0-2  blue
      3-4  red
      5-8  blue
  Data_appears_completely_and_in_order
    direction holds these texts, in a table of 9 rows:
      0-4  down
        5  up
      6-8  down
  __TIMING__TRACKING__two_sublists_tagging.om5__927_ms
    reads Cumulative Time, row 8
  __EXPANSION__TRACKING__two_sublists_tagging.om5__58_ms

Bounds in milliseconds, both ends included:
                                                machine   from     to
  Experiment_duration_two_sublists_tagging.om5  ordinary   900   5200
  Experiment_duration_two_sublists_tagging.om5  small      900  11600
  Experiment_duration_two_sublists_tagging.om5  large      900   1100
  Expansion_duration_two_sublists_tagging.om5   ordinary     0    400
  Expansion_duration_two_sublists_tagging.om5   large      150    250
)");
}

TEST_F(ExplainTest, ShowsARuleOnAllRows) {
  EXPECT_TRUE(Has(Explain("2012_3_9_tolmey_2668_macro_skip_trial.om4"),
                  "    Event Name holds these texts, in a table of 2 rows:\n"
                  "      0  event 1\n"
                  "      1  event 3\n"));
}

TEST_F(ExplainTest, ShowsARuleOnAnyRow) {
  EXPECT_TRUE(Has(Explain("2012_3_9_tolmey_2668_macro_goto_block_any.om4"),
                  "    Event Name holds each of these texts in some row, in a table of 2 rows:\n"
                  "      event 1\n"
                  "      event 3\n"));
}

TEST_F(ExplainTest, ShowsACount) {
  EXPECT_TRUE(Has(Explain("2012_3_9_tolmey_2668_macro_repeat_block.om4"),
                  "    Event Name holds this text in 3 rows, in a table of 3 rows:\n"
                  "      event 1\n"));
}

TEST_F(ExplainTest, ShowsWhatIsReadWhereNoMoreIsKnown) {
  const std::string text = Explain("2011-06-17_test_all_randomization_for_case_983.om4");
  EXPECT_TRUE(Has(text,
                  "  Rand_Trials_In_Block_Every_Time (may fail now and then)\n"
                  "    reads Event Name, rows "));
}

TEST_F(ExplainTest, ShowsStimulusAreas) {
  EXPECT_TRUE(Has(Explain("2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_"
                          "case_2405.om4"),
                  "    The stimulus areas are these, counted from 0:\n"
                  "      0  \"always\" at x 0, y 0, any width, any height, response 0\n"));
}

TEST_F(ExplainTest, ShowsColumnsThatAreLookedFor) {
  EXPECT_TRUE(Has(Explain("2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5"),
                  "    looks for a column X Position\n"));
}

// No check of a sample fails, and each test that the verifier records for it is explained.
TEST_F(ExplainTest, ExplainsAllTestsOfEachExperiment) {
  for (const auto& verifier : OmbreliaHost::Verifiers()) {
    const std::string text = Explain(verifier.experiment);
    EXPECT_FALSE(Has(text, "good data file")) << verifier.experiment;
    for (const std::string& line : DataFile::Sample(verifier.experiment).Verify()) {
      if (line.rfind("pass ", 0) != 0 || Has(line, "VerifyDatafile_was_called") ||
          Has(line, "CHECK_TIMESTAMP_"))
        continue;
      EXPECT_TRUE(Has(text, "\n  " + line.substr(5))) << verifier.experiment << ": " << line;
    }
  }
}

TEST_F(ExplainTest, TakesTheNameInAnyCase) {
  EXPECT_EQ(Explain("TWO_sublists_tagging.OM5"), Explain("two_sublists_tagging.om5"));
}

TEST_F(ExplainTest, SuggestsTheNameThatWasMeant) {
  const Finished explain = Verify({"explain", "two_sublists_taging.om5"});
  EXPECT_EQ(explain.status, 2);
  EXPECT_EQ(explain.out, "");
  EXPECT_EQ(
      explain.err,
      "verify-datafiles: two_sublists_taging.om5: no experiment with a verifier has this name; "
      "did you mean two_sublists_tagging.om5?\n");
}

TEST_F(ExplainTest, SuggestsNothingForAnotherName) {
  EXPECT_EQ(Verify({"explain", "x"}).err,
            "verify-datafiles: x: no experiment with a verifier has this name\n");
}

TEST_F(ExplainTest, LearnsFromADatafileThatIsGiven) {
  const std::string file =
      File("two_sublists_tagging.om5 9.txt", DataFile::Sample("two_sublists_tagging.om5").Text());
  const Finished explain = Verify({"explain", "two_sublists_tagging.om5", "--datafile", file});
  EXPECT_EQ(explain.status, 0) << explain.err;
  std::string wanted = Explain("two_sublists_tagging.om5");
  wanted.replace(wanted.find("om5 1.txt"), 9, "om5 9.txt");
  EXPECT_EQ(explain.out, wanted);
}

TEST_F(ExplainTest, SaysThatADatafileIsNotGood) {
  const std::string file =
      File("two_sublists_tagging.om5 9.txt",
           DataFile::Sample("two_sublists_tagging.om5").Set(0, "color", "x").Text());
  const Finished explain = Verify({"explain", "two_sublists_tagging.om5", "--datafile", file});
  EXPECT_EQ(explain.status, 0) << explain.err;
  EXPECT_TRUE(Has(explain.out,
                  "This is no good data file: where a test fails, some checks may not be shown."));
  EXPECT_TRUE(Has(explain.out, "  Data_appears_completely_and_in_order (fails)\n"));
}

TEST_F(ExplainTest, RefusesADatafileOfAnotherExperiment) {
  const std::string file = File("one_sublist_exp_randomization.om5 1.txt");
  const Finished explain = Verify({"explain", "two_sublists_tagging.om5", "--datafile", file});
  EXPECT_EQ(explain.status, 2);
  EXPECT_TRUE(Has(explain.err,
                  "one_sublist_exp_randomization.om5 1.txt: is no data file of "
                  "two_sublists_tagging.om5\n"))
      << explain.err;
}

TEST_F(ExplainTest, RefusesADatafileThatIsNotThere) {
  const Finished explain =
      Verify({"explain", "two_sublists_tagging.om5", "--datafile", "nothing.txt"});
  EXPECT_EQ(explain.status, 2);
  EXPECT_TRUE(Has(explain.err, "nothing.txt")) << explain.err;
}

TEST_F(ExplainTest, LeavesNoFlagFileAndNoReport) {
  m_folder.MakeReportFolder();
  Explain("two_sublists_tagging.om5");
  EXPECT_EQ(Tests::NamesIn(m_folder.ReportFolder()), std::vector<std::string>());
}

}  // namespace
