#include "benchmarks/ProcessMemory.h"

#include <fstream>
#include <string>

namespace Bench {
namespace {

// The number behind the name in the list that the system keeps, which is in KiB.
std::size_t StatusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.compare(0, name.size(), name) == 0) return std::stoul(line.substr(name.size())) * 1024;
  }
  return 0;
}

}  // namespace

std::size_t ResidentBytes() { return StatusBytes("VmRSS:"); }
std::size_t PeakResidentBytes() { return StatusBytes("VmHWM:"); }
void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << "5\n"; }

}  // namespace Bench
