#include "host/commands/WatchCommand.h"

#include <poll.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "host/commands/ResultsOutput.h"
#include "host/commands/RunSetup.h"
#include "host/results/Digest.h"
#include "host/results/ThisMachine.h"
#include "host/run/Arrivals.h"
#include "host/run/FolderWatch.h"
#include "host/run/PluginLibrary.h"
#include "host/run/Progress.h"
#include "host/run/ScratchFolder.h"
#include "host/run/SignalWatch.h"
#include "host/run/StimulusAreaFile.h"
#include "host/run/Supervisor.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// Seconds between two looks at the folder when the system tells of nothing.
constexpr double BETWEEN_LOOKS = 1;
// Seconds between two looks while an incomplete file is there.
constexpr double BETWEEN_LOOKS_AT_ARRIVALS = 0.2;
// Changes within this many seconds are handled together.
constexpr double BURST = 0.05;

fs::path FolderOf(const WatchArguments& arguments) {
  std::error_code error;
  const fs::path folder = fs::absolute(arguments.folder, error);
  if (error || !fs::is_directory(folder, error))
    throw RunError(ExitStatus::WrongUse, arguments.folder.string() + ": no such folder");
  return folder;
}

// For later plug-in processes only failures are shown.
class VerdictsOfABatch : public VerdictsOnTheScreen {
 public:
  VerdictsOfABatch(TerminalPrinter& printer, bool isFirst)
      : VerdictsOnTheScreen(printer), m_isFirst(isFirst) {}
  void OnBeforeFirst(const std::vector<TestOutcome>& tests) override {
    const bool passed = std::all_of(tests.begin(), tests.end(), [](const TestOutcome& test) {
      return test.outcome == Outcome::Passed;
    });
    if (m_isFirst || !passed) VerdictsOnTheScreen::OnBeforeFirst(tests);
  }

 private:
  const bool m_isFirst;
};

class Watch {
 public:
  Watch(const WatchArguments& arguments, TerminalPrinter& terminal, RunResults& results);

  // Returns at a signal.
  void Run();
  bool WasAnUnloadBad() const { return m_wasAnUnloadBad; }

 private:
  void Verify(const std::vector<std::string>& names);
  bool TakeCopy(const std::string& name, const fs::path& folder);
  std::string WithoutCopy(std::string words, const fs::path& folder) const;
  void Keep(const RunResults& batch);
  void Keep(const DatafileResult& datafile);
  void KeepWhatIsNotVerified();

  const WatchArguments& m_arguments;
  TerminalPrinter& m_terminal;
  RunResults& m_results;
  const fs::path m_folder;  // absolute
  Supervisor::Plan m_plan;  // of each batch
  ScratchFolder m_scratch;
  Arrivals m_arrivals;
  SignalWatch m_signals;
  FolderWatch m_watch;
  bool m_isOver = false;
  bool m_wasAnUnloadBad = false;
  std::size_t m_batches = 0;
  std::map<fs::path, std::size_t> m_places;  // of the results
};

Watch::Watch(const WatchArguments& arguments, TerminalPrinter& terminal, RunResults& results)
    : m_arguments(arguments),
      m_terminal(terminal),
      m_results(results),
      m_folder(FolderOf(arguments)),
      m_arrivals(m_folder, arguments.run.only),
      m_watch(m_folder, m_signals.Descriptor()) {
  const RunArguments& run = arguments.run;
  m_plan.library = run.plugin.empty() ? DefaultPluginLibrary() : fs::absolute(run.plugin);
  results.verifiers = VersionOfVerifiers(m_plan.library);
  m_plan.timeout = run.timeout.count();
  m_plan.jobs = static_cast<std::size_t>(run.jobs);
  m_plan.machine = run.machine;
  m_plan.askForAll = [&run](const std::string& experiment) {
    return AsksForAll(run.output, experiment);
  };
  m_plan.verifyAgain = &VerifyAgain;
}

void Watch::Run() {
  m_arrivals.Look(ChildProcess::Now());
  if (m_arguments.newOnly) m_arrivals.PassOver();
  std::cerr << "verify-datafiles: watching " << m_arguments.folder.string() << "; Control-C ends it"
            << std::endl;
  while (!m_isOver && m_signals.Take() == 0) {
    const double now = ChildProcess::Now();
    m_arrivals.Look(now);
    const std::vector<std::string> names = m_arrivals.Take(now);
    if (!names.empty()) {
      Verify(names);
    } else {
      m_watch.Wait(m_arrivals.Waiting().empty() ? BETWEEN_LOOKS : BETWEEN_LOOKS_AT_ARRIVALS);
      pollfd signals = {m_signals.Descriptor(), POLLIN, 0};
      poll(&signals, 1, static_cast<int>(BURST * 1000));
    }
  }
  KeepWhatIsNotVerified();
}

