// A process that does one piece of work and tells about it.
#ifndef OMBRELIA_HOST_RUN_CHILDPROCESS_H
#define OMBRELIA_HOST_RUN_CHILDPROCESS_H

#include <poll.h>
#include <sys/types.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Forked from this one, with a process group of its own. Whatever it does, this process only hears of it.
// It does not outlive this object, nor, where the system allows it, this process. Its standard input is
// empty; the last lines that it writes to standard error are kept.
class ChildProcess {
 public:
  // Sends a message to the parent: one line of text, without its end.
  using Tell = std::function<void(const std::string&)>;
  using Work = std::function<void(const Tell&)>;

  // work runs in the new process, which then ends with status 0 without any exit handler. An exception's
  // words go to standard error, and the status is 1. Ends the run (NoReport) if there can be no process.
  // errors: is what it writes to standard error passed on as well?
  enum class Errors { PassedOn, KeptOnly };
  explicit ChildProcess(const Work& work, Errors errors = Errors::PassedOn);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return m_pid; }
  // Adds what is to be waited for.
  void AddTo(std::vector<pollfd>& descriptors) const;
  // Reads what is there without waiting, and gives the messages that became whole.
  std::vector<std::string> TakeMessages();
  // Has it ended? If so, nothing of its group is left, and all its messages can be taken.
  bool HasEnded();
  // Ends it and its group at once.
  void Kill();

  // How it ended, with the last lines on its standard error; of use after its end.
  const Loss& End();

  // Seconds of a clock that parent and children share.
  static double Now();

 private:
  void Read(int& descriptor, const std::function<void(const char*, std::size_t)>& take);
  void KeepLastLines(const char* text, std::size_t length);

  Errors m_passOn;
  pid_t m_pid = -1;
  int m_messages = -1;
  int m_errors = -1;
  bool m_ended = false;
  std::string m_unfinishedMessage;
  std::string m_lastOutput;
  Loss m_end;
};

}  // namespace OmbreliaHost

#endif
