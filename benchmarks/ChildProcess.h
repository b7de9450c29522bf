// A process of its own for works whose first run, whose memory or whose start is measured.
#ifndef OMBRELIA_BENCHMARKS_CHILDPROCESS_H
#define OMBRELIA_BENCHMARKS_CHILDPROCESS_H

#include <map>
#include <string>
#include <vector>

namespace Bench {

struct ChildResult {
  bool succeeded = false;  // ended by itself, with an accepted status
  double seconds = 0;      // from the start of the process to its end
  // What it printed, as lines of a name, a blank and a number.
  std::map<std::string, double> figures;
};

// Runs the program with the arguments and waits for its end. Its standard error is this program's;
// its standard output is read for figures and not shown. Statuses up to highestStatus are accepted.
ChildResult RunChild(const std::vector<std::string>& command, int highestStatus = 0);

// The path of the program of that name that was built beside this one.
std::string ProgramBeside(const std::string& name);

}  // namespace Bench

#endif
