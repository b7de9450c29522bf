#include "host/run/Supervisor.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <utility>

#include "host/results/Agreement.h"
#include "host/results/Manifest.h"
#include "host/results/NameSuggestion.h"
#include "host/results/ReportContent.h"
#include "host/results/ReportReader.h"
#include "host/results/ReportRepair.h"
#include "host/run/LossText.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// Seconds after which a data file's verdict is not waited for any more. Most runs are done before.
constexpr double PATIENCE = 0.5;

constexpr int MILLISECONDS_BETWEEN_LOOKS = 2;

bool HasFailingTest(const std::vector<TestOutcome>& tests) {
  return std::any_of(tests.begin(), tests.end(),
                     [](const TestOutcome& test) { return test.outcome != Outcome::Passed; });
}

std::string TextOfFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// What the plug-in records when it is loaded, if nothing goes wrong.
std::vector<TestOutcome> ResultsOfTheLoad() {
  TestOutcome test;
  test.number = 1;
  test.name = "SingleDummyPassingTest";
  return {test};
}

// What may be wrong with the name of a data file without a verifier.
std::optional<std::string> WordsOnTheName(const fs::path& datafile) {
  std::vector<std::string> experiments;
  for (const VerifierEntry& entry : Verifiers()) experiments.push_back(entry.experiment);
  const std::optional<NameSuggestion> suggestion = SuggestExperiment(datafile, experiments);
  if (!suggestion) return std::nullopt;
  return "Did you mean " + suggestion->experiment + "? " + suggestion->wrong;
}

bool HaveTheSameOutcome(const DatafileResult& a, const DatafileResult& b) {
  return a.outcome == b.outcome &&
         std::equal(a.tests.begin(), a.tests.end(), b.tests.begin(), b.tests.end(),
                    [](const TestOutcome& x, const TestOutcome& y) {
                      return x.name == y.name && x.outcome == y.outcome;
                    });
}

}  // namespace

Supervisor::Supervisor(const Plan& plan, Progress& progress, VerdictListener& listener,
                       RunResults& results)
    : m_plan(plan),
      m_progress(progress),
      m_listener(listener),
      m_results(results),
      m_states(plan.datafiles.size()),
      m_second({&plan.datafiles, plan.timeout, plan.jobs, plan.verifyAgain},
               [this](const SecondRun::Task& task, const std::optional<DatafileResult>& result,
                      const std::string& why) { TakeSecond(task, result, why); }),
      m_plugin({plan.library, &plan.datafiles, plan.timeout, plan.jobs}, *this) {
  // The children are at work by now.
  for (DatafileResult& datafile : results.datafiles) {
    datafile.experiment = ExperimentLookedUp(datafile.path);
  }
  if (!plan.machine) return;
  for (std::size_t i = 0; i < m_states.size(); ++i) m_second.Ask({i, plan.machine});
}

int Supervisor::Run() {
  while (!IsFinished()) {
    Wait();
    if (const int signal = m_signals.Take()) {
      EndHere();
      return signal;
    }
    m_plugin.Handle();
    AskForLateVerdicts();
    m_second.Handle(!m_plugin.IsFinished());
    SettleBrokenReports();
    Show();
  }
  return 0;
}

bool Supervisor::IsFinished() const {
  return m_plugin.IsFinished() && m_brokenReports.empty() &&
         std::all_of(m_states.begin(), m_states.end(),
                     [](const State& state) { return state.complete; });
}

void Supervisor::Wait() const {
  // Short steps are handled in batches, because every look slows the workers. The end of a process is
  // handled at once.
  pollfd signals = {m_signals.Descriptor(), POLLIN, 0};
  poll(&signals, 1, MILLISECONDS_BETWEEN_LOOKS);
  std::vector<pollfd> descriptors = {{m_signals.Descriptor(), POLLIN, 0}};
  m_plugin.AddTo(descriptors);
  m_second.AddTo(descriptors);
  const double seconds = std::clamp(Deadline() - ChildProcess::Now(), 0.0, 3600.0);
  poll(descriptors.data(), descriptors.size(), static_cast<int>(std::ceil(seconds * 1000)));
}

