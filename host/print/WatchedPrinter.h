// What verifiers notice, for a terminal.
#ifndef OMBRELIA_HOST_PRINT_WATCHEDPRINTER_H
#define OMBRELIA_HOST_PRINT_WATCHEDPRINTER_H

#include <ostream>
#include <string>
#include <vector>

#include "host/results/WatchedResults.h"

namespace OmbreliaHost {

// The columns of one data file with their shares, and a line for each change that is a trap.
class WatchedPrinter {
 public:
  // out: borrowed.
  explicit WatchedPrinter(std::ostream& out) : m_out(out) {}

  void Print(const WatchedDatafile& datafile);
  // A sentence for each change that leaves no verdict, and for each end of a bound that is not kept.
  void PrintTraps(const WatchedDatafile& datafile);
  void PrintTotals(const std::vector<WatchedDatafile>& datafiles);

 private:
  void PrintShares(const WatchedDatafile& datafile);
  void PrintTrap(ChangeOutcome outcome, const std::string& change);
  void PrintBound(const WatchedBound& bound);

  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
