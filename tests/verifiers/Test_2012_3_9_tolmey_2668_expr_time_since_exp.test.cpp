#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, WantsEvents1And2InOrder) {
  ExpectScan({"2012_3_9_tolmey_2668_expr_time_since_exp.om4",
              "Time_since_start_of_experiment_expression_functions_as_expected",
              63,
              "We expected to see event 1 once and event 2 also once as that's what the macro is "
              "set up to do.",
              {"event 1", "event 2"},
              Scan::IN_ORDER,
              {"event 1", "event 2"},
              {4000, 4050}});
}

}  // namespace
}  // namespace Tests
