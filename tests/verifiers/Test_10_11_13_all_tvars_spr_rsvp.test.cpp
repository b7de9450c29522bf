#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "10_11_13_all_tvars_spr_rsvp.om5";
const char* const EVENT = "Event\nName";
const char* const POSITION = "position\n(Trial Variable)";
const char* const COLOR = "color!\n(Trial Variable)";
const char* const TIME_LIMIT = "time limits!\n(Trial Variable)";

const std::string SEGMENTS_FAILED = Fail(
    "Having_an_SPR_and an_RSVP_event_present_every_segment_and_use_every_trial_level",
    "Something bad happened instead.", EXPERIMENT, 123,
    "We expected to see every segment six times in a specific order and every trial level four "
    "times.");
const std::string SHUFFLE_FAILED =
    Fail("SPR_and_RSVP_detect_that_randomization_happened_OK_to_FAIL_RARELY",
         "could fail VERY RARELY... the levels were in perfect SORTED order rather than random",
         EXPERIMENT, 168,
         "probability dictates this will fail once in a BLUE MOON. normally we expect a SHUFFLED "
         "ordering");

// The sample with its levels in the order in which they are listed.
DataFile InSortedOrder() {
  return DataFile::Sample(EXPERIMENT)
      .SetColumn(POSITION, {"left", "left", "right", "right", "top", "top", "left", "left", "right",
                            "right", "top", "top"})
      .SetColumn(COLOR, {"r", "r", "g", "g", "b", "b", "r", "r", "g", "g", "b", "b"})
      .SetColumn(TIME_LIMIT, {"1500", "1500", "1000", "1000", "500", "500", "1500", "1500", "1000",
                              "1000", "500", "500"});
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 10_11_13_all_tvars_spr_rsvp.om5",
                   "pass VerifyDatafile_was_called_for_10_11_13_all_tvars_spr_rsvp.om5",
                   "pass "
                   "Having_an_SPR_and "
                   "an_RSVP_event_present_every_segment_and_use_every_trial_level",
                   "pass SPR_and_RSVP_detect_that_randomization_happened_OK_to_FAIL_RARELY",
                   "pass Experiment_duration_10_11_13_all_tvars_spr_rsvp.om5",
                   "pass Expansion_duration_10_11_13_all_tvars_spr_rsvp.om5",
                   "pass __TIMING__TRACKING__10_11_13_all_tvars_spr_rsvp.om5__12024_ms",
                   "pass __EXPANSION__TRACKING__10_11_13_all_tvars_spr_rsvp.om5__33_ms"}));
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, HoldsEachCell) {
  for (const char* column : {EVENT, POSITION, COLOR, TIME_LIMIT}) {
    for (std::size_t row = 0; row < 12; ++row) {
      EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, column, "another").Failures(),
                Lines{SEGMENTS_FAILED})
          << column << " row " << row;
    }
  }
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, HoldsTheOrderOfTheSegments) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.Set(4, EVENT, "[SubEvent 2] SPR").Set(5, EVENT, "[SubEvent 1] SPR");
  EXPECT_EQ(file.Failures(), Lines{SEGMENTS_FAILED});
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, FailsOnThreeOfOneLevelAndFiveOfAnother) {
  const std::vector<std::pair<const char*, std::vector<std::string>>> levels = {
      {POSITION, {"left", "right", "top"}},
      {COLOR, {"r", "g", "b"}},
      {TIME_LIMIT, {"500", "1000", "1500"}}};
  for (const auto& [column, texts] : levels) {
    for (const std::string& text : texts) {
      DataFile file = DataFile::Sample(EXPERIMENT);
      const std::size_t row = file.Cell(0, column) == text ? 2 : 0;
      EXPECT_EQ(file.Set(row, column, text).Failures(), Lines{SEGMENTS_FAILED}) << text;
    }
  }
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, IgnoresOtherLevelsInFurtherRows) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.RepeatLastRow();
  EXPECT_EQ(file.Failures(), Lines{SEGMENTS_FAILED});  // five of three levels
  file.Set(12, POSITION, "Left").Set(12, COLOR, "").Set(12, TIME_LIMIT, "1500 ");
  EXPECT_EQ(file.Set(12, EVENT, "another event").Failures(), Lines{});
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, FailsOnLevelsInSortedOrder) {
  EXPECT_EQ(InSortedOrder().Failures(), Lines{SHUFFLE_FAILED});
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, TakesADifferenceInAnyCellForAShuffle) {
  for (const char* column : {POSITION, COLOR, TIME_LIMIT}) {
    for (std::size_t row = 0; row < 12; ++row) {
      EXPECT_EQ(InSortedOrder().Set(row, column, "another").Failures(), Lines{SEGMENTS_FAILED})
          << column << " row " << row;
    }
    DataFile swapped = InSortedOrder();
    const std::string tenth = swapped.Cell(9, column);
    swapped.Set(9, column, swapped.Cell(11, column)).Set(11, column, tenth);
    EXPECT_EQ(swapped.Failures(), Lines{}) << column;
  }
}

// A table of more or fewer rows than the list is compared as far as both go.
TEST(Test_10_11_13_all_tvars_spr_rsvp, ComparesNoMoreRowsThanThereAre) {
  DataFile longer = InSortedOrder();
  longer.RepeatLastRow().Set(12, POSITION, "x").Set(12, COLOR, "x").Set(12, TIME_LIMIT, "x");
  EXPECT_EQ(longer.Failures(), Lines{SHUFFLE_FAILED});
  EXPECT_EQ(InSortedOrder().KeepRows(11).SetDuration("12024").Failures(),
            (Lines{SEGMENTS_FAILED, SHUFFLE_FAILED}));
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, FailsWithoutItsColumns) {
  for (const char* column : {EVENT, POSITION, COLOR, TIME_LIMIT}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(column).Failures(), Lines{SEGMENTS_FAILED})
        << column;
  }
}

TEST(Test_10_11_13_all_tvars_spr_rsvp, ChecksTheBoundsAfterAllFailures) {
  EXPECT_EQ(InSortedOrder()
                .Set(0, EVENT, "another event")
                .SetDuration("12601")
                .SetExpansion("5001")
                .Failures(),
            (Lines{SEGMENTS_FAILED, SHUFFLE_FAILED,
                   DurationOutOfBounds(EXPERIMENT, 12000, 12600, "12601"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
