// Runs a program and keeps all that it says.
#ifndef OMBRELIA_TESTS_SUPPORT_PROCESS_H
#define OMBRELIA_TESTS_SUPPORT_PROCESS_H

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace Tests {

struct Finished {
  pid_t pid = 0;
  int status = -1;  // exit status; -1 if a signal ended it
  int signal = 0;   // the signal that ended it
  std::string out;
  std::string err;
};

struct ProcessSetup {
  std::string workingDirectory;  // empty: as this process
  // "NAME=value" is set, "NAME" alone is removed.
  std::vector<std::string> environment;
  // Runs in the new process before the program starts; a result other than 0 is its exit status.
  std::function<int()> beforeStart;
};

// A started program. Its output is written to files, so any number may run at once.
class Process {
 public:
  explicit Process(const std::vector<std::string>& command, const ProcessSetup& setup = {});
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  Finished Wait();
  pid_t Pid() const { return m_pid; }
  // What it has written to standard output so far.
  std::string OutSoFar() const;

 private:
  pid_t m_pid;
  std::string m_outFile;
  std::string m_errFile;
};

Finished RunProgram(const std::vector<std::string>& command, const ProcessSetup& setup = {});

// Gives the calling process a private host name, which no other process sees; for beforeStart or
// after a fork. The exit status NOT_PERMITTED if the system does not allow it, otherwise 0.
constexpr int NOT_PERMITTED = 77;
int TakeHostName(const char* name);

// The driver of the built plug-in library, run in folder with steps (see DrivePlugin.cpp).
Finished DrivePlugin(const std::string& folder, const std::vector<std::string>& steps,
                     const std::vector<std::string>& environment = {});

}  // namespace Tests

#endif
