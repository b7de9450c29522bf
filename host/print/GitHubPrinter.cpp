#include "host/print/GitHubPrinter.h"

#include <cctype>
#include <optional>
#include <vector>

#include "host/print/TestDescription.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"
#include "host/results/ResultSummary.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t MOST_ANNOTATIONS = 10;
constexpr std::size_t MOST_TABLE_ROWS = 200;
constexpr std::size_t LONGEST_TEXT = 200;

// What did not pass: a test, or a data file that could not be verified to its end.
struct Finding {
  std::string path;  // empty before any data file
  std::optional<long> line;
  std::string title;
  std::string words;
  Outcome outcome;
};

std::string ShownWords(const TestOutcome& test) {
  std::string words = CellShown(test.subject, LONGEST_TEXT);
  if (!test.evidence.cells.empty()) {
    const EvidenceCell& cell = test.evidence.cells.front();
    if (!cell.column.empty()) words += " Column " + ColumnShown(cell.column);
    if (cell.row) words += ", row " + std::to_string(*cell.row);
    const std::size_t around = cell.actual && cell.expected
                                   ? FirstDifference(*cell.actual, *cell.expected).value_or(0)
                                   : 0;
    if (cell.expected)
      words += ", expected {" + CellShown(*cell.expected, LONGEST_TEXT, around) + "}";
    if (cell.actual)
      words += ", there stands {" + CellShown(*cell.actual, LONGEST_TEXT, around) + "}";
  }
  return words;
}

void AddTests(std::vector<Finding>& findings, const std::vector<TestOutcome>& tests,
              const std::string& path) {
  for (const TestOutcome& test : tests) {
    if (test.outcome == Outcome::Passed) continue;
    findings.push_back(
        {path, LineOf(test), CellShown(test.name, LONGEST_TEXT), ShownWords(test), test.outcome});
  }
}

std::vector<Finding> FindingsOf(const RunResults& results) {
  std::vector<Finding> findings;
  AddTests(findings, results.beforeFirst, std::string());
  for (const DatafileResult& datafile : results.datafiles) {
    const std::string path = Utf8OfPath(datafile.path);
    if (datafile.loss) {
      findings.push_back(
          {path, std::nullopt, NameOf(datafile.outcome), DescribeLoss(datafile), datafile.outcome});
    }
    AddTests(findings, datafile.tests, path);
  }
  return findings;
}

// Escapes as the job's commands want it; of a property, also what ends it.
std::string CommandText(const std::string& text, bool property) {
  std::string escaped;
  for (const char c : text) {
    if (c == '%') {
      escaped += "%25";
    } else if (c == '\r') {
      escaped += "%0D";
    } else if (c == '\n') {
      escaped += "%0A";
    } else if (property && c == ':') {
      escaped += "%3A";
    } else if (property && c == ',') {
      escaped += "%2C";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

// Each character of ASCII that could be markup becomes an entity.
std::string MarkdownText(const std::string& text) {
  std::string markdown;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80 || std::isalnum(byte) || c == ' ' || c == '.' || c == ',' || c == '/') {
      markdown += c;
    } else {
      markdown += "&#" + std::to_string(byte) + ";";
    }
  }
  return markdown;
}

}  // namespace

void GitHubPrinter::BeginOtherOutput(const std::string& token) {
  m_out << "::stop-commands::" << token << "\n";
}

void GitHubPrinter::EndOtherOutput(const std::string& token) { m_out << "::" << token << "::\n"; }

void GitHubPrinter::PrintAnnotations(const RunResults& results) {
  const std::vector<Finding> findings = FindingsOf(results);
  std::size_t printed = 0;
  for (const Finding& finding : findings) {
    if (printed == MOST_ANNOTATIONS) break;
    ++printed;
    m_out << (finding.outcome == Outcome::Tolerated ? "::warning " : "::error ");
    if (!finding.path.empty()) m_out << "file=" << CommandText(finding.path, true) << ",";
    if (finding.line) m_out << "line=" << *finding.line << ",";
    m_out << "title=" << CommandText(finding.title, true)
          << "::" << CommandText(finding.words, false) << "\n";
  }
  if (findings.size() > printed) {
    m_out << "::notice title=verify-datafiles::" << findings.size() - printed
          << " more did not pass; the log names them all.\n";
  }
}

void GitHubPrinter::PrintStepSummary(const RunResults& results) {
  const TestCounts counts = CountTests(results);
  m_out << "### verify-datafiles\n\n"
        << results.datafiles.size() << " data files; " << counts.All() << " tests, "
        << counts.passed << " passed, " << counts.failed << " failed, " << counts.tolerated
        << " tolerated; machine: " << NameOf(results.machine) << "\n";
  const std::vector<Finding> findings = FindingsOf(results);
  if (findings.empty()) return;
  m_out << "\n| | Data file | Line | Test | Why |\n|---|---|---|---|---|\n";
  std::size_t printed = 0;
  for (const Finding& finding : findings) {
    if (printed == MOST_TABLE_ROWS) break;
    ++printed;
    m_out << "| " << NameOf(finding.outcome) << " | " << MarkdownText(LineShown(finding.path))
          << " | " << (finding.line ? std::to_string(*finding.line) : std::string()) << " | "
          << MarkdownText(finding.title) << " | " << MarkdownText(finding.words) << " |\n";
  }
  if (findings.size() > printed) m_out << "\nand " << findings.size() - printed << " more\n";
}

}  // namespace OmbreliaHost
