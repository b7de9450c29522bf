#include "host/results/CollectedReports.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>
#include <utility>

#include "host/results/ReportContent.h"
#include "host/results/ReportReader.h"
#include "host/results/ReportRepair.h"
#include "host/results/WideText.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

std::string UtcTime(std::time_t time) {
  std::tm parts{};
  std::array<char, 32> text{};
  if (gmtime_r(&time, &parts) == nullptr) return std::string();
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

// When the process began, as far as its files tell.
std::time_t TimeOf(const ProcessTraces& traces) {
  const fs::path& file = traces.flagFile.empty() ? traces.report : traces.flagFile;
  struct stat status {};
  return stat(file.c_str(), &status) == 0 ? status.st_mtime
                                          : std::numeric_limits<std::time_t>::max();
}

// A report that stands there in advance gets the name of this process when the plug-in is loaded. Each suite that the
// plug-in writes names its process.
bool IsOfAnotherProcess(const std::string& report, unsigned long process) {
  return report.find("<testsuite ") != std::string::npos &&
         report.find("_pid_" + std::to_string(process)) == std::string::npos;
}

class Collection {
 public:
  explicit Collection(RunResults& results) : m_results(results) {}
  void Add(const ProcessTraces& traces);

 private:
  void AddFault(const std::string& test, const std::string& fault);
  void AddMalformed(const ProcessTraces& traces, const std::string& text);
  void AddContent(const ProcessTraces& traces, ReportReading reading);
  void AddBeforeFirst(const TestOutcome& test);

  RunResults& m_results;
};

// Makes the results not whole, also for those who look at tests alone.
void Collection::AddFault(const std::string& test, const std::string& fault) {
  TestOutcome failing;
  failing.name = test;
  failing.outcome = Outcome::Failed;
  failing.subject = "The results are not whole.";
  failing.message = fault;
  m_results.beforeFirst.push_back(failing);
  m_results.faults.push_back(fault);
}

void Collection::Add(const ProcessTraces& traces) {
  if (traces.report.empty()) {
    AddFault("process_left_no_report",
             Utf8OfPath(traces.flagFile) + ": " + NameOf(traces) +
                 " died, or has not ended yet: it left this flag file and no report");
    return;
  }
  const std::string name = traces.report.string();
  const std::string text = TextOfReport(traces.report);
  m_results.reports.push_back(traces.report);
  if (IsOfAnotherProcess(text, traces.process)) {
    AddFault("process_left_no_report",
             Utf8OfPath(traces.report) + ": " + NameOf(traces) +
                 " died, or has not ended yet: the report of this name was not written by it");
    return;
  }
  ReportReading reading = ReadReportText(text, name, {});
  if (reading.fault.empty()) {
    AddContent(traces, std::move(reading));
  } else {
    m_results.faults.push_back(reading.fault);
    AddMalformed(traces, text);
  }
}

void Collection::AddMalformed(const ProcessTraces& traces, const std::string& text) {
  const RepairedReport repaired = RepairReport(text, {});
  for (const ReportFault& fault : repaired.faults) {
    m_results.faults.push_back(traces.report.string() + ": " + DescribeFault(fault, {}));
  }
  ReportReading reading = ReadReportText(repaired.text, traces.report.string(), {});
  const bool whole = reading.fault.empty();
  if (!whole) AddFault("report_is_not_whole", reading.fault);
  const std::size_t before = m_results.datafiles.size();
  AddContent(traces, std::move(reading));
  if (whole || m_results.datafiles.size() == before) return;
  DatafileResult& last = m_results.datafiles.back();
  last.remarks.push_back("The report is not whole: further results of this data file may be lost.");
  if (last.outcome == Outcome::Passed) last.outcome = Outcome::Lost;
}

// Each process records the same before any data file, if nothing goes wrong.
void Collection::AddBeforeFirst(const TestOutcome& test) {
  const std::vector<TestOutcome>& known = m_results.beforeFirst;
  if (test.outcome == Outcome::Passed &&
      std::any_of(known.begin(), known.end(), [&](const TestOutcome& other) {
        return other.outcome == Outcome::Passed && other.name == test.name;
      })) {
    return;
  }
  m_results.beforeFirst.push_back(test);
}

void Collection::AddContent(const ProcessTraces& traces, ReportReading reading) {
  ReportContent content = ContentOf(std::move(reading.results));
  for (const TestOutcome& test : content.beforeFirst) AddBeforeFirst(test);
  std::size_t number = 0;
  for (std::vector<TestOutcome>& tests : content.ofDatafiles) {
    DatafileResult datafile = DatafileOfTests(std::move(tests));
    datafile.path =
        traces.folder / (datafile.path.string() + " (process " + std::to_string(traces.process) +
                         ", data file " + std::to_string(++number) + ")");
    datafile.position = m_results.datafiles.size() + 1;
    m_results.datafiles.push_back(std::move(datafile));
  }
}

}  // namespace

RunResults CollectReports(const std::vector<ProcessTraces>& processes, MachineKind machine) {
  RunResults results;
  results.machine = machine;
  Collection collection(results);
  std::time_t first = std::numeric_limits<std::time_t>::max();
  for (const ProcessTraces& traces : processes) {
    collection.Add(traces);
    first = std::min(first, TimeOf(traces));
  }
  results.started = UtcTime(first);
  return results;
}

}  // namespace OmbreliaHost
