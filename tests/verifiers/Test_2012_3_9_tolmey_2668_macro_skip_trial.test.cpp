#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, WantsEvents1And3InOrder) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_skip_trial.om4",
              "Repeat_block_functions_as_expected",
              63,
              "We expected to see event 1 once and event 3 also once as that's what the macro is "
              "set up to do.",
              {"event 1", "event 3"},
              Scan::IN_ORDER,
              {"event 1", "event 3"},
              {1600, 1620}});
}

}  // namespace
}  // namespace Tests
