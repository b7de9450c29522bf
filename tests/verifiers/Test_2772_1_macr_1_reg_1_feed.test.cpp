#include <gtest/gtest.h>

#include "tests/support/ChecksOnTable.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Ombrelia {
class Test_2772_1_macr_1_reg_1_feed;
}

namespace Tests {
namespace {

const char* const EXPERIMENT = "2772_1_macr_1_reg_1_feed.om4";
const char* const COLOURS = "Font Color\n(Trial Variable)";
const char* const PLACES = "Screen Location\n(Trial Variable)";

const std::string CHECK_FAILED = Fail(
    "Having_1_event_presented_normally_and_1_presented_via_feedback_and_block_Level_macro_"
    "functions",
    "Something bad happened instead.", EXPERIMENT, 95,
    "We expected to see each variable name to show up exactly once.");

TEST(Test_2772_1_macr_1_reg_1_feed, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2772_1_macr_1_reg_1_feed.om4",
                   "pass VerifyDatafile_was_called_for_2772_1_macr_1_reg_1_feed.om4",
                   "pass "
                   "Having_1_event_presented_normally_and_1_presented_via_feedback_and_block_Level_"
                   "macro_functions",
                   "pass Experiment_duration_2772_1_macr_1_reg_1_feed.om4",
                   "pass Expansion_duration_2772_1_macr_1_reg_1_feed.om4",
                   "pass __TIMING__TRACKING__2772_1_macr_1_reg_1_feed.om4__3052_ms",
                   "pass __EXPANSION__TRACKING__2772_1_macr_1_reg_1_feed.om4__23_ms"}));
}

TEST(Test_2772_1_macr_1_reg_1_feed, FailsOnAChangeOfAnyLevel) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (const char* const column : {COLOURS, PLACES}) {
    for (std::size_t row = 0; row < 3; ++row) {
      const std::string another = sample.Cell((row + 1) % 3, column);
      for (const std::string& text : {another, sample.Cell(row, column) + "x", std::string()}) {
        EXPECT_EQ(DataFile(sample).Set(row, column, text).Failures(), Lines{CHECK_FAILED})
            << column << ", row " << row << " with {" << text << "}";
      }
    }
  }
}

TEST(Test_2772_1_macr_1_reg_1_feed, ReadsThePlacesAfterAWrongColour) {
  EXPECT_EQ(CellsReadByChecksOn<Ombrelia::Test_2772_1_macr_1_reg_1_feed>(
                DataFile::Sample(EXPERIMENT).Set(0, COLOURS, "Black"), EXPERIMENT, PLACES),
            3U);
}

TEST(Test_2772_1_macr_1_reg_1_feed, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2772_1_macr_1_reg_1_feed, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("3052").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2772_1_macr_1_reg_1_feed, FailsWithoutEitherColumn) {
  for (const char* const column : {COLOURS, PLACES}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(column).Failures(), Lines{CHECK_FAILED});
  }
}

TEST(Test_2772_1_macr_1_reg_1_feed, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(1, COLOURS, "Blue")
                .SetDuration("3171")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 2990, 3170, "3171"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(Test_2772_1_macr_1_reg_1_feed, PassesInAnyOrderOfItsLevels) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.SetColumn(COLOURS, {"Red", "Blue", "Green"});
  file.SetColumn(PLACES, {"three", "two", "one"});
  EXPECT_EQ(file.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
