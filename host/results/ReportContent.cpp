#include "host/results/ReportContent.h"

#include <wx/filename.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "host/results/Explanation.h"
#include "host/results/Manifest.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

// Takes the texts over. number: the result's place in the report, from 1, which the report gives with three digits or more.
TestOutcome OutcomeOf(TestResult& result, std::size_t number) {
  const std::size_t digits = std::max<std::size_t>(3, std::to_string(number).size());
  TestOutcome test;
  test.number = static_cast<int>(number);
  test.name = result.name.substr(std::string("test").size() + digits);
  if (!result.failed) return test;
  test.outcome = Outcome::Failed;
  test.subject = std::move(result.subject);
  test.location = std::move(result.location);
  test.message = std::move(result.message);
  return test;
}

// The number in "<start><experiment>__812_ms".
std::optional<long> TrackedTime(const DatafileResult& datafile, const std::string& start) {
  const std::string before = start + datafile.experiment + "__";
  for (const TestOutcome& test : datafile.tests) {
    if (test.outcome != Outcome::Passed || !StartsWith(test.name, before)) continue;
    long time = 0;
    const char* const end = test.name.data() + test.name.size();
    const auto [stop, error] = std::from_chars(test.name.data() + before.size(), end, time);
    if (error == std::errc() && std::string(stop, end) == "_ms") return time;
  }
  return std::nullopt;
}

Outcome OutcomeOf(const std::vector<TestOutcome>& tests) {
  Outcome outcome = Outcome::Passed;
  for (const TestOutcome& test : tests) {
    if (test.outcome == Outcome::Passed) continue;
    if (StartsWith(test.name, "locating_verifier_for_")) return Outcome::Unknown;
    if (StartsWith(test.name, "open_and_parse_")) return Outcome::Unreadable;
    if (test.outcome == Outcome::Failed) {
      outcome = Outcome::Failed;
    } else if (outcome == Outcome::Passed) {
      outcome = Outcome::Tolerated;
    }
  }
  return outcome;
}

}  // namespace

ReportContent ContentOf(std::vector<TestResult> results) {
  ReportContent content;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (StartsDatafile(results[i])) content.ofDatafiles.emplace_back();
    (content.ofDatafiles.empty() ? content.beforeFirst : content.ofDatafiles.back())
        .push_back(OutcomeOf(results[i], i + 1));
  }
  return content;
}

std::string ExperimentLookedUp(const std::filesystem::path& datafile) {
  const std::string registered = ExperimentOf(datafile);
  if (!registered.empty()) return registered;
  return Utf8OfText(wxFileName(TextOfPath(datafile)).GetName().BeforeFirst(wxT(' ')));
}

void ConcludeFromTests(DatafileResult& datafile) {
  for (TestOutcome& test : datafile.tests) {
    if (test.outcome == Outcome::Failed && IsTolerated(datafile.experiment, test.name)) {
      test.outcome = Outcome::Tolerated;
    }
  }
  datafile.durationMs = TrackedTime(datafile, "__TIMING__TRACKING__");
  datafile.expansionMs = TrackedTime(datafile, "__EXPANSION__TRACKING__");
  datafile.outcome = OutcomeOf(datafile.tests);
}

DatafileResult DatafileOfTests(std::vector<TestOutcome> tests) {
  DatafileResult datafile;
  std::string name;
  for (const TestOutcome& test : tests) {
    const auto rest = [&](const std::string& start) {
      return StartsWith(test.name, start) ? test.name.substr(start.size()) : std::string();
    };
    const std::string called = rest("VerifyDatafile_was_called_for_");
    const std::string unknown = rest("locating_verifier_for_");
    const std::string unreadable = rest("open_and_parse_");
    if (datafile.experiment.empty()) {
      datafile.experiment = called.empty() ? unknown.substr(0, unknown.find(' ')) : called;
    }
    if (name.empty()) name = unknown.empty() ? unreadable : unknown;
  }
  if (name.empty()) name = datafile.experiment;
  datafile.path = PathOfUtf8(name.empty() ? "unknown experiment" : name);
  datafile.tests = std::move(tests);
  ConcludeFromTests(datafile);
  return datafile;
}

}  // namespace OmbreliaHost
