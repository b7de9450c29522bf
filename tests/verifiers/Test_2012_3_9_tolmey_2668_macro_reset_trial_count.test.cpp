#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, WantsEvents1And2InOrder) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_reset_trial_count.om4",
              "Reset_trial_count_functions_as_expected",
              63,
              "We expected to see event 1 once and event 2 also once as that's what the macro is "
              "set up to do. This one is tricky-ish as it uses both a when to run experession and "
              "a macro to work.",
              {"event 1", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"}});
}

}  // namespace
}  // namespace Tests
