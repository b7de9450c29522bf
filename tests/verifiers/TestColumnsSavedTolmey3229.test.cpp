#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5";

const std::string CHECK_FAILED =
    Fail("Tolmey_3229_show_pixel", "Datafile columns are NOT as expected.", EXPERIMENT, 56,
         "we wanted to FIND the pixel columns and NOT find the pressed column.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestColumnsSavedTolmey3229, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5",
             "pass VerifyDatafile_was_called_for_2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5",
             "pass Tolmey_3229_show_pixel",
             "pass Experiment_duration_2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5",
             "pass Expansion_duration_2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5",
             "pass __TIMING__TRACKING__2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5__58_ms",
             "pass __EXPANSION__TRACKING__"
             "2014-05-12_save_col_mouse_pixel_NOT_press_rel.om5__38_ms"}));
}

TEST(TestColumnsSavedTolmey3229, WantsEachOfThreeColumns) {
  for (const char* column : {"Key", "X\nPosition", "Y\nPosition"}) {
    EXPECT_EQ(Sample().RemoveColumn(column).Failures(), Lines{CHECK_FAILED});
  }
  EXPECT_EQ(Sample().RenameColumn("Key", "key").Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().RenameColumn("X\nPosition", "X Position").Failures(), Lines{CHECK_FAILED});
}

TEST(TestColumnsSavedTolmey3229, AColumnInTheFirstPlaceDoesNotCount) {
  for (const char* column : {"Key", "X\nPosition", "Y\nPosition"}) {
    EXPECT_EQ(Sample().MoveColumnToFront(column).Failures(), Lines{CHECK_FAILED});
    EXPECT_EQ(Sample().MoveColumnToFront(column).MoveColumnToFront("Block\nName").Failures(),
              Lines{});
  }
}

TEST(TestColumnsSavedTolmey3229, DoesNotWantThePressedColumnAnywhere) {
  EXPECT_EQ(Sample().RenameColumn("Error\nCode", "Pressed Or\nReleased").Failures(),
            Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().RenameColumn("Participant\nName", "Pressed Or\nReleased").Failures(),
            Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().RenameColumn("Error\nCode", "Pressed or\nReleased").Failures(), Lines{});
}

TEST(TestColumnsSavedTolmey3229, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().RemoveColumn("Key").SetDuration("81").SetExpansion("5001").Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 40, 80, "81"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
