// What verifiers notice as a page: heat maps of experiments and their columns, and of columns and their rows.
#ifndef OMBRELIA_HOST_PRINT_WATCHEDPAGE_H
#define OMBRELIA_HOST_PRINT_WATCHEDPAGE_H

#include <ostream>
#include <vector>

#include "host/results/WatchedResults.h"

namespace OmbreliaHost {

class WatchedPage {
 public:
  // out: borrowed.
  explicit WatchedPage(std::ostream& out) : m_out(out) {}

  void Print(const std::vector<WatchedDatafile>& datafiles);

 private:
  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
