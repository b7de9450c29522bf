#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, WantsEvents1And2InOrderAndTheirCodes) {
  ExpectScan({"2012_3_9_tolmey_2668_trial_wtp_codes.om4",
              "Presenting_trials_based_on_code_functions_as_expected",
              80,
              "We expected to see event 1 once and event 2 also once as that's what the macro is "
              "set up to do.",
              {"event 1", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"},
              {1600, 1630},
              {"no", "yes"}});
}

}  // namespace
}  // namespace Tests
