#include "host/run/SharedWork.h"

#include <poll.h>
#include <signal.h>
#include <sys/time.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

namespace {

constexpr double WAITING_PER_WORK = 30;

// After this many seconds of processor time a signal ends the process, unless the limit is renewed.
void GrantTime(double seconds) {
  itimerval time = {};
  time.it_value.tv_sec = static_cast<time_t>(seconds);
  time.it_value.tv_usec = static_cast<suseconds_t>((seconds - std::floor(seconds)) * 1e6);
  setitimer(ITIMER_PROF, &time, nullptr);
}

void DoPieces(const SharedWork::Plan& plan, SharedCounter& next, const ChildProcess::Tell& tell) {
  signal(SIGPROF, SIG_DFL);
  for (std::size_t i = 0; (i = next.Take()) < plan.pieces;) {
    tell("begin " + std::to_string(i));
    GrantTime(plan.timeout);
    tell("end " + plan.work(i));
  }
  GrantTime(0);
}

// What follows the word; absent if another one is at the start.
std::optional<std::string> Behind(const std::string& word, const std::string& line) {
  if (line.compare(0, word.size(), word) != 0) return std::nullopt;
  return line.substr(word.size());
}

}  // namespace

int SharedWork::Do(const Plan& plan) { return SharedWork(plan).Run(); }

int SharedWork::Run() {
  for (;;) {
    while (m_children.size() < m_plan.jobs && m_next.Next() < m_plan.pieces) Start();
    if (m_children.empty()) {
      // A process may be lost before it says which piece it took.
      if (m_answers == m_plan.pieces) return 0;
      throw RunError(ExitStatus::NoReport, "a process was ended from outside");
    }
    Wait();
    if (const int stop = m_signals.Take()) return stop;
    for (auto child = m_children.begin(); child != m_children.end();) {
      const bool ended = child->process.HasEnded();
      Handle(*child);
      if (ended) Conclude(*child);
      child = ended ? m_children.erase(child) : std::next(child);
    }
  }
}

void SharedWork::Start() {
  m_children.emplace_back(
      [this](const ChildProcess::Tell& tell) { DoPieces(m_plan, m_next, tell); });
}

void SharedWork::Handle(Child& child) {
  for (const std::string& message : child.process.TakeMessages()) {
    child.since = ChildProcess::Now();
    if (const auto number = Behind("begin ", message)) {
      child.piece = std::stoul(*number);
    } else if (const auto line = Behind("end ", message); line && child.piece) {
      Take(*std::exchange(child.piece, std::nullopt), {*line, std::nullopt, false});
    }
  }
  const double allowed = m_plan.timeout * WAITING_PER_WORK;
  if (!child.timedOut && ChildProcess::Now() >= child.since + allowed) {
    child.timedOut = true;
    child.process.Kill();
  }
}

void SharedWork::Conclude(Child& child) {
  if (!child.piece) return;
  const Loss loss = child.process.End();
  Take(*child.piece, {std::string(), loss, child.timedOut || loss.signal == SIGPROF});
}

void SharedWork::Take(std::size_t piece, const Answer& answer) {
  ++m_answers;
  m_plan.take(piece, answer);
}

void SharedWork::Wait() const {
  std::vector<pollfd> descriptors = {{m_signals.Descriptor(), POLLIN, 0}};
  // Many short messages are taken together.
  poll(descriptors.data(), descriptors.size(), 2);
  for (const Child& child : m_children) child.process.AddTo(descriptors);
  double seconds = m_plan.timeout * WAITING_PER_WORK;
  for (const Child& child : m_children)
    seconds =
        std::min(seconds, child.since + m_plan.timeout * WAITING_PER_WORK - ChildProcess::Now());
  poll(descriptors.data(), descriptors.size(),
       static_cast<int>(std::ceil(std::clamp(seconds, 0.0, 3600.0) * 1000)));
}

}  // namespace OmbreliaHost
