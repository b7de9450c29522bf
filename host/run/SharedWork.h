// Pieces of work for child processes side by side.
#ifndef OMBRELIA_HOST_RUN_SHAREDWORK_H
#define OMBRELIA_HOST_RUN_SHAREDWORK_H

#include <cstddef>
#include <functional>
#include <list>
#include <optional>
#include <string>

#include "host/results/RunResults.h"
#include "host/run/ChildProcess.h"
#include "host/run/SharedCounter.h"
#include "host/run/SignalWatch.h"

namespace OmbreliaHost {

// Each piece is done once, by whichever child is free. A piece that crashes its process or takes too long costs
// no other piece.
class SharedWork {
 public:
  struct Answer {
    std::string line;          // what the work returned; empty if it came to no end
    std::optional<Loss> loss;  // then: how its process ended
    bool timedOut = false;     // and whether that was for want of time
  };
  struct Plan {
    std::size_t pieces = 0;
    std::size_t jobs = 1;
    // Seconds of the processor's time for one piece: a machine that is busy with other things makes none late. One
    // that waits instead of working has thirty times as long.
    double timeout = 1;
    std::function<std::string(std::size_t)> work;  // in a child; one line
    std::function<void(std::size_t, const Answer&)> take;
  };

  // Works through all pieces, or up to the signal that it gives. Ends the run (NoReport) if processes are ended from
  // outside.
  static int Do(const Plan& plan);

 private:
  struct Child {
    explicit Child(const ChildProcess::Work& work)
        : process(work, ChildProcess::Errors::KeptOnly) {}
    ChildProcess process;
    std::optional<std::size_t> piece;  // in hand
    double since = ChildProcess::Now();
    bool timedOut = false;
  };

  explicit SharedWork(const Plan& plan) : m_plan(plan) {}
  int Run();
  void Start();
  void Handle(Child& child);
  void Conclude(Child& child);
  void Take(std::size_t piece, const Answer& answer);
  void Wait() const;

  const Plan& m_plan;
  SignalWatch m_signals;
  SharedCounter m_next;
  std::list<Child> m_children;
  std::size_t m_answers = 0;
};

}  // namespace OmbreliaHost

#endif
