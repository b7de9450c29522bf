// What the program prints of a run for a person.
#ifndef OMBRELIA_HOST_PRINT_TERMINALPRINTER_H
#define OMBRELIA_HOST_PRINT_TERMINALPRINTER_H

#include <ostream>
#include <string>
#include <vector>

#include "host/results/ResultSummary.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

enum class Verbosity {
  Quiet,    // failing data files and the totals
  Normal,   // a line for each passing data file, too
  Verbose,  // each passing test, and where a check stands in the plug-in's words, too
};

// Writes UTF-8, whatever the locale. Each data file is printed as soon as it is handed over, and what was
// printed is flushed.
class TerminalPrinter {
 public:
  // machine: whose bounds apply. The stream must outlive the printer.
  TerminalPrinter(std::ostream& out, MachineKind machine, Verbosity verbosity, bool colored)
      : m_out(out), m_machine(machine), m_verbosity(verbosity), m_colored(colored) {}

  // The plug-in's own results, from before any data file.
  void PrintBeforeFirst(const std::vector<TestOutcome>& tests);
  // One line with its counts, or with how it was lost, and its failing tests below.
  void PrintDatafile(const DatafileResult& datafile);
  // What did not pass once more in short, then totals, the kind of machine and the paths of the reports.
  void PrintSummary(const RunResults& results);
  // Each tolerated failure against chance; nothing where there is none.
  void PrintToleratedFailures(const RunResults& results);
  // What chance does not explain; nothing where it explains all.
  void PrintTolerance(const RunResults& results);

 private:
  enum class Color { Good, Bad, Unsure, Strong };

  void PrintHead(Color color, const char* verdict, const std::string& name,
                 const std::string& state);
  void PrintTests(const std::vector<TestOutcome>& tests, const std::string& path);
  void PrintFailure(const TestOutcome& test, const std::string& path);
  void PrintLastLines(const Loss& loss);
  void PrintIndented(const std::string& text);
  void PrintNotPassed(const RunResults& results);
  std::string Colored(Color color, const std::string& text) const;

  std::ostream& m_out;
  MachineKind m_machine;
  Verbosity m_verbosity;
  bool m_colored;
};

}  // namespace OmbreliaHost

#endif
