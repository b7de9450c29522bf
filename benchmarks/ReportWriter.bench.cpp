// The report of many results in one suite, from the first result to the file on disk.
#include <benchmark/benchmark.h>

#include "benchmarks/ReportWork.h"

namespace {

void Report(benchmark::State& state) {
  const Bench::ReportFolder folder;
  for (auto round : state) Bench::WriteReport(static_cast<int>(state.range(0)));
}
BENCHMARK(Report)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
