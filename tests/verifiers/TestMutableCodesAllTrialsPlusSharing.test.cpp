#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "trl_shared_in_blks_plus_change_code_for_TIB.om4";

const Lines PASSING = {
    "suite trl_shared_in_blks_plus_change_code_for_TIB.om4",
    "pass VerifyDatafile_was_called_for_trl_shared_in_blks_plus_change_code_for_TIB.om4",
    "pass Data_appears_completely_and_in_order",
    "pass Data_appears_completely_and_in_order",
    "pass Experiment_duration_trl_shared_in_blks_plus_change_code_for_TIB.om4",
    "pass Expansion_duration_trl_shared_in_blks_plus_change_code_for_TIB.om4",
    "pass __TIMING__TRACKING__trl_shared_in_blks_plus_change_code_for_TIB.om4__181_ms",
    "pass __EXPANSION__TRACKING__trl_shared_in_blks_plus_change_code_for_TIB.om4__23_ms"};

TEST(TestMutableCodesAllTrialsPlusSharing, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

TEST(TestMutableCodesAllTrialsPlusSharing, ComparesEachCellOfTheFirstBlocksCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "for_b1",
                           Cells({{5, ""},
                                  {2, "red"},
                                  {1, ""},
                                  {4, "red"},
                                  {1, ""},
                                  {2, "red"},
                                  {1, ""},
                                  {4, "red"},
                                  {1, ""},
                                  {2, "red"},
                                  {1, ""},
                                  {4, "red"},
                                  {1, ""},
                                  {2, "red"},
                                  {1, ""}}));
}

TEST(TestMutableCodesAllTrialsPlusSharing, ComparesEachCellOfTheSecondBlocksCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "for_b2",
                           Cells({{7, "8765"},
                                  {1, ""},
                                  {7, "8765"},
                                  {1, ""},
                                  {2, "8765"},
                                  {5, "0000"},
                                  {1, ""},
                                  {2, "8765"},
                                  {5, "0000"},
                                  {1, ""}}));
}

TEST(TestMutableCodesAllTrialsPlusSharing, FailsOnACodeThatWasNotChanged) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(18, "for_b2", "8765").Failures(),
            Lines{CellDiffers(EXPERIMENT, 18, "0000")});
}

TEST(TestMutableCodesAllTrialsPlusSharing, FailsOnAValueBehindTheLastRowOfAGroup) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(23, "for_b2", "0000").Failures(),
            Lines{CellDiffers(EXPERIMENT, 23, "")});
}

TEST(TestMutableCodesAllTrialsPlusSharing, ReportsBothColumnsAndTheBounds) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(4, "for_b1", "red")
                .Set(31, "for_b2", "0000")
                .SetDuration("301")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 4, ""), CellDiffers(EXPERIMENT, 31, ""),
                   DurationOutOfBounds(EXPERIMENT, 30, 300, "301")}));
}

TEST(TestMutableCodesAllTrialsPlusSharing, FailsOnAnyOtherLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(0).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(TestMutableCodesAllTrialsPlusSharing, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("for_b1").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("for_b2").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "8765")});
}

TEST(TestMutableCodesAllTrialsPlusSharing, ForgetsTheFileBefore) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).Failures().size(), 3u);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

}  // namespace
}  // namespace Tests
