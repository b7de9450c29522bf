#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-08-14_list_SPR_and_RSVP.om5";

const Lines PASSING = {"suite 2014-08-14_list_SPR_and_RSVP.om5",
                       "pass VerifyDatafile_was_called_for_2014-08-14_list_SPR_and_RSVP.om5",
                       "pass Data_appears_completely_and_in_order",
                       "pass Data_appears_completely_and_in_order",
                       "pass Experiment_duration_2014-08-14_list_SPR_and_RSVP.om5",
                       "pass Expansion_duration_2014-08-14_list_SPR_and_RSVP.om5",
                       "pass __TIMING__TRACKING__2014-08-14_list_SPR_and_RSVP.om5__423_ms",
                       "pass __EXPANSION__TRACKING__2014-08-14_list_SPR_and_RSVP.om5__17_ms"};

TEST(TestListTypeRSVP, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

TEST(TestListTypeRSVP, ComparesEachEvent) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {R"([SubEvent 1] a (3, (3) a a b b\(3) two))", R"([SubEvent 2] a (3, (3) a a b b\(3) two))",
       R"([SubEvent 1] a (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 2] a (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 3] a (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 1] a (4, (4) d d e e\(4) three))",
       R"([SubEvent 2] a (4, (4) d d e e\(4) three))", R"([SubEvent 1] a (2, (2) ddd\(2) eee))",
       R"([SubEvent 2] a (2, (2) ddd\(2) eee))", R"([SubEvent 1] b (4, (4) d d e e\(4) three))",
       R"([SubEvent 2] b (4, (4) d d e e\(4) three))", R"([SubEvent 1] b (2, (2) ddd\(2) eee))",
       R"([SubEvent 2] b (2, (2) ddd\(2) eee))", R"([SubEvent 1] b (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 2] b (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 3] b (1, (1) aaa\(1) bbb\(1) ccc))",
       R"([SubEvent 1] b (3, (3) a a b b\(3) two))", R"([SubEvent 2] b (3, (3) a a b b\(3) two))"});
}

TEST(TestListTypeRSVP, ComparesEachTrial) {
  ExpectEachCellIsCompared(EXPERIMENT, "Trial\nName",
                           Cells({{2, "a - random PER GROUP, 3"},
                                  {3, "a - random PER GROUP, 1"},
                                  {2, "a - random PER GROUP, 4"},
                                  {2, "a - random PER GROUP, 2"},
                                  {2, "b - random PER GROUP, 4"},
                                  {2, "b - random PER GROUP, 2"},
                                  {3, "b - random PER GROUP, 1"},
                                  {2, "b - random PER GROUP, 3"}}));
}

TEST(TestListTypeRSVP, TakesABackslashForASingleCharacter) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, "Event\nName", R"([SubEvent 1] a (3, (3) a a b b\\(3) two))")
                .Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, R"([SubEvent 1] a (3, (3) a a b b\(3) two))")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(4, "Event\nName", "[SubEvent 3] a (1, (1) aaa(1) bbb(1) ccc)")
                .Failures(),
            Lines{CellDiffers(EXPERIMENT, 4, R"([SubEvent 3] a (1, (1) aaa\(1) bbb\(1) ccc))")});
}

TEST(TestListTypeRSVP, FailsOnSegmentsThatChangedPlaces) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(2, 3).Failures(),
            Lines{CellDiffers(EXPERIMENT, 2, R"([SubEvent 1] a (1, (1) aaa\(1) bbb\(1) ccc))")});
}

TEST(TestListTypeRSVP, ReportsBothColumnsAndTheBounds) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(17, "Event\nName", "?")
                .Set(9, "Trial\nName", "a - random PER GROUP, 4")
                .SetDuration("461")
                .SetExpansion("41")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 17, R"([SubEvent 2] b (3, (3) a a b b\(3) two))"),
                   CellDiffers(EXPERIMENT, 9, "b - random PER GROUP, 4"),
                   DurationOutOfBounds(EXPERIMENT, 396, 460, "461"),
                   ExpansionOutOfBounds(EXPERIMENT, 5, 40, "41")}));
}

TEST(TestListTypeRSVP, FailsOnAnyOtherLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(0).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(TestListTypeRSVP, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, R"([SubEvent 1] a (3, (3) a a b b\(3) two))")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Trial\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "a - random PER GROUP, 3")});
}

TEST(TestListTypeRSVP, ForgetsTheFileBefore) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(3).Failures().size(), 2u);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

}  // namespace
}  // namespace Tests
