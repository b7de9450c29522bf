// The table of two hundred files that sorts and queries are measured on, in the table class and in the
// peer, each made of the same files.
#ifndef OMBRELIA_BENCHMARKS_MANYROWS_H
#define OMBRELIA_BENCHMARKS_MANYROWS_H

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "benchmarks/TableWork.h"
#include "benchmarks/peers/DuckDb.h"

namespace Bench {

// A work on a table that was loaded just before and asked nothing yet, except what prepare asks. Only
// the work is timed. files: what the table is loaded from; the two hundred if none are named.
void RegisterOnFreshTable(const std::string& name, const std::function<void(Table&)>& work,
                          const std::function<void(Table&)>& prepare = nullptr,
                          const Files& files = {});

// A work on the peer's table t; registered only if there is a peer. prepare runs once.
void RegisterOnDuckDb(const std::string& name, const std::function<void(DuckDb&)>& work,
                      const std::string& preparingQuery = "");

}  // namespace Bench

#endif
