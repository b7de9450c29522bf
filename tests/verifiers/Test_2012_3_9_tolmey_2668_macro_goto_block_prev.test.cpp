#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, WantsEvents1And2And1And2And2) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
              "Go_to_block_previous_functions_as_expected",
              78,
              "We expected to see exactly five events, event 1, 2, 1, 2, 2 due to interactions "
              "between the when to run settings and macros.",
              {"event 1", "event 2", "event 1", "event 2", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"},
              {7600, 7700}});
}

}  // namespace
}  // namespace Tests
