#include "host/print/TerminalPrinter.h"

#include <algorithm>

#include "host/print/TestDescription.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

const char* const PLUGIN_NAME = "(plug-in loaded)";
const char* const TEST_INDENT = "  ";
const char* const DETAIL_INDENT = "    ";

std::string CountsText(const TestCounts& counts) {
  std::string text =
      std::to_string(counts.passed) + " passed, " + std::to_string(counts.failed) + " failed";
  if (counts.tolerated > 0) text += ", " + std::to_string(counts.tolerated) + " tolerated";
  return text;
}

// Only what did not pass.
std::string FailureCountsText(const TestCounts& counts) {
  std::string text;
  if (counts.failed > 0) text = std::to_string(counts.failed) + " failed";
  if (counts.tolerated > 0) {
    text += (text.empty() ? "" : ", ") + std::to_string(counts.tolerated) + " tolerated";
  }
  return text;
}

std::string StateInShort(const DatafileResult& datafile) {
  if (datafile.outcome != Outcome::Failed && datafile.outcome != Outcome::Tolerated) {
    return NameOf(datafile.outcome);
  }
  return FailureCountsText(CountTests(datafile.tests));
}

// PATH:LINE, as editors and terminals read it.
std::string PlaceOf(const std::string& path, const TestOutcome& test) {
  const std::optional<long> line = LineOf(test);
  return line ? path + ":" + std::to_string(*line) : path;
}

const TestOutcome* FirstFailing(const std::vector<TestOutcome>& tests) {
  const auto failing = std::find_if(tests.begin(), tests.end(), [](const TestOutcome& test) {
    return test.outcome != Outcome::Passed;
  });
  return failing == tests.end() ? nullptr : &*failing;
}

}  // namespace

void TerminalPrinter::PrintBeforeFirst(const std::vector<TestOutcome>& tests) {
  const TestCounts counts = CountTests(tests);
  const bool passed = counts.failed + counts.tolerated == 0;
  if (passed && m_verbosity == Verbosity::Quiet) return;
  PrintHead(passed ? Color::Good : Color::Bad, passed ? "ok    " : "FAIL  ", PLUGIN_NAME,
            CountsText(counts));
  PrintTests(tests, PLUGIN_NAME);
  m_out.flush();
}

void TerminalPrinter::PrintDatafile(const DatafileResult& datafile) {
  const bool passed = datafile.outcome == Outcome::Passed;
  if (passed && m_verbosity == Verbosity::Quiet) return;
  const bool tolerated = datafile.outcome == Outcome::Tolerated;
  const std::string state =
      datafile.loss ? DescribeLoss(datafile) : CountsText(CountTests(datafile.tests));
  PrintHead(passed      ? Color::Good
            : tolerated ? Color::Unsure
                        : Color::Bad,
            passed      ? "ok    "
            : tolerated ? "TOL   "
                        : "FAIL  ",
            PathShown(datafile.path.filename().string()), state);
  if (datafile.loss) PrintLastLines(*datafile.loss);
  for (const std::string& remark : datafile.remarks) PrintIndented(remark);
  PrintTests(datafile.tests, PathShown(datafile.path.string()));
  m_out.flush();
}

void TerminalPrinter::PrintHead(Color color, const char* verdict, const std::string& name,
                                const std::string& state) {
  m_out << Colored(color, verdict) << name << ": " << state << "\n";
}

void TerminalPrinter::PrintTests(const std::vector<TestOutcome>& tests, const std::string& path) {
  for (const TestOutcome& test : tests) {
    if (test.outcome != Outcome::Passed) {
      PrintFailure(test, path);
    } else if (m_verbosity == Verbosity::Verbose) {
      m_out << TEST_INDENT << Colored(Color::Good, "ok") << "  " << LineShown(test.name) << "\n";
    }
  }
}

