#include "host/run/SignalWatch.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

namespace {

constexpr std::array<int, 4> SIGNALS = {SIGINT, SIGTERM, SIGHUP, SIGCHLD};

// A handler reaches only what is static.
std::array<int, 2> ends = {-1, -1};
volatile sig_atomic_t stopSignal = 0;
std::array<struct sigaction, SIGNALS.size()> former;
int watches = 0;

void OnSignal(int signal) {
  const int error = errno;
  if (signal != SIGCHLD) stopSignal = signal;
  // A full pipe wakes up the reader as well.
  const ssize_t written = write(ends[1], "", 1);
  static_cast<void>(written);
  errno = error;
}

bool IsIgnored(const struct sigaction& action) { return action.sa_handler == SIG_IGN; }

}  // namespace

SignalWatch::SignalWatch() {
  if (watches > 0) {
    ++watches;
    return;
  }
  if (pipe(ends.data()) != 0) throw RunError(ExitStatus::NoReport, "no pipe can be made");
  for (const int end : ends) {
    fcntl(end, F_SETFL, O_NONBLOCK);
    fcntl(end, F_SETFD, FD_CLOEXEC);
  }
  stopSignal = 0;
  for (std::size_t i = 0; i < SIGNALS.size(); ++i) {
    struct sigaction action = {};
    action.sa_handler = &OnSignal;
    action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
    sigaction(SIGNALS[i], nullptr, &former[i]);
    // The end of a child must be heard of in any case: a shell may have it ignored.
    if (SIGNALS[i] == SIGCHLD || !IsIgnored(former[i])) sigaction(SIGNALS[i], &action, nullptr);
  }
  ++watches;
}

SignalWatch::~SignalWatch() {
  if (--watches > 0) return;
  for (std::size_t i = 0; i < SIGNALS.size(); ++i) sigaction(SIGNALS[i], &former[i], nullptr);
  for (int& end : ends) {
    close(end);
    end = -1;
  }
}

int SignalWatch::Descriptor() const { return ends[0]; }

int SignalWatch::Take() {
  std::array<char, 64> bytes{};
  while (read(ends[0], bytes.data(), bytes.size()) > 0) continue;
  return stopSignal;
}

void SignalWatch::WakeParent() { kill(getppid(), SIGCHLD); }

void SignalWatch::RestoreInChild() {
  for (const int signal : SIGNALS) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    if (!IsIgnored(action)) ::signal(signal, SIG_DFL);
  }
  for (const int end : ends) {
    if (end >= 0) close(end);
  }
}

void SignalWatch::EndBy(int signal) {
  ::signal(signal, SIG_DFL);
  raise(signal);
  std::_Exit(128 + signal);
}

}  // namespace OmbreliaHost
