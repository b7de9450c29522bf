// Today's date on this machine's clock.
#ifndef OMBRELIA_FRAMEWORK_LOCALDAY_H
#define OMBRELIA_FRAMEWORK_LOCALDAY_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

// The date in the local time zone, read from the clock at every call. Tests link another source of
// this function, except test_this_machine.
boost::gregorian::date TodaysLocalDate();

}  // namespace Ombrelia

#endif
