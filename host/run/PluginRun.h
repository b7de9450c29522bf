// The plug-in's way through the data files, whatever becomes of its processes.
#ifndef OMBRELIA_HOST_RUN_PLUGINRUN_H
#define OMBRELIA_HOST_RUN_PLUGINRUN_H

#include <poll.h>

#include <cstddef>
#include <deque>
#include <filesystem>
#include <list>
#include <optional>
#include <vector>

#include "host/results/ExitStatus.h"
#include "host/results/RunResults.h"
#include "host/run/ChildProcess.h"
#include "host/run/DatafileList.h"
#include "host/run/PluginWork.h"
#include "host/run/SharedCounter.h"

namespace OmbreliaHost {

// Hears what becomes of the data files, which are given by their index. After a loss a data file may begin
// and end once more.
class PluginRunListener {
 public:
  virtual ~PluginRunListener() = default;
  // assertions: how many failed while the plug-in was loaded.
  virtual void OnLoaded(std::size_t assertions) = 0;
  virtual void OnBegin(std::size_t datafile) = 0;
  // assertions: how many failed meanwhile.
  virtual void OnEnd(std::size_t datafile, double seconds, std::size_t assertions) = 0;
  // Crashed, TimedOut or Lost; there will be no results of the plug-in.
  virtual void OnLost(std::size_t datafile, double seconds, Outcome outcome, const Loss& loss) = 0;
  // The report of one process is there, with the results of these data files in this order.
  virtual void OnReport(const std::filesystem::path& report,
                        const std::vector<std::size_t>& datafiles) = 0;
  // The report is there, but then the plug-in did not go well.
  virtual void OnBadUnload(const Loss& loss) = 0;
};

// Runs up to `jobs` processes side by side. Each loads the plug-in, takes data files from the common
// queue and writes a report. A process that is lost costs the data file that it had in hand; the
// next one takes the rest and then verifies again what the lost one had verified. Where a report
// fails to come though all data files went through, ever smaller groups of them are tried.
class PluginRun {
 public:
  struct Plan {
    std::filesystem::path library;  // absolute
    const std::vector<Datafile>* datafiles = nullptr;
    double timeout = 60;  // seconds, for each step: the load, a data file, the report
    std::size_t jobs = 1;
  };

  // The data files and the listener are borrowed.
  PluginRun(const Plan& plan, PluginRunListener& listener);

  bool IsFinished() const { return m_children.empty(); }
  void AddTo(std::vector<pollfd>& descriptors) const;
  // Seconds of the common clock at which Handle must be called at the latest.
  double Deadline() const;
  // Does what is to be done, without waiting. Ends the run (NoReport) if the plug-in does not load, or
  // never writes a report.
  void Handle();
  // Ends all processes at once; there is nothing more to be done.
  void GiveUp() { m_children.clear(); }

 private:
  struct Batch {
    std::vector<std::size_t> further;
    bool takesFromQueue = false;
  };
  struct Child {
    Child(const Batch& its, const ChildProcess::Work& work) : batch(its), process(work) {}
    Batch batch;
    ChildProcess process;
    double lastStep = ChildProcess::Now();
    bool loaded = false;
    std::optional<std::size_t> current;  // the data file in hand
    std::vector<std::size_t> ended;
    bool flushing = false;
    bool reported = false;
    bool timedOut = false;
    std::optional<RunError> fault;
  };
  struct HowLost {
    Outcome outcome;
    Loss loss;
  };
  // Data files that went through, but no report came.
  struct Unreported {
    std::vector<std::size_t> datafiles;
    HowLost how;
  };
  enum class Proof { None, Running, Given };  // that the plug-in writes a report at all

  void StartChildren();
  std::optional<Batch> NextBatch();
  void Start(const Batch& batch);
  void Apply(Child& child, const PluginStep& step);
  void Conclude(Child& child);
  void TakeReport(const Child& child);
  void ConcludeUnloaded(Child& child);
  void ConcludeUnreported(Child& child);
  void VerifyAgain(const Child& child);
  void Narrow(const Unreported& unreported);
  void Lose(std::size_t datafile, double seconds, const HowLost& how);
  static HowLost HowOf(Child& child);
  [[noreturn]] void Reject(const std::string& why) const;

  Plan m_plan;
  PluginRunListener& m_listener;
  SharedCounter m_queue;
  std::list<Child> m_children;
  std::deque<Batch> m_batches;           // to be verified apart from the queue
  std::vector<std::size_t> m_again;      // verified by processes that are lost
  std::vector<bool> m_settled;           // reported or lost
  std::vector<Unreported> m_unreported;  // wait for the proof
  Proof m_proof = Proof::None;
  int m_losses = 0;  // in a row, without a data file in hand
};

}  // namespace OmbreliaHost

#endif