double Supervisor::Deadline() const {
  const double deadline = std::min(m_plugin.Deadline(), m_second.Deadline());
  if (m_pending.empty() || !m_second.IsIdle()) return deadline;
  return std::min(deadline, m_pending.front().since + PATIENCE);
}

void Supervisor::OnLoaded(std::size_t assertions) {
  if (!m_assertionsAtLoad) m_assertionsAtLoad = assertions;
}

void Supervisor::OnBegin(std::size_t datafile) { m_progress.Next(m_plan.datafiles[datafile].path); }

void Supervisor::OnEnd(std::size_t datafile, double seconds, std::size_t assertions) {
  m_results.datafiles[datafile].seconds = seconds;
  m_states[datafile].assertionFailed = assertions > 0;
  m_pending.push_back({datafile, ChildProcess::Now()});
}

void Supervisor::OnLost(std::size_t datafile, double seconds, Outcome outcome, const Loss& loss) {
  DatafileResult& result = m_results.datafiles[datafile];
  ConcludeFromTests(result);
  result.seconds = seconds;
  result.outcome = outcome;
  result.loss = loss;
  BecomeKnown(datafile);
}

void Supervisor::OnReport(const fs::path& report, const std::vector<std::size_t>& datafiles) {
  m_results.reports.push_back(report);
  std::vector<fs::path> paths;
  for (const std::size_t datafile : datafiles) paths.push_back(m_plan.datafiles[datafile].path);
  try {
    ReportContent content = ContentOf(ReadReport(report, paths));
    TakeContent(datafiles, content.beforeFirst, std::move(content.ofDatafiles));
  } catch (const RunError& error) {
    if (error.Status() != ExitStatus::MalformedReport) throw;
    m_brokenReports.push_back({report, datafiles, error.what()});
    for (const std::size_t datafile : datafiles) AskFor(datafile);
  }
}

void Supervisor::OnBadUnload(const Loss& loss) {
  m_badUnloads.push_back("the report is written, but then the process of the plug-in " +
                         WordsOf(loss));
}

void Supervisor::TakeContent(const std::vector<std::size_t>& datafiles,
                             const std::vector<TestOutcome>& beforeFirst,
                             std::vector<std::vector<TestOutcome>> tests) {
  if (!m_beforeFirstIsKnown) {
    m_results.beforeFirst = beforeFirst;
  } else {
    // A further process repeats what is good; only what went wrong is new.
    std::copy_if(beforeFirst.begin(), beforeFirst.end(), std::back_inserter(m_results.beforeFirst),
                 [](const TestOutcome& test) { return test.outcome != Outcome::Passed; });
  }
  m_beforeFirstIsKnown = true;
  for (std::size_t i = 0; i < datafiles.size(); ++i) {
    DatafileResult& result = m_results.datafiles[datafiles[i]];
    result.tests = std::move(tests[i]);
    ConcludeFromTests(result);
    BecomeKnown(datafiles[i]);
  }
  DropWhatIsNotNeeded();
}

void Supervisor::BecomeKnown(std::size_t datafile) {
  m_somethingIsNew = true;
  m_states[datafile].known = true;
  if (NeedsSecond(datafile)) AskFor(datafile);
}

// A failing data file does, and one whose bounds are asked for; of one that was lost there is no test to explain.
bool Supervisor::NeedsSecond(std::size_t datafile) const {
  const DatafileResult& result = m_results.datafiles[datafile];
  return HasFailingTest(result.tests) ||
         (!result.tests.empty() && m_plan.askForAll(result.experiment));
}

void Supervisor::AskFor(std::size_t datafile) {
  if (!std::exchange(m_states[datafile].asked, true)) m_second.Ask({datafile, std::nullopt});
}

void Supervisor::AskForLateVerdicts() {
  while (!m_pending.empty() && m_states[m_pending.front().datafile].known) m_pending.pop_front();
  if (m_pending.empty() || !m_second.IsIdle() ||
      m_pending.front().since + PATIENCE > ChildProcess::Now()) {
    return;
  }
  for (const Pending& pending : std::exchange(m_pending, {})) {
    if (!m_states[pending.datafile].known) AskFor(pending.datafile);
  }
}

