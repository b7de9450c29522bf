#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, WantsEvent1AndThenEvent2ThreeTimes) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
              "Repeat_trial_functions_as_expected",
              63,
              "We expected to see event 1 once and then event 2 repeated three times as that's "
              "what the macro is set up to do.",
              {"event 1", "event 2", "event 2", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"},
              {3200, 3250}});
}

// Three repeats are not enough if the first is in row 0.
TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsWhenItStartsWithTheRepeatedEvent) {
  const char* const experiment = "2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4";
  EXPECT_EQ(DataFile::Sample(experiment)
                .SetColumn("Event\nName", {"event 2", "event 2", "event 2", "event 1"})
                .Failures(),
            Lines{Fail("Repeat_trial_functions_as_expected", "Something bad happened instead.",
                       experiment, 63,
                       "We expected to see event 1 once and then event 2 repeated three times as "
                       "that's what the macro is set up to do.")});
}

}  // namespace
}  // namespace Tests
