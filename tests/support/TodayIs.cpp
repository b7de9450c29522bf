#include "tests/support/TodayIs.h"

#include "framework/LocalDay.h"

namespace Tests {

namespace {

boost::gregorian::date& SimulatedDate() {
  static boost::gregorian::date date(2020, 6, 15);
  return date;
}

}  // namespace

TodayIs::TodayIs(unsigned short year, unsigned short month, unsigned short day)
    : m_former(SimulatedDate()) {
  SimulatedDate() = boost::gregorian::date(year, month, day);
}

TodayIs::~TodayIs() { SimulatedDate() = m_former; }

}  // namespace Tests

namespace Ombrelia {

boost::gregorian::date TodaysLocalDate() { return Tests::SimulatedDate(); }

}  // namespace Ombrelia
