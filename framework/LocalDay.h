// Today's date on this machine's clock.
#ifndef OMBRELIA_FRAMEWORK_LOCALDAY_H
#define OMBRELIA_FRAMEWORK_LOCALDAY_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

boost::gregorian::date TodaysLocalDate();

// For tests alone: TodaysLocalDate returns this date from now on, or the clock's again after
// not_a_date_time.
void SetTodaysLocalDateForTests(const boost::gregorian::date& date);

}  // namespace Ombrelia

#endif
