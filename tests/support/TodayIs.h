// The date of this program, which does not depend on the day on which the tests run.
#ifndef OMBRELIA_TESTS_SUPPORT_TODAYIS_H
#define OMBRELIA_TESTS_SUPPORT_TODAYIS_H

#include "framework/LocalDay.h"

namespace Tests {

// Every test begins on this day. Nothing temporary holds on it.
inline void SetOrdinaryDay() {
  Ombrelia::SetTodaysLocalDateForTests(boost::gregorian::date(2020, 6, 15));
}

// Sets another date for the life of an object.
class TodayIs {
 public:
  TodayIs(unsigned short year, unsigned short month, unsigned short day) {
    Ombrelia::SetTodaysLocalDateForTests(boost::gregorian::date(year, month, day));
  }
  ~TodayIs() { SetOrdinaryDay(); }
  TodayIs(const TodayIs&) = delete;
  TodayIs& operator=(const TodayIs&) = delete;
};

}  // namespace Tests

#endif
