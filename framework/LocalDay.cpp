#include "framework/LocalDay.h"

namespace Ombrelia {

namespace {

boost::gregorian::date& SimulatedDate() {
  static boost::gregorian::date date(boost::date_time::not_a_date_time);
  return date;
}

}  // namespace

boost::gregorian::date TodaysLocalDate() {
  const boost::gregorian::date& simulated = SimulatedDate();
  return simulated.is_special() ? boost::gregorian::day_clock::local_day() : simulated;
}

void SetTodaysLocalDateForTests(const boost::gregorian::date& date) { SimulatedDate() = date; }

}  // namespace Ombrelia
