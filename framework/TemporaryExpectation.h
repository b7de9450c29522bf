// Expectations that stand in for the regular ones on one platform until a fixed date.
#ifndef OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H
#define OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

// Sublists are drawn otherwise on the Mac until 2016-03-01, the first day on which the regular lists
// hold again. The rule stays after that date, without effect.
bool Tolmey3661ListApplies(const boost::gregorian::date& today, bool runningOnMacOSX);

// The same, for the date and the platform of this run.
bool Tolmey3661ListAppliesToday();

}  // namespace Ombrelia

#endif
