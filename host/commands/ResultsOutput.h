// How a command with results shows them and hands them on, in every form that the user asked for.
#ifndef OMBRELIA_HOST_COMMANDS_RESULTSOUTPUT_H
#define OMBRELIA_HOST_COMMANDS_RESULTSOUTPUT_H

#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "host/print/TerminalPrinter.h"
#include "host/results/HistoryFile.h"
#include "host/run/CommandLine.h"
#include "host/run/WholeFile.h"

namespace OmbreliaHost {

// To be made before the working directory changes. Standard output gets the results as they come; the files
// that were asked for are written at the end. While there is one, lines on standard output are no commands of
// a GitHub job.
class ResultsOutput {
 public:
  // Opens the files, so that nothing older is taken for these results. Ends the run (WrongUse) if one
  // cannot be written. machine: whose bounds apply.
  ResultsOutput(const OutputArguments& arguments, MachineKind machine);
  ~ResultsOutput();
  ResultsOutput(const ResultsOutput&) = delete;
  ResultsOutput& operator=(const ResultsOutput&) = delete;

  TerminalPrinter& Terminal() { return m_terminal; }

  // After everything was printed of the single data files: lines of them go to the history, and tolerated failures
  // are judged; then come the summary, the files, annotations, and the faults on standard error. The status with
  // which the program is to end. Ends the run (NoReport) if a file cannot be written to its end.
  ExitStatus Finish(RunResults& results, const std::vector<HistoryLine>& lines);

 private:
  void EndOtherOutput();
  void Remember(RunResults& results, const std::vector<HistoryLine>& lines);

  const OutputArguments m_arguments;
  std::ofstream m_json;
  std::ofstream m_junit;
  std::optional<WholeFile> m_html;
  std::optional<HistoryFile> m_history;
  std::string m_token;  // of the silenced commands of a GitHub job; empty where there is none
  TerminalPrinter m_terminal;
};

}  // namespace OmbreliaHost

#endif
