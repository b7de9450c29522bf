#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5";

const std::string CHECK_FAILED =
    Fail("Tolmey_3229_exclude_pixel", "Datafile columns are NOT as expected.", EXPERIMENT, 57,
         "we wanted to FIND the pressed column and NOT find the pixels columns.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestColumnsExcludedTolmey3229, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5",
             "pass VerifyDatafile_was_called_for_2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5",
             "pass Tolmey_3229_exclude_pixel",
             "pass Experiment_duration_2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5",
             "pass Expansion_duration_2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5",
             "pass __TIMING__TRACKING__2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5__61_ms",
             "pass __EXPANSION__TRACKING__"
             "2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5__36_ms"}));
}

TEST(TestColumnsExcludedTolmey3229, WantsBothColumns) {
  for (const char* column : {"Key", "Pressed Or\nReleased"}) {
    EXPECT_EQ(Sample().RemoveColumn(column).Failures(), Lines{CHECK_FAILED});
  }
}

TEST(TestColumnsExcludedTolmey3229, AColumnInTheFirstPlaceDoesNotCount) {
  for (const char* column : {"Key", "Pressed Or\nReleased"}) {
    EXPECT_EQ(Sample().MoveColumnToFront(column).Failures(), Lines{CHECK_FAILED});
    EXPECT_EQ(Sample().MoveColumnToFront(column).MoveColumnToFront("Block\nName").Failures(),
              Lines{});
  }
}

TEST(TestColumnsExcludedTolmey3229, DoesNotWantThePixelColumnsAnywhere) {
  for (const char* column : {"X\nPosition", "Y\nPosition"}) {
    EXPECT_EQ(Sample().RenameColumn("Error\nCode", column).Failures(), Lines{CHECK_FAILED});
    EXPECT_EQ(Sample().RenameColumn("Participant\nName", column).Failures(), Lines{CHECK_FAILED});
  }
  EXPECT_EQ(Sample().RenameColumn("Error\nCode", "x\nposition").Failures(), Lines{});
}

TEST(TestColumnsExcludedTolmey3229, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().RemoveColumn("Key").SetDuration("39").SetExpansion("5001").Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 40, 80, "39"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
