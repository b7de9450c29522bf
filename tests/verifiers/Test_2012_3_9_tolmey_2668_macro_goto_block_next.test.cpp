#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, WantsEvents1And3InAnyOrder) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_goto_block_next.om4",
              "Go_to_block_any_functions_as_expected",
              65,
              "We expected to see exactly two events, event 1 and event 3, as the block containing "
              "event 1 was set to present the block containing event 3.",
              {"event 1", "event 3"},
              Scan::IN_ANY_ORDER,
              {"event 1", "event 3"}});
}

}  // namespace
}  // namespace Tests
