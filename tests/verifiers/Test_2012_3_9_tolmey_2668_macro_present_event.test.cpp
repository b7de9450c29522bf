#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, WantsEvents2And1And2) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_present_event.om4",
              "Present_event_functions_as_expected",
              70,
              "We expected to see exactly three events, event 2, event 1, event 2 again.",
              {"event 2", "event 1", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"},
              {5000, 5100}});
}

}  // namespace
}  // namespace Tests
