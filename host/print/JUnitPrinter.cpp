#include "host/print/JUnitPrinter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>
#include <vector>

#include "host/print/TestDescription.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"
#include "host/results/ResultSummary.h"
#include "host/results/StableNames.h"
#include "host/results/WideText.h"
#include "host/results/XmlText.h"

namespace OmbreliaHost {

namespace {

const char* const PLUGIN_SUITE = "DataHookOutputTestingPlugin";
const char* const TOLERANCE_SUITE = "verify-datafiles";
const char* const START_OF_DATAFILE =
    "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";

struct Counts {
  std::size_t tests = 0;
  std::size_t failures = 0;
  std::size_t errors = 0;
};

struct Case {
  enum class State { Passed, Tolerated, Failure, Error };
  std::string name;
  const TestOutcome* test;         // not of use for an error
  const DatafileResult* datafile;  // null before any data file
  State state;
  double seconds;
};

struct Suite {
  std::string name;
  std::vector<Case> cases;
  double seconds = 0;
};

Counts CountsOf(const std::vector<Case>& cases) {
  Counts counts;
  counts.tests = cases.size();
  for (const Case& testCase : cases) {
    counts.failures += testCase.state == Case::State::Failure ? 1 : 0;
    counts.errors += testCase.state == Case::State::Error ? 1 : 0;
  }
  return counts;
}

Case CaseOf(const TestOutcome& test, const DatafileResult* datafile) {
  Case::State state = Case::State::Failure;
  if (test.outcome == Outcome::Passed) state = Case::State::Passed;
  if (test.outcome == Outcome::Tolerated) state = Case::State::Tolerated;
  const std::string experiment = datafile == nullptr ? std::string() : datafile->experiment;
  return {StableName(experiment, test.name), &test, datafile, state, 0};
}

// Only whole data files are measured: the case that begins one bears its time, and the error if it could not be
// verified to its end.
std::vector<Case> CasesOf(const DatafileResult& datafile) {
  std::vector<Case> cases;
  for (const TestOutcome& test : datafile.tests) {
    cases.push_back(CaseOf(test, &datafile));
  }
  const bool begins = !cases.empty() && cases.front().name == START_OF_DATAFILE;
  if (datafile.loss && !begins) {
    cases.insert(cases.begin(), {START_OF_DATAFILE, nullptr, &datafile, Case::State::Error, 0});
  }
  if (datafile.loss) cases.front().state = Case::State::Error;
  if (!cases.empty()) cases.front().seconds = datafile.seconds;
  return cases;
}

std::vector<const DatafileResult*> InFixedOrder(const std::vector<DatafileResult>& datafiles) {
  std::vector<const DatafileResult*> sorted;
  for (const DatafileResult& datafile : datafiles) sorted.push_back(&datafile);
  std::stable_sort(
      sorted.begin(), sorted.end(), [](const DatafileResult* one, const DatafileResult* other) {
        return std::tie(one->experiment, one->path) < std::tie(other->experiment, other->path);
      });
  return sorted;
}

std::vector<Suite> SuitesOf(const RunResults& results) {
  std::vector<Suite> suites = {{PLUGIN_SUITE, {}, 0}};
  for (const TestOutcome& test : results.beforeFirst) {
    suites.front().cases.push_back(CaseOf(test, nullptr));
  }
  for (const DatafileResult* const datafile : InFixedOrder(results.datafiles)) {
    const std::string name = datafile->experiment.empty() ? "(no name)" : datafile->experiment;
    if (suites.size() == 1 || suites.back().name != name) suites.push_back({name, {}, 0});
    Suite& suite = suites.back();
    for (const Case& testCase : CasesOf(*datafile)) suite.cases.push_back(testCase);
    suite.seconds += datafile->seconds;
  }
  for (Suite& suite : suites) {
    UniqueNames names;
    for (Case& testCase : suite.cases) testCase.name = names.Next(testCase.name);
  }
  return suites;
}

std::string Attribute(const char* name, const std::string& value) {
  return " " + std::string(name) + "=\"" + XmlAttribute(value) + "\"";
}

std::string CountAttributes(const Counts& counts) {
  return Attribute("tests", std::to_string(counts.tests)) +
         Attribute("failures", std::to_string(counts.failures)) +
         Attribute("errors", std::to_string(counts.errors)) + Attribute("skipped", "0");
}

std::string TimeAttribute(double seconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.3f", seconds);
  return Attribute("time", text.data());
}

// "2026-03-01T12:00:00Z" without what says that it is UTC.
std::string TimestampAttribute(std::string time) {
  if (!time.empty() && time.back() == 'Z') time.pop_back();
  return Attribute("timestamp", time);
}

void AddLines(std::string& body, const std::string& text) {
  if (text.empty()) return;
  for (const std::string& line : LinesShown(text)) body += line + "\n";
}

// The subject comes first: some servers show the body and not the message.
std::string FailureBody(const Case& testCase, MachineKind machine) {
  const TestOutcome& test = *testCase.test;
  std::string body;
  AddLines(body, test.subject);
  AddLines(body, test.location);
  AddLines(body, test.message);
  for (const DescriptionLine& line : DescribeEvidence(test, machine)) body += line.text + "\n";
  if (testCase.datafile != nullptr) {
    for (const std::string& remark : testCase.datafile->remarks) AddLines(body, remark);
  }
  return body;
}

std::string LossBody(const DatafileResult& datafile) {
  std::string body = DescribeLoss(datafile) + "\n";
  if (!datafile.loss->lastLines.empty()) body += "The last lines on its standard error:\n";
  for (const std::string& line : datafile.loss->lastLines) AddLines(body, line);
  return body;
}

void PrintElement(std::ostream& out, const char* element, const std::string& type,
                  const std::string& message, const std::string& body) {
  out << "      <" << element << Attribute("message", message) << Attribute("type", type) << ">"
      << XmlContent(body) << "</" << element << ">\n";
}

void PrintCase(std::ostream& out, const Case& testCase, const std::string& suite,
               MachineKind machine) {
  out << "    <testcase" << Attribute("name", testCase.name) << Attribute("classname", suite)
      << TimeAttribute(testCase.seconds);
  if (testCase.datafile != nullptr) {
    out << Attribute("file", Utf8OfPath(testCase.datafile->path));
    const std::optional<long> line =
        testCase.test == nullptr ? std::nullopt : LineOf(*testCase.test);
    if (line) out << Attribute("line", std::to_string(*line));
  }
  if (testCase.state == Case::State::Passed) {
    out << "/>\n";
    return;
  }
  out << ">\n";
  if (testCase.state == Case::State::Error) {
    PrintElement(out, "error", NameOf(testCase.datafile->outcome), DescribeLoss(*testCase.datafile),
                 LossBody(*testCase.datafile));
  } else {
    const TestOutcome& test = *testCase.test;
    const std::string body = FailureBody(testCase, machine);
    if (testCase.state == Case::State::Tolerated) {
      out << "      <system-out>"
          << XmlContent("TOLERATED" + (test.chance.empty() ? "" : " " + test.chance) + "\n" + body)
          << "</system-out>\n";
    } else {
      PrintElement(out, "failure", NameOf(test.outcome), test.subject, body);
    }
  }
  out << "    </testcase>\n";
}

// Whether chance explains the tolerated failures, as a case that every report has.
void PrintTolerance(std::ostream& out, const ToleranceBudget& tolerance,
                    const std::string& attributes) {
  const bool blown = tolerance.state == ToleranceBudget::State::Blown;
  std::string body;
  for (const std::string& words : tolerance.words) AddLines(body, words);
  Counts counts;
  counts.tests = 1;
  counts.failures = blown ? 1 : 0;
  out << "  <testsuite" << Attribute("name", TOLERANCE_SUITE) << CountAttributes(counts)
      << TimeAttribute(0) << attributes << ">\n    <testcase"
      << Attribute("name", "tolerance-budget") << Attribute("classname", TOLERANCE_SUITE)
      << TimeAttribute(0) << ">\n";
  if (blown) {
    PrintElement(out, "failure", "tolerance", tolerance.words.front(), body);
  } else {
    out << "      <system-out>" << XmlContent(body) << "</system-out>\n";
  }
  out << "    </testcase>\n  </testsuite>\n";
}

}  // namespace

void JUnitPrinter::Print(const RunResults& results) {
  const std::vector<Suite> suites = SuitesOf(results);
  std::vector<Case> all;
  for (const Suite& suite : suites) all.insert(all.end(), suite.cases.begin(), suite.cases.end());

  Counts counts = CountsOf(all);
  if (results.tolerance) {
    ++counts.tests;
    if (results.tolerance->state == ToleranceBudget::State::Blown) ++counts.failures;
  }

  const std::string timestamp = TimestampAttribute(results.started);
  m_out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites"
        << Attribute("name", "verify-datafiles") << CountAttributes(counts)
        << TimeAttribute(results.seconds) << timestamp << ">\n";
  for (const Suite& suite : suites) {
    m_out << "  <testsuite" << Attribute("name", suite.name)
          << CountAttributes(CountsOf(suite.cases)) << TimeAttribute(suite.seconds) << timestamp
          << Attribute("hostname", m_hostname) << ">\n";
    for (const Case& testCase : suite.cases) {
      PrintCase(m_out, testCase, suite.name, results.machine);
    }
    m_out << "  </testsuite>\n";
  }
  if (results.tolerance) {
    PrintTolerance(m_out, *results.tolerance, timestamp + Attribute("hostname", m_hostname));
  }
  m_out << "</testsuites>\n";
}

}  // namespace OmbreliaHost
