// Benchmarks whose every round is a process of its own.
#ifndef OMBRELIA_BENCHMARKS_CHILDBENCHMARK_H
#define OMBRELIA_BENCHMARKS_CHILDBENCHMARK_H

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "benchmarks/ChildProcess.h"

namespace Bench {

// Registers a benchmark that runs the command once per round. Its time is the figure of that name, in
// seconds; without a name, the time from the start of the process to its end. All figures become
// counters. Statuses up to highestStatus are accepted, others are errors.
inline void RegisterChild(const std::string& name, const std::vector<std::string>& command,
                          const std::string& figure = "", int highestStatus = 0) {
  benchmark::RegisterBenchmark(
      name.c_str(),
      [=](benchmark::State& state) {
        for (auto round : state) {
          const ChildResult result = RunChild(command, highestStatus);
          if (!result.succeeded || (!figure.empty() && result.figures.count(figure) == 0)) {
            state.SkipWithError("the process failed");
            break;
          }
          state.SetIterationTime(figure.empty() ? result.seconds : result.figures.at(figure));
          for (const auto& [counter, number] : result.figures) state.counters[counter] = number;
        }
      })
      ->UseManualTime()
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace Bench

#endif
