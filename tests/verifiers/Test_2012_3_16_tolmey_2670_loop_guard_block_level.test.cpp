#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, WantsSixEventsInOrder) {
  ExpectScan(
      {"2012_3_16_tolmey_2670_loop_guard_block_level.om4",
       "The_loop_guard_works",
       88,
       "Can we even get this fail message? I mean if the loop guard has stopped working then we "
       "should've never finished the experiment. I guess we might still be capable of seeing this.",
       {"event 1", "event 2", "event 1", "event 2", "event 1", "event 3"},
       Scan::IN_ORDER,
       {"event 1", "event 2", "event 3"}});
}

}  // namespace
}  // namespace Tests
