// Today's date on this machine's clock.
#ifndef OMBRELIA_FRAMEWORK_LOCALDAY_H
#define OMBRELIA_FRAMEWORK_LOCALDAY_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

// The date in the local time zone, read from the clock at every call. The source of this function is
// linked into the shared library alone: test programs put another in its place.
boost::gregorian::date TodaysLocalDate();

}  // namespace Ombrelia

#endif
