#include <gtest/gtest.h>

#include "tests/support/ChecksOnTable.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Ombrelia {
class Test_2772_2_macro_1_reg;
}

namespace Tests {
namespace {

const char* const EXPERIMENT = "2772_2_macro_1_reg.om4";
const char* const COLOURS = "Font Color\n(Trial Variable)";
const char* const PLACES = "Screen Location\n(Trial Variable)";

const std::string CHECK_FAILED = Fail(
    "Having_1_event_presented_normally_and_2_presented_via_block_Level_macro_functions_that_share_"
    "a_OMActionList",
    "Something bad happened instead.", EXPERIMENT, 95,
    "We expected to see each variable name to show up exactly once.");

TEST(Test_2772_2_macro_1_reg, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2772_2_macro_1_reg.om4",
                   "pass VerifyDatafile_was_called_for_2772_2_macro_1_reg.om4",
                   "pass "
                   "Having_1_event_presented_normally_and_2_presented_via_block_Level_macro_"
                   "functions_that_share_a_OMActionList",
                   "pass Experiment_duration_2772_2_macro_1_reg.om4",
                   "pass Expansion_duration_2772_2_macro_1_reg.om4",
                   "pass __TIMING__TRACKING__2772_2_macro_1_reg.om4__3040_ms",
                   "pass __EXPANSION__TRACKING__2772_2_macro_1_reg.om4__23_ms"}));
}

TEST(Test_2772_2_macro_1_reg, FailsOnAChangeOfAnyLevel) {
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

TEST(Test_2772_2_macro_1_reg, ReadsThePlacesAfterAWrongColour) {
  EXPECT_EQ(CellsReadByChecksOn<Ombrelia::Test_2772_2_macro_1_reg>(
                DataFile::Sample(EXPERIMENT).Set(0, COLOURS, "Black"), EXPERIMENT, PLACES),
            3U);
}

TEST(Test_2772_2_macro_1_reg, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2772_2_macro_1_reg, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("3040").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2772_2_macro_1_reg, FailsWithoutEitherColumn) {
  for (const char* const column : {COLOURS, PLACES}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(column).Failures(), Lines{CHECK_FAILED});
  }
}

TEST(Test_2772_2_macro_1_reg, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, COLOURS, "Red")
                .SetDuration("3171")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 2990, 3170, "3171"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(Test_2772_2_macro_1_reg, PassesInAnyOrderOfItsLevels) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.SetColumn(COLOURS, {"Red", "Blue", "Green"});
  file.SetColumn(PLACES, {"three", "two", "one"});
  EXPECT_EQ(file.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
