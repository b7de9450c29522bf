// What a history tells, as a page of its own.
#ifndef OMBRELIA_HOST_PRINT_HISTORYPAGE_H
#define OMBRELIA_HOST_PRINT_HISTORYPAGE_H

#include <ostream>
#include <string>

#include "host/results/HistorySummary.h"

namespace OmbreliaHost {

// Broken experiments first. name: of the file that it was read from.
void PrintHistoryPage(std::ostream& out, const HistorySummary& summary, const std::string& name);

}  // namespace OmbreliaHost

#endif
