#include "host/results/Trend.h"

#include <algorithm>
#include <cmath>

namespace OmbreliaHost {

namespace {

constexpr std::size_t MOST_NUMBERS = 100;
constexpr std::size_t FEWEST_FOR_A_TREND = 5;
constexpr double SURE = 3;
constexpr double MOST_RUNS = 1e6;
constexpr double ROUNDING = 1e-6;  // the numbers are whole

}  // namespace

Trend TrendOf(const std::vector<long>& numbers) {
  Trend trend;
  const std::size_t count = std::min(numbers.size(), MOST_NUMBERS);
  if (count == 0) return trend;
  std::vector<double> last(numbers.end() - static_cast<std::ptrdiff_t>(count), numbers.end());
  // So that equal numbers have no spread from rounding.
  const double first = last.front();
  for (double& number : last) number -= first;
  const double n = static_cast<double>(count);
  const double middle = (n - 1) / 2;
  double mean = 0;
  for (const double number : last) mean += number / n;
  double xx = 0;
  double xy = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) - middle;
    xx += x * x;
    xy += x * (last[i] - mean);
  }
  trend.level = first + mean;
  if (count < 3) return trend;
  trend.perRun = xy / xx;
  double squares = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) - middle;
    squares += std::pow(last[i] - mean - trend.perRun * x, 2);
  }
  const double spread = std::sqrt(squares / (n - 2));
  trend.spread = spread < ROUNDING ? 0 : spread;
  trend.isSure = count >= FEWEST_FOR_A_TREND && trend.perRun != 0 &&
                 std::abs(trend.perRun) > SURE * *trend.spread / std::sqrt(xx);
  if (trend.isSure) trend.level += trend.perRun * (n - 1 - middle);
  return trend;
}

BoundOutlook OutlookOf(const BoundCheck& bound, const Trend& trend) {
  BoundOutlook outlook;
  outlook.isBroken = bound.actual < bound.min || bound.actual > bound.max;
  const double below = trend.level - static_cast<double>(bound.min);
  const double above = static_cast<double>(bound.max) - trend.level;
  if (trend.spread && *trend.spread > 0) outlook.spreads = std::min(below, above) / *trend.spread;
  if (trend.isSure && !outlook.isBroken) {
    const double runs =
        std::ceil(std::max(0.0, trend.perRun > 0 ? above : below) / std::abs(trend.perRun));
    if (runs <= MOST_RUNS) outlook.runsLeft = static_cast<long>(runs);
  }
  return outlook;
}

}  // namespace OmbreliaHost
