#include "framework/ClampedNumbers.h"

#include <algorithm>
#include <limits>

namespace Ombrelia {

int ClampedToInt(long value) {
  return static_cast<int>(
      std::clamp<long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int ClampedDifference(long minuend, long subtrahend) {
  // The distance of two numbers always fits the unsigned type, their signed difference need not.
  const bool negative = minuend < subtrahend;
  const unsigned long from = static_cast<unsigned long>(negative ? minuend : subtrahend);
  const unsigned long to = static_cast<unsigned long>(negative ? subtrahend : minuend);
  const unsigned long distance = to - from;
  const unsigned long greatest = static_cast<unsigned long>(std::numeric_limits<int>::max());
  if (distance > greatest) {
    return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  const int magnitude = static_cast<int>(distance);
  return negative ? -magnitude : magnitude;
}

}  // namespace Ombrelia