void Supervisor::DropWhatIsNotNeeded() {
  m_second.Keep([this](const SecondRun::Task& task) {
    return task.machine || !m_states[task.datafile].known || NeedsSecond(task.datafile);
  });
}

void Supervisor::TakeSecond(const SecondRun::Task& task,
                            const std::optional<DatafileResult>& result, const std::string& why) {
  State& state = m_states[task.datafile];
  m_somethingIsNew = true;
  if (task.machine) {
    state.otherAnswered = true;
    state.other = result;
    return;
  }
  state.answered = true;
  state.second = result;
  state.noSecond = why;
  if (!result) return;
  state.second->path = m_results.datafiles[task.datafile].path;
  state.second->experiment = m_results.datafiles[task.datafile].experiment;
  ConcludeFromTests(*state.second);
}

void Supervisor::SettleBrokenReports() {
  for (auto broken = m_brokenReports.begin(); broken != m_brokenReports.end();) {
    const bool allAnswered =
        std::all_of(broken->datafiles.begin(), broken->datafiles.end(),
                    [this](std::size_t datafile) { return m_states[datafile].answered; });
    if (!allAnswered) {
      ++broken;
      continue;
    }
    Settle(*broken);
    broken = m_brokenReports.erase(broken);
  }
}

void Supervisor::Settle(const BrokenReport& broken) {
  std::vector<DatafileResult> second;
  std::vector<fs::path> paths;
  for (const std::size_t datafile : broken.datafiles) {
    paths.push_back(m_plan.datafiles[datafile].path);
    second.push_back(m_states[datafile].second.value_or(DatafileResult()));
    second.back().path = paths.back();
  }
  const RepairedReport repaired = RepairReport(TextOfFile(broken.path), second);
  m_results.faults.push_back(broken.why);
  for (const ReportFault& fault : repaired.faults) {
    m_results.faults.push_back(broken.path.string() + ": " + DescribeFault(fault, second));
  }
  const fs::path copy = RepairedPath(broken.path);
  std::ofstream(copy, std::ios::binary) << repaired.text;
  try {
    ReportContent content = ContentOf(ReadReport(copy, paths));
    TakeContent(broken.datafiles, content.beforeFirst, std::move(content.ofDatafiles));
    m_results.faults.push_back(copy.string() + ": a repaired copy of the report");
  } catch (const RunError& error) {
    m_results.faults.push_back(std::string("no repaired copy: ") + error.what());
    TakeSecondInsteadOfReport(broken.datafiles);
  }
}

// The report holds less than what the plug-in was handed.
void Supervisor::TakeSecondInsteadOfReport(const std::vector<std::size_t>& datafiles) {
  std::vector<std::vector<TestOutcome>> tests;
  for (const std::size_t datafile : datafiles) {
    const std::optional<DatafileResult>& second = m_states[datafile].second;
    tests.push_back(second ? second->tests : std::vector<TestOutcome>());
    m_results.datafiles[datafile].remarks.push_back(
        second ? "The report is malformed; these are the results of the second verification."
               : "The report is malformed, and the second verification came to no end: " +
                     m_states[datafile].noSecond + ".");
  }
  TakeContent(datafiles, ResultsOfTheLoad(), std::move(tests));
  for (const std::size_t datafile : datafiles) {
    if (!m_states[datafile].second) m_results.datafiles[datafile].outcome = Outcome::Lost;
  }
}

bool Supervisor::IsSettled(std::size_t datafile) const {
  const State& state = m_states[datafile];
  return state.known && (!NeedsSecond(datafile) || state.answered) &&
         (!m_plan.machine || state.otherAnswered);
}

bool Supervisor::CanBeShownBeforeTheReport(std::size_t datafile) const {
  const State& state = m_states[datafile];
  return !state.known && state.second && !state.assertionFailed && m_assertionsAtLoad == 0 &&
         !m_plan.machine;
}

