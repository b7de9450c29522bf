#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "fake_input_when_resp_is_fb_test.om5";

std::string CheckFailed(const std::string& cells) {
  return Fail("Use the fake input plugin to trigger feedback events when appropriate.",
              "Something bad happened instead.", EXPERIMENT, 98,
              "We expected to see exactly five events in that order:\n"
              "non-fb-event1, should show one fb; feedback event a; non-fb-event2, should not show "
              "fb; non-fb-event3, should show one fb; feedback event c\n"
              "We got\n" +
                  cells + " instead");
}

TEST(Test_fake_input_when_resp_is_fb_test, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite fake_input_when_resp_is_fb_test.om5",
                   "pass VerifyDatafile_was_called_for_fake_input_when_resp_is_fb_test.om5",
                   "pass Use the fake input plugin to trigger feedback events when appropriate.",
                   "pass Experiment_duration_fake_input_when_resp_is_fb_test.om5",
                   "pass Expansion_duration_fake_input_when_resp_is_fb_test.om5",
                   "pass __TIMING__TRACKING__fake_input_when_resp_is_fb_test.om5__2203_ms",
                   "pass __EXPANSION__TRACKING__fake_input_when_resp_is_fb_test.om5__33_ms"}));
}

TEST(Test_fake_input_when_resp_is_fb_test, FailsOnAChangeOfAnyCellAndShowsTheRows) {
  const char* const shown[] = {
      "changed; feedback event a; non-fb-event2, should not show fb; "
      "non-fb-event3, should show one fb; feedback event c",
      "non-fb-event1, should show one fb; changed; non-fb-event2, should not show fb; "
      "non-fb-event3, should show one fb; feedback event c",
      "non-fb-event1, should show one fb; feedback event a; changed; "
      "non-fb-event3, should show one fb; feedback event c",
      "non-fb-event1, should show one fb; feedback event a; non-fb-event2, should not show fb; "
      "changed; feedback event c",
      "non-fb-event1, should show one fb; feedback event a; non-fb-event2, should not show fb; "
      "non-fb-event3, should show one fb; changed"};
  for (std::size_t row = 0; row < 5; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, "Event\nName", "changed").Failures(),
              Lines{CheckFailed(shown[row])});
  }
}

TEST(Test_fake_input_when_resp_is_fb_test, ShowsAlsoTheRowsPastTheFifth) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .RepeatLastRow()
                .RepeatLastRow()
                .Set(6, "Event\nName", "one %s too many")
                .Failures(),
            Lines{CheckFailed("non-fb-event1, should show one fb; feedback event a; "
                              "non-fb-event2, should not show fb; "
                              "non-fb-event3, should show one fb; feedback event c; "
                              "feedback event c; one %s too many")});
}

TEST(Test_fake_input_when_resp_is_fb_test, FailsOnFourRows) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(4).SetDuration("2203").Failures(),
            Lines{CheckFailed("non-fb-event1, should show one fb; feedback event a; "
                              "non-fb-event2, should not show fb; "
                              "non-fb-event3, should show one fb")});
}

TEST(Test_fake_input_when_resp_is_fb_test, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CheckFailed("?; ?; ?; ?; ?")});
}

TEST(Test_fake_input_when_resp_is_fb_test, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("2301").SetExpansion("none").Failures(),
      (Lines{CheckFailed("non-fb-event1, should show one fb"),
             DurationOutOfBounds(EXPERIMENT, 2100, 2300, "2301"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "-123")}));
}

TEST(Test_fake_input_when_resp_is_fb_test, ShowsTheRowsOfTheFileInHandAlone) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("2203").Failures(),
            Lines{CheckFailed("non-fb-event1, should show one fb")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
