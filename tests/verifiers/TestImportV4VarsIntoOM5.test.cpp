#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-10-21_import_v4_trial_vars.om4";
const char* const COLOR = "color_var\n(Trial Variable)";
const char* const LOCATION = "location\n(Trial Variable)";

const Lines PASSING = {"suite 2013-10-21_import_v4_trial_vars.om4",
                       "pass VerifyDatafile_was_called_for_2013-10-21_import_v4_trial_vars.om4",
                       "pass Data_appears_completely_and_in_order",
                       "pass Data_appears_completely_and_in_order",
                       "pass Random_choice_of_two_items_ONLY_RESETS_at_BLOCK_boundary",
                       "pass Random_choice_of_five_items_ALLOWS_REPEATS_group_seed",
                       "pass Experiment_duration_2013-10-21_import_v4_trial_vars.om4",
                       "pass Expansion_duration_2013-10-21_import_v4_trial_vars.om4",
                       "pass __TIMING__TRACKING__2013-10-21_import_v4_trial_vars.om4__938_ms",
                       "pass __EXPANSION__TRACKING__2013-10-21_import_v4_trial_vars.om4__208_ms"};

const std::string COLORS_FAILED =
    Fail("Random_choice_of_two_items_ONLY_RESETS_at_BLOCK_boundary",
         "bad behavior of trial variable for colors with selection rand no repl", EXPERIMENT, 193,
         "the comments in the function VerifyVariableThatUsedRandom_NO_Replacement explain what "
         "SHOULD happen every time");

const std::string LOCATIONS_FAILED =
    Fail("Random_choice_of_five_items_ALLOWS_REPEATS_group_seed",
         "bad behavior of trial variable for positions with selection rand with repl group seed",
         EXPERIMENT, 225,
         "the group seed should guarantee the same sequence... this test never has a reason to "
         "fail");

// The sample with these colours in its ten rows of colour events.
DataFile WithColors(const std::vector<std::string>& colors) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t i = 0; i < 10; ++i) file.Set(5 + i, COLOR, colors.at(i));
  return file;
}

TEST(TestImportV4VarsIntoOM5, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

TEST(TestImportV4VarsIntoOM5, ComparesEachEvent) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"1",          "2",          "1",          "1",          "2",          "color 1",
       "color 2",    "color 3",    "color 4",    "color 5",    "color 1",    "color 2",
       "color 3",    "color 4",    "color 5",    "position 1", "position 2", "position 3",
       "position 3", "position 4", "position 5", "position 1", "position 2", "position 5"});
}

TEST(TestImportV4VarsIntoOM5, ComparesEachTimeout) {
  ExpectEachCellIsCompared(EXPERIMENT, "timeout\n(Trial Variable)",
                           {"30", "40", "50", "60", "30", "",   "",   "",   "",   "",   "",  "", "",
                            "",   "",   "40", "50", "60", "30", "40", "50", "60", "30", "40"});
}

TEST(TestImportV4VarsIntoOM5, AcceptsTheFourSequencesThatTwoBlocksCanDraw) {
  EXPECT_EQ(WithColors({"green", "red", "green", "red", "green",  //
                        "green", "red", "green", "red", "green"})
                .Verify(),
            PASSING);
  EXPECT_EQ(WithColors({"green", "red", "green", "red", "green",  //
                        "red", "green", "red", "green", "red"})
                .Verify(),
            PASSING);
  EXPECT_EQ(WithColors({"red", "green", "red", "green", "red",  //
                        "green", "red", "green", "red", "green"})
                .Verify(),
            PASSING);
  EXPECT_EQ(WithColors({"red", "green", "red", "green", "red",  //
                        "red", "green", "red", "green", "red"})
                .Verify(),
            PASSING);
}

TEST(TestImportV4VarsIntoOM5, FailsOnASequenceThatBeginsWithGreenTwice) {
  EXPECT_EQ(WithColors({"green", "green", "red", "green", "red",  //
                        "red", "green", "red", "green", "red"})
                .Failures(),
            Lines{COLORS_FAILED});
}

TEST(TestImportV4VarsIntoOM5, FailsOnAFreshStartWithinABlock) {
  EXPECT_EQ(WithColors({"green", "red", "red", "green", "red",  //
                        "red", "green", "red", "green", "red"})
                .Failures(),
            Lines{COLORS_FAILED});
}

TEST(TestImportV4VarsIntoOM5, ComparesEachColor) {
  for (std::size_t row = 5; row <= 14; ++row) {
    DataFile file = DataFile::Sample(EXPERIMENT);
    file.Set(row, COLOR, file.Cell(row, COLOR) == "red" ? "green" : "red");
    EXPECT_EQ(file.Failures(), Lines{COLORS_FAILED}) << row;
  }
}

TEST(TestImportV4VarsIntoOM5, FailsOnAnEmptyColor) {
  for (std::size_t row = 5; row <= 14; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, COLOR, "").Failures(), Lines{COLORS_FAILED})
        << row;
  }
}

TEST(TestImportV4VarsIntoOM5, ComparesEachLocation) {
  for (std::size_t row = 15; row <= 23; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, LOCATION, "2").Failures(),
              Lines{LOCATIONS_FAILED})
        << row;
  }
}

TEST(TestImportV4VarsIntoOM5, LooksAtNoColorOrLocationOutsideTheirRows) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(4, COLOR, "red")
                .Set(15, COLOR, "red")
                .Set(14, LOCATION, "3")
                .Verify(),
            PASSING);
}

TEST(TestImportV4VarsIntoOM5, ChecksEverythingWhateverFailsBefore) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, "Event\nName", "2")
                .Set(5, "timeout\n(Trial Variable)", "30")
                .Set(6, COLOR, "blue")
                .Set(23, LOCATION, "")
                .SetDuration("709")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 0, "1"), CellDiffers(EXPERIMENT, 5, ""), COLORS_FAILED,
                   LOCATIONS_FAILED, DurationOutOfBounds(EXPERIMENT, 710, 1200, "709"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(TestImportV4VarsIntoOM5, FailsOnlyTheLengthsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
}

TEST(TestImportV4VarsIntoOM5, FailsAllChecksOnAFileThatEndsEarly) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(10).SetDuration("938").Failures(),
      (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT), COLORS_FAILED, LOCATIONS_FAILED}));
}

TEST(TestImportV4VarsIntoOM5, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "1")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("timeout\n(Trial Variable)").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "30")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLOR).Failures(), Lines{COLORS_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(LOCATION).Failures(),
            Lines{LOCATIONS_FAILED});
}

TEST(TestImportV4VarsIntoOM5, ForgetsTheFileBefore) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).Failures().size(), 5u);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

}  // namespace
}  // namespace Tests
