#include "host/print/SummaryPrinter.h"

#include <algorithm>
#include <string>

namespace OmbreliaHost {

namespace {

using Results = std::vector<TestResult>::const_iterator;

std::string Counts(Results begin, Results end) {
  const auto failed =
      std::count_if(begin, end, [](const TestResult& result) { return result.failed; });
  return std::to_string(end - begin - failed) + " passed, " + std::to_string(failed) + " failed";
}

// Further lines of a text stand below its first one.
std::string Indented(const std::string& text, std::size_t indent) {
  std::string indented;
  for (const char c : text) {
    indented += c;
    if (c == '\n') indented.append(indent, ' ');
  }
  return indented;
}

}  // namespace

void SummaryPrinter::Print(const std::vector<TestResult>& results,
                           const std::vector<std::filesystem::path>& datafiles,
                           const std::filesystem::path& report) {
  Results begin = results.begin();
  Results end = std::find_if(begin, results.end(), StartsDatafile);
  PrintGroup("(plug-in loaded)", begin, end);
  for (const std::filesystem::path& datafile : datafiles) {
    begin = end;
    if (end != results.end()) end = std::find_if(end + 1, results.end(), StartsDatafile);
    PrintGroup(datafile.filename().string(), begin, end);
  }
  m_out << "\nData files: " << datafiles.size() << "; tests: " << results.size() << ", "
        << Counts(results.begin(), results.end()) << "\nReport: " << report.string() << "\n";
}

void SummaryPrinter::PrintGroup(const std::string& name, Results begin, Results end) {
  const bool anyFailed =
      std::any_of(begin, end, [](const TestResult& result) { return result.failed; });
  m_out << (anyFailed ? "FAIL  " : "ok    ") << name << ": " << Counts(begin, end) << "\n";
  for (Results result = begin; result != end; ++result) {
    if (result->failed) PrintFailure(*result);
  }
}

void SummaryPrinter::PrintFailure(const TestResult& result) {
  const std::size_t indent = 20;
  m_out << "        " << result.name << "\n"
        << "          subject:  " << Indented(result.subject, indent) << "\n"
        << "          location: " << result.location << "\n"
        << "          message:  " << Indented(result.message, indent) << "\n";
}

}  // namespace OmbreliaHost
