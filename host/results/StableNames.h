// Names of tests under which a server keeps their history: the same in every run, whatever was measured.
#ifndef OMBRELIA_HOST_RESULTS_STABLENAMES_H
#define OMBRELIA_HOST_RESULTS_STABLENAMES_H

#include <map>
#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The name of a test without measured values, running counters, rows and the name of the data file. test is the
// name without running number.
std::string StableName(const std::string& experiment, const std::string& test);

// Makes names unique among those that it has given out, and no longer than 200 characters: the second test of
// a name gets " (2)".
class UniqueNames {
 public:
  std::string Next(const std::string& name);

 private:
  std::map<std::string, int> m_given;  // how often each name was asked for
};

}  // namespace OmbreliaHost

#endif
