// The memory of this process as the system counts it.
#ifndef OMBRELIA_BENCHMARKS_PROCESSMEMORY_H
#define OMBRELIA_BENCHMARKS_PROCESSMEMORY_H

#include <cstddef>

namespace Bench {

// Resident bytes now.
std::size_t ResidentBytes();
// The most that was resident since the last ForgetPeak, or since the start. Mapped files count.
std::size_t PeakResidentBytes();
void ForgetPeak();

}  // namespace Bench

#endif
