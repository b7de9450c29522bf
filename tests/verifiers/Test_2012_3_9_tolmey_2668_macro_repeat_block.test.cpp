#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, WantsEvent1ThreeTimes) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_repeat_block.om4",
              "Repeat_block_functions_as_expected",
              59,
              "We expected to see event 1 three times as that's what the macro is set up to do.",
              {"event 1", "event 1", "event 1"},
              Scan::IN_ANY_ORDER,
              {"event 1"},
              {2400, 2500}});
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsOnAFourthRowThatIsAnotherEvent) {
  const char* const experiment = "2012_3_9_tolmey_2668_macro_repeat_block.om4";
  EXPECT_EQ(
      DataFile::Sample(experiment).RepeatLastRow().Set(1, "Event\nName", "event 2").Failures(),
      Lines{Fail("Repeat_block_functions_as_expected", "Something bad happened instead.",
                 experiment, 59,
                 "We expected to see event 1 three times as that's what the macro is set up "
                 "to do.")});
}

}  // namespace
}  // namespace Tests
