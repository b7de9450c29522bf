// One run from the first process to the last verdict.
#ifndef OMBRELIA_HOST_RUN_SUPERVISOR_H
#define OMBRELIA_HOST_RUN_SUPERVISOR_H

#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"
#include "host/run/PluginRun.h"
#include "host/run/Progress.h"
#include "host/run/SecondRun.h"
#include "host/run/SignalWatch.h"

namespace OmbreliaHost {

// Hears the verdicts as soon as they stand, in the order of the data files.
class VerdictListener {
 public:
  virtual ~VerdictListener() = default;
  virtual void OnBeforeFirst(const std::vector<TestOutcome>& tests) = 0;
  // A data file may come once more, with a remark, if its verdict changes after all.
  virtual void OnVerdict(const DatafileResult& datafile) = 0;
};

// Runs the plug-in over the data files and fills the results. The plug-in's report is what counts. A data
// file with a failing test is verified a second time for the evidence; and so is one that the plug-in is
// done with for a while, since the report comes only at the end of the process: its verdict is told before.
class Supervisor : private PluginRunListener {
 public:
  struct Plan {
    std::filesystem::path library;  // absolute
    std::vector<Datafile> datafiles;
    double timeout = 60;  // seconds, for each data file
    std::size_t jobs = 1;
    std::optional<MachineKind> machine;  // the other kind whose verdict is asked for
    SecondRun::Verify verifyAgain;
    // Is a good data file of the experiment verified a second time, too, for its rows and its bounds?
    std::function<bool(const std::string& experiment)> askForAll = [](const std::string&) {
      return false;
    };
  };

  // The plan, the listener and the results are borrowed. The results have one element for each data file
  // already, with its path.
  Supervisor(const Plan& plan, Progress& progress, VerdictListener& listener, RunResults& results);

  // Returns when all is known, or at the signal that it gives: then with what is known. Ends the run
  // (NoReport) if the plug-in does not load or never writes a report.
  int Run();

  // Words on each process of the plug-in that did not end well after it wrote its report.
  const std::vector<std::string>& BadUnloads() const { return m_badUnloads; }

 private:
  struct State {
    bool begun = false;
    bool assertionFailed = false;  // while the plug-in had it in hand
    bool known = false;            // the plug-in's verdict, or that there is none
    bool asked = false;            // for a second verification
    bool answered = false;
    std::optional<DatafileResult> second;
    std::optional<DatafileResult> other;  // on the other kind of machine
    std::string noSecond;                 // why there is none
    bool otherAnswered = false;
    bool shown = false;
    bool complete = false;
  };
  // The plug-in is done with it, and its verdict is not known.
  struct Pending {
    std::size_t datafile;
    double since;
  };
  struct BrokenReport {
    std::filesystem::path path;
    std::vector<std::size_t> datafiles;
    std::string why;
  };

  void OnLoaded(std::size_t assertions) override;
  void OnBegin(std::size_t datafile) override;
  void OnEnd(std::size_t datafile, double seconds, std::size_t assertions) override;
  void OnLost(std::size_t datafile, double seconds, Outcome outcome, const Loss& loss) override;
  void OnReport(const std::filesystem::path& report,
                const std::vector<std::size_t>& datafiles) override;
  void OnBadUnload(const Loss& loss) override;

  void TakeSecond(const SecondRun::Task& task, const std::optional<DatafileResult>& result,
                  const std::string& why);
  void TakeContent(const std::vector<std::size_t>& datafiles,
                   const std::vector<TestOutcome>& beforeFirst,
                   std::vector<std::vector<TestOutcome>> tests);
  void BecomeKnown(std::size_t datafile);
  bool NeedsSecond(std::size_t datafile) const;
  void AskFor(std::size_t datafile);
  void AskForLateVerdicts();
  void DropWhatIsNotNeeded();
  void SettleBrokenReports();
  void Settle(const BrokenReport& broken);
  void TakeSecondInsteadOfReport(const std::vector<std::size_t>& datafiles);
  bool IsSettled(std::size_t datafile) const;
  bool CanBeShownBeforeTheReport(std::size_t datafile) const;
  void Complete(std::size_t datafile);
  void Show();
  void ShowBeforeFirst();
  void ShowSecond(std::size_t datafile);
  void EndHere();
  bool IsFinished() const;
  double Deadline() const;
  void Wait() const;

  const Plan& m_plan;
  Progress& m_progress;
  VerdictListener& m_listener;
  RunResults& m_results;
  SignalWatch m_signals;
  std::vector<State> m_states;
  std::deque<Pending> m_pending;
  bool m_somethingIsNew = false;  // since the last look at what can be shown
  std::size_t m_firstNotShown = 0;
  std::vector<std::size_t> m_shownBeforeTheReport;  // and not settled
  bool m_beforeFirstIsShown = false;
  bool m_beforeFirstIsKnown = false;
  std::optional<std::size_t> m_assertionsAtLoad;
  std::vector<BrokenReport> m_brokenReports;
  std::vector<std::string> m_badUnloads;
  SecondRun m_second;
  PluginRun m_plugin;
};

}  // namespace OmbreliaHost

#endif
