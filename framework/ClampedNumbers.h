// Arithmetic on numbers from cells. A cell may hold any number: nothing here overflows or wraps round.
#ifndef OMBRELIA_FRAMEWORK_CLAMPEDNUMBERS_H
#define OMBRELIA_FRAMEWORK_CLAMPEDNUMBERS_H

namespace Ombrelia {

// value, or the end of int's range that it lies beyond.
int ClampedToInt(long value);

// minuend - subtrahend, or the end of int's range that the difference lies beyond.
int ClampedDifference(long minuend, long subtrahend);

}  // namespace Ombrelia

#endif
