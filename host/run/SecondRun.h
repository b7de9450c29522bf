// Second verifications, each of one data file by this program itself.
#ifndef OMBRELIA_HOST_RUN_SECONDRUN_H
#define OMBRELIA_HOST_RUN_SECONDRUN_H

#include <poll.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"
#include "host/run/ChildProcess.h"
#include "host/run/DatafileList.h"

namespace OmbreliaHost {

// Verifies in child processes, since a data file that the plug-in does not survive is asked for as well.
class SecondRun {
 public:
  struct Task {
    std::size_t datafile = 0;
    std::optional<MachineKind> machine;  // absent: the kind of this machine
  };
  // Fills the tests and what follows from them; it may crash or never return.
  using Verify = std::function<DatafileResult(const Datafile&, std::optional<MachineKind>)>;
  // Hears of each task once: the result, or in words why there is none.
  using Take =
      std::function<void(const Task&, const std::optional<DatafileResult>&, const std::string&)>;

  struct Plan {
    const std::vector<Datafile>* datafiles = nullptr;  // borrowed
    double timeout = 60;                               // seconds, for each task
    std::size_t jobs = 1;
    Verify verify;
  };

  SecondRun(const Plan& plan, const Take& take) : m_plan(plan), m_take(take) {}

  void Ask(const Task& task) { m_tasks.push_back(task); }
  // Gives up the tasks that are not needed any more, as far as that saves something.
  void Keep(const std::function<bool(const Task&)>& needed);
  bool IsIdle() const { return m_tasks.empty() && m_children.empty(); }
  void AddTo(std::vector<pollfd>& descriptors) const;
  // Seconds of the common clock at which Handle must be called at the latest.
  double Deadline() const;
  // Does what is to be done, without waiting. humbly: processes that begin now take only the time that
  // others leave.
  void Handle(bool humbly);
  // Ends all processes at once.
  void GiveUp() { m_children.clear(); }

 private:
  struct Child {
    Child(const std::vector<Task>& its, const ChildProcess::Work& work)
        : tasks(its), process(work, ChildProcess::Errors::KeptOnly) {}
    std::vector<Task> tasks;
    ChildProcess process;
    double lastStep = ChildProcess::Now();
    std::size_t done = 0;  // tasks, in their order
    bool timedOut = false;
  };
  void Start(bool humbly);
  void Apply(Child& child, const std::string& message);
  void Conclude(Child& child);

  Plan m_plan;
  Take m_take;
  std::deque<Task> m_tasks;
  std::list<Child> m_children;
};

}  // namespace OmbreliaHost

#endif
