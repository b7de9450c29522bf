// Expectations that stand in for the regular ones on one platform until a fixed date.
#ifndef OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H
#define OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

// Returns whether the temporary list replaces the regular one: on the Mac, before 2016-03-01.
bool Tolmey3661ListApplies(const boost::gregorian::date& today, bool runningOnMacOSX);

// Asks the same for the date and the platform of this run.
bool Tolmey3661ListAppliesToday();

}  // namespace Ombrelia

#endif
