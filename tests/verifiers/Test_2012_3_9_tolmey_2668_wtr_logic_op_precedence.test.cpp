#include "tests/support/ExpectScan.h"

namespace Tests {
namespace {

TEST(Test_2012_3_9_tolmey_2668_wtr_logic_op_precedence, WantsEvent1Alone) {
  ExpectScan({"2012_3_9_tolmey_2668_wtr_logic_op_precedence.om4",
              "The_greater_or_equal_to_operator_works",
              60,
              "We expected to see event 1 once. I really hope this test never fails. Wow I'm "
              "really curious what happens in ombrelia right now.",
              {"event 1"},
              Scan::IN_ANY_ORDER,
              {"event 1"},
              {800, 820}});
}

}  // namespace
}  // namespace Tests
