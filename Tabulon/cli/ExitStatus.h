// How the program ends, and the error that carries an early end to main.
#ifndef OMBRELIA_TABULON_CLI_EXITSTATUS_H
#define OMBRELIA_TABULON_CLI_EXITSTATUS_H

#include <stdexcept>
#include <string>

namespace TabulonCli {

enum class ExitStatus {
  Fine = 0,
  NoDataFile = 1,  // some input is no data file; the others have been shown
  Different = 1,   // of two inputs that were compared
  WrongUse = 2,    // of the command line, or an input that is missing or cannot be read
  NoOutput = 3     // the output could not be written
};

// Ends the run. The text is UTF-8.
class RunError : public std::runtime_error {
 public:
  RunError(ExitStatus status, const std::string& text)
      : std::runtime_error(text), m_status(status) {}
  ExitStatus Status() const { return m_status; }

 private:
  ExitStatus m_status;
};

}  // namespace TabulonCli

#endif
