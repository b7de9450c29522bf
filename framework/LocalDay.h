// Today's date on this machine's clock.
#ifndef OMBRELIA_FRAMEWORK_LOCALDAY_H
#define OMBRELIA_FRAMEWORK_LOCALDAY_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Ombrelia {

boost::gregorian::date TodaysLocalDate();

// Seam for tests: today is this date; not_a_date_time goes back to the clock.
void SetTodaysLocalDateForTests(const boost::gregorian::date& date);

}  // namespace Ombrelia

#endif
