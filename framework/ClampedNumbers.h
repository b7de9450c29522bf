// Arithmetic on numbers that were read from cells. A cell may hold any number, so results that an
// int cannot hold become the nearest int.
#ifndef OMBRELIA_FRAMEWORK_CLAMPEDNUMBERS_H
#define OMBRELIA_FRAMEWORK_CLAMPEDNUMBERS_H

namespace Ombrelia {

int ClampedToInt(long value);

// minuend - subtrahend.
int ClampedDifference(long minuend, long subtrahend);

}  // namespace Ombrelia

#endif
