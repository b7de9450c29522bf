#include "host/run/ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "host/results/ExitStatus.h"
#include "host/results/ResultsJson.h"
#include "host/run/SignalWatch.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t KEPT_OUTPUT = 4096;  // bytes of standard error
constexpr std::size_t KEPT_LINES = 10;

// The parent's ends of all pipes: no child is to hold those of another one.
std::set<int>& ParentsEnds() {
  static std::set<int> ends;
  return ends;
}

// The signals wait while a child is half made.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &m_former);
  }
  ~SignalsBlocked() { sigprocmask(SIG_SETMASK, &m_former, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t m_former;
};

[[noreturn]] void RejectFork() {
  throw RunError(ExitStatus::NoReport,
                 std::string("no process can be started: ") + std::strerror(errno));
}

void WriteAll(int descriptor, const char* text, std::size_t length) {
  while (length > 0) {
    const ssize_t written = write(descriptor, text, length);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;
    text += written;
    length -= static_cast<std::size_t>(written);
  }
}

[[noreturn]] void RunWork(const ChildProcess::Work& work, int messages) {
  int status = 0;
  try {
    work([messages](const std::string& message) {
      const std::string line = message + "\n";
      WriteAll(messages, line.data(), line.size());
    });
  } catch (const std::exception& error) {
    std::cerr << "verify-datafiles: " << error.what() << std::endl;
    status = 1;
  }
  std::cout.flush();
  std::fflush(nullptr);
  _exit(status);
}

// Everything of the new process that does not depend on its work.
void SettleInChild(pid_t parent, int errors) {
  setpgid(0, 0);
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
  if (getppid() != parent) _exit(1);
  SignalWatch::RestoreInChild();
  for (const int end : ParentsEnds()) close(end);
  const int nothing = open("/dev/null", O_RDONLY);
  dup2(nothing, STDIN_FILENO);
  if (nothing > STDERR_FILENO) close(nothing);
  dup2(errors, STDERR_FILENO);
  close(errors);
}

// Bytes that are no UTF-8 are replaced.
std::string AsUtf8(const std::string& text) {
  return nlohmann::json::parse(JsonText(text, -1)).get<std::string>();
}

}  // namespace

ChildProcess::ChildProcess(const Work& work, Errors passOn) : m_passOn(passOn) {
  std::array<int, 2> messages{};
  std::array<int, 2> errors{};
  if (pipe(messages.data()) != 0 || pipe(errors.data()) != 0) RejectFork();
  for (const int end : {messages[0], messages[1], errors[0], errors[1]}) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
  }
  // The child would write what stands in the buffers once more.
  std::cout.flush();
  std::fflush(nullptr);
  const pid_t parent = getpid();
  {
    const SignalsBlocked blocked;
    m_pid = fork();
    if (m_pid == 0) {
      close(messages[0]);
      close(errors[0]);
      SettleInChild(parent, errors[1]);
    }
  }
  if (m_pid == 0) RunWork(work, messages[1]);
  close(messages[1]);
  close(errors[1]);
  m_messages = messages[0];
  m_errors = errors[0];
  if (m_pid < 0) {
    close(m_messages);
    close(m_errors);
    RejectFork();
  }
  // Whoever comes first: the group must be there when it is to be ended.
  setpgid(m_pid, m_pid);
  for (const int end : {m_messages, m_errors}) {
    fcntl(end, F_SETFL, O_NONBLOCK);
    ParentsEnds().insert(end);
  }
}

ChildProcess::~ChildProcess() {
  if (!m_ended) {
    Kill();
    while (waitpid(m_pid, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  for (const int end : {m_messages, m_errors}) {
    if (end < 0) continue;
    ParentsEnds().erase(end);
    close(end);
  }
}

void ChildProcess::AddTo(std::vector<pollfd>& descriptors) const {
  for (const int end : {m_messages, m_errors}) {
    if (end >= 0) descriptors.push_back({end, POLLIN, 0});
  }
}

void ChildProcess::Read(int& descriptor,
                        const std::function<void(const char*, std::size_t)>& take) {
  std::array<char, 65536> block;  // not cleared: that would cost more than all the rest
  // A process that never stops writing is not to keep this one from its other work.
  for (int blocks = 0; descriptor >= 0 && (m_ended || blocks < 16); ++blocks) {
    const ssize_t length = read(descriptor, block.data(), block.size());
    if (length > 0) {
      take(block.data(), static_cast<std::size_t>(length));
    } else if (length == 0 || (errno != EINTR && errno != EAGAIN)) {
      ParentsEnds().erase(descriptor);
      close(descriptor);
      descriptor = -1;
    } else if (errno == EAGAIN) {
      return;
    }
  }
}

std::vector<std::string> ChildProcess::TakeMessages() {
  Read(m_errors, [this](const char* text, std::size_t length) {
    if (m_passOn == Errors::PassedOn) WriteAll(STDERR_FILENO, text, length);
    KeepLastLines(text, length);
  });
  Read(m_messages,
       [this](const char* text, std::size_t length) { m_unfinishedMessage.append(text, length); });
  std::vector<std::string> messages;
  std::size_t start = 0;
  for (std::size_t end = 0; (end = m_unfinishedMessage.find('\n', start)) != std::string::npos;
       start = end + 1) {
    messages.push_back(m_unfinishedMessage.substr(start, end - start));
  }
  m_unfinishedMessage.erase(0, start);
  return messages;
}

void ChildProcess::KeepLastLines(const char* text, std::size_t length) {
  m_lastOutput.append(text, length);
  if (m_lastOutput.size() > 2 * KEPT_OUTPUT) {
    m_lastOutput.erase(0, m_lastOutput.size() - KEPT_OUTPUT);
  }
}

bool ChildProcess::HasEnded() {
  if (m_ended) return true;
  siginfo_t info = {};
  const int failure = waitid(P_PID, static_cast<id_t>(m_pid), &info, WEXITED | WNOHANG | WNOWAIT);
  if (failure == 0 && info.si_pid == 0) return false;
  // As long as the process is not reaped, no other group can have its number.
  Kill();
  int status = 0;
  while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) continue;
  m_ended = true;
  if (WIFSIGNALED(status)) m_end.signal = WTERMSIG(status);
  if (WIFEXITED(status)) m_end.exitStatus = WEXITSTATUS(status);
  return true;
}

void ChildProcess::Kill() {
  kill(-m_pid, SIGKILL);
  kill(m_pid, SIGKILL);
}

const Loss& ChildProcess::End() {
  m_end.lastLines.clear();
  std::istringstream lines(AsUtf8(
      m_lastOutput.substr(m_lastOutput.size() - std::min(m_lastOutput.size(), KEPT_OUTPUT))));
  for (std::string line; std::getline(lines, line);) m_end.lastLines.push_back(line);
  if (m_end.lastLines.size() > KEPT_LINES) {
    m_end.lastLines.erase(m_end.lastLines.begin(),
                          m_end.lastLines.end() - static_cast<std::ptrdiff_t>(KEPT_LINES));
  }
  return m_end;
}

double ChildProcess::Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace OmbreliaHost
