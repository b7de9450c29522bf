// Expectations that stand in for the regular ones on one platform until a fixed date.
#ifndef OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H
#define OMBRELIA_FRAMEWORK_TEMPORARYEXPECTATION_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

// Does the temporary list of a sublist verifier hold in place of the regular one? It does on the Mac
// before 2016-03-01, and has had no effect since.
bool Tolmey3661ListApplies(const boost::gregorian::date& today, bool runningOnMacOSX);

// Asks the same for the date and the platform of this run.
bool Tolmey3661ListAppliesToday();

}  // namespace Ombrelia

#endif
