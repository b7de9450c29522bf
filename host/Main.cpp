// verify-datafiles: plays the host's part for data files that are there already.
#include <wx/init.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <system_error>
#include <vector>

#include "host/print/SummaryPrinter.h"
#include "host/results/ExitStatus.h"
#include "host/results/ReportReader.h"
#include "host/results/WideText.h"
#include "host/run/AssertionForwarder.h"
#include "host/run/CommandLine.h"
#include "host/run/DatafileList.h"
#include "host/run/PluginLibrary.h"
#include "host/run/Progress.h"
#include "host/run/ReportFile.h"
#include "host/run/StimulusAreaFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {
namespace {

void EnterWorkingDirectory(const fs::path& directory) {
  if (directory.empty()) return;
  std::error_code error;
  fs::current_path(directory, error);
  if (error) {
    throw RunError(ExitStatus::WrongUse,
                   directory.string() + ": not usable as working directory: " + error.message());
  }
}

ExitStatus Run(const CommandLine& commandLine) {
  // Everything that names a file is looked up before the working directory changes, and every input is
  // read before anything runs.
  const fs::path plugin =
      commandLine.plugin.empty() ? DefaultPluginLibrary() : fs::absolute(commandLine.plugin);
  const std::vector<fs::path> datafiles = ListDatafiles(commandLine.inputs);
  std::vector<std::vector<Ombrelia::StimAreaData>> areas;
  areas.reserve(datafiles.size());
  for (const fs::path& datafile : datafiles) areas.push_back(ReadStimulusAreas(datafile));
  EnterWorkingDirectory(commandLine.workDir);

  ReportFile report;
  {
    AssertionForwarder assertions;
    const PluginLibrary library(plugin);
    assertions.ForwardTo(&library.Plugin());
    Progress progress(commandLine.progress, datafiles.size());
    for (std::size_t i = 0; i < datafiles.size(); ++i) {
      progress.Next(datafiles[i]);
      library.Plugin().PerformPostProcessing(TextOfPath(datafiles[i]), areas[i]);
    }
    // A result after the flush would start a report that replaces this one.
    assertions.ForwardTo(nullptr);
    report.RememberStateBeforeWriting();
    library.Plugin().FlushTestOutput();
    report.RequireWritten();
  }

  const std::vector<TestResult> results = ReadReport(report.Path(), datafiles);
  SummaryPrinter(std::cout).Print(results, datafiles, report.Path());
  const bool anyFailed = std::any_of(results.begin(), results.end(),
                                     [](const TestResult& result) { return result.failed; });
  return anyFailed ? ExitStatus::SomeFailingTest : ExitStatus::NoFailingTest;
}

ExitStatus RunProgram(int argc, char** argv) {
  try {
    CommandLine commandLine;
    if (const auto end = ParseCommandLine(argc, argv, commandLine)) return *end;
    // The console's wx: no display is asked for.
    const wxInitializer wx;
    if (!wx.IsOk()) throw RunError(ExitStatus::NoReport, "wxWidgets cannot be initialised");
    ReadFileNamesAsUtf8();
    return Run(commandLine);
  } catch (const RunError& error) {
    std::cerr << "verify-datafiles: " << error.what() << std::endl;
    return error.Status();
  } catch (const std::exception& error) {
    std::cerr << "verify-datafiles: no report: " << error.what() << std::endl;
    return ExitStatus::NoReport;
  }
}

}  // namespace
}  // namespace OmbreliaHost

int main(int argc, char** argv) { return static_cast<int>(OmbreliaHost::RunProgram(argc, argv)); }
