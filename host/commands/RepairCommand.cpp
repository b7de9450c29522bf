#include "host/commands/RepairCommand.h"

#include <iostream>
#include <system_error>
#include <utility>
#include <vector>

#include "host/print/VisibleText.h"
#include "host/results/CodePoints.h"
#include "host/results/ReportContent.h"
#include "host/results/ReportReader.h"
#include "host/results/ReportRepair.h"
#include "host/run/DatafileList.h"
#include "host/run/WholeFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

constexpr std::size_t LONGEST_TEXT = 200;  // characters of the text that broke the report

void RequireAnotherFile(const fs::path& output, const fs::path& report) {
  std::error_code error;
  if (fs::equivalent(output, report, error)) {
    throw RunError(ExitStatus::WrongUse,
                   output.string() +
                       ": is the report itself, which is never overwritten; name "
                       "another file with --output");
  }
}

// The data files by experiment, for the words on a fault.
std::vector<DatafileResult> DatafilesOf(std::vector<TestResult> results) {
  std::vector<DatafileResult> datafiles;
  for (std::vector<TestOutcome>& tests : ContentOf(std::move(results)).ofDatafiles) {
    datafiles.push_back(DatafileOfTests(std::move(tests)));
  }
  return datafiles;
}

void Print(const ReportFault& fault, const fs::path& report,
           const std::vector<DatafileResult>& datafiles) {
  std::cout << PathShown(report.string()) << ": " << LineShown(DescribeFault(fault, datafiles))
            << "\n    "
            << CellShown(fault.line, LONGEST_TEXT,
                         CodePointsOf(fault.line.substr(0, fault.place)).size())
            << "\n";
}

void Write(const fs::path& path, const std::string& text) {
  WholeFile file(path);
  file.Stream() << text;
  file.Close();
}

}  // namespace

ExitStatus RunRepairCommand(const RepairArguments& arguments) {
  RequireReadableFile(arguments.report);
  const fs::path copy =
      arguments.output.empty() ? RepairedPath(arguments.report) : arguments.output;
  RequireAnotherFile(copy, arguments.report);
  const std::string name = arguments.report.string();
  const std::string report = TextOfReport(arguments.report);
  const ReportReading reading = ReadReportText(report, name, {});

  if (reading.fault.empty()) {
    std::cout << PathShown(name) << ": the report is well-formed, " << reading.countOfEntries
              << "\n";
    if (!arguments.output.empty()) {
      Write(copy, report);
      std::cout << PathShown(copy.string()) << ": a copy of it, byte for byte\n";
    }
    return ExitStatus::NoFailingTest;
  }

  const RepairedReport repaired = RepairReport(report, {});
  const ReportReading readBack = ReadReportText(repaired.text, copy.string(), {});
  if (readBack.results.empty()) {
    throw RunError(ExitStatus::WrongUse,
                   name +
                       ": holds no result of any test; it is no report of the plug-in, or was cut "
                       "off before the first one");
  }
  std::cout << LineShown(reading.fault) << "\n";
  const std::vector<DatafileResult> datafiles = DatafilesOf(readBack.results);
  for (const ReportFault& fault : repaired.faults) Print(fault, arguments.report, datafiles);
  Write(copy, repaired.text);
  std::cout << PathShown(copy.string()) << ": a well-formed copy, " << readBack.countOfEntries
            << std::endl;
  if (readBack.fault.empty()) return ExitStatus::NoFailingTest;
  throw RunError(ExitStatus::MalformedReport,
                 readBack.fault + "; the copy holds the tests that could be told apart");
}

}  // namespace OmbreliaHost
