// What a history tells, for a person at a terminal.
#ifndef OMBRELIA_HOST_PRINT_HISTORYPRINTER_H
#define OMBRELIA_HOST_PRINT_HISTORYPRINTER_H

#include <ostream>

#include "host/results/HistorySummary.h"

namespace OmbreliaHost {

// Writes UTF-8, whatever the locale: a paragraph for each experiment, then the totals.
class HistoryPrinter {
 public:
  explicit HistoryPrinter(std::ostream& out) : m_out(out) {}

  void Print(const HistorySummary& summary);

 private:
  void Print(const ExperimentHistory& history);
  void PrintSeries(const char* name, const ExperimentHistory::Series& series);

  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
