// Sets this program's date for the life of an object.
#ifndef OMBRELIA_TESTS_SUPPORT_TODAYIS_H
#define OMBRELIA_TESTS_SUPPORT_TODAYIS_H

#include "framework/LocalDay.h"

namespace Tests {

class TodayIs {
 public:
  TodayIs(unsigned short year, unsigned short month, unsigned short day) {
    Ombrelia::SetTodaysLocalDateForTests(boost::gregorian::date(year, month, day));
  }
  ~TodayIs() {
    Ombrelia::SetTodaysLocalDateForTests(boost::gregorian::date(boost::date_time::not_a_date_time));
  }
  TodayIs(const TodayIs&) = delete;
  TodayIs& operator=(const TodayIs&) = delete;
};

}  // namespace Tests

#endif
