// Reads the plug-in's report back.
#ifndef OMBRELIA_HOST_RESULTS_REPORTREADER_H
#define OMBRELIA_HOST_RESULTS_REPORTREADER_H

#include <filesystem>
#include <string>
#include <vector>

namespace OmbreliaHost {

// One entry of the report; texts are UTF-8. A passing test has a name only.
struct TestResult {
  std::string name;  // with its number, as in "test001SingleDummyPassingTest"
  bool failed = false;
  std::string subject;
  std::string location;
  std::string message;
};

// Is this the result with which each data file begins?
bool StartsDatafile(const TestResult& result);

// The text of a report. Ends the run (NoReport) if the file cannot be read.
std::string TextOfReport(const std::filesystem::path& path);

struct ReportReading {
  std::vector<TestResult> results;  // in their order; those before the one that broke the report
  std::string fault;  // what is wrong, and the test that broke it; empty if nothing is
  // Words on how many tests there are; empty if the text is no well-formed XML or was broken.
  std::string countInHead;
  std::string countOfEntries;
};

// report: the text, whole or not. name: what to call it in the words of the fault. datafiles: those that were
// handed over, for the same words; empty if they are not known.
ReportReading ReadReportText(const std::string& report, const std::string& name,
                             const std::vector<std::filesystem::path>& datafiles);

// All results in their order. Ends the run: NoReport if the file cannot be read; MalformedReport if it
// is no well-formed XML, or if its entries are not those that its head counts, since no text in it is
// escaped and one may read as markup. The error names the test that broke it. datafiles: the files that
// were handed over, for the words of the error.
std::vector<TestResult> ReadReport(const std::filesystem::path& path,
                                   const std::vector<std::filesystem::path>& datafiles);

}  // namespace OmbreliaHost

#endif