void TerminalPrinter::PrintFailure(const TestOutcome& test, const std::string& path) {
  m_out << TEST_INDENT << Colored(Color::Strong, PlaceOf(path, test)) << ": "
        << LinesShown(test.name).front();
  if (test.outcome == Outcome::Tolerated) m_out << Colored(Color::Unsure, " (tolerated)");
  m_out << "\n";
  PrintIndented(test.subject);
  for (const DescriptionLine& line : DescribeEvidence(test, m_machine)) {
    m_out << DETAIL_INDENT << (line.decides ? Colored(Color::Bad, line.text) : line.text) << "\n";
  }
  PrintIndented(test.message);
  if (m_verbosity == Verbosity::Verbose || test.evidence.kind == Evidence::Kind::None) {
    PrintIndented(test.location);
  }
}

void TerminalPrinter::PrintLastLines(const Loss& loss) {
  if (loss.lastLines.empty()) return;
  m_out << TEST_INDENT << "The last lines on its standard error:\n";
  for (const std::string& line : loss.lastLines) PrintIndented(line);
}

void TerminalPrinter::PrintIndented(const std::string& text) {
  if (text.empty()) return;
  for (const std::string& line : LinesShown(text)) m_out << DETAIL_INDENT << line << "\n";
}

void TerminalPrinter::PrintNotPassed(const RunResults& results) {
  const bool allPassed = FirstFailing(results.beforeFirst) == nullptr &&
                         CountDatafiles(results, Outcome::Passed) == results.datafiles.size();
  if (allPassed) return;
  m_out << "\nNot passed:\n";
  if (FirstFailing(results.beforeFirst) != nullptr) {
    m_out << TEST_INDENT << PLUGIN_NAME << ": "
          << FailureCountsText(CountTests(results.beforeFirst)) << "\n";
  }
  for (const DatafileResult& datafile : results.datafiles) {
    if (datafile.outcome == Outcome::Passed) continue;
    const std::string path = PathShown(datafile.path.string());
    const TestOutcome* const failing = FirstFailing(datafile.tests);
    m_out << TEST_INDENT << (failing == nullptr ? path : PlaceOf(path, *failing)) << ": "
          << StateInShort(datafile) << "\n";
  }
}

void TerminalPrinter::PrintSummary(const RunResults& results) {
  PrintNotPassed(results);
  const TestCounts counts = CountTests(results);
  m_out << "\nData files: " << results.datafiles.size();
  for (const Outcome outcome : {Outcome::Crashed, Outcome::TimedOut, Outcome::Lost}) {
    const std::size_t count = CountDatafiles(results, outcome);
    if (count > 0) m_out << ", " << count << " " << NameOf(outcome);
  }
  m_out << "; tests: " << counts.All() << ", " << CountsText(counts) << "\n";
  m_out << "Machine: " << NameOf(results.machine) << "\n";
  for (const std::filesystem::path& report : results.reports) {
    m_out << "Report: " << PathShown(report.string()) << "\n";
  }
  m_out.flush();
}

void TerminalPrinter::PrintToleratedFailures(const RunResults& results) {
  for (const DatafileResult& datafile : results.datafiles) {
    for (const TestOutcome& test : datafile.tests) {
      if (test.chance.empty()) continue;
      m_out << "Tolerated: " << PathShown(datafile.path.string()) << ", " << LineShown(test.name)
            << ": " << test.chance << "\n";
    }
  }
  m_out.flush();
}

void TerminalPrinter::PrintTolerance(const RunResults& results) {
  if (!results.tolerance || results.tolerance->state == ToleranceBudget::State::Kept) return;
  const bool blown = results.tolerance->state == ToleranceBudget::State::Blown;
  for (const std::string& words : results.tolerance->words) {
    m_out << Colored(blown ? Color::Bad : Color::Unsure, blown ? "Not by chance" : "Warning")
          << ": " << LineShown(words) << "\n";
  }
  m_out.flush();
}

std::string TerminalPrinter::Colored(Color color, const std::string& text) const {
  if (!m_colored) return text;
  switch (color) {
    case Color::Good:
      return "\x1B[32m" + text + "\x1B[0m";
    case Color::Bad:
      return "\x1B[31m" + text + "\x1B[0m";
    case Color::Unsure:
      return "\x1B[33m" + text + "\x1B[0m";
    case Color::Strong:
      return "\x1B[1m" + text + "\x1B[0m";
  }
  return text;
}

}  // namespace OmbreliaHost
