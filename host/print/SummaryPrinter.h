// What the program prints of a run.
#ifndef OMBRELIA_HOST_PRINT_SUMMARYPRINTER_H
#define OMBRELIA_HOST_PRINT_SUMMARYPRINTER_H

#include <filesystem>
#include <ostream>
#include <vector>

#include "host/results/ReportReader.h"

namespace OmbreliaHost {

// Writes UTF-8, whatever the locale.
class SummaryPrinter {
 public:
  explicit SummaryPrinter(std::ostream& out) : m_out(out) {}

  // One line per data file with its counts and its failing tests below, then totals and the report's
  // path. Results before the first data file are those of the plug-in itself. results must hold as many
  // starts of a data file as there are data files.
  void Print(const std::vector<TestResult>& results,
             const std::vector<std::filesystem::path>& datafiles,
             const std::filesystem::path& report);

 private:
  void PrintGroup(const std::string& name, std::vector<TestResult>::const_iterator begin,
                  std::vector<TestResult>::const_iterator end);
  void PrintFailure(const TestResult& result);

  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
