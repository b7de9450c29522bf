// How the program ends, and the error that carries an early end to main.
#ifndef OMBRELIA_HOST_RESULTS_EXITSTATUS_H
#define OMBRELIA_HOST_RESULTS_EXITSTATUS_H

#include <stdexcept>
#include <string>

namespace OmbreliaHost {

enum class ExitStatus {
  NoFailingTest = 0,
  SomeFailingTest = 1,
  WrongUse = 2,  // of the command line, or an input that is missing, unreadable or malformed
  // A report is no well-formed XML, or does not hold what it says, or a process has left none among others that have.
  MalformedReport = 3,
  NoReport = 4,  // the library does not load, or what was asked for could not be written
};

// Ends the run. The text is UTF-8 and is written to standard error as it is.
class RunError : public std::runtime_error {
 public:
  RunError(ExitStatus status, const std::string& text)
      : std::runtime_error(text), m_status(status) {}
  ExitStatus Status() const { return m_status; }

 private:
  ExitStatus m_status;
};

}  // namespace OmbreliaHost

#endif