void Supervisor::Complete(std::size_t datafile) {
  State& state = m_states[datafile];
  DatafileResult& result = m_results.datafiles[datafile];
  state.complete = true;
  if (HasFailingTest(result.tests)) {
    if (state.second) {
      TakeEvidence(result, *state.second);
    } else {
      result.remarks.push_back(
          "There is no evidence, for the second verification came to no end: " + state.noSecond +
          ".");
    }
  } else if (state.second && m_plan.askForAll(result.experiment)) {
    TakeBounds(result, *state.second);
  }
  if (result.outcome == Outcome::Unknown) {
    if (const auto words = WordsOnTheName(result.path)) result.remarks.push_back(*words);
  }
  if (!m_plan.machine || result.loss) return;
  if (state.other) {
    const std::vector<std::string> differences =
        DifferencesOn(*m_plan.machine, result, *state.other);
    result.remarks.insert(result.remarks.end(), differences.begin(), differences.end());
  } else {
    result.remarks.push_back(
        "The other kind of machine is not known: the second verification came "
        "to no end.");
  }
}

void Supervisor::Show() {
  if (!std::exchange(m_somethingIsNew, false) && !m_plugin.IsFinished()) return;
  const auto changed = [this](std::size_t datafile) {
    if (!IsSettled(datafile)) return false;
    Complete(datafile);
    DatafileResult& result = m_results.datafiles[datafile];
    if (!HaveTheSameOutcome(result, *m_states[datafile].second)) {
      result.remarks.push_back(
          "Before, the second verification's results were shown; these are the plug-in's.");
      m_listener.OnVerdict(result);
    }
    return true;
  };
  m_shownBeforeTheReport.erase(
      std::remove_if(m_shownBeforeTheReport.begin(), m_shownBeforeTheReport.end(), changed),
      m_shownBeforeTheReport.end());

  for (; m_firstNotShown < m_states.size(); ++m_firstNotShown) {
    if (IsSettled(m_firstNotShown)) {
      const bool waits = !m_beforeFirstIsKnown && m_assertionsAtLoad != 0;
      if (waits && !m_plugin.IsFinished()) return;
      ShowBeforeFirst();
      Complete(m_firstNotShown);
      m_listener.OnVerdict(m_results.datafiles[m_firstNotShown]);
    } else if (CanBeShownBeforeTheReport(m_firstNotShown)) {
      ShowBeforeFirst();
      ShowSecond(m_firstNotShown);
      m_shownBeforeTheReport.push_back(m_firstNotShown);
    } else {
      return;
    }
  }
}

void Supervisor::ShowBeforeFirst() {
  if (std::exchange(m_beforeFirstIsShown, true)) return;
  if (!m_beforeFirstIsKnown) m_results.beforeFirst = ResultsOfTheLoad();
  m_listener.OnBeforeFirst(m_results.beforeFirst);
}

void Supervisor::ShowSecond(std::size_t datafile) {
  DatafileResult result = *m_states[datafile].second;
  result.seconds = m_results.datafiles[datafile].seconds;
  m_listener.OnVerdict(result);
}

void Supervisor::EndHere() {
  m_plugin.GiveUp();
  m_second.GiveUp();
  for (std::size_t i = 0; i < m_states.size(); ++i) {
    State& state = m_states[i];
    DatafileResult& result = m_results.datafiles[i];
    if (state.complete) continue;
    const bool verified = state.known || state.second;
    if (state.known) {
      if (!state.second) state.noSecond = "the run was interrupted";
      Complete(i);
    } else if (state.second) {
      result.tests = state.second->tests;
      ConcludeFromTests(result);
      result.remarks.push_back(
          "The run was interrupted; these are the results of the second verification.");
    } else {
      ConcludeFromTests(result);
      result.outcome = Outcome::Lost;
      result.remarks.push_back("Not verified: the run was interrupted.");
    }
    if (!verified || i < m_firstNotShown) continue;
    ShowBeforeFirst();
    m_listener.OnVerdict(result);
  }
}

}  // namespace OmbreliaHost
