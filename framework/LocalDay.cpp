#include "framework/LocalDay.h"

namespace Ombrelia {

boost::gregorian::date TodaysLocalDate() { return boost::gregorian::day_clock::local_day(); }

}  // namespace Ombrelia
