// The date that verifiers see in a test program.
#ifndef OMBRELIA_TESTS_SUPPORT_TODAYIS_H
#define OMBRELIA_TESTS_SUPPORT_TODAYIS_H

#include <boost/date_time/gregorian/gregorian_types.hpp>

namespace Tests {

// Sets the date for the life of the object; then the former one holds again. Without an object it is
// 2020-06-15, whatever the clock says.
class TodayIs {
 public:
  TodayIs(unsigned short year, unsigned short month, unsigned short day);
  ~TodayIs();
  TodayIs(const TodayIs&) = delete;
  TodayIs& operator=(const TodayIs&) = delete;

 private:
  boost::gregorian::date m_former;
};

}  // namespace Tests

#endif