// Copies are verified: whatever becomes of the data files meanwhile, each verdict is on one state of them.
void Watch::Verify(const std::vector<std::string>& names) {
  const fs::path folder = m_scratch.Path() / std::to_string(++m_batches);
  std::error_code ignored;
  fs::create_directory(folder, ignored);
  RunResults batch;
  m_plan.datafiles.clear();
  for (const std::string& name : names) {
    if (!TakeCopy(name, folder)) {
      m_arrivals.PutBack(name, ChildProcess::Now());
      continue;
    }
    Datafile datafile = {m_arguments.folder / name, folder / name, m_plan.datafiles.size() + 1, {}};
    DatafileResult result;
    result.path = datafile.given;
    result.digest = DigestOf(datafile.path);
    try {
      datafile.areas = ReadStimulusAreas(datafile.path);
    } catch (const RunError& error) {
      result.outcome = Outcome::Lost;
      result.remarks.push_back("Not verified: " + WithoutCopy(error.what(), folder));
      m_terminal.PrintDatafile(result);
      Keep(result);
      continue;
    }
    m_plan.datafiles.push_back(datafile);
    batch.datafiles.push_back(result);
  }
  if (!m_plan.datafiles.empty()) {
    Progress progress(ShowMode::Never, m_plan.datafiles.size());
    VerdictsOfABatch screen(m_terminal, m_results.beforeFirst.empty());
    Supervisor supervisor(m_plan, progress, screen, batch);
    m_isOver = supervisor.Run() != 0;
    for (const std::string& text : supervisor.BadUnloads()) {
      std::cerr << "verify-datafiles: " << text << std::endl;
      m_wasAnUnloadBad = true;
    }
    Keep(batch);
  }
  std::cout.flush();
  fs::remove_all(folder, ignored);
}

// Words on a copy become words on what was copied.
std::string Watch::WithoutCopy(std::string words, const fs::path& folder) const {
  const std::size_t place = words.find(folder.string());
  if (place != std::string::npos)
    words.replace(place, folder.string().size(), m_arguments.folder.string());
  return words;
}

// False if the data file changed meanwhile, or is gone.
bool Watch::TakeCopy(const std::string& name, const fs::path& folder) {
  std::error_code error;
  fs::copy_file(m_folder / name, folder / name, error);
  if (error) return false;
  const fs::path areas = StimulusAreaFileOf(m_folder / name);
  if (fs::exists(areas, error)) fs::copy_file(areas, StimulusAreaFileOf(folder / name), error);
  return !error && m_arrivals.IsAsTaken(name);
}

void Watch::Keep(const RunResults& batch) {
  const bool isFirst = m_results.beforeFirst.empty();
  for (const TestOutcome& test : batch.beforeFirst) {
    // A further process repeats what is good.
    if (isFirst || test.outcome != Outcome::Passed) m_results.beforeFirst.push_back(test);
  }
  m_results.faults.insert(m_results.faults.end(), batch.faults.begin(), batch.faults.end());
  m_results.reports.insert(m_results.reports.end(), batch.reports.begin(), batch.reports.end());
  for (const DatafileResult& datafile : batch.datafiles) Keep(datafile);
}

// If a data file arrives again, its last verdict counts.
void Watch::Keep(const DatafileResult& datafile) {
  const auto [place, isNew] = m_places.emplace(datafile.path, m_results.datafiles.size());
  if (isNew) m_results.datafiles.emplace_back();
  DatafileResult& kept = m_results.datafiles[place->second];
  kept = datafile;
  kept.position = place->second + 1;
  if (!isNew) kept.remarks.push_back("It was verified before, and has changed since.");
}

void Watch::KeepWhatIsNotVerified() {
  m_arrivals.Look(ChildProcess::Now());
  for (const std::string& name : m_arrivals.Waiting()) {
    DatafileResult result;
    result.path = m_arguments.folder / name;
    result.outcome = Outcome::Lost;
    result.remarks.push_back("Not verified: the watch ended before it was complete.");
    m_terminal.PrintDatafile(result);
    Keep(result);
  }
}

}  // namespace

ExitStatus RunWatchCommand(const WatchArguments& arguments) {
  RunResults results;
  results.machine = ThisMachine();
  results.started = UtcNow();
  results.host = NameOfThisHost();
  const double start = ChildProcess::Now();
  FolderOf(arguments);  // before any file is made
  ResultsOutput output(arguments.run.output, results.machine);
  Watch watch(arguments, output.Terminal(), results);
  EnterWorkingDirectory(arguments.run.workDir);
  std::optional<RunError> fault;
  try {
    watch.Run();
  } catch (const RunError& error) {
    if (results.datafiles.empty()) throw;
    fault = error;
  }
  results.seconds = ChildProcess::Now() - start;
  const ExitStatus status = output.Finish(results, HistoryLinesOf(results));
  if (fault) {
    std::cerr << "verify-datafiles: " << fault->what() << std::endl;
    return fault->Status();
  }
  return status == ExitStatus::NoFailingTest && watch.WasAnUnloadBad() ? ExitStatus::SomeFailingTest
                                                                       : status;
}

}  // namespace OmbreliaHost
