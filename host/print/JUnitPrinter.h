// The results as one JUnit report for servers that keep the history of tests; docs/servers.md.
#ifndef OMBRELIA_HOST_PRINT_JUNITPRINTER_H
#define OMBRELIA_HOST_PRINT_JUNITPRINTER_H

#include <ostream>
#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Writes well-formed XML whatever the texts hold. One suite per experiment in the order of their names, its
// data files in the order of their paths; what the plug-in recorded before any data file comes first. A data
// file that could not be verified to its end is an error of the test that begins every data file. A tolerated
// failure passes; where the results' tolerance is known, one case in a suite of its own fails if chance does not
// explain them.
class JUnitPrinter {
 public:
  // hostname: of this machine.
  JUnitPrinter(std::ostream& out, const std::string& hostname) : m_out(out), m_hostname(hostname) {}

  void Print(const RunResults& results);

 private:
  std::ostream& m_out;
  std::string m_hostname;
};

}  // namespace OmbreliaHost

#endif
