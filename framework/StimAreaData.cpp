#include "framework/StimAreaData.h"

namespace Ombrelia {

namespace {

bool Agrees(int actual, int expected) {
  return expected == STIM_DONT_CARE_INT || actual == expected;
}

}  // namespace

bool StimAreaData::SatisfiesLooseEqualityWith(const StimAreaData& expected) const {
  return Agrees(x, expected.x) && Agrees(y, expected.y) && Agrees(width, expected.width) &&
         Agrees(height, expected.height) && Agrees(response_id, expected.response_id) &&
         (expected.area_name == STIM_DONT_CARE_STR || area_name == expected.area_name);
}

}  // namespace Ombrelia
