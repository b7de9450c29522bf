#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_macro_exit_experiment, WantsOneRowAndReadsNoCell) {
  ExpectScan({"2012_3_9_tolmey_2668_macro_exit_experiment.om4",
              "Experiment_exited_after_one_trial_as_expected",
              43,
              "We expected the experiment to exit after one trial.",
              {"event 1"},
              Scan::IN_ANY_ORDER,
              {},
              {800, 900}});
}

}  // namespace
}  // namespace Tests
