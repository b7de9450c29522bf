// Where numbers of one run after the other go, and how far they are from a bound.
#ifndef OMBRELIA_HOST_RESULTS_TREND_H
#define OMBRELIA_HOST_RESULTS_TREND_H

#include <optional>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The straight line of least squares through the last numbers, against their places.
struct Trend {
  double level = 0;     // where the line ends; the mean where there is no trend
  double perRun = 0;    // its slope
  bool isSure = false;  // is the slope more than three of its standard errors?
  std::optional<double>
      spread;  // the standard deviation around the line; absent below three numbers
};

// Numbers in the order of the runs; of more than 100 the last 100.
Trend TrendOf(const std::vector<long>& numbers);

struct BoundOutlook {
  bool isBroken = false;          // the last number lies outside
  std::optional<double> spreads;  // from the level to the nearer end; absent without spread
  std::optional<long> runsLeft;   // until a sure trend comes to the end ahead of it
};

// bound: with the last number as the actual one.
BoundOutlook OutlookOf(const BoundCheck& bound, const Trend& trend);

}  // namespace OmbreliaHost

#endif
