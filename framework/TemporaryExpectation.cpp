#include "framework/TemporaryExpectation.h"

#include "framework/CommonTestHelperLogic.h"
#include "framework/LocalDay.h"

namespace Ombrelia {

bool Tolmey3661ListApplies(const boost::gregorian::date& today, bool runningOnMacOSX) {
  const boost::gregorian::date regularAgain(2016, 3, 1);
  return (today - regularAgain).days() < 0 && runningOnMacOSX;
}

bool Tolmey3661ListAppliesToday() {
  return Tolmey3661ListApplies(TodaysLocalDate(), CommonTestHelperLogic::RunningOnMacOSX());
}

}  // namespace Ombrelia
